// EdiCass: what the three cassettes of a scale print, and the format of the labels of each key.
#pragma once

#include <array>

#include "groups/Grupos.h"
#include "groups/ventanas/Comun.h"

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::groups {

class EdiCass final : public HojaDeMaquina<devices::Balanza> {
  Q_OBJECT
 public:
  EdiCass(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaEdiCass& puerta);

 private:
  void montarCasete(ventanas::Formulario& f, int n);
  void volcar(devices::Miembro& maquina) override { copiarCasetes(devices::Miembro(r), maquina); }
  int tecla() const;  // of the current row
  Resultado<> poner(int tecla, const QString& formato);
  void pintar();
  void ofrecer();

  Grupos grupos_;
  std::vector<FormatoEtiqueta> formatos_;
  std::array<int, 3> modos_{}, opers_{};
  ventanas::Parrilla* GridEtq_;
  QComboBox* ListaEtq_;
  QLabel* lbJue_;
  std::vector<QWidget*> deVarios_;  // of the cassettes 2 and 3
};

}  // namespace tarvo::groups
