// The prices of an article in a list: a row per tarifa, a column per level, with editable cells.
#pragma once

#include "articles/Articulo.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::articles {

class ParrillaPrecios {
 public:
  // Receives the prices with the edit applied; after a failure the cell remains in edit mode.
  using AlCambiar = std::function<Resultado<>(const Precios& nuevos)>;

  // REQUIRES that window and list outlive it.
  // `deQuien`: the article's name, for messages.
  ParrillaPrecios(ventanas::Ventana& ventana, ventanas::Parrilla& parrilla, AlCambiar alCambiar,
                  std::function<QString()> deQuien);

  void poner(const Precios& precios);
  void vaciar();
  const Precios& precios() const { return precios_; }
  void ponerMoneda(int moneda);
  // The first price that differs, by its name in the list of articles, and its former value.
  QString queCambia(const Precios& antes, const Precios& ahora) const;

 private:
  Resultado<> escribir(int nivel, qint64 fila, const QString& texto);

  ventanas::Ventana& v_;
  ventanas::Parrilla& p_;
  AlCambiar alCambiar_;
  std::function<QString()> deQuien_;
  Precios precios_{};
  int moneda_;
};

}  // namespace tarvo::articles
