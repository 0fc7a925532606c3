// A file with a table, whatever its kind: .csv and .txt, .xlsx, .ods.
#pragma once

#include "articles/importar/Csv.h"
#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"

namespace tarvo::importar {

struct TablaLeida {
  Tabla tabla;
  QString hoja;                                    // name of the sheet; empty for a text
  Codificacion codificacion = Codificacion::Utf8;  // of a text
  QChar separador = u';';                          // of a text
};

// Errors: those of leerFichero; Formato for a damaged file, one without rows, one with more than
// Tabla::kCeldasMayor cells.
Resultado<TablaLeida> leerTabla(const QString& ruta, const Textos& textos);

}  // namespace tarvo::importar
