#include "core/dao/sqlite/Consulta.h"

#include <sqlite3.h>

namespace tarvo::dao {

namespace {

std::unexpected<Error> soloTablas() {
  return fallo(Fallo::Interno,
               QStringLiteral("Una consulta solo se recorre hacia delante y no se modifica."));
}

}  // namespace

Resultado<std::unique_ptr<Consulta>> Consulta::abrir(Preparada& p) {
  auto c = std::make_unique<Consulta>();
  bool primera = true;
  for (;;) {
    TARVO_TOMAR(const auto fila, p.paso());
    // The first step may have re-prepared the statement after a change of the schema.
    if (std::exchange(primera, false)) {
      c->columnas_ = sqlite3_column_count(p.cruda());
      c->pagina_.vaciar(c->columnas_);
    }
    if (!fila) break;
    c->pagina_.anadir(p.cruda());
  }
  for (int i = c->columnas_ - 1; i >= 0; --i)
    c->numeros_.insert(QString::fromUtf8(sqlite3_column_name(p.cruda(), i)).toLower(), i);
  p.reponer();
  return c;
}

Resultado<> Consulta::MoveFirst() {
  fila_ = 0;
  return {};
}

Resultado<> Consulta::MoveNext() {
  if (!Eof()) ++fila_;
  return {};
}

Resultado<> Consulta::MoveLast() {
  fila_ = std::max(0, pagina_.filas() - 1);
  return {};
}

Resultado<> Consulta::Index(QStringView) {
  return soloTablas();
}
Resultado<bool> Consulta::Seek(Busca, std::span<const Valor>) {
  return soloTablas();
}
Resultado<> Consulta::Update() {
  return soloTablas();
}
Resultado<> Consulta::Delete() {
  return soloTablas();
}

}  // namespace tarvo::dao
