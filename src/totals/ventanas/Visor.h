// The rows of one period: VerCols for all kinds but one, V_ColOpH for operators by hour. One
// window per period. Beside the rows, a chart of the filtered rows and the origin of the current
// row.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "totals/periodos/Listas.h"
#include "totals/ventanas/Puertas.h"
#include "ui_Visor.h"

namespace tarvo::totals {

class Visor final : public ventanas::Ventana {
  Q_OBJECT
 public:
  Visor(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);

  Resultado<> entrar(const PuertaVerCols& puerta);
  Resultado<> entrar(const PuertaV_ColOpH& puerta);
  void UsoMoneda(int moneda);
  qint64 IntvHandle() const { return filtro_.link; }

 private:
  Resultado<> mostrarPeriodo(qint64 link, std::optional<int> moneda, int grupo = 0);
  void montar();
  void prepararParrilla();
  Resultado<> llenarFiltros();
  void UpdateCaption();
  void filtrar();
  void filtroCambiado();
  void pintarGrafica();
  void ponerGrafica(const std::vector<Punto>& puntos);
  void pintarProcedencia();
  void verFila();
  bool deHoras() const {
    return filtro_.clase == TipoTotal::Horario || filtro_.clase == TipoTotal::OperHora;
  }

  Ui::Visor ui_;
  Periodos& p_;
  FiltroFilas filtro_;
  int moneda_;
  bool porOperador_;  // V_ColOpH
  std::unique_ptr<Temporizador> grafica_, procede_, codigos_;
  ventanas::Aparte serie_;
};

}  // namespace tarvo::totals
