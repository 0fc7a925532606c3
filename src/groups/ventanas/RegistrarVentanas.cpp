#include "groups/ventanas/RegistrarVentanas.h"

#include "devices/Modelos.h"
#include "groups/ventanas/AvanGpo.h"
#include "groups/ventanas/EdIvaDept.h"
#include "groups/ventanas/EdOpsGpo.h"
#include "groups/ventanas/EdRz.h"
#include "groups/ventanas/EdiCass.h"
#include "groups/ventanas/EdiOpsBza.h"
#include "groups/ventanas/EdiPubli.h"
#include "groups/ventanas/EditorGrupo.h"

namespace tarvo::groups {

namespace {

// What the sheets show when they are opened by name alone.
devices::Balanza balanzaDeMuestra(int modelo) {
  devices::Balanza b;
  b.tipo(modelo);
  b.Numero = 0;
  return b;
}

template <class P>
void muestraDeMaquina(ventanas::Ventanas& v, int modelo) {
  v.ponerMuestra([modelo] {
    return P{{.nombre = devices::NombreModelo(modelo),
              .varias = true,
              .maquina = balanzaDeMuestra(modelo)}};
  });
}

template <class P>
void muestraDeGrupo(ventanas::Ventanas& v) {
  v.ponerMuestra([] {
    devices::Grupo grupo;
    grupo.tipo(TipoGrupo::Balanzas);
    return P{{.nombre = devices::NombreModelo(devices::kRowan), .grupo = grupo}};
  });
}

}  // namespace

void registrarVentanasGrupos(ventanas::Ventanas& v, articles::Catalogo& catalogo,
                             motor::gestcomm& motor) {
  v.registrar<PuertaEdiGrupo, EdiGrupo>(catalogo, motor);
  v.registrar<PuertaEdiCajas, EdiCajas>(catalogo, motor);
  v.registrar<PuertaEdOpsGpo, EdOpsGpo>();
  v.registrar<PuertaEdIvaDept, EdIvaDept>();
  v.registrar<PuertaAvanGpo, AvanGpo>();
  v.registrar<PuertaEdiPubli, EdiPubli>();
  v.registrar<PuertaEdiOpsBza, EdiOpsBza>();
  v.registrar<PuertaEdiCass, EdiCass>(catalogo);
  v.registrar<PuertaEdRzSoc, EdRz>();
  v.registrar<PuertaEdRzBirch, EdRz>();
  v.registrar<PuertaEdRzSEbony, EdRz>();
  muestraDeGrupo<PuertaEdOpsGpo>(v);
  muestraDeGrupo<PuertaEdIvaDept>(v);
  muestraDeGrupo<PuertaAvanGpo>(v);
  muestraDeMaquina<PuertaEdiPubli>(v, devices::kRowan);
  muestraDeMaquina<PuertaEdiOpsBza>(v, devices::kRowan);
  muestraDeMaquina<PuertaEdiCass>(v, devices::kRowan);
  muestraDeMaquina<PuertaEdRzSoc>(v, devices::kRowan);
  muestraDeMaquina<PuertaEdRzBirch>(v, devices::kBirch);
  muestraDeMaquina<PuertaEdRzSEbony>(v, devices::kEbony);
}

}  // namespace tarvo::groups
