#include "app/AjustesSalas.h"

#include "app/AjustesPersonal.h"
#include "articles/AjustesArticulos.h"
#include "articles/precios/AjustesPrecios.h"
#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/AjustesListas.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::app {

std::vector<SalaDeAjustes> ajustesDeLasSalas(Fecha ahora) {
  return {articles::ajustesArticulos(), precios::ajustesPrecios(), totals::ajustesPeriodos(),
          totals::ajustesSesion(ahora), enlace::ajustesCables(),   enlace::ajustesEnlace(),
          motor::ajustesMotor(),        tareas::ajustesListas(),   ajustesPersonal()};
}

}  // namespace tarvo::app
