// What a test of a connection asks for: how a group is reached, and the machines that belong to it.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"
#include "core/valores/Tipos.h"
#include "devices/Grupo.h"

namespace tarvo::conexion {

struct MaquinaProbada {
  int sitio = 0;                      // from 0; of a scale its number
  int modelo = 0;                     // of a scale
  std::optional<int> direccion = {};  // of a register; nothing while it has none
  bool operator==(const MaquinaProbada&) const = default;
};

struct GrupoProbado {
  TipoGrupo tipo = TipoGrupo::Balanzas;
  TipoAcceso remoto = TipoAcceso::Ninguno;
  int canal = 0;   // of a direct cable, from 0
  QString acceso;  // phone number, host text or link name
  int baudios = 0;
  int nodo = 0;  // of an Ebony group
  std::vector<MaquinaProbada> maquinas;
  bool operator==(const GrupoProbado&) const = default;
};

// Of a group as it is, stored or not. Restriccion, with a sentence, if there is nobody to ask or no
// way to them.
Resultado<GrupoProbado> grupoProbado(const devices::Grupo& grupo, const Textos& textos);

}  // namespace tarvo::conexion
