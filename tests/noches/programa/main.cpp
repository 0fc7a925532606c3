// tarvo-noches: simulated nights by seed. With --trafico A..B [--averias] [--entero] a line for
// each seed that distinguishes builds.
#include <QCoreApplication>
#include <cstdio>

#include "noches/Mundo.h"
#include "noches/Semillero.h"
#include "noches/Trafico.h"

namespace {

using namespace tarvo::noches;

int comparar(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList args = QCoreApplication::arguments();
  const QStringList rango = args.value(2).split(QStringLiteral(".."));
  const bool averias = args.contains(QStringLiteral("--averias"));
  const bool entero = args.contains(QStringLiteral("--entero"));
  for (quint64 s = rango.first().toULongLong(); s <= rango.last().toULongLong(); ++s)
    std::puts(qPrintable(trafico(s, averias, entero)));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 && QByteArrayView(argv[1]) == "--trafico") return comparar(argc, argv);
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
