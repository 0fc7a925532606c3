// One period, new or changed, and totals keyed in by hand: EditIntv. What
// is keyed waits in a list and goes in with the period, in one transaction.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/periodos/Manuales.h"
#include "totals/ventanas/Puertas.h"
#include "ui_EditIntv.h"

namespace tarvo::totals {

class EditIntvVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EditIntvVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> entrar(const PuertaEditIntv& puerta);
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  void montar();
  void tipoCambiado();
  void mesCambiado();
  void pintarLimites();
  std::optional<Periodo> leerPeriodo();
  bool aceptaQueSalga(const Periodo& p);
  void salvar();

  void claseCambiada();
  void grupoCambiado();
  int seccionDelGrupo();
  std::optional<EntradaManual> leerEntrada();
  std::optional<Contadores> leerNumeros();
  std::optional<qint64> leerCodigo(EntradaManual& e);
  bool anadir();            // false, and it has been said, when it isn't in the list
  bool hayEscrito() const;  // numbers that were not added yet
  void quitar();
  void pintarEntradas();
  std::optional<EntradaManual> faltaEntrada(int texto, QWidget& control);

  Ui::EditIntv ui_;
  Periodos& p_;
  bool nuevo_ = true;
  qint64 link_ = 0;
  std::vector<EntradaManual> entradas_;
};

}  // namespace tarvo::totals
