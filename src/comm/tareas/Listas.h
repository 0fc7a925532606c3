// Orders and inventories held by a machine: their lines stay in memory until the list has ended.
// Then one transaction creates the document and records that the machine has yet to forget the
// list, and only then is it told to.
#pragma once

#include "comm/maquinas/Campos.h"
#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

enum class Documento { Pedido, Inventario };

// The record of a list on disk: ListasRecibidas.
class ListaRecibida {
 public:
  ListaRecibida(const motor::DatosTarea& t, const motor::Entorno& e, Documento que)
      : t_(t), e_(e), que_(que) {}
  // Creates the document of these lines. A list that begins with the lines of a recorded one, not
  // known to be forgotten by the machine, is that list: its document gets the further lines.
  Resultado<> guardar(const std::vector<maquinas::Linea>& lineas);
  // The machine has forgotten the list.
  Resultado<> olvidada();

 private:
  Resultado<bool> continuar(const std::vector<maquinas::Linea>& lineas);
  Resultado<> empezarDocumento(const std::vector<maquinas::Linea>& lineas);
  Resultado<qint64> numeroNuevo();
  Resultado<> escribirLineas(const std::vector<maquinas::Linea>& lineas, size_t desde);

  const motor::DatosTarea& t_;
  const motor::Entorno& e_;
  const Documento que_;
  qint64 numero_ = 0;
};

std::unique_ptr<motor::CursoTarea> crearLista(const motor::DatosTarea& t, const motor::Entorno& e,
                                              Documento que);

}  // namespace tarvo::tareas
