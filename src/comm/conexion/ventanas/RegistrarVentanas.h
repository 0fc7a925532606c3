#pragma once

#include "comm/conexion/Prueba.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::conexion {

void registrarVentanasConexion(ventanas::Ventanas& v, const Servicios& s);

}  // namespace tarvo::conexion
