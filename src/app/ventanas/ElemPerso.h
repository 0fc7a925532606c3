// Asks for one of the person's own entries: its title, its place in the list and what it runs.
//   "elemento": the one to change; without it a new one. The list is changed on accepting, once.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_ElemPerso.h"

namespace tarvo::app {

class ElemPerso final : public ventanas::Ventana {
 public:
  ElemPerso(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void mostrarLista();
  void mover(int pasos);
  QString elegido() const;  // base name of the file, empty for none
  void confirmar();
  int falta() const;  // number of the sentence that says what is missing, 0 for nothing

  Ui::ElemPerso ui_;
  std::vector<Ajustes::Personal> otros_;  // without the one that is edited
  size_t sitio_ = 0;
};

}  // namespace tarvo::app
