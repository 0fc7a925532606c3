// EdiCampo: the properties of one field.
#pragma once

#include "core/ventanas/edicion/Ficha.h"
#include "labels/ventanas/Puertas.h"

namespace tarvo::labels {

class EdiCampo final : public ventanas::FichaDe<CampoEtiqueta> {
 public:
  EdiCampo(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEdiCampo& puerta);

 private:
  using Campo = ventanas::Campo;

  void tipoCambiado();
  void pintar();
  void pintarTexto();
  std::vector<FaltaCampo> comprobar() override;
  void aplicada() override;

  PuertaEdiCampo puerta_;
  Campo *tipo_, *fuente_, *rotacion_, *Ntxt_, *Altu_, *Lon_, *Esp_, *X2_, *Y2_, *NmL_;
  QLabel* texto_;
};

}  // namespace tarvo::labels
