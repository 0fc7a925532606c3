// Asks for the value of a parameter while a process is running: a number, a text or a range of
// days.
#pragma once

#include "automation/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

class QRadioButton;

namespace tarvo::automation {

class MesRango;

// A value of each kind; the parameter's kind decides which one is asked for.
struct ValorParametro {
  qint64 numero = 0;
  QString texto;
  std::optional<Fecha> desde, hasta;
  bool operator==(const ValorParametro&) const = default;
};

class EnParMac final : public ventanas::FichaDe<ValorParametro> {
 public:
  EnParMac(ventanas::Contexto& c, const QString& nombre);
  Resultado<> entrar(const PuertaEnParMac& puerta);
  bool QueryUnload() override { return false; }  // cancelling is an answer

 private:
  void montarRango(ventanas::Formulario f);
  void ponerRango();
  std::vector<FaltaCampo> comprobar() override;
  void aplicada() override;

  QChar clase_ = u'%';
  bool escrito_ = false;  // the field of a number or text was filled in
  QLabel *pregunta_, *rango_;
  ventanas::Campo *valor_, *desde_, *hasta_;
  QWidget* fechas_;
  QRadioButton *todo_, *dias_, *otras_;
  MesRango* mes_;
};

}  // namespace tarvo::automation
