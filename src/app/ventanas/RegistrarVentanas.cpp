#include "app/ventanas/RegistrarVentanas.h"

#include <random>

#include "app/ventanas/ElemPerso.h"
#include "app/ventanas/MainTarvo.h"
#include "app/ventanas/Olvidos.h"
#include "app/ventanas/PortalCnf.h"
#include "articles/importar/ventanas/RegistrarVentanas.h"
#include "articles/precios/ventanas/RegistrarVentanas.h"
#include "articles/ventanas/RegistrarVentanas.h"
#include "automation/ventanas/RegistrarVentanas.h"
#include "comm/conexion/ventanas/RegistrarVentanas.h"
#include "comm/exploracion/ventanas/RegistrarVentanas.h"
#include "comm/ventanas/RegistrarVentanas.h"
#include "devices/ventanas/RegistrarVentanas.h"
#include "groups/ventanas/RegistrarVentanas.h"
#include "labels/ventanas/RegistrarVentanas.h"
#include "totals/ventanas/RegistroTotales.h"

namespace tarvo::app {

void registrarVentanasPrincipal(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  ventanas.registrar<PuertaMainTarvo, MainTarvo>(aplicacion);
  ventanas.registrar<PuertaPortalCnf, PortalCnf>();
  ventanas.registrar<PuertaElemPerso, ElemPerso>();
}

// One line per room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  registrarVentanasPrincipal(ventanas, aplicacion);
  articles::registrarVentanasArticulos(ventanas, aplicacion.catalogo(), aplicacion.operadores(),
                                       aplicacion.gestcomm());
  groups::registrarVentanasGrupos(ventanas, aplicacion.catalogo(), aplicacion.gestcomm());
  precios::registrarVentanasPrecios(ventanas, aplicacion.catalogo(), aplicacion.ofertas());
  importar::registrarVentanasImportar(ventanas, aplicacion.catalogo());
  labels::registrarVentanasLabels(ventanas, aplicacion.catalogo());
  comm::registrarVentanasComm(ventanas, {.motor = aplicacion.gestcomm(),
                                         .enlaces = aplicacion.enlaces(),
                                         .sesion = aplicacion.sesion(),
                                         .repertorio = aplicacion.repertorio(),
                                         .grupos = aplicacion.grupos()});
  conexion::registrarVentanasConexion(ventanas, aplicacion.conexion());
  devices::registrarVentanasTeclados(ventanas, aplicacion.catalogo());
  exploracion::registrarVentanasExploracion(ventanas, {.catalogo = aplicacion.catalogo(),
                                                       .fabrica = aplicacion.fabrica(),
                                                       .motor = aplicacion.gestcomm(),
                                                       .semilla = std::random_device{}()});
  totals::registrarVentanasTotales(ventanas, aplicacion.sesion(), aplicacion.periodos());
  automation::registrarVentanasAutomation(
      ventanas, {.automat = aplicacion.automat(),
                 .cronos = aplicacion.cronos(),
                 .lenguaje = aplicacion.lenguaje(),
                 .motor = aplicacion.gestcomm(),
                 .debidos = aplicacion.debidos(),
                 .consiente = [&aplicacion](auto& quien, const auto& pasos) {
                   return consienteOlvidos(quien, aplicacion, pasos);
                 }});
}

}  // namespace tarvo::app
