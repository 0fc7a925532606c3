// The trace of a run: lines for whoever watches, and the same lines behind a file. The file is
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
  // Direct run: HomeDir/NOMBRE.TZA. Delayed one: `traza` with the extension .TZC, the name of the
  // process in front of each line, in a field of 8.
  void empezar(const Ajustes& ajustes, const QString& traza, const QString& nombre);
  // The lines are in the file before `salida` hears them. False when the file can't be written, and
  // they have gone to `salida` alone; that is told once there.
  bool escribir(const QStringList& lineas, const std::function<void(const QString&)>& salida);
  const QString& ruta() const { return ruta_; }

 private:
  const Textos& textos_;
  QString ruta_, campo_;
  bool avisado_ = false;
};

}  // namespace tarvo::automation
