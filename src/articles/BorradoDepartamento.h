// A department deleted with its articles. It can be restored as long as this object lives.
#pragma once

#include "articles/Lotes.h"
#include "articles/Secciones.h"

namespace tarvo::articles {

class BorradoDepartamento {
 public:
  // REQUIRES that the catalogue outlives it.
  BorradoDepartamento(Catalogo& catalogo, int seccion, int departamento)
      : db_(catalogo.base()),
        secciones_(catalogo),
        lotes_(catalogo),
        textos_(catalogo.textos()),
        seccion_(seccion),
        departamento_(departamento) {}

  // One transaction; `ventana` is for the batch. NoExiste when it is missing.
  Resultado<> borrar(const QString& ventana);
  const QString& nombre() const { return nombre_; }
  // What would not be restored, as a question; see Lotes::avisoDeVuelta.
  Resultado<std::optional<QString>> aviso();
  // One transaction.
  Resultado<Lotes::Deshecho> reponer(const QString& ventana);

 private:
  dao::Database& db_;
  Secciones secciones_;
  Lotes lotes_;
  const Textos& textos_;
  int seccion_, departamento_, iva_ = 1;
  QString nombre_;
  std::unique_ptr<LoteGuardado> lote_;
};

}  // namespace tarvo::articles
