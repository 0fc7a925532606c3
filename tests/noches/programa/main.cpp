// tarvo-noches: simulated nights by seed.
#include "noches/Mundo.h"
#include "noches/Semillero.h"

int main(int argc, char** argv) {
  using namespace tarvo::noches;
  return semillero(argc, argv, [](quint64 semilla, std::function<void(const QString&)> alTrazar) {
    const Veredicto v = correrSemilla(semilla, std::move(alTrazar));
    return Cosecha{v.diferencias, v.huella,
                   QStringLiteral("%1 noches, %2 arranques, %3 con problemas, %4 eventos")
                       .arg(v.noches)
                       .arg(v.arranques)
                       .arg(v.conProblemas)
                       .arg(v.eventos)};
  });
}
