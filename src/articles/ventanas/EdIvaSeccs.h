// EdIvaSeccs: the VAT rates of a section, and the rate of each of its departments.
#pragma once

#include "articles/Secciones.h"
#include "articles/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::articles {

class EdIvaSeccs final : public ventanas::FichaDe<IvasSeccion> {
 public:
  EdIvaSeccs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo);
  Resultado<> entrar(const PuertaEdIvaSeccs& puerta);

 private:
  void pintar();
  Resultado<> ponerTasa(qint64 tipo, const QString& texto);
  Resultado<> ponerTipo(qint64 departamento, const QString& texto);
  Resultado<> aplicar() override { return secciones_.ponerIvasDe(seccion_, r); }

  Secciones secciones_;
  QLabel* titulo_;
  ventanas::Parrilla *tipos_, *depts_;
  int seccion_ = 1;
};

}  // namespace tarvo::articles
