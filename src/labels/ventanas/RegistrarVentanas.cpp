#include "labels/ventanas/RegistrarVentanas.h"

#include "labels/ventanas/EdiCampo.h"
#include "labels/ventanas/EdiEtqu.h"
#include "labels/ventanas/EdiTxtFi.h"
#include "labels/ventanas/TxtFijos.h"
#include "labels/ventanas/VistaEtq.h"

namespace tarvo::labels {

void registrarVentanasLabels(ventanas::Ventanas& v, articles::Catalogo& catalogo) {
  v.registrar<PuertaEdiEtqu, EdiEtqu>(catalogo);
  v.registrar<PuertaEdiCampo, EdiCampo>();
  v.registrar<PuertaEdiTxtFi, EdiTxtFi>(catalogo);
  v.registrar<PuertaTxtFijos, TxtFijos>(catalogo);
  v.registrar<PuertaVistaEtq, VistaEtq>(catalogo);
}

}  // namespace tarvo::labels
