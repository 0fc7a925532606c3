// Shared by the programs that run seeds: their command line, many processes, repeated seeds.
//   --semillas A..B [-j N]: each seed, reporting failures; every twentieth runs twice, with the
//   same result. --traza N: one seed with its trace.
#pragma once

#include <QStringList>
#include <functional>

namespace tarvo::noches {

struct Cosecha {
  QStringList diferencias;  // empty: all is well
  QByteArray huella;        // equal for equal runs
  QString cuenta;           // its activity, in a line
};
using Correr =
    std::function<Cosecha(quint64 semilla, std::function<void(const QString&)> alTrazar)>;

// The exit status: 1 if a seed failed, 64 for wrong arguments.
int semillero(int argc, char** argv, const Correr& correr);

}  // namespace tarvo::noches
