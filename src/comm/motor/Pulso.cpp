// The 500 ms tick: first the tasks in queue order, then the channels; the earlier look after a
// change; and the retry rule.
#include "comm/motor/Interior.h"

namespace tarvo::motor {

void gestcomm::Interior::latido() {
  for (int c = 0; c < static_cast<int>(canales.size()); ++c) vigilarCanal(c);
  mirar(Mirada::Pulso);
}

// A change may let a task begin or a channel close: this is checked right after the present event
// instead of at the next tick.
void gestcomm::Interior::mirarPronto() {
  if (!pronto->activo()) pronto->unaVez(0);
}

void gestcomm::Interior::mirar(Mirada mirada) {
  if (automatico) pasarTareas(mirada);
  if (automatico || alCerrar) pasarCanales(mirada);
  if (alCerrar) comprobarFin();
  comprobarAcabado();
}

// A call may queue or remove tasks: the pass continues after the number it has reached, up to the
// last number at its start.
void gestcomm::Interior::pasarTareas(Mirada mirada) {
  const int ultimo = ultimoId;
  for (auto it = tareas.begin(); it != tareas.end() && it->first <= ultimo;) {
    const int id = it->first;
    atender(id, mirada);
    it = tareas.upper_bound(id);
  }
}

void gestcomm::Interior::pasarCanales(Mirada mirada) {
  for (int c = 0; c < static_cast<int>(canales.size()); ++c) atenderCanal(c, mirada);
}

// Retries keep to the pace of the tick, which gives a machine time to recover.
void gestcomm::Interior::atender(int id, Mirada mirada) {
  TareaViva& t = *tarea(id);
  switch (t.Estado) {
    case kAperturaFallida:
    case kInterrumpido:
      if (mirada == Mirada::Pulso) atenderFallo(t);
      break;
    case kTerminado:
    case kDetenido:
      quitar(id);
      break;
    case kRechazado:
      if (vigilante && borrarFallos) rendir(id);
      break;
    case kEnEspera:
      // Refused while nobody watched: it waits for the operator, or for a watcher to notify.
      if (t.Error != kErrorSuprimido)
        avanzar(id);
      else if (vigilante)
        suprimir(id, t.textoError);
      break;
    default:
      break;
  }
}

void gestcomm::Interior::atenderFallo(const TareaViva& t) {
  if (t.Error != kErrorDetenido)
    reglaReintento(t.datos.Id);
  else if (vigilante && borrarFallos)
    rendir(t.datos.Id);
}

void gestcomm::Interior::atenderCanal(int c, Mirada mirada) {
  const CanalVivo& canal = canales[static_cast<size_t>(c)];
  switch (canal.EstadoCanal) {
    case kLibreAbierto:
    case kParar:
      cerrarEnlace(c);
      break;
    case kPerdido:
    case kEsperaReapertura:
      if (mirada == Mirada::Pulso) atenderPerdido(c);
      break;
    case kCierreMalo:
      if (mirada != Mirada::Pulso) break;
      if (canal.FallosCierre < kIntentosCierre && enlaces[c])
        cerrarEnlace(c);
      else
        canalCerrado(c);
      break;
    default:
      break;
  }
}

// A lost line is tried again for its task after its delay, whether or not the retry rule has given
// the task up.
void gestcomm::Interior::atenderPerdido(int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  TareaViva* t = tareaDe(c);
  if (!t) return canalCerrado(c);
  if (canal.EstadoCanal == kPerdido) {
    canal.reapertura = ahora() + kReaperturaMs;
    return ponerCanal(c, kEsperaReapertura);
  }
  if (ahora() >= canal.reapertura) reabrir(*t);
}

void gestcomm::Interior::reabrir(TareaViva& t) {
  t.Estado = kTransfiriendo;
  abrir(t.datos.Id, t.Canal);
}

// A link without events is dropped, and its present operation has failed.
void gestcomm::Interior::vigilarCanal(int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  if (canal.limite == 0 || ahora() < canal.limite) return;
  canal.limite = 0;
  abandonarEnlace(c);
  TareaViva* t = tareaDe(c);
  if (!t || canal.EstadoCanal == kCerrando || canal.EstadoCanal == kCierreMalo)
    return canalCerrado(c);
  if (t->Estado == kAbriendo)
    falloApertura(c, t->datos.Id, kErrorTiempo);
  else if (t->Estado == kTransfiriendo)
    enlacePerdido(t->datos.Id, kErrorTiempo);
}

// Is the link of a failed opening still closing? Then a retry has to wait.
bool gestcomm::Interior::esperaCierre(const TareaViva& t) const {
  if (t.Canal < 0) return false;
  const CanalVivo& canal = canales[static_cast<size_t>(t.Canal)];
  if (canal.TareaCanal != t.datos.Id) return false;
  return canal.EstadoCanal == kCerrando || canal.EstadoCanal == kCierreMalo;
}

void gestcomm::Interior::reglaReintento(int id) {
  TareaViva* t = tarea(id);
  const int limite = vigilante ? reintentos : ajustes.IntentosManual;
  if (std::max({t->FallosEnlace, t->FallosTrama, t->enlaceSinAvance, t->tramaSinAvance}) > limite)
    return rendir(id);
  if (esperaCierre(*t)) return;
  bool ya = true;
  if (vigilante)
    vigilante->InformeRetry(t->datos.Clase, t->datos.Grupo, t->Error, t->Estado, t->codigo());
  else if (ya = --t->EsperaReintento <= 0; ya)
    t->EsperaReintento = kPulsosReintento;
  t = tarea(id);
  if (!t) return;
  t->falloVisto = true;
  if (t->trabajo) t->trabajo->fallo();
  if (ya) avanzar(id);
}

// No further attempt for now: the task is removed, or stays and gives its channel to later ones.
// Under a watcher it may get more retries with the next wait, and a zeroing after it still waits.
void gestcomm::Interior::rendir(int id) {
  TareaViva* t = tarea(id);
  if (!borrarFallos) {
    if (vigilante) return cederCanal(*t);
    marcarFallida(*t);
    return descansar(*t);
  }
  problema(id);
  if ((t = tarea(id))) marcarFallida(*t);
  eliminar(id);
}

// While nobody watches, the queue runs by itself: an abandoned task is retried, less and less
// often. One that makes a machine forget waits for the operator, since others of its group have
// passed it meanwhile.
void gestcomm::Interior::descansar(TareaViva& t) {
  if (!esperaReapertura(t.Canal)) cederCanal(t);
  if (t.clase->esOlvido) return;
  if (t.otraVez == 0) {
    t.otraVez = ahora() + t.descanso;
    t.descanso = std::min(2 * t.descanso, kDescansoMax);
    return cambio(t);
  }
  if (ahora() < t.otraVez) return;
  t.olvidarFallos();
  avanzar(t.datos.Id);
}

void gestcomm::Interior::cederCanal(const TareaViva& t) {
  const int c = t.Canal;
  if (tareaDe(c) != &t || esperaCierre(t)) return;
  liberarCanal(c);
  soltarEnlace(c);
}

}  // namespace tarvo::motor
