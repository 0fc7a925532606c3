// Many articles written as one set, by the rules of one at a time: how they stood goes into a
// batch, the history of their prices and what the machines must hear go with them, and so does how
// the batch left them. What takes a statement for each article takes one for all of them here.
#pragma once

#include "articles/Lotes.h"

namespace tarvo::articles {

class Tanda {
 public:
  // A slice that a window can stay alive with.
  static constexpr size_t kArticulos = 500;
  // Nadie: imported articles reach the groups by a complete transmission.
  enum class Oyen { Todos, Nadie };

  // REQUIRES that the references outlive it.
  Tanda(dao::Database& db, Catalogo& catalogo, Lotes& lotes, QString ventana, Oyen oyen)
      : db_(db), catalogo_(catalogo), lotes_(lotes), ventana_(std::move(ventana)), oyen_(oyen) {}

  // One transaction: those that are there become these, the others are made. Of one that is made
  // the history has the first price that isn't 0, which says who brought it and when.
  // REQUIRES a batch, different keys, sections that there are; no system articles, and no bar code
  // that another article of the section has.
  Resultado<> escribir(qint64 lote, std::span<const Articulo> articulos);

 private:
  Resultado<> tender(std::span<const Articulo> articulos);
  Resultado<> cambiarLosQueHay();
  Resultado<QStringList> columnasQueCambian();
  Resultado<> historia(const QString& columna, int nivel, int tarifa);
  Resultado<> hacerLosNuevos();

  dao::Database& db_;
  Catalogo& catalogo_;
  Lotes& lotes_;
  QString ventana_;
  Oyen oyen_;
  std::unique_ptr<dao::Sentencia> poner_;
};

}  // namespace tarvo::articles
