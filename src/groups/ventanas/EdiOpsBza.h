// EdiOpsBza: what a scale lets its operators do, the bar code of its ticket, and how the code of an
// article is typed on it.
#pragma once

#include "groups/ventanas/Comun.h"

namespace tarvo::groups {

class EdiOpsBza final : public HojaDeMaquina<devices::Balanza> {
  Q_OBJECT
 public:
  EdiOpsBza(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEdiOpsBza& puerta);

 private:
  void montarBarras(ventanas::Formulario f);
  void montarCodigo(ventanas::Formulario f);
  void volcar(devices::Miembro& maquina) override;
  std::vector<FaltaCampo> comprobar() override;
  int modoBarras() const { return r.CB_Habil ? r.CB_tpEAN : 0; }
  void ponerBarras(int modo);
  void ver();

  QLineEdit *fmato_, *fijo_;
  QWidget* filasBarras_;
  ventanas::Campo *formato_, *digitos_, *parteFija_;
  qint64 fija_ = 0;  // the fixed part of the code of an article, 0 for none
};

}  // namespace tarvo::groups
