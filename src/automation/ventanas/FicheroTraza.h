// A trace file as lines, of any size, and while it grows: the positions of the lines are kept in
// memory, their texts are read on demand. Windows-1252, or UTF-8 with its byte order mark.
#pragma once

#include <QFile>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "core/textos/Textos.h"

namespace tarvo::automation {

class FicheroTraza {
 public:
  FicheroTraza(QString ruta, const Textos& textos);

  enum class Cambio { Ninguno, Crecio, OtroFichero };
  // Reads the bytes added since the last call, at most `bytes`. A missing file counts as empty.
  // OtroFichero: the file was replaced, and is read again from its beginning.
  Cambio leer(qint64 bytes);
  bool quedaMas() const { return quedaMas_; }

  int lineas() const;
  QString linea(int n) const;  // REQUIRES 0 <= n < lineas()
  bool esProblema(int n) const;
  int masLarga() const { return masLarga_; }  // length of the longest line, in bytes

  // The first line from `desde` on, forwards or backwards, that contains the text, ignoring case
  // and accents; -1 if there is none.
  int buscar(const QString& texto, int desde, bool atras) const;
  int problema(int desde) const;  // the same, forwards, for a line that reports a problem

 private:
  using Mira = std::function<qsizetype(const QByteArray& bloque)>;
  int adelante(int desde, const Mira& mira) const;
  QByteArray bytes(int primera, int trasUltima) const;
  int hastaUnBloque(int primera) const;
  int desdeUnBloque(int trasUltima) const;
  int lineaEn(qint64 sitio) const;
  bool esElMismo();
  void anadir(const QByteArray& nuevos);
  bool diceProblema(QByteArrayView linea) const;

  QString ruta_;
  mutable std::unique_ptr<QFile> fichero_;
  std::vector<qint64> inicios_{0};
  qint64 fin_ = 0;   // number of bytes read
  QByteArray cola_;  // the last of them
  int masLarga_ = 0;
  bool quedaMas_ = false, utf8_ = false;
  QByteArray abandona_, interrumpida_;
};

}  // namespace tarvo::automation
