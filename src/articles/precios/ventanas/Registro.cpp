#include "articles/precios/ventanas/Registro.h"

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
using ventanas::fabrica;

void registrarVentanasPrecios(ventanas::Ventanas& v, articles::Catalogo& catalogo) {
  v.registrar(u"BrowOfer"_s, fabrica<BrowOfer>());
  v.registrar<PuertaNvaOfr, NvaOfr>();
  v.registrar<PuertaMsgBorrOf, MsgBorrOf>();
  v.registrar(u"CalcPre"_s, fabrica<CalcPreVentana>(catalogo), {{u"seccion"_s, 1}});
  v.registrar(u"FastAlta"_s, fabrica<FastAlta>(catalogo));
  v.registrar<PuertaCfgFastA, CfgFastA>();
  v.registrar(u"FastModf"_s, fabrica<FastModf>(catalogo));
  v.registrar<PuertaCfgFastPlu, CfgFastPlu>();
  v.registrar(u"CambioLote"_s, fabrica<CambioLoteVentana>(catalogo), {{u"subida"_s, u"5"_s}});
}

}  // namespace tarvo::precios
