// tarvo-noches --semillas A..B [-j N]: simulated nights by seed, the failing ones said. --traza N:
// one seed with its trace.
#include <sys/wait.h>
#include <unistd.h>
#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

#include "noches/Mundo.h"

namespace {

using namespace tarvo::noches;

void decir(const QString& linea) {
  std::fputs((linea + u'\n').toUtf8().constData(), stdout);
  std::fflush(stdout);
}

bool correr(quint64 semilla) {
  Veredicto v = correrSemilla(semilla);
  if (v.diferencias.isEmpty() && semilla % 20 == 0 && correrSemilla(semilla).huella != v.huella)
    v.diferencias += QStringLiteral("no se repite igual");
  if (!v.diferencias.isEmpty())
    decir(QStringLiteral("semilla %1 (noche %2):\n  %3")
              .arg(semilla)
              .arg(v.noches)
              .arg(v.diferencias.join(QStringLiteral("\n  "))));
  return v.diferencias.isEmpty();
}

// The seeds of one worker out of `de`. 1 when any failed.
int tanda(quint64 desde, quint64 hasta, int cual, int de) {
  int malas = 0;
  for (quint64 s = desde; s <= hasta; ++s) {
    if (static_cast<int>(s % static_cast<quint64>(de)) == cual && !correr(s)) ++malas;
    if (cual == 0 && s > desde && s % 1000 == 0) decir(QStringLiteral("... %1").arg(s));
  }
  return malas > 0;
}

int repartir(quint64 desde, quint64 hasta, int de) {
  if (de <= 1) return tanda(desde, hasta, 0, 1);
  for (int i = 0; i < de; ++i)
    if (fork() == 0) _exit(tanda(desde, hasta, i, de));
  int malo = 0, estado = 0;
  while (wait(&estado) > 0) malo |= !WIFEXITED(estado) || WEXITSTATUS(estado) != 0;
  return malo;
}

int trazar(quint64 semilla) {
  const Veredicto v = correrSemilla(semilla, decir);
  for (const auto& d : v.diferencias) decir(QStringLiteral("DIFERENCIA ") + d);
  decir(QStringLiteral("%1 eventos, %2 noches, %3 arranques, %4 con problemas")
            .arg(v.eventos)
            .arg(v.noches)
            .arg(v.arranques)
            .arg(v.conProblemas));
  return !v.diferencias.isEmpty();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList args = QCoreApplication::arguments();
  const auto valor = [&](const QString& opcion) { return args.value(args.indexOf(opcion) + 1); };
  if (args.contains(QStringLiteral("--traza")))
    return trazar(valor(QStringLiteral("--traza")).toULongLong());
  if (args.contains(QStringLiteral("--semillas"))) {
    const QStringList rango = valor(QStringLiteral("--semillas")).split(QStringLiteral(".."));
    const int de = args.contains(QStringLiteral("-j")) ? valor(QStringLiteral("-j")).toInt() : 1;
    return repartir(rango.first().toULongLong(), rango.last().toULongLong(), de);
  }
  decir(QStringLiteral("Uso: tarvo-noches --semillas A..B [-j N] | --traza N"));
  return 64;
}
