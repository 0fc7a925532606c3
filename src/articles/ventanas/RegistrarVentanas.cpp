#include "articles/ventanas/RegistrarVentanas.h"

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

void registrarVentanasArticulos(ventanas::Ventanas& v, Catalogo& catalogo, Operadores& operadores,
                                motor::gestcomm& motor) {
  v.registrar<PuertaBrowGrupos, BrowGrupos>(catalogo, motor);
  v.registrar<PuertaEdIvaSeccs, EdIvaSeccs>(catalogo);
  v.registrar<PuertaBrowPLUs, BrowPLUs>(catalogo, motor);
  v.registrar<PuertaXEditPLU, XEditPLU>(catalogo);
  v.registrar<PuertaEntNmSc, EntNmSc>();
  v.registrar<PuertaBrowOper, BrowOper>(operadores);
  v.registrar<PuertaSelOpe, SelOpe>();
  v.registrar<PuertaQueHacemos, QueHacemos>();
  v.registrar<PuertaVerPrecios, VerPrecios>();
}

}  // namespace tarvo::articles
