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

void registrarVentanasTotales(ventanas::Ventanas& v, Sesion& sesion, Periodos& periodos) {
  v.registrar<PuertaCerrSes, CerrSesVentana>(sesion, periodos);
  v.registrar<PuertaFormDetalles, FormDetallesVentana>();
  v.registrar<PuertaDudasCero, DudasCero>(sesion, periodos);
  v.registrar<PuertaVerTot, VerTotVentana>(periodos);
  v.registrar<PuertaEditIntv, EditIntvVentana>(periodos);
  v.registrar<PuertaConfirSum, ConfirSumVentana>(periodos);
  v.registrar<PuertaNoStkBle, NoStkBleVentana>();
  v.registrar<PuertaVerCols, Visor>(periodos);
  v.ponerMuestra(PuertaVerCols{.clase = TipoTotal::PLUs});
  v.registrar<PuertaV_ColOpH, Visor>(periodos);
  v.registrar<PuertaVerFils, VerFilsVentana>(periodos);
  v.registrar<PuertaXporTot, XporTotVentana>(periodos);
  v.registrar<PuertaImpTot, ImpTotVentana>(periodos);
  v.registrar<PuertaImpUnaFila, ImpUnaFilaVentana>();
}

}  // namespace tarvo::totals
