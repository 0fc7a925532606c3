// The sheets opened from the editor of a group.
#include "comm/conexion/GrupoProbado.h"
#include "comm/conexion/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"
#include "devices/ventanas/Puertas.h"
#include "groups/ventanas/Comun.h"
#include "groups/ventanas/EditorGrupo.h"
#include "groups/ventanas/HojasDe.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;

QString EditorGrupo::deMaquina(int que) const {
  if (cajas_) return tituloDe(t(kTxEnCaja).arg(t(que).remove(u'&')), {}, sitio());
  return contexto().textos(kTxQueDeMaquina, {t(que).remove(u'&'), sitio() + 1});
}

void EditorGrupo::operadores() {
  PuertaEdOpsGpo hoja;
  hoja.alDia = [this](devices::Grupo& grupo) -> Resultado<> {
    if (nuevo_) return {};
    GrupoEditado suyo = r;
    suyo.grupo = grupo;
    TARVO_INTENTAR(grupos_.ponerAlDia(suyo, abierto_));
    grupo = std::move(suyo.grupo);
    return {};
  };
  hojaDeGrupo(kTxOperadoresDelGrupo, std::move(hoja));
}

void EditorGrupo::cabecera() {
  if (!r.grupo.tipo()) return;
  switch (*r.grupo.tipo()) {
    case TipoGrupo::Balanzas:
      return hojaDeMaquina<PuertaEdRzSoc>(kTxCabecera, &copiarCabecera, {Cambio::Ticket});
    case TipoGrupo::Ebony:
      return hojaDeMaquina<PuertaEdRzSEbony>(kTxCabecera, &copiarCabecera, {Cambio::Ticket});
    case TipoGrupo::Birch:
      return hojaDeMaquina<PuertaEdRzBirch>(kTxCabecera, &copiarCabecera, {Cambio::Ticket});
    case TipoGrupo::Registradoras:
      return;
  }
}

void EditorGrupo::teclado() {
  const auto hallada = r.grupo.LasBalanzas.find(sitio());
  if (hallada == r.grupo.LasBalanzas.end()) return;
  if (!contexto().ventanas.conoce<devices::PuertaTeclado>()) return decirPista(t(kTxSinTeclado));
  empezarOrden();
  devices::Maquina& m = maquinaDe(hallada->second);
  const devices::TextosTeclado antes{m.Teclado.Teclado, m.Teclado.HARDPLU, m.Teclado.TARASME};
  const auto hecho = preguntar(devices::PuertaTeclado{.tipo = m.tipo(),
                                                      .grupo = r.nombre,
                                                      .balanza = sitio(),
                                                      .seccion = r.grupo.seccion,
                                                      .textos = antes});
  if (!hecho || *hecho == antes) return;
  m.Teclado.Teclado = hecho->Teclado;
  m.Teclado.HARDPLU = hecho->HARDPLU;
  m.Teclado.TARASME = hecho->TARASME;
  r.marcas.poner(Cambio::Teclado);
  anotar(deMaquina(kTxTeclado));
  pintar();
}

// The access as it is typed, stored or not.
void EditorGrupo::probar() {
  quitarLoDicho();
  for (ventanas::Campo* c : {telf_, addr_, dir_}) {
    const auto leido = c && c->control().isVisible() ? c->leer() : Resultado<>();
    if (leido) continue;
    c->enfocar();
    return decirPista(leido.error().texto);
  }
  revisar();  // reading has cleared what the engine refuses
  const auto grupo = conexion::grupoProbado(r.grupo, contexto().textos);
  if (!grupo) return decirPista(grupo.error().texto);
  preguntar(conexion::PuertaProbar{.nombre = r.nombre, .grupo = *grupo});
}

}  // namespace tarvo::groups
