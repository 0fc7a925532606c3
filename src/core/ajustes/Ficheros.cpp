#include "core/ajustes/Ficheros.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>

#include "core/ajustes/FallosDisco.h"

namespace tarvo::ficheros {

namespace {

// A descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { cerrar(); }
  int operator*() const { return fd_; }
  bool vale() const { return fd_ >= 0; }
  bool cerrar() {
    const int fd = std::exchange(fd_, -1);
    return fd < 0 || ::close(fd) == 0;
  }

 private:
  int fd_;
};

Fallo claseDe(int numero) {
  switch (numero) {
    case ENOENT:
    case ENOTDIR:
      return Fallo::NoExiste;
    case EACCES:
    case EPERM:
      return Fallo::SinPermiso;
    case EROFS:
      return Fallo::SoloLectura;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Fallo::DiscoLleno;
    default:
      return Fallo::Interno;
  }
}

QString razonDe(Fallo clase, int numero) {
  switch (clase) {
    case Fallo::NoExiste:
      return QStringLiteral("no existe");
    case Fallo::SinPermiso:
      return QStringLiteral("no hay permiso");
    case Fallo::SoloLectura:
      return QStringLiteral("el disco es de solo lectura");
    case Fallo::DiscoLleno:
      return QStringLiteral("el disco está lleno");
    default:
      return QString::fromLocal8Bit(std::strerror(numero));
  }
}

bool escribirTodo(int fd, const QByteArray& bytes) {
  for (qsizetype hecho = 0; hecho < bytes.size();) {
    const ssize_t n =
        ::write(fd, bytes.constData() + hecho, static_cast<size_t>(bytes.size() - hecho));
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    hecho += n;
  }
  return true;
}

// Writes a new file with the rights of the one it will replace.
bool escribirNuevo(const QByteArray& nuevo, const QByteArray& viejo, const QByteArray& bytes) {
  struct stat antes{};
  const bool habia = ::stat(viejo.constData(), &antes) == 0;
  if (habia && !S_ISREG(antes.st_mode)) {  // a device or a folder must never be replaced
    errno = EINVAL;
    return false;
  }
  if (habia && ::access(viejo.constData(), W_OK) != 0) return false;  // protected on purpose
  Descriptor fd(::open(nuevo.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                       habia ? antes.st_mode & 07777 : 0666));
  return fd.vale() && escribirTodo(*fd, bytes) && ::fsync(*fd) == 0 && fd.cerrar();
}

}  // namespace

std::unexpected<Error> falloDeDisco(const QString& verbo, const QString& ruta, int numero) {
  const Fallo clase = claseDe(numero);
  return fallo(clase,
               QStringLiteral("No se puede %1 %2: %3").arg(verbo, ruta, razonDe(clase, numero)),
               numero);
}

void asegurarCarpetaDe(const QString& ruta) {
  const QByteArray carpeta = QFile::encodeName(QFileInfo(ruta).path());
  const Descriptor fd(::open(carpeta.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (fd.vale()) ::fsync(*fd);
}

Resultado<QByteArray> leerBytes(const QString& ruta, qint64 limite) {
  const QString verbo = QStringLiteral("leer");
  const QByteArray nombre = QFile::encodeName(ruta);
  // Without O_NONBLOCK a pipe of that name would wait for ever.
  const Descriptor fd(::open(nombre.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat datos{};
  if (!fd.vale() || ::fstat(*fd, &datos) != 0) return falloDeDisco(verbo, ruta, errno);
  if (!S_ISREG(datos.st_mode))
    return fallo(Fallo::Formato, QStringLiteral("No se puede leer %1: no es un fichero").arg(ruta));
  if (datos.st_size > limite)
    return fallo(Fallo::Formato,
                 QStringLiteral("No se puede leer %1: es demasiado grande").arg(ruta));
  QByteArray bytes(static_cast<qsizetype>(datos.st_size), Qt::Uninitialized);
  qsizetype hecho = 0;
  while (hecho < bytes.size()) {
    const ssize_t n = ::read(*fd, bytes.data() + hecho, static_cast<size_t>(bytes.size() - hecho));
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return falloDeDisco(verbo, ruta, errno);
    if (n == 0) break;
    hecho += n;
  }
  bytes.truncate(hecho);
  return bytes;
}

Resultado<> escribirEntero(const QString& ruta, const QByteArray& bytes) {
  // A link stays as it is; its target is replaced.
  const QString canonica = QFileInfo(ruta).canonicalFilePath();
  const QString destino = canonica.isEmpty() ? ruta : canonica;
  const QByteArray viejo = QFile::encodeName(destino);
  const QByteArray nuevo = viejo + ".nuevo";
  if (!escribirNuevo(nuevo, viejo, bytes) || ::rename(nuevo.constData(), viejo.constData()) != 0) {
    const int numero = errno;
    ::unlink(nuevo.constData());
    return falloDeDisco(QStringLiteral("escribir"), ruta, numero);
  }
  asegurarCarpetaDe(destino);
  return {};
}

}  // namespace tarvo::ficheros
