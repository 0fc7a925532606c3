// Orders and inventories that a machine holds: their lines stay in memory until the list has ended.
// Then one transaction makes the document and notes that the machine has yet to forget the list,
// and only then is it told to.
#pragma once

#include "comm/maquinas/Campos.h"
#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

enum class Documento { Pedido, Inventario };

// What is on disk about a list: ListasRecibidas.
class ListaRecibida {
 public:
  ListaRecibida(const motor::DatosTarea& t, const motor::Entorno& e, Documento que)
      : t_(t), e_(e), que_(que) {}
  // Makes the document of these lines. A list that begins with the lines of a noted one that the
  // machine has not been known to forget is that list: its document gets the further lines.
  Resultado<> guardar(const std::vector<maquinas::Linea>& lineas);
  // The machine has forgotten it.
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

std::unique_ptr<motor::TrabajoTarea> crearLista(const motor::DatosTarea& t, const motor::Entorno& e,
                                                Documento que);

}  // namespace tarvo::tareas
