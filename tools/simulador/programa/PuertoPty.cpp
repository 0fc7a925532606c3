#include "simulador/programa/PuertoPty.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tarvo::simulador {
namespace {

constexpr int kRetenderMs = 1000;

Llamada llamadaDe(const QString& palabra) {
  const QString p = palabra.toUpper();
  if (p == QLatin1String("NO CARRIER")) return Llamada::NoCarrier;
  if (p == QLatin1String("NO DIALTONE")) return Llamada::NoDialtone;
  if (p == QLatin1String("BUSY")) return Llamada::Busy;
  if (p == QLatin1String("NO ANSWER")) return Llamada::NoAnswer;
  return Llamada::Connect;
}

std::unexpected<Error> sinTerminal(const QString& enlace) {
  return fallo(Fallo::NoExiste,
               enlace + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errno)));
}

}  // namespace

OpcionesModem opcionesModem(const QJsonObject& json) {
  OpcionesModem opciones;
  for (const auto& valor : json.value(QLatin1String("llamadas")).toArray())
    opciones.guion.push_back(llamadaDe(valor.toString()));
  const QJsonObject numeros = json.value(QLatin1String("numeros")).toObject();
  for (auto it = numeros.begin(); it != numeros.end(); ++it)
    opciones.numeros[it.key().toLatin1()] = llamadaDe(it.value().toString());
  opciones.marcarMs = json.value(QLatin1String("marcarMs")).toInt(opciones.marcarMs);
  return opciones;
}

PuertoPty::PuertoPty(Cable& cable, Reloj& reloj)
    : cable_(cable), reloj_(reloj), retender_(reloj.temporizador([this] { tenderCable(); })) {}

PuertoPty::~PuertoPty() {
  avisos_.reset();
  modem_.reset();
  if (cable_.abierto()) cable_.cerrar();
  if (!enlace_.isEmpty()) QFile::remove(enlace_);
  if (esclavo_ >= 0) ::close(esclavo_);
  if (maestro_ >= 0) ::close(maestro_);
}

Resultado<> PuertoPty::abrir(const QString& enlace) {
  TARVO_INTENTAR(crear(enlace));
  tenderCable();
  return {};
}

Resultado<> PuertoPty::abrirConModem(const QString& enlace, OpcionesModem opciones) {
  TARVO_INTENTAR(crear(enlace));
  modem_ = std::make_unique<Modem>(cable_, reloj_, std::move(opciones),
                                   [this](const QByteArray& bytes) { escribir(bytes); });
  return {};
}

Resultado<> PuertoPty::crear(const QString& enlace) {
  maestro_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  std::array<char, 128> nombre{};
  if (maestro_ < 0 || ::grantpt(maestro_) != 0 || ::unlockpt(maestro_) != 0 ||
      ::ptsname_r(maestro_, nombre.data(), nombre.size()) != 0)
    return sinTerminal(enlace);
  dispositivo_ = QString::fromLocal8Bit(nombre.data());
  esclavo_ = ::open(nombre.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios modo{};
  if (esclavo_ < 0 || ::tcgetattr(esclavo_, &modo) != 0) return sinTerminal(enlace);
  ::cfmakeraw(&modo);
  ::tcsetattr(esclavo_, TCSANOW, &modo);
  const QFileInfo sitio(enlace);
  if (sitio.isSymLink()) QFile::remove(enlace);
  if (!QFile::link(dispositivo_, enlace)) {
    errno = EEXIST;
    return sinTerminal(enlace);
  }
  enlace_ = enlace;
  std::printf("%s -> %s\n", qPrintable(enlace), qPrintable(dispositivo_));
  avisos_ = std::make_unique<QSocketNotifier>(maestro_, QSocketNotifier::Read);
  QObject::connect(avisos_.get(), &QSocketNotifier::activated, avisos_.get(), [this] { leer(); });
  return {};
}

// A direct cable is always there: after a machine drops it, it comes back in a while.
void PuertoPty::tenderCable() {
  const bool tendido = cable_.abrir({[this](const QByteArray& bytes) { escribir(bytes); },
                                     [this](bool) { retender_->unaVez(kRetenderMs); }});
  if (!tendido) retender_->unaVez(kRetenderMs);
}

void PuertoPty::leer() {
  std::array<char, 4096> bytes{};
  const auto cuantos = ::read(maestro_, bytes.data(), bytes.size());
  if (cuantos <= 0) return;
  const QByteArray leidos(bytes.data(), cuantos);
  if (modem_)
    modem_->recibir(leidos);
  else
    cable_.recibir(leidos);
}

// Bytes that a full terminal refuses are lost, as on a wire without a listener.
void PuertoPty::escribir(const QByteArray& bytes) {
  [[maybe_unused]] const auto escritos =
      ::write(maestro_, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace tarvo::simulador
