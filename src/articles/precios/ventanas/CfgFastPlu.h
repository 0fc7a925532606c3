// CfgFastPlu: the options of the fast change.
#pragma once

#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::precios {

class TablaOpciones;

class CfgFastPlu final : public ventanas::FichaDe<ConfigCambio> {
 public:
  CfgFastPlu(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaCfgFastPlu& puerta);

 private:
  void aplicada() override { entregar(r); }
  TablaOpciones* columnas_;
};

}  // namespace tarvo::precios
