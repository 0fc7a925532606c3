// EdiPubli: the message that a scale shows while nobody is being served, with a preview of how it
// runs.
#pragma once

#include "core/tiempo/Reloj.h"
#include "groups/ventanas/Comun.h"

class QSlider;

namespace tarvo::groups {

class Pantalla;

class EdiPubli final : public HojaDeMaquina<devices::obPublici> {
  Q_OBJECT
 public:
  EdiPubli(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEdiPubli& puerta);

 private:
  void volcar(devices::Miembro& maquina) override { maquinaDe(maquina).Publici = r; }
  std::vector<FaltaCampo> comprobar() override;
  void ver();
  void paso();

  Pantalla* pantalla_;
  QSlider* velo_;
  QLabel* cuanto_;
  ventanas::Campo* mensaje_;
  std::unique_ptr<Temporizador> reloj_;
};

}  // namespace tarvo::groups
