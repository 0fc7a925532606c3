// ImpUnaFila: asks for the time span of the rows that VerFils shows.
#pragma once

#include <QCheckBox>
#include <QDateEdit>

#include "core/ventanas/edicion/Ficha.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::totals {

// It changes no data, so it asks nothing when it is closed.
class ImpUnaFilaVentana final : public ventanas::Ficha {
 public:
  ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaImpUnaFila& puerta);

 private:
  struct Extremo {
    QCheckBox* si;
    QDateEdit* fecha;
  };
  std::optional<Fecha> fechaDe(const Extremo& extremo) const;
  Resultado<> aplicar() override;
  void aplicada() override { entregar(IntervaloFila{fechaDe(desde_), fechaDe(hasta_)}); }

  QLabel* titulo_;
  Extremo desde_, hasta_;
  int mision_ = 1;
};

}  // namespace tarvo::totals
