// The sections created by import batches, so that undoing removes them as well.
#pragma once

#include "articles/Catalogo.h"
#include "core/dao/Pasos.h"

namespace tarvo::importar {

dao::TablasDeSala tablasImportar();

class SeccionesHechas {
 public:
  // REQUIRES that the catalogue outlives it.
  explicit SeccionesHechas(articles::Catalogo& catalogo)
      : db_(catalogo.base()), catalogo_(catalogo) {}

  // To be called before the first of a batch.
  Resultado<> empezar(qint64 lote);
  // Creates the section, named after its number, when there is none.
  Resultado<> asegurar(qint64 lote, int seccion);
  // After undoing the batch: deletes those that are empty. Returns how many.
  Resultado<int> quitar(qint64 lote);

 private:
  Resultado<bool> quitarSiVacia(int seccion);

  dao::Database& db_;
  articles::Catalogo& catalogo_;
};

}  // namespace tarvo::importar
