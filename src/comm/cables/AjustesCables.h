// The settings of cables in TARVO.INI: the four channels and the devices of serial ports.
#pragma once

#include <QStringList>
#include <array>
#include <map>

#include "core/valores/Tipos.h"

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::enlace {

struct ParamCanal {
  int Puerto = 1;
  TipoAcceso Device = TipoAcceso::Ninguno;  // a connector needs no channel
  QString RS232 = QStringLiteral("9600,O,7,1");
  QString IniMdm0 = QStringLiteral("AT&FE0V0Q0Y1L3");
  QStringList IniMdmX{QStringLiteral("AT&C1"), QStringLiteral("AT&D2"), QStringLiteral("AT&A0")};
  QString PfxDial = QStringLiteral("ATDT");
  int Intentos = 4;
  int Espera = 40;
  int ATHang = 10000;
  int ControlLinea = 1;
  bool operator==(const ParamCanal&) const = default;
};

struct AjustesCables {
  std::array<ParamCanal, 4> canales{ParamCanal{.Puerto = 1}, ParamCanal{.Puerto = 2},
                                    ParamCanal{.Puerto = 3}, ParamCanal{.Puerto = 4}};
  // An addition of ours: another device for a serial port, by port number.
  std::map<int, QString> RutaPuerto;
};

SalaDeAjustes ajustesCables();

// The device of a serial port, or empty if there is no such port.
QString rutaDePuerto(const AjustesCables& ajustes, int puerto);

}  // namespace tarvo::enlace
