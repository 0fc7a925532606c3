// Shared by the language's reader and writer: the words, and how a line divides into fields.
#pragma once

#include <QStringView>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

inline constexpr QStringView kInicioBatch = u"@INICIO BATCH", kFinalBatch = u"@FINAL BATCH";

QStringView palabraDe(VerboSesion verbo);
QStringView palabraDe(VerboPeriodos verbo);
// Nothing for an unknown verb.
std::optional<VerboSesion> verboSesion(QStringView palabra);
std::optional<VerboPeriodos> verboPeriodos(QStringView palabra);

// How a task's line continues after its group.
enum class ColaTarea { Nada, Informe, Rango };
ColaTarea colaDe(TipoTarea tarea);

// Removes the text before the first `corte` from `resto`, both trimmed; without one, all of it.
QStringView cortar(QStringView& resto, QChar corte);

}  // namespace tarvo::automation
