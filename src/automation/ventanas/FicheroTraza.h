// A trace file by lines, as large as it may be and while it grows: where each line begins is kept
// in memory, its text is read when it is looked at. Windows-1252, or UTF-8 with its mark.
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
  // Takes in what was written since the last time, `bytes` at most. A file that isn't there is an
  // empty one. OtroFichero: it is not the one that it was, and begins anew.
  Cambio leer(qint64 bytes);
  bool quedaMas() const { return quedaMas_; }

  int lineas() const;
  QString linea(int n) const;  // REQUIRES 0 <= n < lineas()
  bool esProblema(int n) const;
  int masLarga() const { return masLarga_; }  // bytes of the longest line

  // The first line from `desde` on, or back from it, that holds the text, case and accents ignored;
  // -1 when there is none.
  int buscar(const QString& texto, int desde, bool atras) const;
  int problema(int desde) const;  // the same for a line that says a problem, forwards

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
  qint64 fin_ = 0;   // bytes taken in
  QByteArray cola_;  // the last of them
  int masLarga_ = 0;
  bool quedaMas_ = false, utf8_ = false;
  QByteArray abandona_, interrumpida_;
};

}  // namespace tarvo::automation
