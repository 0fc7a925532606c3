// The windows of communications, by name: gestcomm, GrpDlg, TxPLUdlg, RxPLUDlg, Diagnostico,
// VerTramas, EstadoEnvio, CfgComm, EdiParms, ATModf.
//
//   GrpDlg, TxPLUdlg, RxPLUDlg: "clase", the kind of task; GrpDlg also "modo", 0, 1 (scales) or 2
//     (zeroing). Accepted, they have queued the tasks.
//   Diagnostico: "tarea", an id; or "estado" and "error", with "textoError" at will.
//   VerTramas: "tarea", an id whose line is followed; or "canal", from 0; or nothing for all.
//   EstadoEnvio: "grupo", the number of the group to begin with.
//   CfgComm, EdiParms, ATModf: by their doors, see Puertas.h.
#pragma once

#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::comm {

// REQUIRES that what `servicios` refers to outlives all windows.
void registrarVentanasComm(ventanas::Ventanas& ventanas, const Servicios& servicios);

}  // namespace tarvo::comm
