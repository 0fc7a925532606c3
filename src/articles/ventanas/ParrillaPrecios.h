// The prices of one article in a list: a row a tarifa, a column a level, written cell by cell.
#pragma once

#include "articles/Articulo.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::articles {

class ParrillaPrecios {
 public:
  // Takes the prices as they would be; a failure leaves the cell in edit.
  using AlCambiar = std::function<Resultado<>(const Precios& nuevos)>;

  // REQUIRES that window and list outlive it.
  ParrillaPrecios(ventanas::Ventana& ventana, ventanas::Parrilla& parrilla, AlCambiar alCambiar);

  void poner(const Precios& precios);
  void vaciar();
  const Precios& precios() const { return precios_; }
  void ponerMoneda(int moneda);

 private:
  Resultado<> escribir(int nivel, qint64 fila, const QString& texto);

  ventanas::Ventana& v_;
  ventanas::Parrilla& p_;
  AlCambiar alCambiar_;
  Precios precios_{};
  int moneda_;
};

}  // namespace tarvo::articles
