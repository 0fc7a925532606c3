// EdIvaDept: the VAT rates of a group, and the rate of each of its departments.
#pragma once

#include "groups/ventanas/Comun.h"

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::groups {

class EdIvaDept final : public ventanas::FichaDe<devices::Grupo> {
  Q_OBJECT
 public:
  EdIvaDept(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEdIvaDept& puerta);

 private:
  void aplicada() override { entregar(r); }
  void pintar();
  Resultado<> ponerTasa(int tipo, const QString& texto);
  Resultado<> ponerTipo(int departamento, const QString& texto);

  ventanas::Parrilla *GrdTpos_, *GrdDeps_;
};

}  // namespace tarvo::groups
