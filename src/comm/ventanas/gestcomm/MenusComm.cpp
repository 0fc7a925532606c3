#include "comm/ventanas/gestcomm/MenusComm.h"
#include "comm/motor/TextosMotor.h"

#include <algorithm>

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

namespace {

constexpr EntradaMenu kEntradas[] = {
    {u"MnTxFch", 7, kModoGrupos},       {u"MnTxPLU", 1, kModoTxPLU},
    {u"MnSoloPrecios", 11, kModoTxPLU}, {u"MnTxTec", 2, kModoBalanza},
    {u"MnTxEtq", 8, kModoBalanza},      {u"MnTxTick", 3, kModoBalanza},
    {u"MnTxCfg", 4, kModoGrupos},       {u"MnTxCfB", 5, kModoBalanza},
    {u"MnZero", 6, kModoCero},          {u"MnBorr", 10, kModoGrupos},
    {u"MnCerr", 9, kModoGrupos},        {u"MnRxPLU", 16, kModoRxPLU},
    {u"MnRxGrT", 17, kModoGrupos},      {u"MnRxOpe", 18, kModoGrupos},
    {u"MnRxDep", 19, kModoGrupos},      {u"MnRxHor", 20, kModoGrupos},
    {u"MnRxOpH", 21, kModoGrupos},      {u"MnRxPed", 22, kModoGrupos},
    {u"MnRxInv", 23, kModoGrupos}};

}  // namespace

std::span<const EntradaMenu> entradasMenu() {
  return kEntradas;
}

void habilitarEntrada(QAction& accion, const motor::ClaseTarea* clase, const std::set<int>& tipos,
                      const ventanas::Contexto& c) {
  const bool seSabe = clase && clase->crear;
  const bool hayGrupo =
      clase && std::ranges::any_of(tipos, [&](int tipo) { return clase->valePara(tipo); });
  accion.setVisible(clase && c.ajustes.clases.tiene(clase->numero));
  accion.setEnabled(seSabe && hayGrupo);
  accion.setToolTip(!seSabe     ? c.textos(motor::kTxSinQuienEnvie)
                    : !hayGrupo ? c.textos(kTxSinGrupoParaClase)
                                : QString());
}

}  // namespace tarvo::comm
