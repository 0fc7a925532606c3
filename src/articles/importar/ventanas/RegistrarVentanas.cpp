#include "articles/importar/ventanas/RegistrarVentanas.h"

#include "articles/importar/ventanas/ImpPLUVentana.h"
#include "articles/importar/ventanas/ImpTablaVentana.h"
#include "articles/importar/ventanas/MainTvcVentana.h"

namespace tarvo::importar {

void registrarVentanasImportar(ventanas::Ventanas& v, articles::Catalogo& catalogo) {
  v.registrar<PuertaImpPLU, ImpPLUVentana>(catalogo);
  v.registrar<PuertaImpTabla, ImpTablaVentana>(catalogo);
  v.registrar<PuertaMainTvc, MainTvcVentana>(catalogo);
}

}  // namespace tarvo::importar
