// The sections that batches of imports made, so that undoing takes them away too.
#pragma once

#include "articles/Catalogo.h"
#include "core/dao/Pasos.h"

namespace tarvo::importar {

dao::TablasDeSala tablasImportar();

class SeccionesHechas {
 public:
  // REQUIRES that both outlive it.
  SeccionesHechas(dao::Database& db, articles::Catalogo& catalogo) : db_(db), catalogo_(catalogo) {}

  // Before the first of a batch.
  Resultado<> empezar(qint64 lote);
  // Makes the section, named by its number, when there is none.
  Resultado<> asegurar(qint64 lote, int seccion);
  // After the undoing of the batch: deletes those in which nothing is. How many went.
  Resultado<int> quitar(qint64 lote);

 private:
  Resultado<bool> quitarSiVacia(int seccion);

  dao::Database& db_;
  articles::Catalogo& catalogo_;
};

}  // namespace tarvo::importar
