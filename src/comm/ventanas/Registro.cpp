#include "comm/ventanas/Registro.h"

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

using namespace Qt::StringLiterals;

void registrarVentanasComm(ventanas::Ventanas& v, const Servicios& s) {
  const auto con = [&]<class W>(std::type_identity<W>, const QString& nombre,
                                ventanas::Argumentos muestra = {}) {
    v.registrar(
        nombre, [s](ventanas::Contexto& c, const QString& n) { return new W(c, n, s); },
        std::move(muestra));
  };
  con(std::type_identity<gestcommVentana>(), u"gestcomm"_s);
  con(std::type_identity<GrpDlg>(), u"GrpDlg"_s,
      {{u"clase"_s, numeroDe(TipoTarea::TxZero)}, {u"modo"_s, kModoCero}});
  con(std::type_identity<TxPLUdlg>(), u"TxPLUdlg"_s, {{u"clase"_s, numeroDe(TipoTarea::TxPlus)}});
  con(std::type_identity<RxPLUDlg>(), u"RxPLUDlg"_s, {{u"clase"_s, numeroDe(TipoTarea::RxPlus)}});
  con(std::type_identity<Diagnostico>(), u"Diagnostico"_s,
      {{u"estado"_s, int{motor::kInterrumpido}}, {u"error"_s, 18}});
  con(std::type_identity<VerTramas>(), u"VerTramas"_s);
  con(std::type_identity<EstadoEnvio>(), u"EstadoEnvio"_s);
  v.registrar<PuertaCfgComm, CfgComm>(s.motor);
  v.registrar<PuertaEdiParms, EdiParms>();
  v.registrar<PuertaATModf, ATModf>();
}

}  // namespace tarvo::comm
