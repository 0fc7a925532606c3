#include "core/dao/sqlite/Base.h"

#include <sqlite3.h>

#include "core/dao/Dialecto.h"
#include "core/dao/sqlite/Consulta.h"
#include "core/dao/sqlite/Copia.h"
#include "core/dao/sqlite/SentenciaSqlite.h"
#include "core/dao/sqlite/Tabla.h"

namespace tarvo::dao {

namespace {

constexpr size_t kSentenciasGuardadas = 200;

// Whether a statement changes tables or views rather than rows.
bool cambiaEsquema(QStringView sql) {
  const QStringView s = sql.trimmed();
  for (const QStringView palabra : {u"create", u"drop", u"alter"})
    if (s.startsWith(palabra, Qt::CaseInsensitive)) return true;
  return false;
}

}  // namespace

Resultado<qint64> ejecutarContando(Conexion& con, Preparada& p) {
  TARVO_INTENTAR(con.puedeEscribir());
  const qint64 antes = con.cambios();
  TARVO_INTENTAR(p.ejecutar());
  return con.cambios() == antes ? 0 : sqlite3_changes64(con.cruda());
}

Base::Base(std::shared_ptr<Conexion> con)
    : con_(std::move(con)), catalogo_(std::make_shared<Catalogo>(*con_)) {}

Resultado<Preparada> Base::traducida(QStringView sql) {
  auto t = traducirJet(
      sql, [this](const QString& columna) { return catalogo_->columnaDeTexto(columna); });
  if (!t) return std::unexpected(t.error());
  return con_->preparar(*t);
}

// Translated and prepared once for each text. Texts with pasted values would grow without bound, so
// a full store is emptied.
Resultado<Preparada*> Base::guardada(QStringView sql, std::span<const Valor> parametros) {
  const QString texto = sql.toString();
  auto hallada = guardadas_.find(texto);
  if (hallada == guardadas_.end()) {
    TARVO_TOMAR(auto p, traducida(sql));
    if (guardadas_.size() >= kSentenciasGuardadas) guardadas_.clear();
    hallada = guardadas_.emplace(texto, std::move(p)).first;
  }
  Preparada& p = hallada->second;
  if (sqlite3_bind_parameter_count(p.cruda()) != static_cast<int>(parametros.size()))
    return fallo(Fallo::Interno,
                 QStringLiteral("La consulta no tiene tantos parámetros como valores: %1")
                     .arg(texto.left(400)));
  p.ligar(parametros);
  return &p;
}

Resultado<std::unique_ptr<Recordset>> Base::OpenTable(QStringView tabla, QStringView indice) {
  TARVO_TOMAR(auto info, catalogo_->tabla(tabla));
  auto t = std::make_unique<Tabla>(con_, catalogo_, info);
  TARVO_INTENTAR(t->Index(indice));
  return t;
}

Resultado<std::unique_ptr<Recordset>> Base::OpenQuery(QStringView sql,
                                                      std::span<const Valor> parametros) {
  TARVO_TOMAR(auto p, guardada(sql, parametros));
  if (!sqlite3_stmt_readonly(p->cruda())) TARVO_INTENTAR(con_->puedeEscribir());
  return Consulta::abrir(*p);
}

Resultado<qint64> Base::Execute(QStringView sql, std::span<const Valor> parametros) {
  TARVO_TOMAR(auto p, guardada(sql, parametros));
  auto n = ejecutarContando(*con_, *p);
  if (n && cambiaEsquema(sql)) {
    con_->contarCambio();
    catalogo_->olvidar();
  }
  return n;
}

Resultado<std::unique_ptr<Sentencia>> Base::preparar(QStringView sql) {
  TARVO_TOMAR(auto p, traducida(sql));
  return std::make_unique<SentenciaSqlite>(con_, std::move(p));
}

Resultado<> Base::ejecutarGuion(QStringView guion) {
  TARVO_TOMAR(auto t, Transaccion::empezar(*this));
  for (const QString& parte : partirGuion(guion)) {
    TARVO_TOMAR(auto p, traducida(parte));
    TARVO_INTENTAR(p.ejecutar());
  }
  catalogo_->olvidar();
  con_->contarCambio();
  return t.confirmar();
}

void Base::Rollback() {
  con_->deshacer();
  catalogo_->olvidar();
}

bool Base::existeColumna(QStringView tabla, QStringView columna) {
  const auto info = catalogo_->tabla(tabla);
  return info && (*info)->numeros.contains(columna.toString().toLower());
}

Resultado<> Base::copiarEn(const QString& ruta) {
  return copiarBase(con_->ruta, ruta);
}

Resultado<> Base::asentar() {
  if (profundidad() > 0) return {};
  const int rc = sqlite3_wal_checkpoint_v2(con_->cruda(), nullptr, SQLITE_CHECKPOINT_PASSIVE,
                                           nullptr, nullptr);
  const int clase = rc & 0xff;
  if (clase == SQLITE_OK || clase == SQLITE_BUSY || clase == SQLITE_LOCKED) return {};
  return std::unexpected(con_->error(rc));
}

}  // namespace tarvo::dao
