// The trace of a run: lines for observers, and the same lines at the end of a file. The file is
// opened, written and closed at each entry, so that it can be read, copied or deleted meanwhile.
#pragma once

#include <QStringList>
#include <functional>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::automation {

class Traza {
 public:
  explicit Traza(const Textos& textos) : textos_(textos) {}
  // Direct run: HomeDir/NOMBRE.TZA. Delayed run: `traza` with the extension .TZC, each line
  // preceded by the name of the process, in a field of 8.
  void empezar(const Ajustes& ajustes, const QString& traza, const QString& nombre);
  // The lines are in the file before `salida` gets them. False when the file can't be written, and
  // only `salida` got them; this is reported there once.
  bool escribir(const QStringList& lineas, const std::function<void(const QString&)>& salida);
  const QString& ruta() const { return ruta_; }

 private:
  const Textos& textos_;
  QString ruta_, campo_;
  bool avisado_ = false;
};

}  // namespace tarvo::automation
