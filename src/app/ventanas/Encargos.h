// Serves the requests of other programs while this one holds the database and has windows: to come
// to the front, and to run their processes unattended.
#pragma once

#include <deque>

#include "app/Aplicacion.h"
#include "app/Cesion.h"
#include "app/Portero.h"
#include "app/ventanas/PreguntasApp.h"

namespace tarvo::app {

class Encargos final : private automation::ObservadorAutomat {
 public:
  // REQUIRES that all references outlive it.
  Encargos(Fondo& fondo, Aplicacion& app, PreguntasApp& preguntas, ventanas::Ventanas& ventanas,
           Reloj& reloj);
  ~Encargos();
  Encargos(const Encargos&) = delete;
  Encargos& operator=(const Encargos&) = delete;

  // Starts listening. Errors: the system's reason for refusing it.
  Resultado<> escuchar();
  // To be called when the current run has ended; true if it was one of these requests.
  bool terminado(automation::ResultadoProceso resultado);
  // To be called when this program ends: the programs that asked find another way.
  void dejar();

 private:
  struct Encargo {
    Peticion peticion;
    std::shared_ptr<Visita> visita;
    bool avisado = false;  // the other program has been notified that it has to wait
  };
  void atender(const Peticion& peticion, const std::shared_ptr<Visita>& visita);
  void alzar(const QString& ventana);
  bool loLlevaElHorario(const Peticion& p) const;
  void mirar();
  void esperar(const QString& proceso);
  void ceder(bool pregunta, const QString& frase);
  void empezar();
  void correr(std::vector<automation::PasoProceso> pasos);
  Resultado<std::vector<automation::PasoProceso>> pasosDe(const Peticion& p) const;
  void parar(const Visita* quien);
  void soltar();
  void lineaEscrita(const QString& linea) override;

  Fondo& fondo_;
  Aplicacion& app_;
  PreguntasApp& preguntas_;
  ventanas::Ventanas& ventanas_;
  std::deque<Encargo> cola_;
  std::optional<Encargo> actual_;
  std::unique_ptr<Temporizador> mirada_, latido_;
  Cesion cesion_;
  Portero portero_;
};

}  // namespace tarvo::app
