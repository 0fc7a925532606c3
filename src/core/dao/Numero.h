// How the store reads the number in a column: lenient, independent of the locale.
#pragma once

#include <QString>
#include <QStringView>

namespace tarvo::dao {

// The number at the beginning of a text, after blanks; 0 if there is none.
double realDeTexto(QStringView texto);
qint64 enteroDeTexto(QStringView texto);
// Rounded to nearest, halves to even; clamped to the range; 0 for NaN.
qint64 enteroDeReal(double x);
// The shortest text that reads back as the same number; a whole one without a point.
QString textoDeReal(double x);

}  // namespace tarvo::dao
