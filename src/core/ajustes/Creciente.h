// A file that grows at its end, for data that is added piece by piece and may have to be taken
// back. While it is open no other program can open it in this way.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::ficheros {

class Creciente {
 public:
  // An ordinary file, created if it is missing and `crear` is true. Errors: NoExiste, SinPermiso,
  // SoloLectura, DiscoLleno, Formato (a folder or a device), Ocupado (another program has it).
  static Resultado<Creciente> abrir(const QString& ruta, bool crear);
  Creciente(Creciente&& otro) noexcept;
  Creciente& operator=(Creciente&&) = delete;
  ~Creciente();

  Resultado<qint64> tamano() const;
  // Up to `ancho` bytes from a place; fewer at the end of the file.
  Resultado<QByteArray> leer(qint64 desde, qint64 ancho) const;
  Resultado<> anadir(QByteArrayView bytes);
  // When this returns, the added bytes and the file's directory entry are on disk.
  Resultado<> asegurar();
  // Takes back everything beyond a length, on disk too.
  Resultado<> cortar(qint64 largo);

 private:
  Creciente(const QString& ruta, int fd) : ruta_(ruta), fd_(fd) {}
  std::unexpected<Error> falloAl(const QString& verbo) const;
  QString ruta_;
  int fd_;
};

}  // namespace tarvo::ficheros
