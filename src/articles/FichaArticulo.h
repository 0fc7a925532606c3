// An article with its stock, as in the complete editor: read together, written together.
#pragma once

#include "articles/Catalogo.h"
#include "articles/Existencias.h"

namespace tarvo::articles {

struct FichaArticulo {
  Articulo articulo;
  std::vector<Existencia> existencias;
  bool operator==(const FichaArticulo&) const = default;
  bool nueva() const { return articulo.clave.codigo == 0; }
};

class FichasArticulo {
 public:
  // REQUIRES that the catalogue outlives it.
  explicit FichasArticulo(Catalogo& catalogo) : db_(catalogo.base()), catalogo_(catalogo) {}

  // Code 0: a new article of the department, or of the section's first one when that is 0. NoExiste
  // when there is none with that key.
  Resultado<FichaArticulo> leer(ClaveArticulo clave, int departamento = 0);
  // Whether the article has changed since this reading.
  Resultado<bool> cambiada(const FichaArticulo& leida);
  // Saves the article and the differing counters, in one transaction. `leida`: the result of
  // leer(). Errors: those of the catalogue.
  Resultado<> guardar(const FichaArticulo& leida, const FichaArticulo& ficha,
                      const QString& ventana);
  // Takes back what guardar() made of `antes`, with `ahora` as it was saved: a new article is
  // deleted, the fields of another get their former values, and so do the counters. What others
  // changed since in other fields stays. Restriccion when they changed the same, or anything of a
  // new article; NoExiste when it is gone.
  Resultado<> volver(const FichaArticulo& antes, const FichaArticulo& ahora,
                     const QString& ventana);

 private:
  dao::Database& db_;
  Catalogo& catalogo_;
};

}  // namespace tarvo::articles
