// The settings that windows remember between runs: size, columns, splitters. Kept in VENTANAS.INI
// in the program's folder, written whole. A damaged file counts as an empty one, never as a fault.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>

#include "core/valores/Resultado.h"

namespace tarvo::ventanas {

class Recuerdos {
 public:
  // Reads `ruta`; with an empty path nothing is remembered beyond this run.
  explicit Recuerdos(QString ruta);

  // Values are one line of text; keys contain no "=".
  QString leer(const QString& ventana, const QString& clave) const;
  void poner(const QString& ventana, const QString& clave, const QString& valor);
  // Writes the file if anything has changed since the last time.
  Resultado<> guardar();

 private:
  QString ruta_;
  std::map<QString, QString> valores_;  // "window.key"
  bool cambiado_ = false;
};

}  // namespace tarvo::ventanas
