#include "comm/tareas/Fabricas.h"
#include "comm/tareas/Listas.h"

namespace tarvo::tareas {

Curso crearRxPedid(const motor::DatosTarea& t, const motor::Entorno& e) {
  return crearLista(t, e, Documento::Pedido);
}

Curso crearRxInven(const motor::DatosTarea& t, const motor::Entorno& e) {
  return crearLista(t, e, Documento::Inventario);
}

}  // namespace tarvo::tareas
