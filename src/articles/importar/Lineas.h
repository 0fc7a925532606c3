// The lines of a text file of the shop, one at a time, numbered from 1: Windows-1252, or UTF-8 by
// its mark. A line ends with LF or CR LF; a lone Ctrl+Z at the very end is not a line.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"

namespace tarvo::importar {

inline constexpr qint64 kFicheroMayor = 100 * 1024 * 1024;

struct LineaMala {
  int numero = 0;
  QString motivo;
  QString texto;  // how the line begins
  bool operator==(const LineaMala&) const = default;
};

class Lineas {
 public:
  explicit Lineas(QByteArray bytes);

  // False at the end.
  bool siguiente();
  const QString& linea() const { return linea_; }
  int numero() const { return numero_; }
  LineaMala mala(const QString& motivo) const { return {numero_, motivo, linea_.left(40)}; }

  qint64 leidos() const { return leidos_; }  // bytes
  qint64 tamano() const { return bytes_.size(); }

 private:
  QByteArray bytes_;
  qint64 leidos_ = 0;
  QString linea_;
  int numero_ = 0;
  bool utf8_;
};

// The bytes of a file to import. Formato, with what to do, above kFicheroMayor; else as
// ficheros::leerBytes.
Resultado<QByteArray> leerFichero(const QString& ruta, const Textos& textos);

}  // namespace tarvo::importar
