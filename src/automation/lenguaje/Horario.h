// A timetable being edited: a detached copy of the text of a .CRO file, written back whole.
#pragma once

#include <QStringList>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

struct Horario {
  std::vector<LineaActivacion> lineas;
  QString bloque;  // the process in the same file, unchanged; with its own line ends
  bool operator==(const Horario&) const = default;
};

// Tolerant, so that a damaged line can be corrected: an invalid time becomes 00:00:00, a flag with
// neither word is no, a name is put in capitals. Formato, with the line, for one that is not an
// entry at all: the file is no timetable, and saving it would lose its contents.
Resultado<Horario> leerHorario(const QString& texto, const Lenguaje& lenguaje);
QString escribirHorario(const Horario& horario, const Lenguaje& lenguaje);
// Writes the whole file. Formato, with the line, if it could not be activated afterwards.
Resultado<> guardarHorario(const QString& ruta, const Horario& horario, const Lenguaje& lenguaje);
// Takes the file away: it is renamed, with "~" at its end, over an older one of that name. Returns
// the name of what is left. NoExiste, SinPermiso.
Resultado<QString> retirarHorario(const QString& ruta);
// The timetables of a folder: names of their files, sorted.
QStringList horariosDe(const QString& carpeta);
// The processes of a folder: base names in capitals, sorted.
QStringList procesosDe(const QString& carpeta);

}  // namespace tarvo::automation
