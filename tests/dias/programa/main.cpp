// tarvo-dias --semillas A..B [-j N]: days of a shop's catalogue by seed, with a report of the
// failing ones. --traza N: one seed with its trace.
#include "dias/Mundo.h"
#include "noches/Semillero.h"

int main(int argc, char** argv) {
  using namespace tarvo;
  return noches::semillero(
      argc, argv, [](quint64 semilla, std::function<void(const QString&)> alTrazar) {
        const dias::Veredicto v = dias::correrSemilla(semilla, std::move(alTrazar));
        return noches::Cosecha{v.diferencias, v.huella,
                               QStringLiteral("%1 días, %2 envíos, %3 cambios")
                                   .arg(v.dias)
                                   .arg(v.envios)
                                   .arg(v.cambios)};
      });
}
