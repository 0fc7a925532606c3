#include "devices/Modelos.h"

#include <array>

namespace tarvo::devices {

namespace {

struct Tamanos {
  int operadores, departamentos;
};
constexpr std::array<Tamanos, 5> kTamanos = {{{0, 0}, {20, 10}, {10, 10}, {20, 40}, {20, 20}}};

struct Modelo {
  const char16_t* nombre;
  int tipoGrupo, teclas;
};
constexpr std::array<Modelo, 9> kModelos = {{{u"", 0, 0},
                                             {u"Rowan", kGrupoBalanzas, 125},
                                             {u"Maple", kGrupoBalanzas, 96},
                                             {u"Cedar", kGrupoBalanzas, 80},
                                             {u"Aspen", kGrupoBalanzas, 110},
                                             {u"Hazel", kGrupoBalanzas, 84},
                                             {u"Larch", kGrupoBalanzas, 84},
                                             {u"Ebony", kGrupoEbony, 28},
                                             {u"Birch", kGrupoBirch, 66}}};

// The entry of a number, the first (empty) one for a number out of range.
template <class T, size_t N>
const T& deTabla(const std::array<T, N>& tabla, int n) {
  return tabla[n > 0 && n < static_cast<int>(N) ? static_cast<size_t>(n) : 0];
}

}  // namespace

int MaxOperadores(int tipoGrupo) {
  return deTabla(kTamanos, tipoGrupo).operadores;
}
int MaxDepartamentos(int tipoGrupo) {
  return deTabla(kTamanos, tipoGrupo).departamentos;
}
int MaxTeclas(int modelo) {
  return deTabla(kModelos, modelo).teclas;
}
int TipoDeGrupo(int modelo) {
  return deTabla(kModelos, modelo).tipoGrupo;
}
QString NombreModelo(int modelo) {
  return QString::fromUtf16(deTabla(kModelos, modelo).nombre);
}

}  // namespace tarvo::devices
