// The engine's state and the operations shared by its files. Tables of states and transitions:
// docs/motor.md.
//
// Every call to a link, a task or a watcher may re-enter the engine. So a step writes its state
// before it calls out, keeps only numbers of tasks and channels across the call, and looks them up
// again.
#pragma once

#include <deque>
#include <map>
#include <set>
#include <vector>

#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"

namespace tarvo::motor {

enum EstadoCanal : int {
  kSinUso = 0,
  kLibreAbierto = 1,
  kEnUso = 2,
  kCerrado = 3,
  kConFallo = 4,
  kCerrando = 5,
  kPerdido = 6,
  kEsperaReapertura = 7,
  kAperturaMala = 8,
  kCierreMalo = 9,
  kParar = 10,
};

inline constexpr int kPulsoMs = 500;
inline constexpr int kReaperturaMs = 30000;
inline constexpr int kIntentosCierre = 5;
inline constexpr int kPulsosReintento = 3;
// The rest, in ms, of an abandoned task before it is retried while nobody watches: the first time,
// and at most.
inline constexpr qint64 kDescansoMin = 30'000, kDescansoMax = 15 * 60'000;
inline constexpr size_t kQuitadasMax = 1000;  // removed tasks that can be put back
inline constexpr int kCanalesFijos = 4;

// How a group is reached: Remoto, and the number, host or name, compared regardless of case and
// surrounding blanks, or the channel of a direct cable.
using Acceso = std::pair<TipoAcceso, QString>;

struct TareaViva {
  DatosTarea datos;
  const ClaseTarea* clase = nullptr;
  Acceso acceso;
  int Estado = kEnEspera, Error = 0, Traza = -1, Canal = -1, Addr = -1;
  // The frame under way: its code if one answer is awaited, else -1; and whether it orders the
  // machine to forget something.
  int pedido = -1;
  bool olvido = false;
  int FallosEnlace = 0, FallosTrama = 0, EsperaReintento = kPulsosReintento;
  bool Retenida = false;
  bool detenida = false;    // the operator stopped it while its link was being opened
  bool fallida = false;     // a reading noted as failed
  bool falloVisto = false;  // the retry rule has seen a failure
  // Failures since `avance` last moved: they end a task that keeps failing at the same point.
  qint64 avance = 0;
  int enlaceSinAvance = 0, tramaSinAvance = 0;
  qint64 otraVez = 0;  // the end of its rest (monotonic ms); 0 while it doesn't rest
  qint64 descanso = kDescansoMin;
  QString textoError, dicho, trajo;
  std::unique_ptr<CursoTarea> trabajo;

  void contarFallo(int TareaViva::* seguidos, int TareaViva::* sinAvance);
  void olvidarFallos();  // counts its attempts anew
  bool suprimida() const { return Estado == kEnEspera && Error == kErrorSuprimido; }
  // It has failed, and can be retried.
  bool reintentable() const {
    return Estado == kAperturaFallida || Estado == kRechazado || Estado == kInterrumpido ||
           suprimida();
  }
  qint64 codigo() const;
};

struct CanalVivo {
  int EstadoCanal = kCerrado, TareaCanal = -1, FallosCierre = 0;
  QString NombreEnlace, etiqueta;
  std::optional<Acceso> acceso;  // of the link that is open, opening or closing here
  // The protocol it was opened with.
  std::optional<Protocolo> protocolo;
  int baudios = 0;
  qint64 reapertura = 0;  // when it opens again (monotonic ms)
  qint64 limite = 0;      // when a link without events is dropped; 0 for never
};

struct gestcomm::Interior {
  Interior(gestcomm& dueno, Entorno e, enlace::Enlaces& en, const RepertorioTareas& r);
  ~Interior();

  gestcomm& fuera;  // as the links know the engine
  Entorno entorno;
  enlace::Enlaces& enlaces;
  const RepertorioTareas& repertorio;
  const AjustesMotor& ajustes;
  const enlace::AjustesEnlace& tiempos;
  const enlace::AjustesCables& cables;
  std::map<int, std::unique_ptr<TareaViva>> tareas;  // by id, which is queue order
  int ultimoId = 0;
  std::deque<CanalVivo> canales;
  std::map<QString, int> conectores;  // channel of each connector name
  std::map<Acceso, int> ocupados;     // channel that holds each access
  // Unfinished readings and wipes of each group, by id, for which later tasks wait.
  using PorGrupo = std::map<int, std::set<int>>;
  PorGrupo lecturas, borrados;
  bool automatico = true;
  bool modoFijo = false;
  int reintentos = 0;
  bool borrarFallos = false;
  Vigilante* vigilante = nullptr;
  std::vector<Observador*> observadores;
  std::vector<DatosTarea> quitadas;  // removed by the operator, the latest last
  std::set<int> gruposFallidos;
  // By group; nothing means a failure noted from outside.
  std::map<int, std::set<std::optional<TipoTarea>>> clasesFallidas;
  qint64 ejecucionFallidos = 0;
  std::function<void()> alCerrar;
  bool terminarAlAcabar = false;
  std::unique_ptr<Temporizador> pulso, pronto, alFin;

  const enlace::ParamCanal& param(int canal) const {
    return cables.canales[static_cast<size_t>(canal)];
  }

  // Cola.cpp: the queue `Id` 0 for a new task, else its former place in the queue.
  Pedida nueva(const DatosTarea& que);
  void hacerEsperar(const TareaViva& t);
  Resultado<std::optional<DatosTarea>> leerGrupo(int grupo);
  void mudarTareas(int antes, int ahora);
  // Whether its code is still a group's: what comes for one that was deleted is stored nowhere.
  Resultado<bool> hayGrupo(int grupo);
  TareaViva* tarea(int id);
  TareaViva* tareaDe(int canal);
  void quitar(int id);
  static bool delante(const PorGrupo& cuales, const TareaViva& t);
  void dejarPaso(const TareaViva& t);
  void marcarFallida(TareaViva& t);
  void anotarBuena(const TareaViva& t);
  bool grupoFallido(int grupo);
  void anotarFallido(int grupo, std::optional<TipoTarea> clase);

  // Pulso.cpp: the tick and the retry rule
  enum class Mirada { Pulso, Pronta };
  void latido();
  void mirarPronto();
  void mirar(Mirada mirada);
  void pasarTareas(Mirada mirada);
  void pasarCanales(Mirada mirada);
  void atender(int id, Mirada mirada);
  void atenderFallo(const TareaViva& t);
  void atenderCanal(int canal, Mirada mirada);
  void atenderPerdido(int canal);
  void reabrir(TareaViva& t);
  void vigilarCanal(int canal);
  void reglaReintento(int id);
  void rendir(int id);
  void descansar(TareaViva& t);
  void cederCanal(const TareaViva& t);
  bool esperaCierre(const TareaViva& t) const;

  // Avance.cpp: what a task does next
  void avanzar(int id);
  void empezar(int id);
  bool permitido(int id);
  void suprimir(int id, const QString& motivo);
  int elegirCanal(TareaViva& t);
  int canalConector(const QString& nombre);
  bool reutilizable(int canal, const TareaViva& t) const;
  void asignarCanal(TareaViva& t, int canal);
  void abrir(int id, int canal);
  void conectada(int id, bool primera);
  void siguienteTrama(int id);
  void finTarea(int id);
  Resultado<std::vector<totals::Aviso>> cierre(TareaViva& t);
  int mandar(int canal, const TareaViva& t, const Siguiente& s);

  // Enlace.cpp: channels, failures, links
  void falloApertura(int canal, int id, int error);
  void falloTrama(int id, int error, const QString& texto = {});
  void falloTarea(int id, const Error& error);
  void enlacePerdido(int id, int error);
  int caidaDe(int canal) const;
  void abandonarEnlace(int canal);
  void cerrarEnlace(int canal);
  void canalCerrado(int canal);
  void liberarCanal(int canal);
  void soltarEnlace(int canal);
  void ponerCanal(int canal, int estado);
  void vigilar(int canal, int timeOut);
  qint64 marcadoMs(int canal) const;
  void abierto(int canal, int error);
  void cerrado(int canal, int error);
  void respuesta(int canal, int error, int addr, int codigo, const QByteArray& datos, bool deLista);
  void seguir(TareaViva& t);

  // Ordenes.cpp: the operator
  void seguirTarea(int id);
  void reintentar(TareaViva& t);
  std::optional<Pedida> reponer();
  bool esperaReapertura(int canal) const;
  void detener(int id);
  void eliminar(int id);
  bool todosInactivos() const;
  void comprobarFin();
  void comprobarAcabado();

  // notifications
  void cambio(const TareaViva& t);
  void cambioCanal(int canal);
  VistaTarea vista(const TareaViva& t) const;
  void cambioCola();
  void decir(const TareaViva& t, const QString& texto);
  void decirAvisos(const std::vector<totals::Aviso>& avisos);
  void problema(int id);
  qint64 ahora() const { return entorno.reloj.monotono(); }
};

}  // namespace tarvo::motor
