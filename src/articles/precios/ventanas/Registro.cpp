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
  v.registrar(u"NvaOfr"_s, fabrica<NvaOfr>());
  v.registrar(u"MsgBorrOf"_s, fabrica<MsgBorrOf>(), {{u"seleccionadas"_s, 2}, {u"todas"_s, 5}});
  v.registrar(u"CalcPre"_s, fabrica<CalcPreVentana>(catalogo), {{u"seccion"_s, 1}});
  v.registrar(u"FastAlta"_s, fabrica<FastAlta>(catalogo));
  v.registrar(u"CfgFastA"_s, fabrica<CfgFastA>());
  v.registrar(u"FastModf"_s, fabrica<FastModf>(catalogo));
  v.registrar(u"CfgFastPlu"_s, fabrica<CfgFastPlu>());
  v.registrar(u"CambioLote"_s, fabrica<CambioLoteVentana>(catalogo), {{u"subida"_s, u"5"_s}});
}

}  // namespace tarvo::precios
