// The part common to both kinds of recordset: columns by name, and the row under the cursor within
// a page.
#pragma once

#include "core/dao/Recordset.h"
#include "core/dao/sqlite/Catalogo.h"
#include "core/dao/sqlite/Pagina.h"

namespace tarvo::dao {

class Filas : public Recordset {
 public:
  int columna(QStringView nombre) const override {
    return numeros_.value(nombre.toString().toLower(), -1);
  }
  int numColumnas() const override { return columnas_; }
  bool Eof() const override { return fila_ >= pagina_.filas(); }

  bool nulo(int columna) const override { return !hay(columna) || pagina_.nulo(fila_, columna); }
  qint64 entero(int columna) const override {
    return hay(columna) ? pagina_.entero(fila_, columna) : 0;
  }
  double real(int columna) const override {
    return hay(columna) ? pagina_.real(fila_, columna) : 0;
  }
  QString texto(int columna) const override {
    return hay(columna) ? pagina_.texto(fila_, columna) : QString();
  }
  Valor valor(int columna) const override {
    return hay(columna) ? pagina_.valor(fila_, columna) : Valor();
  }

 protected:
  // A wrong column or a position at the end reads as Null.
  bool hay(int columna) const { return columna >= 0 && columna < columnas_ && !Eof(); }

  QHash<QString, int> numeros_;
  int columnas_ = 0;
  Pagina pagina_;
  int fila_ = 0;
};

}  // namespace tarvo::dao
