#include "articles/precios/ventanas/RegistrarVentanas.h"

#include "articles/precios/ventanas/BrowOfer.h"
#include "articles/precios/ventanas/CalcPreVentana.h"
#include "articles/precios/ventanas/CambioLoteVentana.h"
#include "articles/precios/ventanas/CfgFastA.h"
#include "articles/precios/ventanas/CfgFastPlu.h"
#include "articles/precios/ventanas/FastAlta.h"
#include "articles/precios/ventanas/FastModf.h"
#include "articles/precios/ventanas/MsgBorrOf.h"
#include "articles/precios/ventanas/NvaOfr.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

void registrarVentanasPrecios(ventanas::Ventanas& v, articles::Catalogo& catalogo,
                              Ofertas& ofertas) {
  v.registrar<PuertaBrowOfer, BrowOfer>(ofertas);
  v.registrar<PuertaNvaOfr, NvaOfr>(ofertas);
  v.registrar<PuertaMsgBorrOf, MsgBorrOf>();
  v.registrar<PuertaCalcPre, CalcPreVentana>(catalogo);
  v.registrar<PuertaFastAlta, FastAlta>(catalogo);
  v.registrar<PuertaCfgFastA, CfgFastA>();
  v.registrar<PuertaFastModf, FastModf>(catalogo);
  v.registrar<PuertaCfgFastPlu, CfgFastPlu>();
  v.registrar<PuertaCambioLote, CambioLoteVentana>(catalogo);
  v.ponerMuestra(PuertaCambioLote{.subida = u"5"_s});
}

}  // namespace tarvo::precios
