// The dialogue of a test: what is asked, and what the answers mean.
#include "comm/conexion/Prueba.h"

#include <algorithm>

#include "comm/enlace/AjustesEnlace.h"
#include "comm/enlace/Errores.h"
#include "comm/maquinas/Balanzas.h"
#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"

namespace tarvo::conexion {

namespace {

constexpr int kErrorMaquina = 100;  // and the number of its refusal
// The list of a register has tens of records; one with more than these has no end.
constexpr int kRegistrosMax = 1000;

bool pendiente(const Contestacion& c) {
  return c.que == Que::Pendiente || c.que == Que::Preguntando;
}

// What it was asked may still be answered.
bool quedoAMedias(const Contestacion& c) {
  return c.que == Que::NoContesta || c.que == Que::AMedias || c.que == Que::Ruido ||
         c.que == Que::Cortado;
}

}  // namespace

Prueba::Prueba(const Servicios& s, const Ajustes& ajustes, Reloj& reloj, const Textos& textos)
    : e_{s.motor, s.enlaces, s.db, ajustes, reloj, textos}, avisar_(reloj.temporizador([this] {
        if (!enMarcha()) e_.motor.dejarDeObservar(this);
        const bool acabada = std::exchange(acabada_, false);
        if (alCambiar) alCambiar();
        if (acabada && alAcabar) alAcabar();
      })) {}

Prueba::~Prueba() {
  soltar();
  e_.motor.dejarDeObservar(this);
}

void Prueba::cambiada() {
  if (!avisar_->activo()) avisar_->unaVez(0);
}

// --- questions

void Prueba::siguiente() {
  actual_ = 0;
  const auto fila = std::ranges::find(filas_, Que::Pendiente, &Contestacion::que);
  if (fila == filas_.end()) {
    const bool enteras = std::ranges::none_of(filas_, quedoAMedias);
    if (nota_ && enteras && nota_->quitar()) nota_.reset();
    return cerrar();
  }
  actual_ = static_cast<size_t>(fila - filas_.begin());
  enlace::comtvIP* const enlace = e_.enlaces[canal_];
  if (!enlace) return acabar(Fin::Entera);
  enlace->TimeOut(e_.ajustes.de<enlace::AjustesEnlace>().TimeOut);
  desde_ = e_.reloj.monotono();
  oidos_ = enlace->Oidos();
  ms_ = -1;
  registros_ = 0;
  balanzas() ? preguntarBalanzas() : preguntarCaja();
  cambiada();
}

// A group of scales answers as one machine.
void Prueba::preguntarBalanzas() {
  todas(Que::Preguntando);
  const auto protocolo = protocoloDe(grupo_.tipo);
  const maquinas::Peticion p = maquinas::balanzas(protocolo);
  const int addr = protocolo == Protocolo::Nodal ? grupo_.nodo : 0;
  if (const int error = e_.enlaces[canal_]->Enviar(addr, p.codigo, p.datos); error != 0)
    fallada(error);
}

// A late answer of the register asked before isn't the answer of this one.
void Prueba::preguntarCaja() {
  Contestacion& caja = filas_[actual_];
  caja.que = Que::Preguntando;
  if (!anotarLista()) return;
  const maquinas::Peticion p = maquinas::caja::totales();
  const int error =
      e_.enlaces[canal_]->Enviar(*caja.direccion, p.codigo, p.datos, {.limpia = true});
  if (error != 0) fallada(error);
}

bool Prueba::anotarLista() {
  if (nota_) return true;
  tareas::NotaDeLista nota(e_.db, tareas::lineaDe(grupo_.remoto, grupo_.canal, grupo_.acceso));
  const auto rota = nota.poner();
  if (rota && !*rota) nota_.emplace(std::move(nota));
  if (!rota) {
    error_ = rota.error();
    cerrar();
  }
  return rota.has_value();
}

bool Prueba::encaja(int, int, int codigo, const QByteArray& datos) {
  if (!balanzas()) return codigo == maquinas::caja::kTotales;
  return protocoloDe(grupo_.tipo) == Protocolo::Vek &&
         (datos.startsWith("ERR") || maquinas::leerBalanzas(datos));
}

// --- answers

void Prueba::EnvioVEK_Evento(int, int error, int, int codigo, const QByteArray& datos) {
  if (estado_ != Estado::Preguntando) return;
  if (error != 0) return fallada(error);
  balanzas() ? contestan(datos) : registro(codigo, datos);
}

void Prueba::ReciboVEK_Evento(int, int error, int, int codigo, const QByteArray& datos) {
  if (estado_ != Estado::Preguntando) return;
  error != 0 ? fallada(error) : registro(codigo, datos);
}

void Prueba::EnvioNDL_Evento(int, int error) {
  if (estado_ != Estado::Preguntando) return;
  if (error == 0) error = e_.enlaces[canal_]->RxNODAL(grupo_.nodo);
  if (error != 0) fallada(error);
}

// The answer has the code of a rejection, which the link reports as one.
void Prueba::ReciboNDL_Evento(int, int error, int, const QByteArray& datos) {
  if (estado_ != Estado::Preguntando) return;
  if (error != 0 && error != enlace::kErrorRechazo) return fallada(error);
  contestan(datos);
}

// Those of the group that are there, those that aren't, and those of nobody.
void Prueba::contestan(const QByteArray& datos) {
  const auto estan = maquinas::leerBalanzas(datos);
  if (!estan) {
    bool numero = false;
    const int n = datos.startsWith("ERR") ? datos.mid(3).toInt(&numero) : 0;
    todas(Que::Rechaza, numero ? kErrorMaquina + n : int{enlace::kErrorRechazo}, msDesde());
    return siguiente();
  }
  std::set<int> otras;
  for (size_t n = 0; n < estan->size(); ++n)
    if ((*estan)[n]) otras.insert(static_cast<int>(n));
  for (Contestacion& c : filas_) {
    if (!pendiente(c)) continue;
    c.que = otras.erase(c.sitio) > 0 ? Que::Contesta : Que::NoEsta;
    c.ms = c.que == Que::Contesta ? msDesde() : -1;
  }
  for (const int n : otras) filas_.push_back({.sitio = n, .que = Que::Sobra, .ms = msDesde()});
  siguiente();
}

void Prueba::registro(int codigo, const QByteArray& datos) {
  if (ms_ < 0) ms_ = msDesde();
  if (maquinas::caja::finDeLista(codigo, datos)) return listo(Que::Contesta);
  const int error = ++registros_ > kRegistrosMax ? int{enlace::kErrorSinRespuesta}
                                                 : e_.enlaces[canal_]->RxVEK(0, codigo);
  if (error != 0) fallada(error);
}

// The question got no answer. A line with an answer that breaks off isn't quiet: the registers that
// follow couldn't be told from this one.
void Prueba::fallada(int error) {
  const enlace::comtvIP* const enlace = e_.enlaces[canal_];
  const qint64 oidos = enlace ? enlace->Oidos() - oidos_ : 0;
  const bool sinAcuse = error == enlace::kErrorSinACK || error == enlace::kErrorNodalSinConfirmar;
  const bool nodal = protocoloDe(grupo_.tipo) == Protocolo::Nodal;
  if (error == enlace::kErrorRechazo || error == enlace::kErrorEnlaceCerrado)
    return listo(error == enlace::kErrorRechazo ? Que::Rechaza : Que::Cortado, error);
  // After a register that may still be answering, the noise may be its own.
  const bool suyos =
      std::none_of(filas_.begin(), filas_.begin() + static_cast<ptrdiff_t>(actual_), quedoAMedias);
  if (sinAcuse) return listo(oidos > 0 && suyos ? Que::Ruido : Que::NoContesta, error);
  const bool ruido = !nodal && ms_ < 0 && oidos > 1;  // more than the acknowledgement
  listo(ruido ? Que::Ruido : Que::AMedias, error);
}

// The present question is over.
void Prueba::listo(Que que, int error) {
  if (balanzas()) {
    todas(que, error, que == Que::Rechaza ? msDesde() : -1);
  } else {
    Contestacion& caja = filas_[actual_];
    caja.que = que;
    caja.error = error;
    caja.ms = ms_;
    // Its list may go on by itself.
    if (que == Que::AMedias && ms_ >= 0) todas(Que::SinProbar);
  }
  siguiente();
}

void Prueba::todas(Que que, int error, int ms) {
  for (Contestacion& c : filas_) {
    if (!pendiente(c)) continue;
    c.que = que;
    c.error = error;
    c.ms = ms;
  }
}

}  // namespace tarvo::conexion
