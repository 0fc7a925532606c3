// Delayed activation: a timetable whose lines give the hour and the days for running a process. One
// at a time; those that come due meanwhile wait. States of an entry: docs/procesos.md.
#pragma once

#include <memory>
#include <optional>

#include "automation/Automat.h"

namespace tarvo::automation {

enum class EstadoEntrada : int {
  Espera = 0,
  Vencida = 1,
  Iniciada = 2,
  Bien = 3,
  Mal = 4,
  Inutil = 5
};

struct Entrada {
  LineaActivacion linea;
  EstadoEntrada estado = EstadoEntrada::Espera;
  QString proceso;  // base name in capitals
  int exitos = 0, fallos = 0;
  std::vector<PasoProceso> pasos;
  QStringList omitidas;  // see FicheroProceso
};

// The runner of a timetable's processes.
struct Corredor {
  std::function<bool()> ocupado;  // a process not started by the timetable is running
  // Starts one; Cronos::FinDeMacro must be called when it has ended, never from within.
  std::function<void(const Entrada& entrada, const QString& traza)> correr;
};

class Cronos {
 public:
  Cronos(Automat& automat, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj);
  // Without an engine of its own.
  Cronos(Corredor corredor, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj);
  ~Cronos();

  // Loads the timetable of a .CRO, or of the head of an .AUT, and starts its clock. A process that
  // can't be read makes its entry unusable; any other fault is an Error, and the previous timetable
  // stays.
  Resultado<> ActivarCron(const QString& nombre);
  // The run that this timetable started has ended. The runner calls it by itself.
  void FinDeMacro(ResultadoProceso resultado);
  void ponerActivo(bool activo);
  const std::vector<Entrada>& entradas() const;
  int siguiente() const;  // index of the next entry, -1 if none
  bool hayProcesoEnMarcha() const;
  // Makes a waiting entry due now, whatever its hour; false when it isn't waiting.
  bool adelantar(int entrada);
  bool activo() const;
  const QString& nombre() const;  // of the timetable, in capitals; empty before the first one
  // The next entry to come due by hours and days, and when; nothing when none will, or the
  // timetable isn't active.
  struct Proxima {
    int entrada = -1;
    Fecha cuando;
  };
  std::optional<Proxima> proximoInicio() const;
  // Each tick of the clock, after its pass.
  std::function<void()> alCambiar;
  // The process of an entry is about to be started.
  std::function<void(const Entrada&)> alArrancar;
  // A due entry has to wait for a process that isn't its own; at each tick.
  std::function<void(const Entrada&)> alEsperar;
  // Problems to be reported at the beginning of each run of an engine of its own.
  std::function<QStringList()> alEmpezar;
  // A message for observers (an unusable process...).
  std::function<void(const QString&)> alAvisar;
  void parar();

 private:
  struct Interior;
  std::unique_ptr<Interior> d;
};

}  // namespace tarvo::automation
