// The lists of offers and of the fast change, and the names of their columns in the store.
#pragma once

#include "articles/precios/Ofertas.h"
#include "core/dao/Origen.h"

namespace tarvo::precios {

// The offers of the filter, by article, each with its article's name.
dao::Origen listaOfertas(const FiltroOfertas& filtro);
enum class CampoOferta { Grupo, Seccion, Codigo };
QString columnaOferta(CampoOferta campo);

// The articles of a section that the fast change may touch, by code.
dao::Origen listaRapida(int seccion);

}  // namespace tarvo::precios
