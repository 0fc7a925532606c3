#include "comm/ventanas/gestcomm/MenusComm.h"
#include "comm/motor/TextosMotor.h"

#include <algorithm>

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

namespace {

constexpr EntradaMenu kEntradas[] = {{u"MnTxFch", TipoTarea::TxHora, kModoGrupos},
                                     {u"MnTxPLU", TipoTarea::TxPlus, kModoTxPLU},
                                     {u"MnSoloPrecios", TipoTarea::TPreci, kModoTxPLU},
                                     {u"MnTxTec", TipoTarea::TxTecla, kModoBalanza},
                                     {u"MnTxEtq", TipoTarea::TxEtiq, kModoBalanza},
                                     {u"MnTxTick", TipoTarea::TxTick, kModoBalanza},
                                     {u"MnTxCfg", TipoTarea::TxCnfig, kModoGrupos},
                                     {u"MnTxCfB", TipoTarea::TxCfBal, kModoBalanza},
                                     {u"MnZero", TipoTarea::TxZero, kModoCero},
                                     {u"MnBorr", TipoTarea::BorrPlu, kModoGrupos},
                                     {u"MnCerr", TipoTarea::TxCerr, kModoGrupos},
                                     {u"MnRxPLU", TipoTarea::RxPlus, kModoRxPLU},
                                     {u"MnRxGrT", TipoTarea::RxGrTot, kModoGrupos},
                                     {u"MnRxOpe", TipoTarea::RxOpera, kModoGrupos},
                                     {u"MnRxDep", TipoTarea::RxDepar, kModoGrupos},
                                     {u"MnRxHor", TipoTarea::RxHorar, kModoGrupos},
                                     {u"MnRxOpH", TipoTarea::RxOpHor, kModoGrupos},
                                     {u"MnRxPed", TipoTarea::RxPedid, kModoGrupos},
                                     {u"MnRxInv", TipoTarea::RxInven, kModoGrupos}};

}  // namespace

std::span<const EntradaMenu> entradasMenu() {
  return kEntradas;
}

void habilitarEntrada(QAction& accion, const motor::ClaseTarea* clase,
                      const std::set<TipoGrupo>& tipos, const ventanas::Contexto& c) {
  const bool seSabe = clase && clase->crear;
  const bool hayGrupo =
      clase && std::ranges::any_of(tipos, [&](TipoGrupo tipo) { return clase->valePara(tipo); });
  accion.setVisible(clase && c.ajustes.clases.tiene(clase->tarea));
  accion.setEnabled(seSabe && hayGrupo);
  accion.setToolTip(!seSabe     ? c.textos(motor::kTxSinQuienEnvie)
                    : !hayGrupo ? c.textos(kTxSinGrupoParaClase)
                                : QString());
}

}  // namespace tarvo::comm
