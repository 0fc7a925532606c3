// The doors of the windows of communications.
#pragma once

#include <optional>

#include "comm/cables/AjustesCables.h"
#include "core/valores/Tipos.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::comm {

// The protocol's times and the four channels.
struct PuertaCfgComm {
  static constexpr QStringView kNombre = u"CfgComm";
};

// Port and line, and the orders of the modem, of one channel.
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

// The queue, the channels and the session. `grupo`: the group whose latest task is chosen; 0 for
// none.
struct PuertaGestcomm {
  static constexpr QStringView kNombre = u"gestcomm";
  int grupo = 0;
  bool operator==(const PuertaGestcomm&) const = default;
};

// How groups are asked for: alone; with a scale; with the report of a zeroing. Articles and their
// totals have dialogs of their own.
enum ModoPedir : int { kModoGrupos = 0, kModoBalanza = 1, kModoCero = 2, kModoTxPLU, kModoRxPLU };

// For which groups a task of this kind is queued. Accepted, it is.
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

// What is wrong with a task and what to do; without one, of a state and an error.
struct PuertaDiagnostico {
  static constexpr QStringView kNombre = u"Diagnostico";
  int tarea = 0;
  int estado = 0, error = 0;
  QString textoError = {};
};

// Frames as they pass: of a task's line, of a channel from 0, or of all.
struct PuertaVerTramas {
  static constexpr QStringView kNombre = u"VerTramas";
  int tarea = 0;
  std::optional<int> canal = {};
};

// What a group holds of the catalogue; 0 for the one that was seen last.
struct PuertaEstadoEnvio {
  static constexpr QStringView kNombre = u"EstadoEnvio";
  int grupo = 0;
  bool operator==(const PuertaEstadoEnvio&) const = default;
};

}  // namespace tarvo::comm
