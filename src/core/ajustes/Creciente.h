// A file that grows at its end, for what is added to it piece by piece and may have to be taken
// back. While it is open no other program can have it so.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::ficheros {

class Creciente {
 public:
  // An ordinary file, made when it isn't there and `crear`. Errors: NoExiste, SinPermiso,
  // SoloLectura, DiscoLleno, Formato (a folder or a device), Ocupado (another program has it).
  static Resultado<Creciente> abrir(const QString& ruta, bool crear);
  Creciente(Creciente&& otro) noexcept;
  Creciente& operator=(Creciente&&) = delete;
  ~Creciente();

  Resultado<qint64> tamano() const;
  // Up to `ancho` bytes from a place; fewer at the end of the file.
  Resultado<QByteArray> leer(qint64 desde, qint64 ancho) const;
  Resultado<> anadir(QByteArrayView bytes);
  // What was added, and that the file is there, is on disk when this returns.
  Resultado<> asegurar();
  // Takes back what lies beyond a length, on disk too.
  Resultado<> cortar(qint64 largo);

 private:
  Creciente(const QString& ruta, int fd) : ruta_(ruta), fd_(fd) {}
  std::unexpected<Error> falloAl(const QString& verbo) const;
  QString ruta_;
  int fd_;
};

}  // namespace tarvo::ficheros
