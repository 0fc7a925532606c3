#include "simulador/Memoria.h"

namespace tarvo::simulador {

void Memoria::cambiada() const {
  if (alCambiar) alCambiar();
}

void Memoria::vender(const Venta& venta) {
  libro_.push_back(venta);
  contadores_.sumar(venta);
  cambiada();
}

void Memoria::ponerACero(Fecha cuando, int codigo, int conjuntos) {
  puestas_.push_back({cuando, codigo, conjuntos, libro_.size(), contadores_});
  contadores_.borrar(conjuntos);
  cambiada();
}

void Memoria::apuntar(Lista lista, const LineaLista& linea) {
  parte(lista).lineas.push_back(linea);
  cambiada();
}

void Memoria::olvidar(Lista lista) {
  parte(lista).lineas.clear();
  ++parte(lista).olvidos;
  cambiada();
}

void Memoria::restaurar(std::vector<Venta> libro, std::vector<PuestaACero> puestas) {
  libro_ = std::move(libro);
  puestas_ = std::move(puestas);
  contadores_ = {};
  std::size_t leidas = 0;
  for (const PuestaACero& puesta : puestas_) {
    for (; leidas < puesta.ventas && leidas < libro_.size(); ++leidas)
      contadores_.sumar(libro_[leidas]);
    contadores_.borrar(puesta.conjuntos);
  }
  for (; leidas < libro_.size(); ++leidas) contadores_.sumar(libro_[leidas]);
}

void Memoria::restaurarLista(Lista cual, std::vector<LineaLista> lineas, int olvidos) {
  parte(cual) = {std::move(lineas), olvidos};
}

}  // namespace tarvo::simulador
