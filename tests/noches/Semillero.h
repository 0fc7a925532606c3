// What the programs that run seeds share: their command line, many processes, repeated seeds.
//   --semillas A..B [-j N]: each seed, the failing ones said; every twentieth runs twice and must
//   end alike. --traza N: one seed with its trace.
#pragma once

#include <QStringList>
#include <functional>

namespace tarvo::noches {

struct Cosecha {
  QStringList diferencias;  // empty: all is well
  QByteArray huella;        // alike for alike runs
  QString cuenta;           // what it did, in a line
};
using Correr =
    std::function<Cosecha(quint64 semilla, std::function<void(const QString&)> alTrazar)>;

// The exit status: 1 when a seed failed, 64 for wrong arguments.
int semillero(int argc, char** argv, const Correr& correr);

}  // namespace tarvo::noches
