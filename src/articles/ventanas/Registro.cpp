#include "articles/ventanas/Registro.h"

#include "articles/ventanas/BrowGrupos.h"
#include "articles/ventanas/BrowOper.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/EdIvaSeccs.h"
#include "articles/ventanas/EntNmSc.h"
#include "articles/ventanas/QueHacemos.h"
#include "articles/ventanas/SelOpe.h"
#include "articles/ventanas/VerPrecios.h"
#include "articles/ventanas/xEditPLU.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::fabrica;

void registrarVentanasArticulos(ventanas::Ventanas& v, Catalogo& catalogo, motor::gestcomm& motor) {
  v.registrar(u"BrowGrupos"_s, fabrica<BrowGrupos>(catalogo, motor),
              {{u"Grupos"_s, false}, {u"Depts"_s, true}});
  v.registrar<PuertaEdIvaSeccs, EdIvaSeccs>(catalogo);
  v.registrar(u"BrowPLUs"_s, fabrica<BrowPLUs>(catalogo, motor));
  v.registrar(u"xEditPLU"_s, fabrica<XEditPLU>(catalogo));
  v.registrar<PuertaEntNmSc, EntNmSc>();
  v.registrar(u"BrowOper"_s, fabrica<BrowOper>());
  v.registrar<PuertaSelOpe, SelOpe>();
  v.registrar<PuertaQueHacemos, QueHacemos>();
  v.registrar(u"VerPrecios"_s, fabrica<VerPrecios>());
}

}  // namespace tarvo::articles
