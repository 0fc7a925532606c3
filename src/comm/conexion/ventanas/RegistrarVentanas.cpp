#include "comm/conexion/ventanas/RegistrarVentanas.h"

#include "comm/conexion/ventanas/ProbarConexion.h"
#include "devices/Modelos.h"

namespace tarvo::conexion {

void registrarVentanasConexion(ventanas::Ventanas& v, const Servicios& s) {
  v.registrar<PuertaProbar, ProbarConexion>(Servicios(s));
  // Where nobody is.
  v.ponerMuestra(PuertaProbar{.grupo = {.remoto = TipoAcceso::TcpIp,
                                        .acceso = QStringLiteral("localhost:1"),
                                        .maquinas = {{.sitio = 0, .modelo = devices::kRowan},
                                                     {.sitio = 1, .modelo = devices::kCedar}}}});
}

}  // namespace tarvo::conexion
