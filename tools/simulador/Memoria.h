// The memory of one machine. The ledger and the log of zeroings are never shortened, since an
// oracle reads them. Counters, lists and articles are those of the machine itself, and a command
// may clear them.
#pragma once

#include <functional>
#include <vector>

#include "simulador/Contadores.h"

namespace tarvo::simulador {

// An executed zeroing: all counters just before it, and the length of the ledger.
struct PuestaACero {
  Fecha cuando;
  int codigo = 0;     // the frame code of its order
  int conjuntos = 0;  // what it cleared
  std::size_t ventas = 0;
  Contadores antes;
  bool operator==(const PuestaACero&) const = default;
};

enum class Lista { Pedidos, Inventarios };

class Memoria {
 public:
  Catalogo catalogo;
  std::vector<int> operadores;  // code of each position, position 1 first; codes may repeat

  void vender(const Venta& venta);
  void ponerACero(Fecha cuando, int codigo, int conjuntos);
  void apuntar(Lista lista, const LineaLista& linea);
  // The machine was told that the list was received.
  void olvidar(Lista lista);
  void cambiada() const;  // calls alCambiar

  const std::vector<Venta>& libro() const { return libro_; }
  const Contadores& contadores() const { return contadores_; }
  const std::vector<PuestaACero>& puestas() const { return puestas_; }
  const std::vector<LineaLista>& lista(Lista cual) const { return parte(cual).lineas; }
  int olvidos(Lista cual) const { return parte(cual).olvidos; }

  // Replaces the present contents, with counters computed anew from the ledger and the zeroings.
  void restaurar(std::vector<Venta> libro, std::vector<PuestaACero> puestas);
  void restaurarLista(Lista cual, std::vector<LineaLista> lineas, int olvidos);

  std::function<void()> alCambiar;

 private:
  struct Parte {
    std::vector<LineaLista> lineas;
    int olvidos = 0;
  };
  const Parte& parte(Lista cual) const { return cual == Lista::Pedidos ? pedidos_ : inventarios_; }
  Parte& parte(Lista cual) { return cual == Lista::Pedidos ? pedidos_ : inventarios_; }

  std::vector<Venta> libro_;
  std::vector<PuestaACero> puestas_;
  Contadores contadores_;
  Parte pedidos_, inventarios_;
};

}  // namespace tarvo::simulador
