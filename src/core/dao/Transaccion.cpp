#include "core/dao/Database.h"

namespace tarvo::dao {

Resultado<Transaccion> Transaccion::empezar(Database& db) {
  TARVO_INTENTAR(db.BeginTrans());
  return Transaccion(db);
}

Resultado<> Transaccion::confirmar() {
  if (!db_) return fallo(Fallo::Interno, QStringLiteral("La transacción ya había terminado."));
  TARVO_INTENTAR(db_->CommitTrans());
  db_ = nullptr;
  return {};
}

Resultado<> todoONada(Database& db, const std::function<Resultado<>()>& hacer) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db));
  TARVO_INTENTAR(hacer());
  return t.confirmar();
}

}  // namespace tarvo::dao
