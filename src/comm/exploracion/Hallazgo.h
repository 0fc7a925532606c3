// What the exploration finds at one access, as a value.
#pragma once

#include <vector>

#include "comm/cables/LinkSocket.h"

namespace tarvo::exploracion {

inline constexpr int kUltimaSonda = 20;  // of the stations, from 0, and of the nodes, from 1

// A serial port of this computer, or a host with its TCP port.
struct Acceso {
  enum class Clase { Serie, Tcp } clase = Clase::Serie;
  int canal = 0;   // 1 to 4: that of TARVO.INI which uses the port; 0 for none
  QString nombre;  // the device, or "host:port"
  enlace::ParametrosLinea linea = {};
};

enum class ResultadoCanal : int {
  SinPuerto = 0,  // it can't be opened
  SinCts = 1,     // the port exists, and no cable raises its line
  Cable = 2,      // open, and nothing recognised
  Modem = 3,
  Vek = 4,
  Nodal = 5,
};

// Why nothing was recognised.
enum class Motivo : int {
  Silencio,      // not a byte came
  Ruido,         // bytes that are no answer
  Eco,           // what is sent comes back
  OtroModem,     // a line, and not the one of a modem that obeys
  ModemCallado,  // a modem that answered, and then no longer
  NodoAMedias,   // a node that began an answer
  Cortada,       // the line was lost
};

struct GrupoHallado {
  int estacion = 0;            // or node
  std::vector<bool> balanzas;  // by position, which is the number of the scale
  bool operator==(const GrupoHallado&) const = default;
};

struct Hallazgo {
  Acceso acceso = {};
  ResultadoCanal resultado = ResultadoCanal::SinPuerto;
  int razon = 0;  // of SinPuerto: enlace::Razon
  Motivo motivo = Motivo::Silencio;
  int sonda = 0;                          // of NodoAMedias: the node
  std::vector<GrupoHallado> grupos = {};  // of Vek and Nodal
};

}  // namespace tarvo::exploracion
