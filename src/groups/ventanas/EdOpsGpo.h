// EdOpsGpo: the operators of a group, one in each of its places.
#pragma once

#include <map>

#include "groups/ventanas/Comun.h"

class QCheckBox;

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::groups {

class EdOpsGpo final : public ventanas::FichaDe<devices::Grupo> {
  Q_OBJECT
 public:
  EdOpsGpo(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEdOpsGpo& puerta);

 private:
  void aplicada() override { entregar(r); }
  int puesto() const;  // of the current row
  Resultado<> leerOperadores();
  Resultado<> poner(int puesto, const QString& texto);
  void pintar();
  void mostrarPuesto();
  void elegirOtro();
  void verOperadores();

  ventanas::Parrilla* GrdOps_;
  QComboBox* LstOpe_;
  QCheckBox* aprende_;
  std::map<int, QString> nombres_;
  std::function<Resultado<>(devices::Grupo&)> alDia_;
};

}  // namespace tarvo::groups
