// A timetable while it is edited: a detached copy of the text of a .CRO file, written back whole.
#pragma once

#include <QStringList>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

struct Horario {
  std::vector<LineaActivacion> lineas;
  QString bloque;  // the process held in the same file, as it stands; ends its own lines
  bool operator==(const Horario&) const = default;
};

// Takes what it can get, so that a damaged line can be mended: a time that is none becomes
// 00:00:00, a flag that is neither word is no, a name goes to capitals. Formato, with the line,
// when one is nothing of the kind: the file is no timetable, and saving it would lose what it is.
Resultado<Horario> leerHorario(const QString& texto, const Lenguaje& lenguaje);
QString escribirHorario(const Horario& horario, const Lenguaje& lenguaje);
// Writes the file whole. Formato, with the line, when it could not be activated afterwards.
Resultado<> guardarHorario(const QString& ruta, const Horario& horario, const Lenguaje& lenguaje);
// The processes of a folder: base names in capitals, sorted.
QStringList procesosDe(const QString& carpeta);

}  // namespace tarvo::automation
