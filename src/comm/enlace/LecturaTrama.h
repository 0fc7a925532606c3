// The fields of a frame for a person's eyes. What the frame machines make of it is another matter.
#pragma once

#include <QByteArray>

namespace tarvo::enlace {

struct Paso;

struct LecturaTrama {
  enum Que { Ack, Nak, Vek, Nodal, Ruido } que = Ruido;
  bool buena = false;   // whole, and its check agrees; an acknowledgement is
  int secuencia = -1;   // -1 for a field that isn't there
  QByteArray estacion;  // VEK: the character; NODAL: "source>destination"
  int addr = -1;        // VEK with the usual layout
  int codigo = -1;
  QByteArray datos;  // of noise: all of it
};
LecturaTrama leerPaso(const Paso& paso);

// Does this VEK frame, on its way out, bear one of the four-digit codes of cash registers?
bool llevaCodigoAncho(const QByteArray& trama);

}  // namespace tarvo::enlace
