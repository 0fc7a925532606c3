#include "comm/ventanas/RegistrarVentanas.h"

#include "comm/ventanas/ATModf.h"
#include "comm/ventanas/CfgComm.h"
#include "comm/ventanas/Diagnostico.h"
#include "comm/ventanas/EdiParms.h"
#include "comm/ventanas/EstadoEnvio.h"
#include "comm/ventanas/GrpDlg.h"
#include "comm/ventanas/RxPLUDlg.h"
#include "comm/ventanas/TxPLUdlg.h"
#include "comm/ventanas/VerTramas.h"
#include "comm/ventanas/gestcomm/gestcommVentana.h"

namespace tarvo::comm {

void registrarVentanasComm(ventanas::Ventanas& v, const Servicios& s) {
  v.registrar<PuertaGestcomm, gestcommVentana>(Servicios(s));
  v.registrar<PuertaGrpDlg, GrpDlg>(Servicios(s));
  v.registrar<PuertaTxPLUdlg, TxPLUdlg>(Servicios(s));
  v.registrar<PuertaRxPLUDlg, RxPLUDlg>(Servicios(s));
  v.registrar<PuertaDiagnostico, Diagnostico>(Servicios(s));
  v.ponerMuestra(PuertaDiagnostico{.estado = motor::kInterrumpido, .error = 18});
  v.registrar<PuertaVerTramas, VerTramas>(Servicios(s));
  v.registrar<PuertaEstadoEnvio, EstadoEnvio>(Servicios(s));
  v.registrar<PuertaCfgComm, CfgComm>(s.motor);
  v.registrar<PuertaEdiParms, EdiParms>();
  v.registrar<PuertaATModf, ATModf>();
}

}  // namespace tarvo::comm
