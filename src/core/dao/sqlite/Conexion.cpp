#include "core/dao/sqlite/Conexion.h"

#include <sqlite3.h>

#include "core/dao/sqlite/Errores.h"

namespace tarvo::dao {

namespace {

constexpr qsizetype kLibresMayor = 200;

}  // namespace

void Preparada::soltar() {
  if (s_) con_->guardar(s_);
  s_ = nullptr;
}

Preparada& Preparada::operator=(Preparada&& otra) noexcept {
  if (this == &otra) return *this;
  soltar();
  con_ = otra.con_;
  s_ = std::exchange(otra.s_, nullptr);
  return *this;
}

Preparada::~Preparada() {
  soltar();
}

void Preparada::ligar(int parametro, qint64 n) {
  sqlite3_bind_int64(s_, parametro + 1, n);
}
void Preparada::ligar(int parametro, double x) {
  sqlite3_bind_double(s_, parametro + 1, x);
}

void Preparada::ligar(int parametro, const QString& s) {
  const QByteArray utf8 = s.toUtf8();
  sqlite3_bind_text64(s_, parametro + 1, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                      SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Preparada::ligar(int parametro, const Valor& v) {
  if (v.esEntero()) return ligar(parametro, v.entero());
  if (v.esReal()) return ligar(parametro, v.real());
  if (v.esTexto()) return ligar(parametro, v.texto());
  sqlite3_bind_null(s_, parametro + 1);
}

void Preparada::ligar(std::span<const Valor> valores, int desde) {
  for (size_t i = 0; i < valores.size(); ++i) ligar(desde + static_cast<int>(i), valores[i]);
}

Resultado<bool> Preparada::paso() {
  const int rc = sqlite3_step(s_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  Error e = con_->error(rc);
  sqlite3_reset(s_);
  return std::unexpected(std::move(e));
}

void Preparada::reponer() {
  sqlite3_reset(s_);
}

Resultado<> Preparada::ejecutar() {
  for (;;) {
    TARVO_TOMAR(const auto fila, paso());
    if (!fila) break;
  }
  // The engine may report a failed commit only here.
  if (const int rc = sqlite3_reset(s_); rc != SQLITE_OK) return std::unexpected(con_->error(rc));
  return {};
}

Conexion::~Conexion() {
  for (Preparada* p : {&begin_, &commit_, &rollback_}) *p = Preparada();
  vaciarLibres();
  sqlite3_close_v2(db_);
}

void Conexion::vaciarLibres() {
  for (sqlite3_stmt* s : std::as_const(libres_)) sqlite3_finalize(s);
  libres_.clear();
}

void Conexion::guardar(sqlite3_stmt* s) {
  const QByteArray sql(sqlite3_sql(s));
  if (libres_.contains(sql)) {
    sqlite3_finalize(s);
    return;
  }
  if (libres_.size() >= kLibresMayor) vaciarLibres();  // texts that never come again
  sqlite3_reset(s);
  sqlite3_clear_bindings(s);
  libres_.insert(sql, s);
}

Error Conexion::error(int codigo) const {
  return errorDe(db_, codigo, ruta);
}

Resultado<Preparada> Conexion::preparar(const QString& sql) {
  const QByteArray utf8 = sql.toUtf8();
  if (sqlite3_stmt* libre = libres_.take(utf8)) return Preparada(this, libre);
  sqlite3_stmt* s = nullptr;
  const char* cola = nullptr;
  const int rc = sqlite3_prepare_v3(db_, utf8.constData(), static_cast<int>(utf8.size()),
                                    SQLITE_PREPARE_PERSISTENT, &s, &cola);
  if (rc != SQLITE_OK)
    return std::unexpected(errorDe(db_, rc, rc == SQLITE_ERROR ? sql.left(400) : ruta));
  Preparada p(this, s);
  const bool sobra = !QByteArrayView(cola, utf8.constData() + utf8.size()).trimmed().isEmpty();
  if (!p || sobra)
    return fallo(Fallo::Formato,
                 QStringLiteral("Se esperaba una sola consulta: %1").arg(sql.left(400)));
  return p;
}

Resultado<> Conexion::ejecutar(const QString& sql) {
  TARVO_TOMAR(auto p, preparar(sql));
  return p.ejecutar();
}

Resultado<> Conexion::ejecutarGuardada(Preparada& p, const QString& sql) {
  if (!p) {
    TARVO_TOMAR(auto nueva, preparar(sql));
    p = std::move(nueva);
  }
  return p.ejecutar();
}

Resultado<> Conexion::empezar() {
  TARVO_INTENTAR(puedeEscribir());
  if (profundidad_ == 0) {
    TARVO_INTENTAR(ejecutarGuardada(begin_, QStringLiteral("BEGIN IMMEDIATE")));
  } else {
    TARVO_INTENTAR(ejecutar(QStringLiteral("SAVEPOINT t%1").arg(profundidad_)));
  }
  ++profundidad_;
  return {};
}

Resultado<> Conexion::confirmar() {
  if (profundidad_ == 0)
    return fallo(Fallo::Interno, QStringLiteral("No hay ninguna transacción abierta."));
  TARVO_INTENTAR(puedeEscribir());
  if (profundidad_ == 1) {
    TARVO_INTENTAR(ejecutarGuardada(commit_, QStringLiteral("COMMIT")));
  } else {
    TARVO_INTENTAR(ejecutar(QStringLiteral("RELEASE t%1").arg(profundidad_ - 1)));
  }
  --profundidad_;
  return {};
}

void Conexion::deshacer() {
  if (profundidad_ == 0) return;
  --profundidad_;
  contarCambio();
  if (sqlite3_get_autocommit(db_)) return;  // the engine has done it already
  if (profundidad_ == 0) {
    static_cast<void>(ejecutarGuardada(rollback_, QStringLiteral("ROLLBACK")));
  } else {
    static_cast<void>(ejecutar(QStringLiteral("ROLLBACK TO t%1").arg(profundidad_)));
    static_cast<void>(ejecutar(QStringLiteral("RELEASE t%1").arg(profundidad_)));
  }
}

Resultado<> Conexion::puedeEscribir() const {
  if (profundidad_ > 0 && sqlite3_get_autocommit(db_))
    return fallo(Fallo::Interno,
                 QStringLiteral("La transacción se ha deshecho por un fallo anterior: "
                                "no se ha guardado nada de ella."));
  return {};
}

qint64 Conexion::cambios() const {
  return sqlite3_total_changes64(db_) + otrosCambios_;
}

}  // namespace tarvo::dao
