// How the store reads a number out of what a column holds: lenient, without regard to the locale.
#pragma once

#include <QString>
#include <QStringView>

namespace tarvo::dao {

// The number at the beginning of a text, after blanks; 0 when there is none.
double realDeTexto(QStringView texto);
qint64 enteroDeTexto(QStringView texto);
// Rounded to the nearest, halves to the even one; held within the range, 0 for no number.
qint64 enteroDeReal(double x);
// The shortest text that reads back as the same number; a whole one without a point.
QString textoDeReal(double x);

}  // namespace tarvo::dao
