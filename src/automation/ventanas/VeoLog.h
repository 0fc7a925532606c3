// The viewer of a trace file, which follows it as it grows.
#pragma once

#include "automation/ventanas/ModeloTraza.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_VeoLog.h"

namespace tarvo::automation {

class VeoLog final : public ventanas::Ventana {
  Q_OBJECT
 public:
  VeoLog(ventanas::Contexto& c, const QString& nombre);
  Resultado<> entrar(const PuertaVeoLog& puerta);

 protected:
  void irABuscar() override { ui_.Buscar->setFocus(); }

 private:
  void conectar();
  void mirar();
  void seguir();
  void alFinal();
  void buscar(bool atras);
  void problema();
  void irA(int linea, const QString& texto = {});
  void copiar();
  void ponerSitio();
  void ponerAncho();

  Ui::FormaVeoLog ui_;
  ModeloTraza* modelo_ = nullptr;
  std::unique_ptr<Temporizador> mirada_;
  bool sigue_ = true;  // the end is in view
};

}  // namespace tarvo::automation
