// CfgFastA: the options of the fast entry.
#pragma once

#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::precios {

class CfgFastA final : public ventanas::FichaDe<ConfigAlta> {
 public:
  CfgFastA(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaCfgFastA& puerta) { return editar(puerta.config); }

 private:
  std::vector<FaltaCampo> comprobar() override;
  void aplicada() override { entregar(r); }

  ventanas::Campo *prefijo_, *precios_, *tarifas_;
};

}  // namespace tarvo::precios
