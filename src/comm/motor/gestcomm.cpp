#include "comm/motor/gestcomm.h"

#include <algorithm>

#include "comm/motor/Interior.h"
#include "comm/motor/Negativa.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::motor {

gestcomm::Interior::Interior(gestcomm& dueno, Entorno e, enlace::Enlaces& en,
                             const RepertorioTareas& r)
    : fuera(dueno),
      entorno(e),
      enlaces(en),
      repertorio(r),
      ajustes(e.ajustes.de<AjustesMotor>()),
      tiempos(e.ajustes.de<enlace::AjustesEnlace>()),
      cables(e.ajustes.de<enlace::AjustesCables>()) {
  for (const enlace::ParamCanal& p : cables.canales)
    canales.emplace_back().EstadoCanal = p.Device == TipoAcceso::Ninguno ? kSinUso : kCerrado;
  pulso = e.reloj.temporizador([this] { latido(); });
  pulso->cada(kPulsoMs);
  pronto = e.reloj.temporizador([this] { mirar(Mirada::Pronta); });
  alFin = e.reloj.temporizador([this] { comprobarFin(); });
}

gestcomm::Interior::~Interior() {
  for (int c = 0; c < static_cast<int>(canales.size()); ++c)
    if (canales[static_cast<size_t>(c)].acceso && enlaces[c]) enlaces.abandonar(c, &fuera);
}

gestcomm::gestcomm(Entorno entorno, enlace::Enlaces& enlaces, const RepertorioTareas& repertorio)
    : d(std::make_unique<Interior>(*this, entorno, enlaces, repertorio)) {}

gestcomm::~gestcomm() = default;

Pedida gestcomm::NuevaTarea(int grupo, bool todo, qint64 desde, qint64 hasta, TipoTarea clase,
                            qint64 paso) {
  DatosTarea que;
  que.Grupo = grupo;
  que.Clase = clase;
  que.Todo = todo;
  que.Desde = desde;
  que.Hasta = hasta;
  que.paso = paso;
  return d->nueva(que);
}

void gestcomm::CambioAModo(bool automatico) {
  d->automatico = automatico || d->modoFijo;
  d->mirarPronto();
  d->cambioCola();
}

void gestcomm::FijarModo(bool fijo) {
  if (std::exchange(d->modoFijo, fijo) == fijo) return;
  CambioAModo(fijo || d->automatico);
}

bool gestcomm::ModoFijado() const {
  return d->modoFijo;
}

bool gestcomm::ModoAutomatico() const {
  return d->automatico;
}

void gestcomm::VigilaProcesos(int reintentos, bool borrarFallos, Vigilante* vigilante) {
  d->reintentos = reintentos;
  d->borrarFallos = borrarFallos;
  d->vigilante = vigilante;
  d->mirarPronto();
}

bool gestcomm::Vigilando() const {
  return d->vigilante != nullptr;
}

gestcomm::Cuenta gestcomm::CuantosQuedan() const {
  Cuenta n;
  for (const auto& [id, t] : d->tareas) {
    const bool enCurso = t->Estado == kEnEspera || t->Estado == kAbriendo ||
                         t->Estado == kTransfiriendo || t->Estado == kTerminado;
    ++(enCurso && !t->suprimida() ? n.enCurso : n.fallidas);
    ++n.total;
  }
  return n;
}

const std::set<int>& gestcomm::GruposFallidos() const {
  d->grupoFallido(0);
  return d->gruposFallidos;
}

void gestcomm::anadirGrupoFallido(int grupo) {
  d->anotarFallido(grupo, std::nullopt);
}

Resultado<bool> gestcomm::LaSesion(int nuevo) {
  totals::Sesion& s = d->entorno.sesion;
  if (nuevo == s.estado()) return true;
  if (nuevo == 1 && s.estado() == 0) {
    auto r = s.AbrirSesion();
    if (!r || !*r) return r;
  } else if (nuevo == 0) {
    TARVO_INTENTAR(s.cerrarSinMemorizar());
  } else {
    return false;
  }
  if (auto r = s.reflejar(); !r) d->decirAvisos({{0, r.error().texto, false}});
  return true;
}

void gestcomm::AvanzarTarea(int id) {
  d->seguirTarea(id);
}

void gestcomm::PausarTarea(int id) {
  if (TareaViva* t = d->tarea(id)) {
    t->Retenida = t->Estado == kTransfiriendo;
    d->cambio(*t);
  }
}

void gestcomm::DetenerTarea(int id) {
  d->detener(id);
}

void gestcomm::EliminarTarea(int id) {
  const TareaViva* t = d->tarea(id);
  std::optional<DatosTarea> que;
  if (t && t->Estado != kTerminado) que = t->datos;
  d->eliminar(id);
  if (!que || d->tarea(id)) return;
  if (d->quitadas.size() == kQuitadasMax) d->quitadas.erase(d->quitadas.begin());
  d->quitadas.push_back(std::move(*que));
  d->cambioCola();
}

std::optional<Pedida> gestcomm::ReponerTarea() {
  return d->reponer();
}

bool gestcomm::hayQuitadas() const {
  return !d->quitadas.empty();
}

Resultado<> gestcomm::puedeIrse(int grupo) const {
  for (const auto& [id, t] : d->tareas) {
    const bool enCurso =
        t->Estado == kAbriendo || t->Estado == kTransfiriendo || t->Estado == kRetenido;
    if (t->datos.Grupo == grupo && t->Estado != kTerminado && (enCurso || t->datos.paso >= 0))
      return fallo(Fallo::Ocupado, d->entorno.textos(kTxGrupoComunica, {grupo}));
  }
  return {};
}

int gestcomm::tareasDe(int grupo) const {
  return static_cast<int>(std::ranges::count_if(d->tareas, [grupo](const auto& par) {
    return par.second->datos.Grupo == grupo && par.second->Estado != kTerminado;
  }));
}

Resultado<> gestcomm::olvidarGrupo(int grupo) {
  TARVO_INTENTAR(puedeIrse(grupo));
  std::vector<int> ids;
  for (const auto& [id, t] : d->tareas)
    if (t->datos.Grupo == grupo) ids.push_back(id);
  for (const int id : ids) d->eliminar(id);
  std::erase_if(d->quitadas, [grupo](const DatosTarea& t) { return t.Grupo == grupo; });
  d->gruposFallidos.erase(grupo);
  d->clasesFallidas.erase(grupo);
  d->cambioCola();
  return {};
}

void gestcomm::grupoCambiado(int antes, int ahora) {
  d->mudarTareas(antes, ahora);
  d->cambioCola();
}

int gestcomm::ReintentarTodo() {
  std::vector<int> ids;
  for (const auto& [id, t] : d->tareas)
    if (t->reintentable()) ids.push_back(id);
  for (const int id : ids)
    if (TareaViva* t = d->tarea(id)) d->reintentar(*t);
  return static_cast<int>(ids.size());
}

bool gestcomm::hayReintentables() const {
  return std::ranges::any_of(d->tareas, [](const auto& t) { return t.second->reintentable(); });
}

void gestcomm::terminator() {
  std::vector<int> ids;
  for (const auto& [id, t] : d->tareas) ids.push_back(id);
  for (const int id : ids) {
    const TareaViva* t = d->tarea(id);
    if (!t) continue;
    if (t->Estado == kAbriendo || t->Estado == kTransfiriendo || t->Estado == kRetenido)
      d->detener(id);
    else
      d->eliminar(id);
  }
}

void gestcomm::cerrar(std::function<void()> alCerrar) {
  d->alCerrar = std::move(alCerrar);
  std::vector<int> ids;
  for (const auto& [id, t] : d->tareas) ids.push_back(id);
  for (const int id : ids) d->detener(id);
  for (int c = 0; c < static_cast<int>(d->canales.size()); ++c) {
    switch (d->canales[static_cast<size_t>(c)].EstadoCanal) {
      case kConFallo:
      case kCierreMalo:
        d->liberarCanal(c);
        [[fallthrough]];
      case kLibreAbierto:
      case kParar:
        d->cerrarEnlace(c);
        break;
      default:
        break;
    }
  }
  d->alFin->unaVez(0);
}

void gestcomm::TerminaCuandoPuedas(bool si) {
  d->terminarAlAcabar = si;
}

bool gestcomm::puedeCerrar() const {
  for (const auto& [id, t] : d->tareas)
    if (t->Estado == kAbriendo || t->Estado == kTransfiriendo || t->Estado == kRetenido)
      return false;
  return true;
}

std::vector<VistaTarea> gestcomm::pendientes() const {
  std::vector<VistaTarea> salida;
  for (const auto& [id, t] : d->tareas)
    if (t->Estado != kTerminado && t->Estado != kDetenido) salida.push_back(d->vista(*t));
  return salida;
}

std::vector<VistaTarea> gestcomm::tareas() const {
  std::vector<VistaTarea> salida;
  salida.reserve(d->tareas.size());
  for (const auto& [id, t] : d->tareas) salida.push_back(d->vista(*t));
  return salida;
}

VistaTarea gestcomm::Interior::vista(const TareaViva& t) const {
  return {t.datos,       t.Estado,
          t.Error,       t.Traza,
          t.Canal,       t.FallosEnlace,
          t.FallosTrama, t.Retenida,
          t.textoError,  t.trabajo ? t.trabajo->MostrarTraza() : QString(),
          t.Addr,        t.trajo,
          t.otraVez != 0};
}

std::optional<VistaTarea> gestcomm::tarea(int id) const {
  const TareaViva* t = d->tarea(id);
  return t ? std::optional(d->vista(*t)) : std::nullopt;
}

std::vector<VistaCanal> gestcomm::canales() const {
  std::vector<VistaCanal> salida;
  for (int i = 0; i < static_cast<int>(d->canales.size()); ++i) {
    const CanalVivo& c = d->canales[static_cast<size_t>(i)];
    const bool modem = i < kCanalesFijos && d->param(i).Device == TipoAcceso::Modem;
    salida.push_back({c.EstadoCanal, c.TareaCanal, c.FallosCierre, c.NombreEnlace, c.etiqueta,
                      modem && d->enlaces[i] && d->enlaces[i]->Portadora()});
  }
  return salida;
}

void gestcomm::cambiaronCanales() {
  for (int c = 0; c < kCanalesFijos; ++c) {
    const int estado = d->canales[static_cast<size_t>(c)].EstadoCanal;
    if (estado != kSinUso && estado != kCerrado) continue;
    const bool sinUso = d->param(c).Device == TipoAcceso::Ninguno;
    d->ponerCanal(c, sinUso ? kSinUso : kCerrado);
  }
}

void gestcomm::observar(Observador* observador) {
  if (observador)
    d->observadores.push_back(observador);
  else
    d->observadores.clear();
}

void gestcomm::dejarDeObservar(Observador* observador) {
  std::erase(d->observadores, observador);
}

// --- events of the links ---

void gestcomm::Abrir_Evento(int canal, int error) {
  d->abierto(canal, error);
}
void gestcomm::Cerrar_Evento(int canal, int error) {
  d->cerrado(canal, error);
}
void gestcomm::EnvioVEK_Evento(int canal, int error, int addr, int codigo,
                               const QByteArray& datos) {
  d->respuesta(canal, error, addr, codigo, datos, false);
}
void gestcomm::EnvioNDL_Evento(int canal, int error) {
  d->respuesta(canal, error, -1, 0, {}, false);
}
void gestcomm::ReciboNDL_Evento(int canal, int error, int codigo, const QByteArray& datos) {
  d->respuesta(canal, error, -1, codigo, datos, true);
}
void gestcomm::ReciboVEK_Evento(int canal, int error, int addr, int codigo,
                                const QByteArray& datos) {
  d->respuesta(canal, error, addr, codigo, datos, false);
}
void gestcomm::CD_Evento(int canal, bool) {
  d->cambioCanal(canal);
}

// If the shop lets its scales answer under another code, such an answer counts as one under the
// question's own. To an order to forget it must be empty: a late record is no consent.
bool gestcomm::encaja(int canal, int addr, int codigo, const QByteArray& datos) {
  const TareaViva* t = d->tareaDe(canal);
  if (!t || !t->trabajo || datos.startsWith(kMarcaNegativa)) return true;
  const bool otro = d->ajustes.AceptaOtroCodigo && t->pedido >= 0 && codigo != t->pedido;
  if (otro && t->olvido && !datos.isEmpty()) return false;
  return t->trabajo->encaja(addr, otro ? t->pedido : codigo, datos);
}

}  // namespace tarvo::motor
