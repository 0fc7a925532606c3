#include "app/Tablas.h"

#include "articles/TablasArticulos.h"
#include "articles/importar/SeccionesHechas.h"
#include "automation/historia/TablasHistoria.h"
#include "comm/configuracion/Aceptado.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/tareas/Repertorio.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::app {

std::vector<dao::TablasDeSala> tablasDeLasSalas() {
  return {articles::tablasArticulos(),
          importar::tablasImportar(),
          totals::tablasTotales(),
          totals::tablasLibros(),
          tareas::tablasTareas(),
          envios::tablasEnvios(),
          configuracion::tablasConfiguracion(),
          automation::tablasHistoria()};
}

}  // namespace tarvo::app
