// tarvo-simulador: machines to talk to. It ends on SIGTERM or SIGINT; SIGUSR1 writes the state,
// SIGUSR2 sells another day.
#include <sys/socket.h>
#include <unistd.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdio>

#include "simulador/programa/Programa.h"

using namespace tarvo;
using namespace tarvo::simulador;

namespace {

constexpr int kArgumentosMalos = 64, kNoArranca = 4;
// The only thing that a signal handler may touch.
volatile std::sig_atomic_t bocaSenal = -1;

void alSenal(int numero) {
  const char byte = static_cast<char>(numero);
  [[maybe_unused]] const auto escrito = ::write(bocaSenal, &byte, 1);
}

int fracaso(const QString& texto, int estado) {
  std::fprintf(stderr, "tarvo-simulador: %s\n", qPrintable(texto));
  return estado;
}

Resultado<Plan> planDe(const QCommandLineParser& argumentos, const Reloj& reloj) {
  const QString ruta = argumentos.value(QStringLiteral("config"));
  QFile fichero(ruta);
  if (!fichero.open(QIODevice::ReadOnly))
    return fallo(Fallo::NoExiste, ruta + QStringLiteral(": ") + fichero.errorString());
  QJsonParseError error;
  const QJsonDocument documento = QJsonDocument::fromJson(fichero.readAll(), &error);
  if (!documento.isObject())
    return fallo(Fallo::Formato,
                 QStringLiteral("%1, posición %2: %3")
                     .arg(ruta, QString::number(error.offset), error.errorString()));
  auto plan = leerPlan(documento.object(), QFileInfo(ruta).absolutePath(),
                       argumentos.value(QStringLiteral("base")), reloj.ahora().qdate());
  if (plan && argumentos.isSet(QStringLiteral("estado")))
    plan->estado = argumentos.value(QStringLiteral("estado"));
  return plan;
}

// Signals go through a socket pair, so that they are handled on the event loop.
void escucharSenales(Programa& programa, QCoreApplication& aplicacion) {
  std::array<int, 2> par{};
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, par.data()) != 0) return;
  bocaSenal = par[0];
  auto* avisos = new QSocketNotifier(par[1], QSocketNotifier::Read, &aplicacion);
  QObject::connect(avisos, &QSocketNotifier::activated, avisos, [&programa, boca = par[1]] {
    char numero = 0;
    if (::read(boca, &numero, 1) != 1) return;
    if (numero == SIGUSR1)
      programa.guardar();
    else if (numero == SIGUSR2)
      programa.venderOtroDia();
    else
      QCoreApplication::quit();
  });
  for (const int senal : {SIGTERM, SIGINT, SIGUSR1, SIGUSR2}) std::signal(senal, alSenal);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication aplicacion(argc, argv);
  QCommandLineParser argumentos;
  argumentos.setApplicationDescription(QStringLiteral("Máquinas con las que TARVO puede hablar."));
  argumentos.addOptions(
      {{QStringLiteral("config"), QStringLiteral("Configuración."), QStringLiteral("FICHERO")},
       {QStringLiteral("estado"), QStringLiteral("Fichero de estado."), QStringLiteral("FICHERO")},
       {QStringLiteral("base"), QStringLiteral("Base de datos de la tienda."),
        QStringLiteral("FICHERO")},
       {QStringLiteral("otro-dia"), QStringLiteral("Vende un día más al arrancar.")},
       {QStringLiteral("ayuda"), QStringLiteral("Muestra esta ayuda.")}});
  if (!argumentos.parse(aplicacion.arguments()))
    return fracaso(argumentos.errorText(), kArgumentosMalos);
  if (argumentos.isSet(QStringLiteral("ayuda"))) {
    std::printf("%s", qPrintable(argumentos.helpText()));
    return 0;
  }
  if (!argumentos.isSet(QStringLiteral("config")))
    return fracaso(QStringLiteral("Falta --config FICHERO"), kArgumentosMalos);

  RelojReal reloj;
  auto plan = planDe(argumentos, reloj);
  if (!plan) return fracaso(plan.error().texto, kNoArranca);
  Programa programa(std::move(*plan), reloj);
  escucharSenales(programa, aplicacion);
  if (const auto lista = programa.preparar(); !lista)
    return fracaso(lista.error().texto, kNoArranca);
  if (argumentos.isSet(QStringLiteral("otro-dia"))) programa.venderOtroDia();
  if (const auto abierta = programa.escuchar(); !abierta)
    return fracaso(abierta.error().texto, kNoArranca);
  std::puts("LISTO");
  std::fflush(stdout);
  const int estado = aplicacion.exec();
  return programa.guardar() ? estado : 1;
}
