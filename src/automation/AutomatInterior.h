// The state and internal operations of the runner, in three files: phases, steps, and how a run
// begins.
#pragma once

#include "automation/Automat.h"
#include "automation/Ejecutor.h"
#include "automation/TextosAutomation.h"
#include "automation/historia/Diario.h"
#include "automation/historia/Traza.h"

namespace tarvo::automation {

struct Automat::Interior final : motor::Observador {
  Interior(Automat& automat, const Taller& taller, Preguntas& quienResponde);

  // --- phases (Automat.cpp)
  void vencer();
  bool tic();  // true when the run has ended
  bool avanzar();
  bool vaciar();
  bool acabar();
  void quedarEnPaso();
  bool terminarMal();  // aborted, or the record of the run failed
  void terminar(ResultadoProceso con, int faseFinal, int linea);
  void contarLoHecho();
  void anunciarFin();
  void decirFin();
  void empezarAborto();
  void mirarPronto();
  void colaCambiada() override;  // of the engine
  bool conReloj() const { return reloj->activo(); }

  // --- steps (AutomatPasos.cpp)
  Resultado<bool> hacerPaso();
  Resultado<bool> llevarACabo(const PasoProceso& p);
  Resultado<bool> preguntar(const Parametro& parametro);
  std::optional<Respuesta> respuestaA(const Parametro& parametro) const;
  Resultado<> registrar();  // the step is done: REQUIRES a transaction
  void abrirMotor();
  void soltarMotor();
  void sesionAlFichero();
  void fallar(const Error& error);

  // --- for observers
  void cambio() const;
  void marcar(EstadoPaso estado, const QString& motivo = {});
  void pasosDesdeElPrincipio();
  void interrumpirVistas();
  void asentarVistas();
  Resultado<> asentarVista(qint64 paso);
  void pasoHecho();
  void contarPorPedir(CursoEjecucion& curso) const;

  // --- trace
  void escribir(const QStringList& lineas);
  void escribirMomento(int texto);
  QString cabecera() const;
  void informar(const Hecho& hecho);
  void informarTarea(TipoTarea clase, int grupo, int error, int estado, qint64 codigo, int fin);
  void cabeceraUnaVez();
  // --- the history of the run
  void recordar(const AvisoHecho& aviso);
  void recordarFallo(TipoTarea clase, int grupo, int error);
  void problema();
  bool vigila() const;  // reports of the engine count

  // --- the beginning of a run (AutomatInicio.cpp)
  void cargar(std::vector<PasoProceso> lista, const QString& traza, const QString& nombre);
  void empezar();
  void decirOmitidas();
  Resultado<> prepararEjecucion();
  Resultado<> anotarNombre(qint64 desde);
  Resultado<> reanudar(Ejecucion vieja);
  Resultado<> liquidar(Ejecucion vieja);
  Resultado<> completarAnotaciones();
  Resultado<std::vector<PasoProceso>> pasosDe(const Ejecucion& de) const;
  void encolarDeNuevo(const std::vector<Diario::Tarea>& tareas);

  Automat& yo;
  const Taller t;
  Preguntas& preguntas;
  const Lenguaje lenguaje;
  Diario diario;
  Ejecutor ejecutor;
  Traza fichero;
  std::unique_ptr<Temporizador> reloj, pronto;

  std::vector<PasoProceso> originales, pasos;  // as loaded, and with the parameters filled in
  QStringList omitidas;
  QStringList lineas;
  QString nombre;
  bool diferida = false;
  int fase = kCargado;
  ResultadoProceso resultado = ResultadoProceso::Bien;
  qint64 indice = -1;
  bool pendiente = false;
  size_t pisadasDichas = 0;  // of those of the settings file
  qint64 conCabecera = -1;   // the step whose header was written last
  Ejecucion e;
  std::vector<qint64> ultimos;  // periods of the last memorisation; outlives a run
  Vigilancia vigilancia;
  bool motorAbierto = false, averiado = false, enTic = false;
  qint64 ultimoLatido = 0, inicioAborto = 0;
  std::vector<ObservadorAutomat*> observadores;
  std::vector<VistaPaso> vistas;
  QStringList escrito;
  bool finSinDecir = false;
  bool deOtra = false;  // the steps being carried out are those of an old run
};

}  // namespace tarvo::automation
