// Finding the program's folder, and ensuring that only one program works on a database.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "core/valores/Resultado.h"

namespace tarvo::app {

// --carpeta, else TARVO_CARPETA, else the executable's own folder if it contains a TARVO.INI or a
// database, else $XDG_DATA_HOME/tarvo, which is created. Error NoExiste for a named folder that
// doesn't exist.
Resultado<QString> carpetaPrograma(const QString& pedida);

// The folder of the executable; needs no QCoreApplication.
QString carpetaEjecutable();

// The real path of a file, links followed, the same for every program that refers to it. For a file
// that doesn't exist yet, its folder's real path with its own name.
QString ficheroReal(const QString& ruta);

// Locks a database for its own lifetime, whatever folder or name it is reached by. The kernel
// releases it when the program dies, however it dies.
class Cerrojo {
 public:
  // By the database's real path; the file need not exist. Errors: Ocupado when another program
  // holds it, NoExiste when there is no such folder, SinPermiso and others when that can't be
  // written.
  static Resultado<Cerrojo> tomar(const QString& base);
  // By the file itself as well, which may have other names (hard links). REQUIRES that it exists;
  // the database must be closed before this is destroyed. Called again, it follows a file that was
  // replaced. Errors: Ocupado.
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
