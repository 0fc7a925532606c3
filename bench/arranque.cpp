// Starting and ending the whole program: an empty process on a database of this version, beside a
// bare program that opens the same database.
#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include "Comun.h"
#include "Razones.h"

namespace tarvo::banco {
namespace {

constexpr int kArranques = 61;
constexpr int kVecesDesnudo = 3;

// The programs are beside this one.
QString programa(const char* nombre) {
  const QString yo = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
  return yo.left(yo.lastIndexOf(u'/') + 1) + QLatin1String(nombre);
}

void correr(const QString& ruta, const QStringList& argumentos) {
  QProcess p;
  p.setProgram(ruta);
  p.setArguments(argumentos);
  p.setStandardOutputFile(QProcess::nullDevice());
  p.start();
  if (!p.waitForFinished(30'000) || p.exitCode() != 0)
    morir(ruta + QStringLiteral(": ") + QString::fromUtf8(p.readAllStandardError()));
}

double arranque() {
  const QTemporaryDir carpeta;
  const QString base = carpeta.filePath(QStringLiteral("TARVO.MDB"));
  hacerTienda(base, 10, 100);
  const QString proceso = carpeta.filePath(QStringLiteral("VACIO.AUT"));
  QFile f(proceso);
  if (!f.open(QIODevice::WriteOnly)) morir(proceso);
  f.close();
  const QString tarvo = programa("tarvo"), desnudo = programa("tarvo-desnudo");
  const QStringList orden{QStringLiteral("--carpeta"), carpeta.path(),
                          QStringLiteral("--sin-ventana"), proceso};
  return kVecesDesnudo *
         razon([&] { correr(tarvo, orden); }, [&] { correr(desnudo, {base}); }, kArranques);
}

const AltaMedida kMedidasArranque[] = {{"programa.arranque", 1.0, arranque}};

}  // namespace
}  // namespace tarvo::banco
