// What reader and writer of the language share: the words, and how a line falls into fields.
#pragma once

#include <QStringView>
#include <span>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

inline constexpr QStringView kInicioBatch = u"@INICIO BATCH", kFinalBatch = u"@FINAL BATCH";
inline constexpr qint64 kPrimerCodigo = 0, kUltimoCodigo = 9999999;

// Verbs of a class in the order of their numbers, from 1.
std::span<const QStringView> verbosDe(int clase);
// Number of a verb, 0 when the class has none so called.
int numeroVerbo(int clase, QStringView verbo);
// The task kinds whose line goes on: with a flag and a range of codes, or with a flag alone.
bool llevaRango(int tarea);
bool llevaInforme(int tarea);

// Takes the text before the first `corte` off `resto`, both trimmed; without one, all of it.
QStringView cortar(QStringView& resto, QChar corte);

}  // namespace tarvo::automation
