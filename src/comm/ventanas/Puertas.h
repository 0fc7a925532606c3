// The doors of the windows of communications.
#pragma once

#include <optional>

#include "comm/cables/AjustesCables.h"
#include "comm/motor/gestcomm.h"
#include "core/valores/Tipos.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::comm {

// The protocol's times and the four channels.
struct PuertaCfgComm {
  static constexpr QStringView kNombre = u"CfgComm";
  bool operator==(const PuertaCfgComm&) const = default;
};

// The port and line of a channel, and the commands of its modem.
struct PuertaEdiParms {
  static constexpr QStringView kNombre = u"EdiParms";
  using Salida = enlace::ParamCanal;
  int numero = 1;
  enlace::ParamCanal canal = {};
};
struct PuertaATModf {
  static constexpr QStringView kNombre = u"ATModf";
  using Salida = enlace::ParamCanal;
  int numero = 1;
  enlace::ParamCanal canal = {};
};

// The queue, the channels and the session. `grupo`: the group whose latest task is selected; 0 for
// none.
struct PuertaGestcomm {
  static constexpr QStringView kNombre = u"gestcomm";
  int grupo = 0;
  bool operator==(const PuertaGestcomm&) const = default;
};

// The kind of dialog for the groups: groups alone; with a scale; with the report of a zeroing.
// Articles and their totals have their own dialogs.
enum ModoPedir : int { kModoGrupos = 0, kModoBalanza = 1, kModoCero = 2, kModoTxPLU, kModoRxPLU };

// Asks for the groups for which a task of this kind is queued; it is queued on acceptance.
struct PuertaGrpDlg {
  static constexpr QStringView kNombre = u"GrpDlg";
  TipoTarea clase = TipoTarea::TxZero;
  ModoPedir modo = kModoCero;
};
struct PuertaTxPLUdlg {
  static constexpr QStringView kNombre = u"TxPLUdlg";
  TipoTarea clase = TipoTarea::TxPlus;
};
struct PuertaRxPLUDlg {
  static constexpr QStringView kNombre = u"RxPLUDlg";
  TipoTarea clase = TipoTarea::RxPlus;
};

// The problem of a task and its remedy; without a task, that of a state and an error. `acabada`:
// the task as it ended, for one that has left the queue.
struct PuertaDiagnostico {
  static constexpr QStringView kNombre = u"Diagnostico";
  int tarea = 0;
  std::optional<motor::VistaTarea> acabada = {};
  int estado = 0, error = 0;
  QString textoError = {};
};

// The frames as they pass: on a task's line, on a channel (from 0), or on all.
struct PuertaVerTramas {
  static constexpr QStringView kNombre = u"VerTramas";
  int tarea = 0;
  std::optional<int> canal = {};
};

// The articles of the catalogue that a group holds; 0 for the group last shown.
struct PuertaEstadoEnvio {
  static constexpr QStringView kNombre = u"EstadoEnvio";
  int grupo = 0;
  bool operator==(const PuertaEstadoEnvio&) const = default;
};

}  // namespace tarvo::comm
