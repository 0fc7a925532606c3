// One period, new or changed, and totals keyed in by hand: EditIntv. Takes "EsNuevo", "link" of the
// one to change, "tipo" to begin with; hands the LINK back in "salida". What is keyed waits in a
// list and goes in with the period, in one transaction.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/periodos/Manuales.h"
#include "ui_EditIntv.h"

namespace tarvo::totals {

class EditIntvVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EditIntvVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
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
  Resultado<qint64> guardarPeriodo(const Periodo& p);

  void claseCambiada();
  void grupoCambiado();
  int seccionDelGrupo();
  std::optional<EntradaManual> leerEntrada();
  std::optional<Contadores> leerNumeros();
  std::optional<qint64> leerCodigo(EntradaManual& e);
  void anadir();
  void quitar();
  void pintarEntradas();
  std::optional<EntradaManual> faltaEntrada(int texto, QWidget& control);

  Ui::EditIntv ui_;
  Periodos& p_;
  std::shared_ptr<qint64> salida_;
  bool nuevo_ = true;
  qint64 link_ = 0;
  std::vector<EntradaManual> entradas_;
};

}  // namespace tarvo::totals
