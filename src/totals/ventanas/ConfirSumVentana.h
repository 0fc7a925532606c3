// ConfirSum: confirms a sum. Once it is accepted, the period that receives the others exists.
#pragma once

#include "core/ventanas/edicion/Ficha.h"
#include "totals/periodos/VerTot.h"
#include "totals/ventanas/Puertas.h"
#include "ui_ConfirSum.h"

namespace tarvo::totals {

struct NuevaSuma {
  QString descripcion;
  bool operator==(const NuevaSuma&) const = default;
};

class ConfirSumVentana final : public ventanas::FichaDe<NuevaSuma> {
  Q_OBJECT
 public:
  ConfirSumVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> entrar(const PuertaConfirSum& puerta);

 private:
  Resultado<std::vector<qint64>> losLinks(std::vector<qint64> links);
  Resultado<> aplicar() override;
  void mostrarSolapes();

  Ui::ConfirSum ui_;
  Periodos& p_;
  VerTot motor_;
  VerTot::Suma suma_;
};

}  // namespace tarvo::totals
