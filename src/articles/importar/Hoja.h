// Spreadsheet files into a table: the first sheet that holds something. Numbers come with "," as
// the decimal sign, dates as dd/mm/yyyy, formulas as what they came to when the file was saved.
#pragma once

#include <QByteArray>
#include <optional>

#include "articles/importar/Tabla.h"

namespace tarvo::importar {

struct HojaLeida {
  Tabla tabla;
  QString nombre;
};

inline constexpr int kColumnasHoja = 1024;  // what lies beyond is no catalogue

// `bytes` of a whole file. Nothing when they can't be read as such.
std::optional<HojaLeida> leerXlsx(const QByteArray& bytes);
std::optional<HojaLeida> leerOds(const QByteArray& bytes);

// A number of a sheet as a person would have typed it: no exponent, no digits that only binary
// fractions have.
QString numeroDeHoja(double x);

}  // namespace tarvo::importar
