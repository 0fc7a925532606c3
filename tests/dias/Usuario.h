// The user of the shop's computer: changes articles, prices and offers in every possible way.
#pragma once

#include "dias/Tienda.h"

namespace tarvo::dias {

class Usuario {
 public:
  explicit Usuario(Tienda& tienda) : t_(tienda) {}

  // Does one thing; returns a description for the trace. Refusals by a rule are ignored.
  QString algo(Programa& programa);

  // Sections with articles that only a complete sending carries.
  std::set<int> importadas;

 private:
  using C = articles::ClaveArticulo;
  std::optional<C> uno();
  articles::Articulo alAzar(C clave);
  QString nombre();
  QString nuevo(articles::Catalogo& c);
  QString cambiar(articles::Catalogo& c);
  QString precios(articles::Catalogo& c);
  QString recodificar(articles::Catalogo& c);
  QString borrar(articles::Catalogo& c);
  QString trasladar(articles::Catalogo& c);
  QString oferta(Programa& p);
  QString importar(Programa& p);

  Tienda& t_;
};

}  // namespace tarvo::dias
