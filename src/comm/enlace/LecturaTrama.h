// The fields of a frame for display. The frame machine reads frames in its own way.
#pragma once

#include <QByteArray>

namespace tarvo::enlace {

struct Paso;

struct LecturaTrama {
  enum Que { Ack, Nak, Vek, Nodal, Ruido } que = Ruido;
  bool buena = false;   // complete, with a right check; so is an acknowledgement
  int secuencia = -1;   // -1 for a missing field
  QByteArray estacion;  // VEK: the character; NODAL: "source>destination"
  int addr = -1;        // VEK with the usual layout
  int codigo = -1;
  QByteArray datos;  // for noise, all of it
};
LecturaTrama leerPaso(const Paso& paso);

// Does this outgoing VEK frame have one of the four-digit codes of cash registers?
bool llevaCodigoAncho(const QByteArray& trama);

}  // namespace tarvo::enlace
