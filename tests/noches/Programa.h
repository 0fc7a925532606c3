// The program in memory, created and connected as at its start. Destroying it is a power cut:
// nothing is notified.
#pragma once

#include "app/Aplicacion.h"
#include "automation/Automat.h"
#include "comm/enlace/comtvIP.h"
#include "groups/Grupos.h"
#include "noches/Hilo.h"

namespace tarvo::noches {

class Programa {
 public:
  // Starts and runs the process; an error with its text if it can't.
  static Resultado<std::unique_ptr<Programa>> arrancar(
      const QString& carpeta, const QStringList& proceso, Reloj& reloj, Hilos& hilos,
      quint64 semilla, std::function<void(const QString&)> alEscribir);
  // Starts, for a person at its windows.
  static Resultado<std::unique_ptr<Programa>> abrir(const QString& carpeta, Reloj& reloj,
                                                    Hilos& hilos, quint64 semilla);
  // Starts, and answers whether a doubtful machine was zeroed.
  static Resultado<> responder(const QString& carpeta, Reloj& reloj, Hilos& hilos, int grupo,
                               int addr, bool olvido,
                               const std::function<void(const QString&)>& alEscribir);
  ~Programa();
  // Nothing during the run; then its exit status.
  std::optional<int> resultado() const { return resultado_; }
  Resultado<> guardarAjustes() const;
  app::Aplicacion& aplicacion();
  groups::Grupos& grupos();
  app::Fondo& fondo();

 private:
  struct Interior;
  Programa();
  std::unique_ptr<Interior> d;
  std::optional<int> resultado_;
};

}  // namespace tarvo::noches
