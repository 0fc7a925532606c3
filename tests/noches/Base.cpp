#include "noches/Base.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace tarvo::noches {

namespace {

bool delLector = false;

void morir(const char* que, const char* porque) {
  std::fprintf(stderr, "oraculo: %s: %s\n", que, porque);
  std::abort();
}

int alConfirmar(void* p) {
  auto& d = *static_cast<Disco*>(p);
  if (d.cortado) return 1;
  if (++d.confirmaciones == d.cortarEn) d.cortado = true;
  if (d.confirmaciones == d.fallarEn) return 1;
  return 0;
}

extern "C" int alAbrirConexion(sqlite3* db, char**, const sqlite3_api_routines*) {
  if (delLector) return SQLITE_OK;
  disco().conexion = db;
  sqlite3_commit_hook(db, alConfirmar, &disco());
  return SQLITE_OK;
}

}  // namespace

Disco& disco() {
  static Disco d = [] {
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(alAbrirConexion));
    return Disco{};
  }();
  return d;
}

void Disco::llenar() {
  if (conexion)
    sqlite3_exec(conexion, "PRAGMA max_page_count=1", nullptr, nullptr,
                 nullptr);  // rounded up to the present size
}

void Disco::vaciar() {
  if (conexion)
    sqlite3_exec(conexion, "PRAGMA max_page_count=1073741823", nullptr, nullptr, nullptr);
}

void Disco::soltar() {
  conexion = nullptr;
  cortado = false;
  cortarEn = fallarEn = -1;
}

Lector::Lector(const QString& ruta) {
  disco();
  delLector = true;
  if (sqlite3_open_v2(ruta.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
    morir("abrir", sqlite3_errmsg(db_));
  delLector = false;
  sqlite3_busy_timeout(db_, 5000);
}

Lector::~Lector() {
  for (const auto& [sql, s] : consultas_) sqlite3_finalize(s);
  sqlite3_close(db_);
}

qint64 Lector::Fila::entero(int columna) const {
  return sqlite3_column_int64(s_, columna);
}
double Lector::Fila::real(int columna) const {
  return sqlite3_column_double(s_, columna);
}
int Lector::Fila::columnas() const {
  return sqlite3_column_count(s_);
}
QByteArray Lector::Fila::texto(int columna) const {
  return QByteArray(static_cast<const char*>(sqlite3_column_blob(s_, columna)),
                    sqlite3_column_bytes(s_, columna));
}

void Lector::filas(const QByteArray& sql, const std::function<void(const Fila&)>& cada) {
  auto& s = consultas_[sql];
  if (!s && sqlite3_prepare_v2(db_, sql.constData(), -1, &s, nullptr) != SQLITE_OK)
    morir(sql.constData(), sqlite3_errmsg(db_));
  int r = sqlite3_step(s);
  for (; r == SQLITE_ROW; r = sqlite3_step(s))
    if (cada) cada(Fila(s));
  if (r != SQLITE_DONE) morir(sql.constData(), sqlite3_errmsg(db_));
  sqlite3_reset(s);
}

qint64 Lector::uno(const QByteArray& sql) {
  qint64 n = 0;
  filas(sql, [&](const Fila& f) { n = f.entero(0); });
  return n;
}

QByteArray Lector::todo() {
  std::vector<QByteArray> tablas;
  filas("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name",
        [&](const Fila& f) { tablas.push_back(f.texto(0)); });
  QByteArray texto;
  for (const auto& t : tablas) {
    texto += t + '\n';
    filas("SELECT * FROM [" + t + "]", [&](const Fila& f) {
      for (int i = 0; i < f.columnas(); ++i) texto += f.texto(i) + '|';
      texto += '\n';
    });
  }
  return texto;
}

}  // namespace tarvo::noches
