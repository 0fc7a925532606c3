// ImpUnaFila: asks for the time span of the rows that VerFils shows.
#pragma once

#include "core/ventanas/edicion/Ficha.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::totals {

// One end of the span: a day, or the month and year, or the year, according to the kind of period.
struct ExtremoIntervalo {
  bool puesto = false;
  std::optional<Fecha> dia;
  int mes = 1, ano = 0;
  bool operator==(const ExtremoIntervalo&) const = default;
};
struct IntervaloEscrito {
  ExtremoIntervalo desde, hasta;
  bool operator==(const IntervaloEscrito&) const = default;
};

class ImpUnaFilaVentana final : public ventanas::FichaDe<IntervaloEscrito> {
 public:
  ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaImpUnaFila& puerta);

 private:
  struct Extremo {
    QCheckBox* si;
    ventanas::Campo *dia, *mes, *ano;
  };
  Extremo montar(ventanas::Formulario& f, ExtremoIntervalo& donde, int rotulo, int ayuda,
                 const QString& nombre);
  void poner(const Extremo& extremo) const;
  std::optional<Fecha> fechaDe(const ExtremoIntervalo& extremo) const;
  std::vector<FaltaCampo> comprobar() override;
  void aplicada() override { entregar(IntervaloFila{fechaDe(r.desde), fechaDe(r.hasta)}); }
  // A span that isn't asked for is nothing lost.
  bool cambiada() const override { return false; }

  QLabel* titulo_;
  Extremo desde_, hasta_;
  int mision_ = 1;
};

}  // namespace tarvo::totals
