// The operator's commands, the end of the engine, and the notifications to observers.
#include "comm/motor/Interior.h"

namespace tarvo::motor {

// The operator needn't wait for the delay after a lost link.
void gestcomm::Interior::seguirTarea(int id) {
  TareaViva* t = tarea(id);
  if (!t || alCerrar) return;
  t->otraVez = 0;
  if (tareaDe(t->Canal) == t && esperaReapertura(t->Canal)) return reabrir(*t);
  avanzar(id);
}

// The operator wants it now, whatever its state.
void gestcomm::Interior::reintentar(TareaViva& t) {
  t.olvidarFallos();
  t.descanso = kDescansoMin;
  t.detenida = false;
  hacerEsperar(t);
  if (t.Estado == kRechazado || t.suprimida()) {
    t.Estado = kEnEspera;
    t.Error = 0;
    t.textoError.clear();
  }
  cambio(t);
  seguirTarea(t.datos.Id);
}

// Undoes the latest removal: the task is requested anew, in its old place in the queue.
std::optional<Pedida> gestcomm::Interior::reponer() {
  if (quitadas.empty()) return {};
  const DatosTarea que = std::move(quitadas.back());
  quitadas.pop_back();
  return nueva(que);
}

bool gestcomm::Interior::esperaReapertura(int canal) const {
  if (canal < 0) return false;
  const int estado = canales[static_cast<size_t>(canal)].EstadoCanal;
  return estado == kPerdido || estado == kEsperaReapertura;
}

void gestcomm::Interior::detener(int id) {
  TareaViva* t = tarea(id);
  if (!t) return;
  const int c = t->Canal;
  switch (t->Estado) {
    case kAbriendo:
      t->detenida = true;
      if (enlaces[c])
        cerrarEnlace(c);
      else
        falloApertura(c, id, kErrorDetenido);
      return;
    case kTransfiriendo:
    case kRetenido: {
      const bool enMarcha = t->Estado == kTransfiriendo;
      t->Estado = kDetenido;
      if (t->trabajo) t->trabajo->reposo();
      marcarFallida(*t);
      if (tareaDe(c) == t) {
        liberarCanal(c);
        if (!enlaces[c])
          canalCerrado(c);
        else
          ponerCanal(c, enMarcha ? kParar : kLibreAbierto);
      }
      return cambio(*t);
    }
    default:
      return;
  }
}

// Takes a task that isn't already leaving out of the queue. A failed reading leaves the inbox
// unchanged.
void gestcomm::Interior::eliminar(int id) {
  TareaViva* t = tarea(id);
  if (!t || t->Estado == kAbriendo || t->Estado == kTransfiriendo || t->Estado == kRetenido) return;
  const int c = t->Canal;
  if (c >= 0 && tareaDe(c) == t) {
    liberarCanal(c);
    soltarEnlace(c);
  }
  quitar(id);
}

bool gestcomm::Interior::todosInactivos() const {
  for (const CanalVivo& c : canales) {
    switch (c.EstadoCanal) {
      case kLibreAbierto:
      case kEnUso:
      case kConFallo:
      case kCerrando:
      case kCierreMalo:
      case kParar:
        return false;
      default:
        break;
    }
  }
  return true;
}

void gestcomm::Interior::comprobarFin() {
  if (!alCerrar || !todosInactivos()) return;
  const auto f = std::exchange(alCerrar, nullptr);
  f();
}

void gestcomm::Interior::comprobarAcabado() {
  if (!terminarAlAcabar || !tareas.empty() || !todosInactivos()) return;
  terminarAlAcabar = false;
  for (size_t i = 0; i < observadores.size(); ++i) observadores[i]->acabado();
}

void gestcomm::Interior::cambio(const TareaViva& t) {
  const int id = t.datos.Id;
  for (size_t i = 0; i < observadores.size(); ++i) observadores[i]->tareaCambiada(id);
}

void gestcomm::Interior::cambioCola() {
  for (size_t i = 0; i < observadores.size(); ++i) observadores[i]->colaCambiada();
}

void gestcomm::Interior::cambioCanal(int canal) {
  for (size_t i = 0; i < observadores.size(); ++i) observadores[i]->canalCambiado(canal);
}

// A sentence about a task's group for a person to read, once for each task.
void gestcomm::Interior::decir(const TareaViva& t, const QString& texto) {
  if (texto == t.dicho || texto.isEmpty()) return;
  const int id = t.datos.Id;
  if (TareaViva* viva = tarea(id)) viva->dicho = texto;
  if (vigilante) vigilante->InformeAviso({t.datos.Grupo, texto, true});
}

void gestcomm::Interior::decirAvisos(const std::vector<totals::Aviso>& avisos) {
  for (const totals::Aviso& a : avisos)
    if (vigilante) vigilante->InformeAviso(a);
}

void gestcomm::Interior::problema(int id) {
  const TareaViva* t = tarea(id);
  if (vigilante && t)
    vigilante->InformeProblema(t->datos.Clase, t->datos.Grupo, t->Error, t->Estado, t->codigo());
}

}  // namespace tarvo::motor
