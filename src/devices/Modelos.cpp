#include "devices/Modelos.h"

#include <array>
#include <utility>

namespace tarvo::devices {

namespace {

struct Tamanos {
  int operadores, departamentos;
};

constexpr Tamanos tamanosDe(TipoGrupo tipo) {
  switch (tipo) {
    case TipoGrupo::Balanzas:
      return {20, 10};
    case TipoGrupo::Ebony:
      return {10, 10};
    case TipoGrupo::Registradoras:
      return {20, 40};
    case TipoGrupo::Birch:
      return {20, 20};
  }
  std::unreachable();
}

struct Modelo {
  const char16_t* nombre;
  std::optional<TipoGrupo> tipoGrupo;
  int teclas, deFormulario;
};
constexpr std::array<Modelo, 9> kModelos = {{{u"", std::nullopt, 0, 0},
                                             {u"Rowan", TipoGrupo::Balanzas, 125, 125},
                                             {u"Maple", TipoGrupo::Balanzas, 96, 96},
                                             {u"Cedar", TipoGrupo::Balanzas, 80, 80},
                                             {u"Aspen", TipoGrupo::Balanzas, 110, 84},
                                             {u"Hazel", TipoGrupo::Balanzas, 84, 84},
                                             {u"Larch", TipoGrupo::Balanzas, 84, 84},
                                             {u"Ebony", TipoGrupo::Ebony, 28, 28},
                                             {u"Birch", TipoGrupo::Birch, 66, 66}}};

// The entry of a number; the first, empty one for a number out of range.
template <class T, size_t N>
const T& deTabla(const std::array<T, N>& tabla, int n) {
  return tabla[n > 0 && n < static_cast<int>(N) ? static_cast<size_t>(n) : 0];
}

}  // namespace

int MaxOperadores(std::optional<TipoGrupo> tipo) {
  return tipo ? tamanosDe(*tipo).operadores : 0;
}
int MaxDepartamentos(std::optional<TipoGrupo> tipo) {
  return tipo ? tamanosDe(*tipo).departamentos : 0;
}
int MaxTeclas(int modelo) {
  return deTabla(kModelos, modelo).teclas;
}
std::optional<TipoGrupo> TipoDeGrupo(int modelo) {
  return deTabla(kModelos, modelo).tipoGrupo;
}
int TeclasDeFormulario(int modelo) {
  return deTabla(kModelos, modelo).deFormulario;
}
QString NombreModelo(int modelo) {
  return QString::fromUtf16(deTabla(kModelos, modelo).nombre);
}

}  // namespace tarvo::devices
