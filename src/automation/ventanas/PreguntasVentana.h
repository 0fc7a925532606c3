// The questions of a process, asked by the window "EnParMac".
#pragma once

#include "automation/Automat.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::automation {

// Answers the parameter steps of a run by that window. Before poner() nothing has an answer.
class PreguntasVentana final : public Preguntas {
 public:
  void poner(ventanas::Ventanas* ventanas) { ventanas_ = ventanas; }
  // A question that waits for its answer gets none.
  void retirar();
  std::optional<qint64> PromptNum(const QString& nombre, const QString& pregunta) override;
  std::optional<QString> PromptStr(const QString& nombre, const QString& pregunta) override;
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString& nombre,
                                                   const QString& pregunta) override;

 private:
  Contestacion preguntar(const QString& nombre, const QString& pregunta);
  ventanas::Ventanas* ventanas_ = nullptr;
};

}  // namespace tarvo::automation
