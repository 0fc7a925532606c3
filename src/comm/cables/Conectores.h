// CONECTORES.INI, beside TARVO.INI: what the name of a connector stands for ("tcp:host:port",
// "serie:dev,9600,O,7,1", "local:/path").
#pragma once

#include <QString>

namespace tarvo {
class Ajustes;
}

namespace tarvo::enlace {

// Empty if there is no such name. Reads the file anew at each call.
QString conector(const Ajustes& ajustes, const QString& nombre);
// The same for the text of such a file.
QString buscarConector(const QString& texto, const QString& nombre);

}  // namespace tarvo::enlace
