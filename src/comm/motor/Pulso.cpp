// The 500 ms tick: first the tasks in queue order, then the channels; and the rule of retries.
#include "comm/motor/Interior.h"

namespace tarvo::motor {

void gestcomm::Interior::latido() {
  for (int c = 0; c < static_cast<int>(canales.size()); ++c) vigilarCanal(c);
  if (automatico) pasarTareas();
  if (automatico || alCerrar) pasarCanales();
  if (alCerrar) comprobarFin();
  comprobarAcabado();
}

// A call may queue or remove tasks: the pass goes on behind the number it has reached, up to the
// last of its start.
void gestcomm::Interior::pasarTareas() {
  const int ultimo = ultimoId;
  for (auto it = tareas.begin(); it != tareas.end() && it->first <= ultimo;) {
    const int id = it->first;
    atender(id);
    it = tareas.upper_bound(id);
  }
}

void gestcomm::Interior::pasarCanales() {
  for (int c = 0; c < static_cast<int>(canales.size()); ++c) atenderCanal(c);
}

void gestcomm::Interior::atender(int id) {
  TareaViva& t = *tarea(id);
  switch (t.Estado) {
    case kAperturaFallida:
    case kInterrumpido:
      if (t.Error != kErrorDetenido)
        reglaReintento(id);
      else if (vigilante && borrarFallos)
        rendir(id);
      break;
    case kTerminado:
    case kDetenido:
      quitar(id);
      break;
    case kRechazado:
      if (vigilante && borrarFallos) rendir(id);
      break;
    case kEnEspera:
      // Refused while nobody watched: it waits for the operator, or for a watcher to tell.
      if (t.Error != kErrorSuprimido)
        avanzar(id);
      else if (vigilante)
        suprimir(id, t.textoError);
      break;
    default:
      break;
  }
}

void gestcomm::Interior::atenderCanal(int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  switch (canal.EstadoCanal) {
    case kLibreAbierto:
    case kParar:
      cerrarEnlace(c);
      break;
    case kPerdido:
      if (canal.TareaCanal < 0) return canalCerrado(c);
      canal.reapertura = ahora() + kReaperturaMs;
      ponerCanal(c, kEsperaReapertura);
      break;
    case kEsperaReapertura:
      if (ahora() < canal.reapertura) return;
      if (const TareaViva* t = tareaDe(c); !t)
        canalCerrado(c);
      else if (t->Estado == kTransfiriendo)  // else the rule of retries has yet to agree
        abrir(t->datos.Id, c);
      break;
    case kCierreMalo:
      if (canal.FallosCierre < kIntentosCierre && enlaces[c])
        cerrarEnlace(c);
      else
        canalCerrado(c);
      break;
    default:
      break;
  }
}

// A link that gives no event is dropped, and what it was doing has failed.
void gestcomm::Interior::vigilarCanal(int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  if (canal.limite == 0 || ahora() < canal.limite) return;
  canal.limite = 0;
  enlaces.abandonar(c);
  TareaViva* t = tareaDe(c);
  if (!t || canal.EstadoCanal == kCerrando || canal.EstadoCanal == kCierreMalo)
    return canalCerrado(c);
  if (t->Estado == kAbriendo)
    falloApertura(c, t->datos.Id, kErrorTiempo);
  else if (t->Estado == kTransfiriendo)
    enlacePerdido(t->datos.Id, kErrorTiempo);
}

// Is the link of a failed opening still on its way down? Then a retry has to wait.
bool gestcomm::Interior::esperaCierre(const TareaViva& t) const {
  if (t.Canal < 0) return false;
  const CanalVivo& canal = canales[static_cast<size_t>(t.Canal)];
  if (canal.TareaCanal != t.datos.Id) return false;
  return canal.EstadoCanal == kCerrando || canal.EstadoCanal == kCierreMalo;
}

void gestcomm::Interior::reglaReintento(int id) {
  TareaViva* t = tarea(id);
  const int limite = vigilante ? reintentos : entorno.ajustes.IntentosManual;
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

// No further attempt: the task goes, or stays. Under a watcher it may yet get other retries with
// the next wait: it gives its channel to the tasks behind it, and a zeroing behind it still waits.
void gestcomm::Interior::rendir(int id) {
  TareaViva* t = tarea(id);
  if (!borrarFallos) {
    if (!vigilante) return marcarFallida(*t);
    if (const int c = t->Canal; tareaDe(c) == t && !esperaCierre(*t)) {
      liberarCanal(c);
      soltarEnlace(c);
    }
    return;
  }
  problema(id);
  if ((t = tarea(id))) marcarFallida(*t);
  eliminar(id);
}

}  // namespace tarvo::motor
