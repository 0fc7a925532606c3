// A run without a screen: one process, or a timetable until told to stop. Gives the exit status.
#pragma once

#include "app/Aplicacion.h"
#include "app/Ordenes.h"

namespace tarvo::app {

// Writes the settings; a failure is said, and makes the status "problems" at least.
int guardarAjustes(const Fondo& fondo, int estado);

class Ejecucion {
 public:
  Ejecucion(Fondo& fondo, Aplicacion& aplicacion, const Textos& textos);

  // Runs the file to its end on the present event loop. Writes the settings at the end.
  int ejecutar(const QString& rutaProceso);

 private:
  Resultado<> cargar(const QString& ruta);
  int correr();
  void pedirFin();

  Fondo& fondo_;
  Aplicacion& app_;
  const Textos& t_;
  bool activado_ = false;  // a timetable runs
  bool pidenFin_ = false;
  int estado_ = kBien;
};

}  // namespace tarvo::app
