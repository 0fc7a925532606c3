// Asks for the value of a parameter while a process runs: a number, a text or a range of days.
#pragma once

#include "automation/ventanas/PreguntasVentana.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_EnParMac.h"

namespace tarvo::automation {

// Arguments: "nombre" ("%1", "$a", "#x"), "pregunta", and "respuesta", a
// std::shared_ptr<Contestacion> that is filled when it is accepted.
class EnParMac final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EnParMac(ventanas::Contexto& c, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void conectar();
  void responder();
  std::optional<Contestacion> valor();
  std::optional<Contestacion> numero();
  std::optional<Contestacion> rango();
  void ponerRango();
  void rehusar(int texto, QWidget* campo);

  Ui::FormaEnParMac ui_;
  QChar clase_ = u'%';
  std::shared_ptr<Contestacion> respuesta_;
};

}  // namespace tarvo::automation
