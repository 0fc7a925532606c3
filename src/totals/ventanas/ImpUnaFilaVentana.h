// An interval of time for one code: ImpUnaFila. Takes "mision", a kind of period, "titulo", and in
// "salida" a shared IntervaloFila, which it fills when it is accepted.
#pragma once

#include <optional>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_ImpUnaFila.h"

namespace tarvo::totals {

struct IntervaloFila {
  std::optional<Fecha> desde, hasta;  // nothing for an open end
};

class ImpUnaFilaVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  std::optional<Fecha> fechaDe(const QCheckBox& si, const QDateEdit& fecha) const;
  void aplicar();

  Ui::ImpUnaFila ui_;
  std::shared_ptr<IntervaloFila> salida_;
  int mision_ = 1;
};

}  // namespace tarvo::totals
