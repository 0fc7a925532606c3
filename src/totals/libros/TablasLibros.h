// The tables that prove the books: the readings and zeroings of each machine, and the origin of
// each number of a period. Columns and rules: docs/libros.md.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::totals {

dao::TablasDeSala tablasLibros();
// Creates only these, for programs that use this room alone.
Resultado<> asegurarTablasLibros(dao::Database& db);

// Small named values that must agree with the rows, kept in the same database (table EstadoTarvo).
class EstadoBase {
 public:
  explicit EstadoBase(dao::Database& db) : db_(db) {}
  Resultado<dao::Valor> leer(const QString& clave);  // Null if it was never written
  Resultado<> poner(const QString& clave, const dao::Valor& valor);
  // The next number of the single counter that orders readings and zeroings, whatever the clock
  // does.
  Resultado<qint64> siguienteSecuencia();

 private:
  dao::Database& db_;
};

}  // namespace tarvo::totals
