// A run without a screen: one process, or a timetable until told to stop. Returns the exit status.
#pragma once

#include "app/Noche.h"
#include "app/Ordenes.h"
#include "app/Senales.h"
#include "automation/Cronos.h"

namespace tarvo::app {

class Ejecucion {
 public:
  // `fondo`: the database, or nothing when another program has it.
  Ejecucion(const Puesto& puesto, Ajustes ajustes, std::unique_ptr<Fondo> fondo);
  ~Ejecucion();

  // Runs the file to its end on the present event loop.
  int ejecutar(const QString& rutaProceso);

 private:
  // The database is not held while a timetable waits for its hours.
  Resultado<> cargar(const QString& ruta);
  Resultado<> activar(const QString& ruta);
  void empezar(Noche::Encargo encargo, std::unique_ptr<Fondo> fondo);
  void acabada(int estado);
  void pedirFin();

  const Puesto puesto_;
  const Ajustes ajustes_;
  const motor::RepertorioTareas repertorio_;
  const automation::Lenguaje lenguaje_;
  automation::Cronos cronos_;
  std::unique_ptr<Fondo> fondo_;
  std::unique_ptr<Noche> noche_;
  QStringList dudas_;      // of the settings, until a run has reported them
  bool activado_ = false;  // a timetable runs
  bool pidenFin_ = false;
  int estado_ = kBien;
};

}  // namespace tarvo::app
