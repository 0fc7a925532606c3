// BrowOfer: the offers of a group. Prices and dates are edited in the list itself; a date applies
// to all offers shown, and can be undone until the window is closed.
#pragma once

#include "articles/precios/Ofertas.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_BrowOfer.h"

namespace tarvo::precios {

class BrowOfer final : public ventanas::Ventana {
  Q_OBJECT
 public:
  BrowOfer(ventanas::Contexto& contexto, const QString& nombre, Ofertas& motor);
  Resultado<> entrar(const PuertaBrowOfer& puerta);

  // Reads the list again; the selection is kept.
  void RefrescoRemoto();
  // Notes an offer that another window has written, to be undone here.
  void apuntarAlta(const QString& articulo, const Ofertas::Alta& alta);

 private:
  void montar();
  void prepararParrilla();
  Resultado<> seccionCambiada();
  Resultado<> abrirLista();
  void fechaCambiada(QLineEdit& caja, Dia& filtro);
  void actualizarAcciones();
  FiltroOfertas filtro() const;
  std::optional<ClaveOferta> claveDe(qint64 fila) const;

  Resultado<> precioEscrito(qint64 fila, std::size_t nivel, const QString& texto);
  Resultado<Dia> leerFecha(Extremo extremo, const QString& texto) const;
  Resultado<> fechaEscrita(Extremo extremo, const QString& texto);
  void cambiarFechas(Extremo extremo, const Dia& dia);
  QString avisoFechas(Extremo extremo, const Dia& dia, int cuantas) const;
  void nueva();
  void borrar();

  Ui::BrowOfer ui_;
  Ofertas& motor_;
  Dia desde_, hasta_;
  std::optional<Dia> fechaEnCola_;  // entered, and still to be asked about
  ventanas::Deshacer* deshacer_ = nullptr;
};

}  // namespace tarvo::precios
