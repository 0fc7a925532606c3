#include "core/ajustes/Creciente.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

#include "core/ajustes/FallosDisco.h"

namespace tarvo::ficheros {

namespace {

const QString kEscribir = QStringLiteral("escribir");

// Repeats a call that a signal interrupted.
template <class F>
auto sinInterrupcion(F llamada) {
  auto r = llamada();
  while (r < 0 && errno == EINTR) r = llamada();
  return r;
}

}  // namespace

Resultado<Creciente> Creciente::abrir(const QString& ruta, bool crear) {
  const QByteArray nombre = QFile::encodeName(ruta);
  Creciente f(ruta,
              ::open(nombre.constData(),
                     O_RDWR | O_APPEND | O_CLOEXEC | O_NONBLOCK | (crear ? O_CREAT : 0), 0666));
  struct stat datos{};
  if (f.fd_ < 0 && errno == EISDIR)
    return fallo(Fallo::Formato,
                 QStringLiteral("No se puede escribir %1: no es un fichero").arg(ruta));
  if (f.fd_ < 0 || ::fstat(f.fd_, &datos) != 0) return f.falloAl(kEscribir);
  if (!S_ISREG(datos.st_mode))
    return fallo(Fallo::Formato,
                 QStringLiteral("No se puede escribir %1: no es un fichero").arg(ruta));
  // On a file system without such locks a second program can't be detected.
  if (::flock(f.fd_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
    return fallo(
        Fallo::Ocupado,
        QStringLiteral("No se puede escribir %1: otro programa lo está escribiendo").arg(ruta));
  return f;
}

Creciente::Creciente(Creciente&& otro) noexcept
    : ruta_(std::move(otro.ruta_)), fd_(std::exchange(otro.fd_, -1)) {}

Creciente::~Creciente() {
  if (fd_ >= 0) ::close(fd_);
}

std::unexpected<Error> Creciente::falloAl(const QString& verbo) const {
  return falloDeDisco(verbo, ruta_, errno);
}

Resultado<qint64> Creciente::tamano() const {
  struct stat datos{};
  if (::fstat(fd_, &datos) != 0) return falloAl(QStringLiteral("leer"));
  return static_cast<qint64>(datos.st_size);
}

Resultado<QByteArray> Creciente::leer(qint64 desde, qint64 ancho) const {
  QByteArray bytes(static_cast<qsizetype>(ancho), Qt::Uninitialized);
  qsizetype hecho = 0;
  while (hecho < bytes.size()) {
    const auto n = sinInterrupcion([&] {
      return ::pread(fd_, bytes.data() + hecho, static_cast<size_t>(bytes.size() - hecho),
                     desde + hecho);
    });
    if (n < 0) return falloAl(QStringLiteral("leer"));
    if (n == 0) break;
    hecho += n;
  }
  bytes.truncate(hecho);
  return bytes;
}

Resultado<> Creciente::anadir(QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const auto n = sinInterrupcion(
        [&] { return ::write(fd_, bytes.data(), static_cast<size_t>(bytes.size())); });
    if (n < 0) return falloAl(kEscribir);
    bytes = bytes.sliced(n);
  }
  return {};
}

Resultado<> Creciente::asegurar() {
  if (::fsync(fd_) != 0) return falloAl(kEscribir);
  asegurarCarpetaDe(ruta_);
  return {};
}

Resultado<> Creciente::cortar(qint64 largo) {
  if (sinInterrupcion([&] { return ::ftruncate(fd_, largo); }) != 0 || ::fsync(fd_) != 0)
    return falloAl(kEscribir);
  return {};
}

}  // namespace tarvo::ficheros
