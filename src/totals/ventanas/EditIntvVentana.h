// EditIntv: a period, new or changed, and totals keyed in by hand. These are kept in a list and
// saved with the period, in one transaction.
#pragma once

#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "totals/periodos/Manuales.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/Puertas.h"
#include "ui_EditIntv.h"

namespace tarvo::totals {

// The period as edited, and the totals keyed in for it.
struct PeriodoEditado {
  int tipo = kDiario;
  Fecha desde, hasta;
  int ano = kPrimerAno;  // as typed, for a month or a year
  std::vector<EntradaManual> entradas;
  bool operator==(const PeriodoEditado&) const = default;
};

class EditIntvVentana final : public ventanas::FichaDe<PeriodoEditado> {
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
  ventanas::Modo momento(Fecha& donde, bool conHora) const;
  Periodo periodo() const;
  bool aceptaQueSalga(const Periodo& p);
  std::vector<FaltaCampo> comprobar() override;
  bool conforme() override;
  Resultado<> aplicar() override;
  void aplicada() override { entregar(guardado_); }

  void montarManuales();
  using Leido = Resultado<std::optional<qint64>>;  // nothing for what is no number
  ventanas::Modo contador(qint64& donde, std::function<Leido(const QString&)> leer) const;
  void claseCambiada();
  void grupoCambiado();
  int seccionDelGrupo();
  Resultado<> leerEntrada();
  Resultado<qint64> leerCodigo();
  bool anadir();  // false if it isn't added; that has been reported
  void vaciarEntrada();
  void quitar();
  void pintarEntradas();
  std::unexpected<Error> faltaEntrada(int texto, QWidget& control);

  Ui::EditIntv ui_;
  Periodos& p_;
  bool nuevo_ = true;
  qint64 link_ = 0;
  Guardado guardado_;
  ventanas::Campo *hasta_ = nullptr, *ano_ = nullptr;
  EntradaManual entrada_;  // what is written and not yet in the list
  qint64 plu_ = 0;
  ventanas::Renglon renglon_;
  ventanas::Deshacer* deshacer_ = nullptr;
  int aviso_ = -1;  // the strip's, when the last line was refused
};

}  // namespace tarvo::totals
