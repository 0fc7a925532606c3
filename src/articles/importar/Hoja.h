// Spreadsheet files into a table: the first sheet with contents. Numbers have "," as the decimal
// sign, dates are dd/mm/yyyy, formulas give their value when the file was saved.
#pragma once

#include <QByteArray>
#include <optional>

#include "articles/importar/Tabla.h"

namespace tarvo::importar {

struct HojaLeida {
  Tabla tabla;
  QString nombre;
};

inline constexpr int kColumnasHoja = 1024;  // anything beyond is no catalogue

// `bytes` of a whole file. Nothing when they are not such a file.
std::optional<HojaLeida> leerXlsx(const QByteArray& bytes);
std::optional<HojaLeida> leerOds(const QByteArray& bytes);

// A number of a sheet as a person would have typed it: no exponent, no digits due to binary
// fractions.
QString numeroDeHoja(double x);

}  // namespace tarvo::importar
