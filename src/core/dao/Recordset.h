// A cursor over rows, in two kinds.
//
// A *table* recordset covers one table in the order of one of its indexes: it seeks by key and
// walks in index order. A *dynaset* walks the rows of a query, in its order, forward and read-only.
//
// Position: a recordset is on a row, or at Eof. A new one is on its first row, or at Eof if there
// is none. The accessors (nulo, entero, real, texto...) REQUIRE a row. Rows are read in pages;
// after any write through the same Database the next move reads from the database again, so a walk
// sees rows added ahead of it. Failures of the engine are returned as Error and leave the position
// unchanged; Eof is no failure.
#pragma once

#include <array>
#include <memory>
#include <span>

#include "core/dao/Valor.h"
#include "core/valores/Resultado.h"

namespace tarvo::dao {

enum class Busca { Igual, MayorIgual };  // "=" and ">="

class Recordset {
 public:
  virtual ~Recordset() = default;

  // --- columns: resolve once, then use the number ---
  // The number of a column by its name, regardless of case; -1 if there is none.
  virtual int columna(QStringView nombre) const = 0;
  virtual int numColumnas() const = 0;

  // --- position ---
  virtual bool Eof() const = 0;
  virtual Resultado<> MoveFirst() = 0;
  virtual Resultado<> MoveNext() = 0;  // REQUIRES a row
  virtual Resultado<> MoveLast() = 0;  // table recordsets only

  // Table recordsets only. Changes the order; the position becomes the first row.
  virtual Resultado<> Index(QStringView nombre) = 0;
  // Seeks by the first parts of the index key. Igual: the first row whose key begins with `clave`.
  // MayorIgual: the first row at or past it. True if found; if not, NoMatch() is true and the
  // recordset is at Eof.
  virtual Resultado<bool> Seek(Busca busca, std::span<const Valor> clave) = 0;
  template <class... K>
  Resultado<bool> Seek(Busca busca, const K&... clave) {
    const std::array<Valor, sizeof...(K)> v{Valor(clave)...};
    return Seek(busca, std::span<const Valor>(v));
  }
  virtual bool NoMatch() const = 0;

  // --- the row under the cursor ---
  virtual bool nulo(int columna) const = 0;
  virtual qint64 entero(int columna) const = 0;
  virtual double real(int columna) const = 0;
  virtual QString texto(int columna) const = 0;
  virtual Valor valor(int columna) const = 0;
  bool logico(int columna) const { return real(columna) != 0; }
  Fecha fecha(int columna) const { return Fecha::deDias(real(columna)); }

  // --- writing, table recordsets only ---
  // AddNew (or Edit, which REQUIRES a row), then poner for each column, then Update. Columns that
  // are not set keep their value or take their default. Update of a new row leaves the position
  // unchanged.
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  virtual void poner(int columna, const Valor& valor) = 0;
  virtual Resultado<> Update() = 0;
  virtual Resultado<> Delete() = 0;  // the row goes; the position becomes the next one
};

}  // namespace tarvo::dao
