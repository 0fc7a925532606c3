// Records the program's calls to the disk, in order. For inclusion in one file of a test program:
// these functions replace the system's own in all of it.
#pragma once

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarvo::prueba {

inline QStringList* alDisco = nullptr;  // null: nothing is recorded

inline void pedir(const QString& que, const QString& ruta) {
  if (alDisco) *alDisco << que + QFileInfo(ruta).fileName();
}

}  // namespace tarvo::prueba

extern "C" int fsync(int fd) {
  tarvo::prueba::pedir(QStringLiteral("vuelca "),
                       QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(fd)));
  return static_cast<int>(::syscall(SYS_fsync, fd));
}

extern "C" int rename(const char* de, const char* a) noexcept {
  tarvo::prueba::pedir(QStringLiteral("renombra "), QFile::decodeName(a));
  return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, de, AT_FDCWD, a, 0));
}
