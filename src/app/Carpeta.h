// The program's folder: which one it is; and that only one program works on a database.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "core/valores/Resultado.h"

namespace tarvo::app {

// --carpeta, else TARVO_CARPETA, else the executable's own folder if it holds a TARVO.INI or a
// database, else $XDG_DATA_HOME/tarvo, which is made. Error NoExiste for a folder that was named
// and isn't there.
Resultado<QString> carpetaPrograma(const QString& pedida);

// Where the executable is; needs no QCoreApplication.
QString carpetaEjecutable();

// The file that a path means, links followed, as every program that means it names it. A file that
// isn't there yet has its folder's real name before its own.
QString ficheroReal(const QString& ruta);

// Holds a database until it goes, from whatever folder and by whatever name one looks at it. The
// kernel lets go of it when the program dies, however it dies.
class Cerrojo {
 public:
  // By the database's real name; its file need not be there. Errors: Ocupado when another program
  // holds it, NoExiste when there is no such folder, SinPermiso and others when that can't be
  // written.
  static Resultado<Cerrojo> tomar(const QString& base);
  // By the file itself too, which may have other names (hard links). REQUIRES that it is there; the
  // database has to be closed before this goes. Errors: Ocupado.
  Resultado<> tomarFichero(const QString& base);
  Cerrojo(Cerrojo&& otro) noexcept
      : fd_(std::exchange(otro.fd_, -1)), fichero_(std::exchange(otro.fichero_, -1)) {}
  Cerrojo& operator=(Cerrojo&&) = delete;
  ~Cerrojo();

 private:
  explicit Cerrojo(int fd) : fd_(fd) {}
  int fd_;
  int fichero_ = -1;
};

}  // namespace tarvo::app
