// What follows from the model of a machine and from the kind of its group.
#pragma once

#include <QString>

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
enum TipoGrupo : int {
  kGrupoBalanzas = 1,
  kGrupoEbony = 2,
  kGrupoRegistradoras = 3,
  kGrupoBirch = 4
};

// Sizes of a group's tables by its kind; 0 for any other number.
int MaxOperadores(int tipoGrupo);
int MaxDepartamentos(int tipoGrupo);

// By the model of a scale; 0 (or an empty name) for any other number.
int MaxTeclas(int modelo);
int TipoDeGrupo(int modelo);
QString NombreModelo(int modelo);

}  // namespace tarvo::devices
