// The questions of a process, asked in the window "EnParMac".
#pragma once

#include "automation/Automat.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::automation {

// Answers the parameter steps of a run by means of that window. Before poner() there are no
// answers.
class PreguntasVentana final : public Preguntas {
 public:
  void poner(ventanas::Ventanas* ventanas) { ventanas_ = ventanas; }
  // Leaves a pending question unanswered.
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
