// Who works at the shop's computer: changes articles, prices and offers by every way that there is.
#pragma once

#include "dias/Tienda.h"

namespace tarvo::dias {

class Usuario {
 public:
  explicit Usuario(Tienda& tienda) : t_(tienda) {}

  // One thing that he does; what it was, for the trace. A refusal by a rule is none of his worries.
  QString algo(Programa& programa);

  // Sections of which articles came by a way that only a complete sending carries.
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
