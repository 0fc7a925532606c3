// The lasting record of runs: when each began and ended, the results of its tasks, and what was
// reported to a person. The last 100 runs are kept, and the last one of each process. Tables:
// docs/procesos.md.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "core/valores/Tipos.h"

namespace tarvo::automation {

inline constexpr int kEjecucionesGuardadas = 100;

// How a run ended. The first three match ResultadoProceso.
enum class FinEjecucion : int {
  Bien = 0,
  Problemas = 1,
  Abortada = 2,
  Interrumpida = 3,
  EnMarcha = 4
};

// A period as it was when the run made it. Its days identify it if it was replaced since; a number
// may be reused.
struct PeriodoHecho {
  qint64 link = 0;
  struct Dias {
    int tipo = 0;
    Fecha desde, hasta;
  };
  std::optional<Dias> dias;  // nothing in the record of an old version
};

struct EjecucionHecha {
  qint64 numero = 0;
  QString nombre;
  Fecha inicio;
  std::optional<Fecha> final;
  FinEjecucion fin = FinEjecucion::Interrumpida;
  std::vector<PeriodoHecho> periodos;  // made by it, including those deleted since
  QString traza;                       // name of the file, in HomeDir
};

struct TareaHecha {
  int grupo = 0;
  TipoTarea clase = TipoTarea::TxHora;
  enum class Estado { EnCola, Hecha, Fallida } estado = Estado::EnCola;
  QString motivo;  // of a failure, in words
};

// What a report means for the run: EjecucionAvisos.GRAVE. SinQueHacer: a step had nothing to work
// on, as nothing was memorised, which shows in the result but is no doubt.
enum class PesoAviso : int { Nota = 0, Grave = 1, SinQueHacer = 2 };
constexpr bool existe(PesoAviso p) {
  switch (p) {
    case PesoAviso::Nota:
    case PesoAviso::Grave:
    case PesoAviso::SinQueHacer:
      return true;
  }
  return false;
}
constexpr PesoAviso pesoDe(bool grave) {
  return grave ? PesoAviso::Grave : PesoAviso::Nota;
}

struct AvisoHecho {
  int grupo = 0;  // 0 for none
  QString texto;
  PesoAviso peso = PesoAviso::Grave;
};

class Historial {
 public:
  Historial(dao::Database& db, const Textos& textos) : db_(db), textos_(textos) {}

  // --- written by the runner, in the transactions of the recorded events
  // A run begins; the oldest beyond those kept are deleted. REQUIRES a transaction.
  Resultado<> empezar(qint64 numero, const QString& nombre, Fecha inicio, const QString& traza);
  Resultado<> acabar(qint64 numero, FinEjecucion fin, Fecha ahora);
  // REQUIRES that the periods exist.
  Resultado<> periodosHechos(qint64 numero, const std::vector<qint64>& links);
  Resultado<> aviso(qint64 numero, const AvisoHecho& aviso);
  Resultado<> tareaFallida(qint64 numero, int grupo, TipoTarea clase, const QString& motivo);

  // --- read for display
  // The runs kept, the latest first. `enMarcha`: the number of the run now under way; any other
  // without an end was interrupted.
  Resultado<std::vector<EjecucionHecha>> ejecuciones(std::optional<qint64> enMarcha = {});
  // Of each run since that one, how many groups it asked for totals.
  Resultado<std::map<qint64, int>> gruposPedidos(qint64 desde);
  // In the order of its steps. Formato when one is of an unknown kind.
  Resultado<std::vector<TareaHecha>> tareas(qint64 numero);
  Resultado<std::vector<AvisoHecho>> avisos(qint64 numero);

 private:
  dao::Database& db_;
  const Textos& textos_;
};

}  // namespace tarvo::automation
