#include "app/Carpeta.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>

#include "core/ajustes/Ajustes.h"

namespace tarvo::app {

namespace {

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

Resultado<Cerrojo> Cerrojo::tomar(const QString& carpeta) {
  const QByteArray ruta = QFile::encodeName(carpeta + QStringLiteral("/TARVO.LCK"));
  const int fd = ::open(ruta.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (fd < 0) return fallo(Fallo::SinPermiso, QString::fromLocal8Bit(std::strerror(errno)));
  Cerrojo cerrojo(fd);
  if (::flock(fd, LOCK_EX | LOCK_NB) == 0) return cerrojo;
  return fallo(errno == EWOULDBLOCK ? Fallo::Ocupado : Fallo::SinPermiso,
               QString::fromLocal8Bit(std::strerror(errno)));
}

Cerrojo::~Cerrojo() {
  if (fd_ >= 0) ::close(fd_);
}

}  // namespace tarvo::app
