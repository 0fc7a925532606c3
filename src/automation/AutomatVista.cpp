// What observers of a run are shown: the state of each step, and changes.
#include <algorithm>
#include <span>

#include "automation/AutomatInterior.h"

namespace tarvo::automation {

void Automat::Interior::cambio() const {
  for (auto* quien : std::vector(observadores)) quien->automatCambiado();
}

// A step that had a problem keeps its first one.
void Automat::Interior::marcar(EstadoPaso estado, const QString& motivo) {
  if (deOtra || indice < 0 || indice >= static_cast<qint64>(vistas.size())) return;
  VistaPaso& v = vistas[static_cast<size_t>(indice)];
  if (v.estado == EstadoPaso::ConProblemas) return;
  v.estado = estado;
  v.motivo = motivo;
}

void Automat::Interior::pasosDesdeElPrincipio() {
  vistas.clear();
  vistas.reserve(originales.size());
  for (const auto& p : originales)
    vistas.push_back(
        {lenguaje.EscribirPaso(p), lenguaje.DecirPaso(p), EstadoPaso::Pendiente, QString()});
}

void Automat::Interior::interrumpirVistas() {
  for (auto& v : vistas)
    if (v.estado == EstadoPaso::EnCurso || v.estado == EstadoPaso::EnCola)
      v.estado = EstadoPaso::Interrumpido;
}

// The queued tasks have ended.
void Automat::Interior::asentarVistas() {
  for (auto& v : vistas)
    if (v.estado == EstadoPaso::EnCola) v.estado = EstadoPaso::Hecho;
}

// A step whose tasks have all been done is done, whatever becomes of those of others.
Resultado<> Automat::Interior::asentarVista(qint64 paso) {
  if (deOtra || paso >= static_cast<qint64>(vistas.size())) return {};
  VistaPaso& v = vistas[static_cast<size_t>(paso)];
  if (v.estado != EstadoPaso::EnCola) return {};
  TARVO_TOMAR(const auto quedan, diario.tareasPorHacer(e.numero, paso));
  if (std::ranges::find(quedan, paso, &Diario::Tarea::paso) == quedan.end())
    v.estado = EstadoPaso::Hecho;
  return {};
}

void Automat::Interior::pasoHecho() {
  const PasoProceso& paso = pasos[static_cast<size_t>(indice)];
  if (std::holds_alternative<PasoControl>(paso)) asentarVistas();
  marcar(std::holds_alternative<PasoTarea>(paso) ? EstadoPaso::EnCola : EstadoPaso::Hecho);
}

bool Automat::enMarcha() const {
  return d->vigila() || d->fase == kAbortando;
}
bool Automat::libre() const {
  return !enMarcha() && d->t.db.profundidad() == 0;
}
bool Automat::diferida() const {
  return d->diferida;
}
const QString& Automat::nombre() const {
  return d->nombre;
}
const std::vector<VistaPaso>& Automat::pasos() const {
  return d->vistas;
}
const QStringList& Automat::escrito() const {
  return d->escrito;
}
QString Automat::rutaTraza() const {
  return d->fichero.ruta();
}
void Automat::observar(ObservadorAutomat& quien) {
  d->observadores.push_back(&quien);
}
void Automat::dejarDeObservar(ObservadorAutomat& quien) {
  std::erase(d->observadores, &quien);
}

void Automat::Interior::contarPorPedir(CursoEjecucion& curso) const {
  const auto desde =
      std::clamp<qint64>(pendiente ? indice : indice + 1, 0, static_cast<qint64>(pasos.size()));
  for (const PasoProceso& p : std::span(pasos).subspan(static_cast<size_t>(desde))) {
    const auto* tarea = std::get_if<PasoTarea>(&p);
    if (!tarea) continue;
    if (const auto* grupo = std::get_if<qint64>(&tarea->grupo))
      curso.porPedir.insert(static_cast<int>(*grupo));
    else if (std::get<QString>(tarea->grupo) == kTodosLosGrupos)
      curso.aTodos = true;
  }
}

std::optional<CursoEjecucion> Automat::curso() const {
  const auto numero = ejecucion();
  if (!numero) return std::nullopt;
  CursoEjecucion curso{.numero = *numero, .porPedir = {}, .enLinea = {}};
  if (d->fase != kAbortando) d->contarPorPedir(curso);
  for (const motor::VistaTarea& v : d->t.motor.tareas())
    if (v.Estado == motor::kTransfiriendo) curso.enLinea.emplace(v.datos.Grupo, v.datos.Clase);
  return curso;
}

}  // namespace tarvo::automation
