#include "app/Carpeta.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>

#include "core/ajustes/Ajustes.h"

namespace tarvo::app {

namespace {

constexpr int kEnlacesSeguidos = 20;
// Far from the bytes locked by the store itself.
constexpr off_t kTrozoCerrojo = off_t{1} << 62;

bool esDePrograma(const QString& carpeta) {
  for (const char16_t* nombre : {u"TARVO.INI", u"TARVO.MDB"})
    if (QFileInfo(Ajustes::ruta(QString::fromUtf16(nombre), carpeta)).isFile()) return true;
  return false;
}

QString carpetaDelUsuario() {
  const QString base = qEnvironmentVariable("XDG_DATA_HOME");
  return QDir::isAbsolutePath(base) ? base + QStringLiteral("/tarvo")
                                    : QDir::homePath() + QStringLiteral("/.local/share/tarvo");
}

}  // namespace

QString carpetaEjecutable() {
  return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
}

Resultado<QString> carpetaPrograma(const QString& pedida) {
  QString carpeta = pedida.isEmpty() ? qEnvironmentVariable("TARVO_CARPETA") : pedida;
  if (carpeta.isEmpty() && esDePrograma(carpetaEjecutable())) carpeta = carpetaEjecutable();
  if (carpeta.isEmpty()) {
    carpeta = carpetaDelUsuario();
    QDir().mkpath(carpeta);
  }
  const QFileInfo info(carpeta);
  if (!info.isDir()) return fallo(Fallo::NoExiste, carpeta);
  return info.canonicalFilePath();
}

QString ficheroReal(const QString& ruta) {
  QFileInfo info(ruta);
  // A link to a missing file is where that file will be.
  for (int n = 0; n < kEnlacesSeguidos && !info.exists() && info.isSymLink(); ++n)
    info.setFile(info.symLinkTarget());
  if (info.exists()) return info.canonicalFilePath();
  const QString carpeta = QFileInfo(info.path()).canonicalFilePath();
  return carpeta.isEmpty() ? info.absoluteFilePath() : QDir(carpeta).filePath(info.fileName());
}

Resultado<Cerrojo> Cerrojo::tomar(const QString& base) {
  const QFileInfo real(ficheroReal(base));
  const QString lck = real.path() + u'/' + real.completeBaseName() + QStringLiteral(".LCK");
  const int fd = ::open(QFile::encodeName(lck).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (fd < 0)
    return fallo(QFileInfo(real.path()).isDir() ? Fallo::SinPermiso : Fallo::NoExiste,
                 QString::fromLocal8Bit(std::strerror(errno)));
  Cerrojo cerrojo(fd);
  if (::flock(fd, LOCK_EX | LOCK_NB) == 0) return cerrojo;
  return fallo(errno == EWOULDBLOCK ? Fallo::Ocupado : Fallo::SinPermiso,
               QString::fromLocal8Bit(std::strerror(errno)));
}

Resultado<> Cerrojo::tomarFichero(const QString& base) {
  const QByteArray nombre = QFile::encodeName(base);
  struct stat tomado{}, ahora{};
  // A second descriptor of the same file, once closed, would drop the locks of the store.
  if (fichero_ >= 0 && ::fstat(fichero_, &tomado) == 0 && ::stat(nombre.constData(), &ahora) == 0 &&
      tomado.st_dev == ahora.st_dev && tomado.st_ino == ahora.st_ino)
    return {};
  const int fd = ::open(nombre.constData(), O_RDWR | O_CLOEXEC);
  if (fd < 0) return fallo(Fallo::SinPermiso, QString::fromLocal8Bit(std::strerror(errno)));
  if (fichero_ >= 0) ::close(fichero_);
  fichero_ = fd;
  struct flock trozo{};
  trozo.l_type = F_WRLCK;
  trozo.l_whence = SEEK_SET;
  trozo.l_start = kTrozoCerrojo;
  trozo.l_len = 1;
  if (::fcntl(fd, F_OFD_SETLK, &trozo) == 0) return {};
  // Where files can't be locked like this, the lock on the name has to do.
  if (errno != EAGAIN && errno != EACCES) return {};
  return fallo(Fallo::Ocupado, QString::fromLocal8Bit(std::strerror(errno)));
}

Cerrojo::~Cerrojo() {
  for (const int fd : {fichero_, fd_})
    if (fd >= 0) ::close(fd);
}

}  // namespace tarvo::app
