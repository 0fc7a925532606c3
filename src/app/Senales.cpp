#include "app/Senales.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace tarvo::app {

namespace {

sigset_t senalesDeFin() {
  sigset_t conjunto;
  sigemptyset(&conjunto);
  sigaddset(&conjunto, SIGINT);
  sigaddset(&conjunto, SIGTERM);
  return conjunto;
}

int abrirSenales() {
  const sigset_t conjunto = senalesDeFin();
  ::sigprocmask(SIG_BLOCK, &conjunto, nullptr);
  return ::signalfd(-1, &conjunto, SFD_CLOEXEC | SFD_NONBLOCK);
}

void terminarYa(int) {
  ::_exit(2);
}

// From the second signal on, nothing waits for the event loop.
void armarSegunda() {
  struct sigaction accion{};
  accion.sa_handler = terminarYa;
  ::sigaction(SIGINT, &accion, nullptr);
  ::sigaction(SIGTERM, &accion, nullptr);
  const sigset_t conjunto = senalesDeFin();
  ::sigprocmask(SIG_UNBLOCK, &conjunto, nullptr);
}

}  // namespace

Senales::Senales(std::function<void()> alPedirFin)
    : fd_(abrirSenales()),
      alPedirFin_(std::move(alPedirFin)),
      avisador_(fd_, QSocketNotifier::Read) {
  QObject::connect(&avisador_, &QSocketNotifier::activated, [this] { atender(); });
}

Senales::~Senales() {
  avisador_.setEnabled(false);
  ::close(fd_);
}

void Senales::atender() {
  signalfd_siginfo dato{};
  while (::read(fd_, &dato, sizeof dato) == static_cast<ssize_t>(sizeof dato)) {
    if (pedida_) terminarYa(0);
    pedida_ = true;
  }
  if (!pedida_) return;
  armarSegunda();
  alPedirFin_();
}

}  // namespace tarvo::app
