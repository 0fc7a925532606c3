// Channels and links: the effect of their events and failures on their tasks.
#include <algorithm>
#include <utility>

#include "comm/enlace/Errores.h"
#include "comm/motor/Interior.h"
#include "comm/motor/Negativa.h"

namespace tarvo::motor {

namespace {

// A refusal by the machine; 0 for a good answer. A truncated refusal is no consent, nor, to an
// order to forget, is a number that refuses nothing.
int errorDeMaquina(const QByteArray& datos, bool tolera5, bool olvido) {
  const QByteArray comienzo = datos.left(kMarcaNegativa.size());
  if (comienzo.isEmpty() || !kMarcaNegativa.startsWith(comienzo)) return 0;
  const auto n = numeroDeNegativa(datos);
  if (!n) return kErrorTrama;
  if (*n < 1 || *n > kUltimaNegativa) return olvido ? kErrorTrama : 0;
  return *n == kUltimaNegativa && tolera5 ? 0 : 100 + *n;
}

// The machine received the step and refuses it; the refusal may be truncated.
bool esRechazo(int error) {
  return error == enlace::kErrorRechazo || error == kErrorTrama || (error > 100 && error <= 105);
}

}  // namespace

void gestcomm::Interior::ponerCanal(int c, int estado) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  canal.EstadoCanal = estado;
  if (estado != kEnUso && estado != kCerrando && estado != kConFallo) canal.limite = 0;
  if (estado == kLibreAbierto || estado == kParar || estado == kCerrado) mirarPronto();
  cambioCanal(c);
}

qint64 gestcomm::Interior::marcadoMs(int c) const {
  if (c >= kCanalesFijos) return 0;
  const enlace::ParamCanal& p = param(c);
  return qint64{std::max(p.Intentos, 0)} * (p.Espera <= 600 ? p.Espera * qint64{1000} : p.Espera);
}

// From now on the link owes an event within the longest time that any operation may take.
void gestcomm::Interior::vigilar(int c, int timeOut) {
  canales[static_cast<size_t>(c)].limite = ahora() + std::max(ajustes.TimeCero, timeOut) +
                                           qint64{4} * tiempos.TimeACK + marcadoMs(c) + 60000;
}

void gestcomm::Interior::liberarCanal(int c) {
  canales[static_cast<size_t>(c)].TareaCanal = -1;
}

void gestcomm::Interior::canalCerrado(int c) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  liberarCanal(c);
  canal.etiqueta.clear();
  if (canal.acceso) {
    ocupados.erase(*canal.acceso);
    canal.acceso.reset();
  }
  const bool sinUso = c < kCanalesFijos && param(c).Device == TipoAcceso::Ninguno;
  ponerCanal(c, sinUso ? kSinUso : kCerrado);
}

void gestcomm::Interior::cerrarEnlace(int c) {
  if (!enlaces[c]) return canalCerrado(c);
  ponerCanal(c, kCerrando);
  const qint64 colgar = c < kCanalesFijos ? param(c).ATHang : 0;
  canales[static_cast<size_t>(c)].limite = ahora() + std::max<qint64>(colgar, 0) + 30000;
  if (enlaces[c]->CerrarEnlace() == 0) return;
  abandonarEnlace(c);
  cerrado(c, 0);
}

// A client that shares it is told that it is gone.
void gestcomm::Interior::abandonarEnlace(int c) {
  enlaces.abandonar(c, &fuera);
}

int gestcomm::Interior::caidaDe(int c) const {
  return c >= kCanalesFijos ? kErrorCaida : errorDeCaida(param(c).Device);
}

// The fate of the link of a task that has left the channel.
void gestcomm::Interior::soltarEnlace(int c) {
  const int estado = canales[static_cast<size_t>(c)].EstadoCanal;
  if (estado == kParar || estado == kCerrando || estado == kCierreMalo) return;
  if (!enlaces[c]) return canalCerrado(c);
  if (enlaces[c]->Portadora())
    ponerCanal(c, kLibreAbierto);
  else
    cerrarEnlace(c);
}

void gestcomm::Interior::falloApertura(int c, int id, int error) {
  TareaViva* t = tarea(id);
  t->Estado = kAperturaFallida;
  t->Error = t->detenida ? kErrorDetenido : error;
  t->contarFallo(&TareaViva::FallosEnlace, &TareaViva::enlaceSinAvance);
  if (t->Error == kErrorDetenido) marcarFallida(*t);
  cambio(*t);
  if (!enlaces[c] || enlaces[c]->EnlaceCerrado())
    ponerCanal(c, kAperturaMala);
  else
    cerrarEnlace(c);
}

void gestcomm::Interior::falloTrama(int id, int error, const QString& texto) {
  TareaViva* t = tarea(id);
  t->Estado = kInterrumpido;
  t->Error = error;
  t->textoError = texto;
  t->contarFallo(&TareaViva::FallosTrama, &TareaViva::tramaSinAvance);
  canales[static_cast<size_t>(t->Canal)].limite = 0;
  ponerCanal(t->Canal, kConFallo);
  if (t->trabajo) t->trabajo->reposo();
  cambio(*t);
}

// A task couldn't do its step: a bad record, a failed store, or a frame that must not be sent.
void gestcomm::Interior::falloTarea(int id, const Error& error) {
  TareaViva* t = tarea(id);
  if (error.numero == kErrorSuprimido && error.clase == Fallo::Restriccion) {
    const int c = t->Canal;
    t->Estado = kEnEspera;
    t->trabajo.reset();
    liberarCanal(c);
    soltarEnlace(c);
    marcarFallida(*t);
    return suprimir(id, error.texto);
  }
  const int codigo = error.clase == Fallo::Formato        ? kErrorTrama
                     : error.clase == Fallo::Comunicacion ? error.numero
                                                          : kErrorAlmacen;
  falloTrama(id, codigo, error.texto);
  decir(*t, error.texto);
}

// A task lost its link: the channel opens again for it half a minute later.
void gestcomm::Interior::enlacePerdido(int id, int error) {
  TareaViva* t = tarea(id);
  t->Estado = kInterrumpido;
  t->Error = error;
  t->contarFallo(&TareaViva::FallosTrama, &TareaViva::tramaSinAvance);
  ponerCanal(t->Canal, kPerdido);
  if (t->trabajo) t->trabajo->reposo();
  cambio(*t);
}

void gestcomm::Interior::abierto(int c, int error) {
  TareaViva* t = tareaDe(c);
  const int estado = canales[static_cast<size_t>(c)].EstadoCanal;
  if (!t || estado == kParar || estado == kCerrando) {
    if (error != 0) return cerrado(c, 0);
    if (estado != kCerrando) cerrarEnlace(c);
    return;
  }
  canales[static_cast<size_t>(c)].limite = 0;
  if (error != 0) return falloApertura(c, t->datos.Id, error);
  conectada(t->datos.Id, true);
}

void gestcomm::Interior::cerrado(int c, int error) {
  CanalVivo& canal = canales[static_cast<size_t>(c)];
  TareaViva* t = tareaDe(c);
  if (error != 0) ++canal.FallosCierre;
  if (!t || canal.EstadoCanal == kParar)
    return error != 0 ? ponerCanal(c, kCierreMalo) : canalCerrado(c);
  const int id = t->datos.Id;
  if (t->Estado == kAbriendo && canal.EstadoCanal == kCerrando) {
    t->detenida = true;
    return falloApertura(c, id, kErrorDetenido);
  }
  switch (t->Estado) {
    case kAbriendo:
      return falloApertura(c, id, caidaDe(c));
    case kAperturaFallida:
      return ponerCanal(c, error != 0 ? kCierreMalo : kAperturaMala);
    case kTransfiriendo:
      // A closing requested because of a lost carrier was counted when its frame failed.
      if (canal.EstadoCanal == kConFallo && error == 0) return ponerCanal(c, kPerdido);
      [[fallthrough]];
    case kRetenido:
      return enlacePerdido(id, caidaDe(c));
    case kInterrumpido:
      return ponerCanal(c, kPerdido);
    default:
      return canalCerrado(c);
  }
}

// The outcome of a frame or of a wait. `deLista`: a frame of a NODAL list.
void gestcomm::Interior::respuesta(int c, int error, int addr, int codigo, const QByteArray& datos,
                                   bool deLista) {
  TareaViva* t = tareaDe(c);
  if (!t || canales[static_cast<size_t>(c)].EstadoCanal == kParar || !t->trabajo) return;
  // The machine sends a list at its own pace: a frame that comes while the retry is due is the next
  // one of the list.
  const bool tarde =
      deLista && error == 0 && t->Estado == kInterrumpido && t->Error == kErrorTiempo;
  if (t->Estado != kTransfiriendo && !tarde) return;
  const int id = t->datos.Id;
  const bool callada = error != 0 && error != enlace::kErrorRechazo && !t->Retenida;
  if (callada && t->trabajo->sinRespuesta(error)) return siguienteTrama(id);
  if (error == 0 && enlaces[c] && enlaces[c]->Repetida()) t->trabajo->repetida();
  if (error == 0) error = deLista ? 0 : errorDeMaquina(datos, t->clase->toleraErr5, t->olvido);
  if (esRechazo(error) && t->trabajo->rechazada(error)) return seguir(*t);
  if (error != 0) return falloTrama(id, error);
  t->Estado = kTransfiriendo;
  canales[static_cast<size_t>(c)].limite = 0;
  if (enlaces[c] && !enlaces[c]->Seguida()) t->trabajo->salto();
  if (const auto r = t->trabajo->respuesta(addr, codigo, datos); !r)
    return falloTarea(id, r.error());
  t->FallosTrama = 0;
  t->descanso = kDescansoMin;
  t->Error = 0;
  t->textoError.clear();
  ++t->Traza;
  seguir(*t);
}

// A step is over: takes the next one, unless the operator holds the task.
void gestcomm::Interior::seguir(TareaViva& t) {
  const int id = t.datos.Id;
  t.Estado = t.Retenida ? kRetenido : kTransfiriendo;
  canales[static_cast<size_t>(t.Canal)].limite = 0;
  if (t.Retenida) t.trabajo->reposo();
  cambio(t);
  if (const TareaViva* viva = tarea(id); viva && viva->Estado == kTransfiriendo) siguienteTrama(id);
}

}  // namespace tarvo::motor
