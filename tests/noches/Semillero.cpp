#include "noches/Semillero.h"

#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cstdio>

namespace tarvo::noches {

namespace {

void decir(const QString& linea) {
  std::fputs((linea + u'\n').toUtf8().constData(), stdout);
  std::fflush(stdout);
}

bool una(quint64 semilla, const Correr& correr) {
  Cosecha c = correr(semilla, {});
  if (c.diferencias.isEmpty() && semilla % 20 == 0 && correr(semilla, {}).huella != c.huella)
    c.diferencias += QStringLiteral("no se repite igual");
  if (!c.diferencias.isEmpty())
    decir(QStringLiteral("semilla %1 (%2):\n  %3")
              .arg(semilla)
              .arg(c.cuenta, c.diferencias.join(QStringLiteral("\n  "))));
  return c.diferencias.isEmpty();
}

// Runs the seeds of one worker out of `de`. Returns 1 if any failed.
int tanda(quint64 desde, quint64 hasta, int cual, int de, const Correr& correr) {
  int malas = 0;
  for (quint64 s = desde; s <= hasta; ++s) {
    if (static_cast<int>(s % static_cast<quint64>(de)) == cual && !una(s, correr)) ++malas;
    if (cual == 0 && s > desde && s % 1000 == 0) decir(QStringLiteral("... %1").arg(s));
  }
  return malas > 0;
}

int repartir(quint64 desde, quint64 hasta, int de, const Correr& correr) {
  if (de <= 1) return tanda(desde, hasta, 0, 1, correr);
  for (int i = 0; i < de; ++i)
    if (fork() == 0) _exit(tanda(desde, hasta, i, de, correr));
  int malo = 0, estado = 0;
  while (wait(&estado) > 0) malo |= !WIFEXITED(estado) || WEXITSTATUS(estado) != 0;
  return malo;
}

int trazar(quint64 semilla, const Correr& correr) {
  const Cosecha c = correr(semilla, decir);
  for (const auto& d : c.diferencias) decir(QStringLiteral("DIFERENCIA ") + d);
  decir(c.cuenta);
  return !c.diferencias.isEmpty();
}

}  // namespace

int semillero(int argc, char** argv, const Correr& correr) {
  const QCoreApplication app(argc, argv);
  const QStringList args = QCoreApplication::arguments();
  const auto valor = [&](const QString& opcion) { return args.value(args.indexOf(opcion) + 1); };
  if (args.contains(QStringLiteral("--traza")))
    return trazar(valor(QStringLiteral("--traza")).toULongLong(), correr);
  if (args.contains(QStringLiteral("--semillas"))) {
    const QStringList rango = valor(QStringLiteral("--semillas")).split(QStringLiteral(".."));
    const int de = args.contains(QStringLiteral("-j")) ? valor(QStringLiteral("-j")).toInt() : 1;
    return repartir(rango.first().toULongLong(), rango.last().toULongLong(), de, correr);
  }
  decir(QStringLiteral("Uso: --semillas A..B [-j N] | --traza N"));
  return 64;
}

}  // namespace tarvo::noches
