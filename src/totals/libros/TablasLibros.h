// The tables with which the books prove themselves: what each machine was read and told, and where
// each number of a period came from. Columns and rules: docs/libros.md.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::totals {

dao::TablasDeSala tablasLibros();
// Brings them alone, for who works with this room alone.
Resultado<> asegurarTablasLibros(dao::Database& db);

// Small values that must agree with the rows, kept in the same database under a name (table
// EstadoTarvo).
class EstadoBase {
 public:
  explicit EstadoBase(dao::Database& db) : db_(db) {}
  Resultado<dao::Valor> leer(const QString& clave);  // Null when it was never written
  Resultado<> poner(const QString& clave, const dao::Valor& valor);
  // The next number of the one counter that puts readings and zeroings in order, whatever the clock
  // does.
  Resultado<qint64> siguienteSecuencia();

 private:
  dao::Database& db_;
};

}  // namespace tarvo::totals
