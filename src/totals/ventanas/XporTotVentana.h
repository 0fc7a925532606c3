// XporTot: exports periods to a file. One block per period: each is shown and written on request,
// or all are written one after another.
#pragma once

#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/marco/Ventana.h"
#include "totals/intercambio/XporTot.h"
#include "totals/ventanas/Puertas.h"
#include "ui_XporTot.h"

namespace tarvo::totals {

class XporTotVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  XporTotVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> entrar(const PuertaXporTot& puerta);

 private:
  void montar();
  void LinkHandle(std::vector<qint64> links);
  void mostrarPrimero();
  QString textoCuentas(qint64 link);
  bool fueraConformes(size_t cuantos);
  void exportar(bool todos);
  Resultado<> exportarUno();
  QString textoBorrados() const;
  void acabar(const ventanas::Faena::Fin& fin);
  void saltar();

  Ui::XporTot ui_;
  Periodos& p_;
  XporTot motor_;
  std::vector<qint64> cola_;
  int hechos_ = 0;
  std::vector<Periodo> borrados_;
  QStringList otrosBloques_;  // the notices about files with another block of the same dates
};

}  // namespace tarvo::totals
