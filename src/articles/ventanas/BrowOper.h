// BrowOper: the operators. A change or deletion of a code also takes effect in the slots of all
// groups. Until the window is closed, deleted operators can be restored with their slots, and
// edited cells too.
#pragma once

#include "articles/Operadores.h"
#include "articles/ventanas/Puertas.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_BrowOper.h"

namespace tarvo::articles {

class BrowOper final : public ventanas::Ventana {
  Q_OBJECT
 public:
  BrowOper(ventanas::Contexto& contexto, const QString& nombre, Operadores& motor);
  Resultado<> entrar(const PuertaBrowOper& puerta);
  bool QueryUnload() override;

 private:
  void montar();
  void refrescar(int codigo);
  void actualCambiada();
  Operadores::AlAvanzar progreso();
  Resultado<> ponerCodigo(qint64 fila, const QString& texto);
  Resultado<> ponerNombre(qint64 fila, const QString& texto);
  int codigo(int fila) const;
  int filaDe(int codigo) const;
  void anadir();
  void pedirNombre();
  void celdaDejada();
  void descartarNuevo();
  void borrar();
  Resultado<ventanas::Deshacer::Vuelto> reponer(const std::vector<Operadores::Borrado>& idos);
  void verVentas();

  Ui::BrowOper ui_;
  Operadores& motor_;
  int nuevo_ = 0;             // code of a new operator that may not have a name yet
  bool faltaNombre_ = false;  // its code has just been entered
  int antes_ = 0;             // code of the current operator before it
  ventanas::Deshacer* deshacer_ = nullptr;
};

}  // namespace tarvo::articles
