// Carries out one step by calling the rooms. Knows nothing of phases, ticks or the trace: it
// returns the result.
#pragma once

#include <functional>

#include "automation/Automat.h"
#include "automation/historia/Diario.h"
#include "automation/historia/Pendientes.h"

namespace tarvo::automation {

// The result of a step.
struct Hecho {
  bool completo = true;
  int codigo = 0;                    // of a process's messages, 0 for none
  std::vector<AvisoHecho> detalles;  // sentences for below the step's header
  bool problemas = false;
  bool sesionMovida = false;     // the settings file must be updated
  std::vector<qint64> periodos;  // memorised by it
  // To be written in the transaction that records the step, adding what there is to say; may be
  // empty.
  std::function<Resultado<>(Hecho&)> anotar;

  void error(int cual) { codigo = cual, problemas = true; }
  void sinQueHacer(int cual, const QString& texto) {
    error(cual);
    detalles.push_back({.grupo = 0, .texto = texto, .peso = PesoAviso::SinQueHacer});
  }
  void decir(const QString& texto, bool esProblema = true, int grupo = 0) {
    detalles.push_back({grupo, texto, pesoDe(esProblema)});
    problemas = problemas || esProblema;
  }
};

QString mensajePaso(int codigo, const Textos& textos);
// What was lost of the settings file when it was written.
QString decirPisada(const Ajustes::Pisada& pisada, const Textos& textos);
// The result of a step refused by the store, with its message of failure.
Hecho deFallo(const Error& error, int codigo = 0);

// The rule for watching the engine's tasks.
struct Vigilancia {
  motor::Vigilante* vigilante = nullptr;
  bool borrarSiempre = false;  // unattended
  int reintentos = 0;          // of the last call
};

class Ejecutor {
 public:
  Ejecutor(const Taller& taller, Diario& diario) : t_(taller), diario_(diario) {}

  // Carries out step `e.paso` of the run. An Error only when the record of the run could not be
  // written.
  Resultado<Hecho> hacer(const PasoProceso& p, Ejecucion& e, Vigilancia& vigilancia);
  // Requeues a task of a step that was queued before the run was interrupted.
  motor::Pedida repetir(const PasoProceso& p, const Diario::Tarea& tarea);
  // True once the queue is empty; otherwise sets the rule under which the rest is watched.
  bool colaVacia(const PasoControl& espera, Vigilancia& vigilancia);

 private:
  struct Exportacion {
    totals::OpcionesExport como;
    Pendientes::Destino destino;
  };
  void sinElegidos(int codigo, const Ejecucion& e, Hecho& h) const;
  Resultado<Hecho> tarea(const PasoTarea& p, Ejecucion& e);
  QString motivoRechazo(motor::Pedida pedida, int grupo, TipoTarea clase) const;
  Hecho sesion(const PasoSesion& p, Ejecucion& e);
  bool puedeOlvidar(Hecho& h);
  void cerrar(const PasoSesion& p, Ejecucion& e, Hecho& h);
  void noMemorizado(Ejecucion& e, Hecho& h);
  Hecho control(const PasoControl& p);
  Hecho periodos(const PasoPeriodos& p, const Ejecucion& e);
  Hecho crear(const PasoPeriodos& p);
  Hecho sumar();
  void deberSuma(Hecho& h);
  void avisarDeDobles(const Resultado<std::vector<totals::VerTot::Solape>>& dobles, int texto,
                      Hecho& h);
  QString sumandosDe(const totals::VerTot::Suma& suma) const;
  // REQUIRES a verb that acts on the selection or names its periods.
  void avisarDeLoQueNoVuelve(const PasoPeriodos& p, Hecho& h);
  Resultado<bool> operacion(const PasoPeriodos& p);
  void pendientes(const PasoPeriodos& p, const std::vector<qint64>& debidos, Hecho& h);
  Hecho selUltimo(const Ejecucion& e);
  Hecho exportar(const PasoExportar& p, const Ejecucion& e);
  // What an export step has done so far.
  struct Exportados {
    std::vector<Pendientes::Exporte> propios;  // still to be exported to the step's own file
    std::vector<Pendientes::Exporte> saldados, debidos;
    std::vector<Pendientes::Exporte> siguen;  // owed before, and failed again
  };
  void exportarPendientes(const std::vector<Pendientes::Exporte>& viejos, const Exportacion& x,
                          Exportados& ya, Hecho& h);
  Resultado<bool> exportarUno(const Pendientes::Exporte& e, bool corto);
  Resultado<bool> yaEntregado(const Pendientes::Exporte& e);
  void exportarPropios(const Exportacion& x, Exportados& ya, Hecho& h);
  Resultado<> anotarExportes(const Pendientes::Destino& destino, const Exportados& ya, Hecho& h);
  Resultado<> borrarEntregados(Hecho& h);
  QString nombrePeriodo(qint64 link) const;

  const Taller& t_;
  Diario& diario_;
};

}  // namespace tarvo::automation
