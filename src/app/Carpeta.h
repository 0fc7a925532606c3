// The program's folder: which one it is, and that only one program works on it.
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

// Where the executable stands; needs no QCoreApplication.
QString carpetaEjecutable();

// Holds the folder until it goes. The kernel lets go of it when the program dies, however it dies.
class Cerrojo {
 public:
  // Errors: Ocupado when another program holds it, SinPermiso and others when the folder can't be
  // written.
  static Resultado<Cerrojo> tomar(const QString& carpeta);
  Cerrojo(Cerrojo&& otro) noexcept : fd_(std::exchange(otro.fd_, -1)) {}
  Cerrojo& operator=(Cerrojo&&) = delete;
  ~Cerrojo();

 private:
  explicit Cerrojo(int fd) : fd_(fd) {}
  int fd_;
};

}  // namespace tarvo::app
