// What can be explored: the serial ports of the settings, devices and addresses as a person writes
// them.
#pragma once

#include <QStringList>
#include <optional>

#include "comm/exploracion/Hallazgo.h"

namespace tarvo {
class Ajustes;
}

namespace tarvo::exploracion {

inline constexpr size_t kMaxAccesos = 256;

// The ports of the channels, each once. A channel that is used for TCP/IP has none.
std::vector<Acceso> accesosDe(const Ajustes& ajustes);

// Each text is a device, "/dev/ttyUSB0" (it has a "/"), or "host:port", or "host:port-port", which
// is one access for each port; the last number of an address may be a range as well,
// "192.168.1.10-40:3000"; no number of an address is above 255. Each access once. Nothing if a text
// is none of these, or if there are more than kMaxAccesos.
std::optional<std::vector<Acceso>> leerAccesos(const QStringList& textos);
// The same from a text that a person typed or pasted: blanks, commas, semicolons and line ends
// separate them.
struct AccesosLeidos {
  std::vector<Acceso> accesos = {};
  QStringList malos = {};   // what is none
  bool demasiados = false;  // then there are no accesses
};
AccesosLeidos leerTexto(const QString& texto);
// The same accesses, those that are ports of a channel with its number and its line settings.
std::vector<Acceso> conSusCanales(std::vector<Acceso> accesos, const Ajustes& ajustes);

// One text for all names of a device or an address. Two accesses with one key are one.
QString claveDeSerie(const QString& ruta);
QString claveDeTcp(const QString& acceso);
QString claveDe(const Acceso& acceso);

}  // namespace tarvo::exploracion
