// Writes the contents of a grid to a file, some rows per step: CSV (semicolons, UTF-8 with its
// mark, as Spanish spreadsheets read it) or a spreadsheet with real numbers and dates.
#pragma once

#include <memory>
#include <vector>

#include "core/tiempo/Trabajo.h"
#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

struct Exportacion {
  const ModeloParrilla* modelo;
  std::vector<int> columnas;  // the visible ones, in the order shown
  QString ruta;               // ".xlsx" makes a spreadsheet, any other CSV
  QString hoja;               // the name of the sheet
};

// Returns a step for Trabajo. The file appears under its name only when it is complete; a stop
// leaves none. REQUIRES that the model outlives the work and isn't renewed meanwhile.
Resultado<Trabajo::Paso> exportar(Exportacion que);

}  // namespace tarvo::ventanas
