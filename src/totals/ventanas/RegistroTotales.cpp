#include "totals/ventanas/RegistroTotales.h"

#include "totals/ventanas/CerrSesVentana.h"
#include "totals/ventanas/ConfirSumVentana.h"
#include "totals/ventanas/DudasCero.h"
#include "totals/ventanas/EditIntvVentana.h"
#include "totals/ventanas/FormDetallesVentana.h"
#include "totals/ventanas/ImpTotVentana.h"
#include "totals/ventanas/ImpUnaFilaVentana.h"
#include "totals/ventanas/NoStkBleVentana.h"
#include "totals/ventanas/VerFilsVentana.h"
#include "totals/ventanas/VerTotVentana.h"
#include "totals/ventanas/Visor.h"
#include "totals/ventanas/XporTotVentana.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::fabrica;

void registrarVentanasTotales(ventanas::Ventanas& v, Sesion& sesion, Periodos& periodos) {
  v.registrar(u"CerrSes"_s, fabrica<CerrSesVentana>(sesion, periodos));
  v.registrar<PuertaFormDetalles, FormDetallesVentana>();
  v.registrar(u"DudasCero"_s, fabrica<DudasCero>(sesion, periodos));
  v.registrar(u"VerTot"_s, fabrica<VerTotVentana>(periodos));
  v.registrar<PuertaEditIntv, EditIntvVentana>(periodos);
  v.registrar(u"ConfirSum"_s, fabrica<ConfirSumVentana>(periodos));
  v.registrar(u"NoStkBle"_s, fabrica<NoStkBleVentana>());
  v.registrar(u"VerCols"_s, fabrica<Visor>(periodos), {{u"clase"_s, kPLUs}});
  v.registrar(u"V_ColOpH"_s, fabrica<Visor>(periodos));
  v.registrar(u"VerFils"_s, fabrica<VerFilsVentana>());
  v.registrar(u"XporTot"_s, fabrica<XporTotVentana>(periodos));
  v.registrar(u"ImpTot"_s, fabrica<ImpTotVentana>(periodos));
  v.registrar<PuertaImpUnaFila, ImpUnaFilaVentana>();
}

}  // namespace tarvo::totals
