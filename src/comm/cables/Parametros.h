// Turns the settings of a channel and the access text of a group into the values for opening a
// wire.
#pragma once

#include <QString>

#include "comm/cables/LinkSocket.h"

namespace tarvo::enlace {

struct ParamCanal;

// `baudios` above 0 replaces the first field of the line settings. `acceso` is a phone number
// (modem) or "host:port" and optionally ",n" (TCP/IP); a direct cable has none.
ParametrosLinea parametrosDe(const ParamCanal& canal, int baudios, const QString& acceso);

// Whether a TCP/IP wire can be opened by that text at all: it names a host and its port.
bool seAbrePorTcp(const QString& acceso);

// The initialisation script: pieces between "|" that are in turn sent and expected. See
// docs/protocolos.md.
QString guionModem(const ParamCanal& canal);

// A wait after dialling, in ms: values up to 600 are seconds, above that ms already.
int esperaEnMs(int espera);

}  // namespace tarvo::enlace
