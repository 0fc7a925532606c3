// The progress of a task: a channel, an opening, the next frame, its end.
#include <algorithm>

#include "comm/motor/Interior.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::motor {

namespace {

constexpr int kEsperar = -1, kNoVale = -2;
// Each is a socket and a reading held in memory, however many groups there are.
constexpr size_t kEnlacesALaVez = 100;

}  // namespace

void gestcomm::Interior::avanzar(int id) {
  TareaViva* t = tarea(id);
  if (!t || alCerrar) return;
  const int c = t->Canal;
  switch (t->Estado) {
    case kEnEspera:
      return empezar(id);
    case kAperturaFallida:
      if (esperaCierre(*t)) return;
      if (tareaDe(c) != t) return empezar(id);
      t->Estado = kAbriendo;
      return abrir(id, c);
    case kInterrumpido: {
      if (tareaDe(c) != t) return empezar(id);
      t->Estado = kTransfiriendo;
      cambio(*t);
      if (esperaReapertura(c)) return;  // the channel opens again by itself
      if (!enlaces[c]) return ponerCanal(c, kPerdido);
      if (!enlaces[c]->Portadora()) {
        vigilar(c, 0);
        if (enlaces[c]->CerrarEnlace() != 0) abandonarEnlace(c), ponerCanal(c, kPerdido);
        return;
      }
      return conectada(id, false);
    }
    case kRetenido:
      t->Retenida = false;
      t->Estado = kTransfiriendo;
      cambio(*t);
      if (!enlaces[c]) return enlacePerdido(id, caidaDe(c));
      return siguienteTrama(id);
    default:
      return;
  }
}

// Looks for a channel for a task that never had one, or whose channel went to others.
void gestcomm::Interior::empezar(int id) {
  TareaViva* t = tarea(id);
  if (const auto hay = hayGrupo(t->datos.Grupo); !hay || !*hay)
    return suprimir(id,
                    hay ? entorno.textos(kTxGrupoBorrado, {t->datos.Grupo}) : hay.error().texto);
  if (delante(borrados, *t)) return;
  if (t->clase->esOlvido) {
    if (delante(lecturas, *t)) return;
    if (grupoFallido(t->datos.Grupo))
      return suprimir(id, entorno.textos(kTxNoOlvidar, {t->datos.Grupo}));
  }
  const int c = elegirCanal(*t);
  if (c == kNoVale) {
    t->Estado = kRechazado;
    t->Error = kErrorCanal;
    marcarFallida(*t);
    return cambio(*t);
  }
  if (c == kEsperar || !permitido(id)) return;
  t = tarea(id);
  t->Error = 0;
  t->textoError.clear();
  const bool abierto = canales[static_cast<size_t>(c)].EstadoCanal == kLibreAbierto && enlaces[c];
  asignarCanal(*t, c);
  if (abierto)
    conectada(id, true);
  else
    abrir(id, c);
}

// Asks the session right before a group is told to forget. If it returns false, the task has been
// dealt with.
bool gestcomm::Interior::permitido(int id) {
  TareaViva* t = tarea(id);
  if (!t->clase->esOlvido) return true;
  const auto permiso = entorno.sesion.permisoCero(t->datos.Grupo);
  if (permiso && permiso->permitido) return true;
  suprimir(id, permiso ? permiso->motivo : permiso.error().texto);
  return false;
}

// A task that is not sent, so that no sale is lost. Without a watcher it stays, so that the
// operator sees it.
void gestcomm::Interior::suprimir(int id, const QString& motivo) {
  TareaViva* t = tarea(id);
  t->Error = kErrorSuprimido;
  if (!motivo.isEmpty()) decir(*t, motivo);
  if (!(t = tarea(id))) return;
  t->textoError = motivo;
  cambio(*t);
  if (!vigilante) return dejarPaso(*t);
  problema(id);
  if (tarea(id)) quitar(id);
}

// A channel for a waiting task: the one that holds its access, if idle, else the first that fits.
int gestcomm::Interior::elegirCanal(TareaViva& t) {
  const int directo = t.datos.CanalDirecto;
  if (t.datos.Remoto == TipoAcceso::Directo) {
    if (directo < 0 || directo >= kCanalesFijos) return kNoVale;
    const auto& canal = canales[static_cast<size_t>(directo)];
    if (param(directo).Device != TipoAcceso::Directo || canal.EstadoCanal == kSinUso)
      return kNoVale;
  }
  if (const auto it = ocupados.find(t.acceso); it != ocupados.end())
    return reutilizable(it->second, t) ? it->second : kEsperar;
  const auto cerrado = [&](int c) {
    return canales[static_cast<size_t>(c)].EstadoCanal == kCerrado;
  };
  if (t.datos.Remoto == TipoAcceso::Directo) return cerrado(directo) ? directo : kEsperar;
  if (t.datos.Remoto == TipoAcceso::Conector) {
    if (ocupados.size() >= kEnlacesALaVez) return kEsperar;
    const int c = canalConector(t.datos.Telefono);
    return cerrado(c) ? c : kEsperar;
  }
  bool hay = false;
  for (int c = 0; c < kCanalesFijos; ++c) {
    if (param(c).Device != t.datos.Remoto) continue;
    if (cerrado(c)) return c;
    hay = true;
  }
  // If a person is there, the settings may still change; an unattended run would never end.
  return hay || !vigilante ? kEsperar : kNoVale;
}

bool gestcomm::Interior::reutilizable(int c, const TareaViva& t) const {
  const CanalVivo& canal = canales[static_cast<size_t>(c)];
  // A link speaks one protocol at one speed from its opening to its closing.
  return canal.EstadoCanal == kLibreAbierto && canal.protocolo == t.datos.protocolo &&
         canal.baudios == t.datos.Baudios;
}

int gestcomm::Interior::canalConector(const QString& nombre) {
  const auto [it, nuevo] =
      conectores.try_emplace(nombre.trimmed().toCaseFolded(), static_cast<int>(canales.size()));
  if (nuevo) {
    canales.emplace_back().NombreEnlace = nombre;
    ponerCanal(it->second, kCerrado);
  }
  return it->second;
}

void gestcomm::Interior::asignarCanal(TareaViva& t, int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  t.Estado = kAbriendo;
  t.Canal = c;
  t.detenida = false;
  canal.TareaCanal = t.datos.Id;
  canal.etiqueta = t.datos.Telefono;
  canal.acceso = t.acceso;
  canal.protocolo = t.datos.protocolo;
  canal.baudios = t.datos.Baudios;
  ocupados[t.acceso] = c;
  ponerCanal(c, kEnUso);
  cambio(t);
}

void gestcomm::Interior::abrir(int id, int c) {
  const TareaViva* t = tarea(id);
  ponerCanal(c, kEnUso);
  vigilar(c, 0);
  cambio(*t);
  const int error = enlaces.AbrirEnlace(
      t->datos.protocolo == Protocolo::Nodal ? enlace::Para::NodalMotor : enlace::Para::VekMotor, c,
      t->datos.Baudios, t->datos.Remoto == TipoAcceso::Directo ? QString() : t->datos.Telefono,
      &fuera);
  if (error != 0 && tarea(id)) falloApertura(c, id, error);
}

// The task has a link: its first, the one on which a frame failed, or a reopened one.
void gestcomm::Interior::conectada(int id, bool primera) {
  TareaViva* t = tarea(id);
  CanalVivo& canal = canales[static_cast<size_t>(t->Canal)];
  canal.FallosCierre = 0;
  t->Estado = kTransfiriendo;
  ponerCanal(t->Canal, kEnUso);
  if (primera) t->FallosEnlace = 0;
  if (!t->trabajo) {
    t->Traza = 0;
    t->trabajo = t->clase->crear(t->datos, entorno);
    if (t->falloVisto) t->trabajo->fallo();
  } else {
    t->trabajo->reanudar();
  }
  cambio(*t);
  siguienteTrama(id);
}

void gestcomm::Interior::siguienteTrama(int id) {
  TareaViva* t = tarea(id);
  const auto s = t->trabajo->siguiente();
  if (!s) return falloTarea(id, s.error());
  if (s->que == Siguiente::Fin) return finTarea(id);
  const int c = t->Canal;
  t->Addr = s->addr;
  t->pedido = s->que == Siguiente::Enviar && t->datos.protocolo == Protocolo::Vek ? s->codigo : -1;
  t->olvido = s->modo.unaVez;
  ponerCanal(c, kEnUso);
  const int timeOut = s->timeOut != 0 ? s->timeOut : tiempos.TimeOut;
  vigilar(c, s->modo.limpia ? 2 * timeOut : timeOut);
  cambio(*t);
  const int error = mandar(c, *t, *s);
  if (error != 0 && tarea(id)) falloTrama(id, error);
}

int gestcomm::Interior::mandar(int c, const TareaViva&, const Siguiente& s) {
  enlace::comtvIP* link = enlaces[c];
  if (!link) return 15;
  link->TimeOut(s.timeOut != 0 ? s.timeOut : tiempos.TimeOut);
  switch (s.que) {
    case Siguiente::Enviar: {
      enlace::ModoEnvio modo = s.modo;
      modo.otroCodigo = ajustes.AceptaOtroCodigo;
      return link->Enviar(s.addr, s.codigo, s.datos, modo);
    }
    case Siguiente::Pedir:
      return link->Pedir(s.addr, s.codigo, s.datos);
    case Siguiente::EsperarVEK:
      return link->RxVEK(s.addr, s.codigo);
    case Siguiente::EsperarNODAL:
      return link->RxNODAL(s.addr);
    case Siguiente::Fin:
      break;
  }
  return 0;
}

// Stores the readings and notifies the watcher, both or neither.
Resultado<std::vector<totals::Aviso>> gestcomm::Interior::cierre(TareaViva& t) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(entorno.db));
  TARVO_TOMAR(const auto hay, hayGrupo(t.datos.Grupo));
  if (!hay)
    return std::unexpected(Error{Fallo::Restriccion, kErrorSuprimido,
                                 entorno.textos(kTxGrupoBorrado, {t.datos.Grupo})});
  auto avisos = t.trabajo->cerrar();
  if (!avisos) return avisos;
  if (vigilante) TARVO_INTENTAR(vigilante->TareaHecha(t.datos));
  TARVO_INTENTAR(tr.confirmar());
  return avisos;
}

void gestcomm::Interior::finTarea(int id) {
  TareaViva* t = tarea(id);
  const int antes = entorno.sesion.estado();
  auto avisos = cierre(*t);
  if (!avisos) {
    // The session in memory may be ahead of the store.
    if (auto r = entorno.sesion.cargar(); !r) decir(*t, r.error().texto);
    return falloTarea(id, avisos.error());
  }
  const int c = t->Canal;
  t->Estado = kTerminado;
  t->Error = t->FallosTrama = 0;
  t->textoError = t->trabajo->reparo();
  t->trajo = t->trabajo->trajo();
  if (t->trajo.isEmpty() && !avisos->empty()) t->trajo = avisos->front().texto;
  anotarBuena(*t);
  liberarCanal(c);
  soltarEnlace(c);
  mirarPronto();
  cambio(*t);
  if (entorno.sesion.estado() != antes)
    if (auto r = entorno.sesion.reflejar(); !r)
      avisos->push_back({t->datos.Grupo, r.error().texto, false});
  decirAvisos(*avisos);
}

}  // namespace tarvo::motor
