// An entry of the user's own: its title, its position, and the process or timetable that it starts.
#pragma once

#include <QListWidget>

#include "app/AjustesPersonal.h"
#include "app/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::app {

struct Elemento {
  Personal este;
  std::size_t sitio = 0;
  bool operator==(const Elemento&) const = default;
};

class ElemPerso final : public ventanas::FichaDe<Elemento> {
 public:
  ElemPerso(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaElemPerso& puerta);

 private:
  void mostrarLista();
  void mover(int pasos);
  QString elegido() const;  // base name of the file, empty if none
  std::vector<FaltaCampo> comprobar() override;
  Resultado<> aplicar() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  ventanas::Campo* titulo_;
  QListWidget *lista_, *procesos_, *diferidos_;
  QPushButton *subir_, *bajar_;
  std::vector<Personal> otros_;  // without the one being edited
};

}  // namespace tarvo::app
