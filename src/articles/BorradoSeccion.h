// A section deleted with everything that depends on it, including what other rooms keep by the
// numbers of its groups. It can be restored as long as this object lives.
#pragma once

#include "articles/Secciones.h"
#include "core/dao/Apartado.h"

namespace tarvo::articles {

class BorradoSeccion {
 public:
  // REQUIRES that the catalogue outlives it.
  BorradoSeccion(Catalogo& catalogo, int seccion);

  // Copies the whole database into `carpeta`, then deletes, in one transaction. Returns the file of
  // the copy. If it can't be written, nothing is deleted.
  Resultado<QString> borrar(const QString& carpeta, Fecha ahora);
  // Restores all of it, or nothing: Duplicado when its number, or that of one of its groups, has
  // been taken.
  Resultado<> reponer();
  int seccion() const { return seccion_; }

 private:
  Resultado<QString> copiarTodo(const QString& carpeta, Fecha ahora);

  dao::Database& db_;
  Secciones secciones_;
  const Textos& textos_;
  int seccion_;
  dao::Apartado apartado_;
};

}  // namespace tarvo::articles
