// VerFils: one code across periods, for articles, groups, operators and departments. Opened from
// the windows of articles, operators, departments and groups, and from a row of a viewer.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/periodos/Listas.h"
#include "totals/ventanas/Puertas.h"
#include "ui_VerFils.h"

namespace tarvo::totals {

class VerFilsVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  VerFilsVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);

  Resultado<> entrar(const PuertaVerFils& puerta);
  qint64 RowHandle() const { return filtro_.codigo; }

 private:
  void montar();
  Resultado<> elegirPrimero();
  void prepararParrilla();
  void filtrar();
  void pintarGrafica();
  void pedirIntervalo();
  void usarMoneda(int moneda);

  Ui::VerFils ui_;
  Periodos& p_;
  FiltroCodigo filtro_;
  QString nombre_;
  int moneda_;
  bool porGrupo_ = false;  // the current columns of the grid
  std::unique_ptr<Temporizador> grafica_;
};

}  // namespace tarvo::totals
