// Delayed activation: a timetable whose lines say at which hour of which days a process runs. One
// at a time; what comes due meanwhile waits. States of an entry: docs/procesos.md.
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

// Who runs the processes of a timetable.
struct Corredor {
  std::function<bool()> ocupado;  // one runs that the timetable didn't start
  // Starts one; Cronos::FinDeMacro is called when it has ended, never from within.
  std::function<void(const Entrada& entrada, const QString& traza)> correr;
};

class Cronos {
 public:
  Cronos(Automat& automat, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj);
  // Without an engine of its own.
  Cronos(Corredor corredor, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj);
  ~Cronos();

  // Loads the timetable of a .CRO, or of the head of an .AUT, and starts its clock.
  // A process that can't be read leaves its entry unusable; any other fault is an Error, and the
  // timetable that was there before stays.
  Resultado<> ActivarCron(const QString& nombre);
  // The run that this timetable started has ended. The runner calls it by itself.
  void FinDeMacro(ResultadoProceso resultado);
  void ponerActivo(bool activo);
  const std::vector<Entrada>& entradas() const;
  int siguiente() const;  // index of the entry that comes next, -1 with none
  bool hayProcesoEnMarcha() const;
  // An entry that waits is due now, whatever its hour; false when it doesn't wait.
  bool adelantar(int entrada);
  bool activo() const;
  const QString& nombre() const;  // of the timetable, in capitals; empty before the first one
  // The entry that will come due first by hours and days, and when; nothing when none will, or the
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
  // A sentence for whoever watches (an unusable process...).
  std::function<void(const QString&)> alAvisar;
  void parar();

 private:
  struct Interior;
  std::unique_ptr<Interior> d;
};

}  // namespace tarvo::automation
