// A section deleted with all that hangs from it, which comes back as it was as long as this object
// lives. What other rooms keep by the numbers of its groups they forget: a group that comes back is
// read and sent as one that nobody knows.
#pragma once

#include "articles/Secciones.h"

namespace tarvo::articles {

class BorradoSeccion {
 public:
  // REQUIRES that both references outlive it.
  BorradoSeccion(dao::Database& db, Secciones& secciones, const Textos& textos, int seccion)
      : db_(db), secciones_(secciones), textos_(textos), seccion_(seccion) {}
  ~BorradoSeccion();
  BorradoSeccion(const BorradoSeccion&) = delete;

  // A copy of the whole database in `carpeta`, then the deletion, one transaction. The file of the
  // copy. Where it can't be written nothing is deleted.
  Resultado<QString> borrar(const QString& carpeta, Fecha ahora);
  // All of it, or nothing: Duplicado when its number, or that of a group of it, is another's now.
  Resultado<> reponer();
  int seccion() const { return seccion_; }

 private:
  Resultado<QString> copiarTodo(const QString& carpeta, Fecha ahora);
  Resultado<> guardar();
  Resultado<> soltar();

  dao::Database& db_;
  Secciones& secciones_;
  const Textos& textos_;
  int seccion_;
};

}  // namespace tarvo::articles
