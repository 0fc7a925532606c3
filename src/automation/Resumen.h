// The morning summary: how the last night went, group by group, the periods it made, what waits and
// what comes next. Read in small steps, so that a window showing it never has to wait.
#pragma once

#include <functional>
#include <map>
#include <set>

#include "automation/Cronos.h"
#include "automation/historia/Historial.h"
#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

enum class EstadoGrupo { Bien, Dudoso, Fallido, SinIntentar, EnMarcha };

struct GrupoResumen {
  int grupo = 0;
  QString nombre;
  EstadoGrupo estado = EstadoGrupo::SinIntentar;
  QString motivo;       // one sentence
  QStringList motivos;  // all of them
  // Its amount in the period of its last collection, stored money; nothing while there is none.
  std::optional<qint64> importe;
  qint64 link = 0;                // that period
  int cuadran = 0, difieren = 0;  // comparisons of its totals with one another
  bool comunica = false;
  bool posterior = false;  // what is wrong with it comes from a run after the night
  bool arreglado = false;  // what the night failed to read of it has been read since
  qint64 ejecucion = 0;    // the run whose trace tells of what is wrong with it
};

struct PeriodoResumen {
  qint64 link = 0;
  qint64 ejecucion = 0;  // the last one that memorised into it
  int tipo = 0;
  Fecha desde;
  QString texto, descripcion;  // its days; its name
  qint64 importe = 0, operaciones = 0;
  // For a day: the amounts of the same weekday in the four preceding weeks, the latest first, for
  // the groups in this one; nothing for a week without it.
  std::vector<std::optional<qint64>> anteriores;
  std::optional<qint64> media() const;
};

struct EsperaResumen {
  int grupo = 0;
  QString nombre;
  std::vector<TipoTotal> clases;
  Fecha desde;  // the oldest of its readings
};

struct ProximaResumen {
  QString proceso, horario;  // base names
  Fecha cuando;
  bool activo = false;  // its timetable runs in this program
};

struct Resumen {
  Fecha ahora;
  std::vector<EjecucionHecha> ejecuciones;  // of the last night and since, the latest first
  size_t noche = 0;                         // the night's own run among them
  std::vector<AvisoHecho> avisos;           // grave ones that name no group
  QStringList sinQueHacer;                  // the only reasons why the night didn't end well
  std::vector<GrupoResumen> grupos;
  std::vector<PeriodoResumen> periodos;  // made by the night, or their replacements
  int perdidos = 0;                      // made by it, since deleted or given other dates
  int debidos = 0;        // operations on periods still owed by this and earlier nights
  int dudasCero = 0;      // machines that may or may not have been zeroed
  std::set<int> conDuda;  // their groups
  std::set<int> enCola;   // the groups with tasks waiting, under way or failed
  int sesion = 0;         // 0 closed, 1 open and empty, 2 open with data
  std::vector<EsperaResumen> bandeja;
  std::optional<ProximaResumen> proxima;

  int cuantos(EstadoGrupo estado) const;
};

// All references outlive the reading.
struct FuentesResumen {
  dao::Database& db;
  const Ajustes& ajustes;
  const Textos& textos;
  const Lenguaje& lenguaje;
  Fecha ahora;
  const Cronos* cronos = nullptr;
  std::optional<CursoEjecucion> curso = {};  // of the run under way
  std::set<int> enCola = {};                 // as in Resumen
};

class LectorResumen {
 public:
  explicit LectorResumen(const FuentesResumen& fuentes);

  // Works for some milliseconds; false once all has been read.
  Resultado<bool> paso();
  Resumen& resumen() { return r_; }

 private:
  struct Asunto {  // the latest event of a group and kind
    TareaHecha tarea;
    qint64 ejecucion = 0;
    Fecha inicio;  // of its run
    int vez = 0;   // their order, over all runs
  };
  struct DeGrupo {
    std::map<TipoTarea, Asunto> clases;
    QStringList avisos;
    qint64 avisado = 0;   // the run of the latest of them
    qint64 recogida = 0;  // the last run meant to read it
    bool arreglado = false;
    std::optional<Fecha> aMano;  // when a window read what its run had failed to read
    bool enCurso = false;        // the run under way works on it: only what that did counts
    bool memorizado = false;     // by that run
  };

  void anadir(std::function<Resultado<>()> paso) { pasos_.push_back(std::move(paso)); }
  Resultado<> leerEjecuciones();
  Resultado<size_t> cualEsLaNoche(const std::vector<EjecucionHecha>& ultimas) const;
  Resultado<> leerEjecucion(const EjecucionHecha& e);
  Resultado<> leerLoHechoAMano();
  Resultado<> leerMemorizadoAMano(const EjecucionHecha& noche);
  bool leidoEntero(int grupo, TipoTarea clase, Fecha desde) const;
  void arreglarAMano(int grupo, DeGrupo& d);
  Resultado<> leerMemorizado(qint64 ejecucion);
  DeGrupo& tomarlo(int grupo);
  Resultado<> leerGrupos();
  Resultado<> cuadrar(size_t grupo);
  Resultado<QString> loQueNoTieneArticulos(const GrupoResumen& g, qint64 link) const;
  Resultado<> leerPeriodo(const PeriodoHecho& hecho, qint64 ejecucion);
  Resultado<> leerAnteriores(PeriodoResumen& p, Fecha desde);
  Resultado<> leerBandeja();
  Resultado<> leerDebidos();
  Resultado<> mirarVentas();
  void mirarPerdida(const LineaActivacion& linea, const QString& proceso, Fecha escrito);
  void leerCronos();
  void leerHorarios();
  void leerHorario(const QString& fichero);
  void proponer(const LineaActivacion& linea, const QString& proceso, const QString& horario,
                bool activo);
  QString loRecogido(const DeGrupo& d) const;
  void juzgar(GrupoResumen& g, bool comunica, const DeGrupo& d) const;
  // How far the run under way is with a group, in sentences.
  struct Avance {
    QStringList frases;
    bool acabado = false;  // nothing of it is queued or to come
  };
  Avance avanceDe(int grupo, const DeGrupo& d) const;
  QString loHechoAhora(const DeGrupo& d) const;
  bool porPedir(int grupo) const;
  QString nombresDe(const std::vector<TipoTarea>& clases) const;

  FuentesResumen f_;
  Resumen r_;
  std::vector<std::function<Resultado<>()>> pasos_;
  size_t siguiente_ = 0;
  std::map<int, DeGrupo> porGrupo_;
  std::map<QString, Fecha> ultimas_;                     // the last start of each process
  std::map<std::pair<int, TipoTarea>, Fecha> lecturas_;  // the last whole ones
  std::map<int, Fecha> ceros_;                           // when all machines of a group confirmed
  struct Memorizado {
    qint64 link = 0;
    QString periodo;  // its days
  };
  std::map<int, Memorizado> aMano_;  // the groups that a window memorised after a cut night
  int veces_ = 0;
};

Resultado<Resumen> leerResumen(const FuentesResumen& fuentes);

}  // namespace tarvo::automation
