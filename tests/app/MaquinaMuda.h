// A machine that accepts every call and never answers.
#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>

namespace tarvo::prueba {

// Listens from construction on. Calls are not accepted here: the system connects the callers by
// itself, without an event loop.
class MaquinaMuda {
 public:
  MaquinaMuda() : zocalo_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in donde{};
    donde.sin_family = AF_INET;
    donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof donde;
    auto* suya = reinterpret_cast<sockaddr*>(&donde);
    if (::bind(zocalo_, suya, largo) == 0 && ::listen(zocalo_, 16) == 0 &&
        ::getsockname(zocalo_, suya, &largo) == 0)
      puerto_ = ntohs(donde.sin_port);
  }
  ~MaquinaMuda() { colgar(); }
  MaquinaMuda(const MaquinaMuda&) = delete;
  MaquinaMuda& operator=(const MaquinaMuda&) = delete;

  int puerto() const { return puerto_; }  // 0: not listening
  // Waits for a caller and its question, answers it, and hangs up at the next one.
  void contestarUna(const QByteArray& respuesta) const {
    const int suya = ::accept(zocalo_, nullptr, nullptr);
    char oido[256];
    if (::read(suya, oido, sizeof oido) > 0 &&
        ::write(suya, respuesta.constData(), static_cast<size_t>(respuesta.size())) > 0)
      (void)!::read(suya, oido, sizeof oido);
    ::close(suya);
  }
  // Disconnects all callers, and takes no more calls.
  void colgar() {
    if (zocalo_ >= 0) ::close(zocalo_);
    zocalo_ = -1;
  }

 private:
  int zocalo_ = -1;
  int puerto_ = 0;
};

}  // namespace tarvo::prueba
