// What reader and writer of the language share: the words, and how a line falls into fields.
#pragma once

#include <QStringView>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

inline constexpr QStringView kInicioBatch = u"@INICIO BATCH", kFinalBatch = u"@FINAL BATCH";
inline constexpr qint64 kPrimerCodigo = 0, kUltimoCodigo = 9999999;

QStringView palabraDe(VerboSesion verbo);
QStringView palabraDe(VerboPeriodos verbo);
// Nothing for a word that is no verb of theirs.
std::optional<VerboSesion> verboSesion(QStringView palabra);
std::optional<VerboPeriodos> verboPeriodos(QStringView palabra);

// How the line of a task goes on after its group.
enum class ColaTarea { Nada, Informe, Rango };
ColaTarea colaDe(TipoTarea tarea);

// Takes the text before the first `corte` off `resto`, both trimmed; without one, all of it.
QStringView cortar(QStringView& resto, QChar corte);

}  // namespace tarvo::automation
