// A group that is being edited, beside what other windows store of it meanwhile.
#include "devices/Modelos.h"
#include "groups/Grupos.h"

namespace tarvo::groups {

namespace {

Resultado<> operadoresAlDia(devices::Grupo& g, const devices::Grupo& abierto,
                            const devices::Grupo& ahora) {
  if (g.tipo() != abierto.tipo() || ahora.tipo() != abierto.tipo()) return {};
  for (int n = 1; n <= devices::MaxOperadores(g.tipo()); ++n) {
    if (g.CodOperador(n) != abierto.CodOperador(n) || g.Training(n) != abierto.Training(n) ||
        g.CodOperador(n) == ahora.CodOperador(n))
      continue;
    TARVO_INTENTAR(g.CodOperador(n, ahora.CodOperador(n)));
    g.Training(n, ahora.Training(n));
  }
  return {};
}

void formatosAlDia(devices::Balanza& balanza, const devices::Balanza& abierta,
                   const devices::Balanza& ahora) {
  for (int n = 11; n <= 20; ++n)
    if (balanza.Formato(n) == abierta.Formato(n)) balanza.Formato(n, ahora.Formato(n));
}

}  // namespace

Resultado<> Grupos::ponerAlDia(GrupoEditado& editado, const GrupoEditado& abierto) {
  TARVO_TOMAR(const auto ahora, abrir(abierto.codigo));
  if (editado.nombre == abierto.nombre) editado.nombre = ahora.nombre;
  if (editado.grupo.seccion == abierto.grupo.seccion) editado.grupo.seccion = ahora.grupo.seccion;
  TARVO_INTENTAR(operadoresAlDia(editado.grupo, abierto.grupo, ahora.grupo));
  const auto balanzaDe = [](const devices::Grupo& g, int numero) {
    const auto hallada = g.LasBalanzas.find(numero);
    return hallada == g.LasBalanzas.end() ? nullptr
                                          : std::get_if<devices::Balanza>(&hallada->second);
  };
  for (auto& [numero, miembro] : editado.grupo.LasBalanzas) {
    auto* suya = std::get_if<devices::Balanza>(&miembro);
    const auto *antes = balanzaDe(abierto.grupo, numero), *hoy = balanzaDe(ahora.grupo, numero);
    if (suya && antes && hoy) formatosAlDia(*suya, *antes, *hoy);
  }
  return {};
}

}  // namespace tarvo::groups
