#include "app/ventanas/Olvidos.h"

#include <set>

#include "comm/ventanas/Grupos.h"

namespace tarvo::app {

namespace {

// The groups to which the process sends a kind of task; all of them for ALL, and for one that a
// parameter is still to name. `valen`: the kinds of group that take it.
Resultado<std::vector<int>> gruposDe(const std::vector<automation::PasoProceso>& pasos,
                                     const motor::ClaseTarea& clase, const envios::Grupos& grupos) {
  std::set<int> nombrados;
  bool todos = false;
  for (const auto& paso : pasos) {
    const auto* tarea = std::get_if<automation::PasoTarea>(&paso);
    if (!tarea || tarea->tarea != clase.tarea) continue;
    const auto* grupo = std::get_if<qint64>(&tarea->grupo);
    todos = todos || !grupo;
    if (grupo) nombrados.insert(static_cast<int>(*grupo));
  }
  TARVO_TOMAR(const auto suyos, grupos.deTipos(clase.tipos));
  std::vector<int> v;
  for (const auto& g : suyos)
    if (todos || nombrados.contains(g.codigo)) v.push_back(g.codigo);
  return v;
}

}  // namespace

bool consienteOlvidos(ventanas::Ventana& quien, Aplicacion& aplicacion,
                      const std::vector<automation::PasoProceso>& pasos) {
  for (const TipoTarea tipo : {TipoTarea::TxZero, TipoTarea::BorrPlu}) {
    const motor::ClaseTarea* clase = aplicacion.repertorio().de(tipo);
    if (!clase) continue;
    const auto grupos = gruposDe(pasos, *clase, aplicacion.grupos());
    if (!quien.haIdoBien(grupos)) return false;
    if (!grupos->empty() &&
        !comm::consientePerder(quien, aplicacion.grupos(), aplicacion.sesion(), tipo, *grupos))
      return false;
  }
  return true;
}

}  // namespace tarvo::app
