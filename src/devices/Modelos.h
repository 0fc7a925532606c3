// Properties that follow from the model of a machine and the kind of its group.
#pragma once

#include <QString>
#include <optional>

#include "core/valores/Tipos.h"

namespace tarvo::devices {

enum ModeloBalanza : int {
  kSinModelo = 0,
  kRowan = 1,
  kMaple = 2,
  kCedar = 3,
  kAspen = 4,
  kHazel = 5,
  kLarch = 6,
  kEbony = 7,
  kBirch = 8,
};

// Sizes of a group's tables by its kind; 0 while it has none.
int MaxOperadores(std::optional<TipoGrupo> tipo);
int MaxDepartamentos(std::optional<TipoGrupo> tipo);

// By the model of a scale; 0, nothing or an empty name for any other number.
int MaxTeclas(int modelo);
// Those of its keyboard that a person can change.
int TeclasDeFormulario(int modelo);
std::optional<TipoGrupo> TipoDeGrupo(int modelo);
QString NombreModelo(int modelo);

}  // namespace tarvo::devices
