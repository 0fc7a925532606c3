#include "comm/enlace/comtvIP.h"

#include "comm/enlace/Errores.h"
#include "comm/enlace/EstadoComtvIP.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::enlace {

comtvIP::comtvIP(Enlaces& enlaces, int canal)
    : d(std::make_unique<Estado>(*enlaces.d, *this, canal)) {}

comtvIP::~comtvIP() = default;

int comtvIP::CerrarEnlace(Para para) {
  return d->cerrar(para);
}

bool comtvIP::EnlaceCerrado() const {
  return d->acabado || !d->cable || d->cable->estado() == 1;
}

int comtvIP::Enviar(int addr, int codigo, const QByteArray& datos, ModoEnvio modo) {
  if (!d->listo() || d->saleMotor) return kErrorEnlaceCerrado;
  d->maquina.modo(modo);
  if (d->paraAbierto == Para::NodalMotor)
    d->maquina.enviarNODAL(addr, codigo, datos);
  else
    d->maquina.enviarVEK(addr, codigo, datos, false);
  return 0;
}

int comtvIP::Pedir(int addr, int codigo, const QByteArray& datos) {
  if (!d->listo() || !d->esVek() || d->saleMotor) return kErrorEnlaceCerrado;
  d->maquina.modo({});
  d->maquina.enviarVEK(addr, codigo, datos, true);
  return 0;
}

// It listens to the node that the last frame went to.
int comtvIP::RxNODAL(int) {
  if (!d->listo() || d->paraAbierto != Para::NodalMotor) return kErrorEnlaceCerrado;
  d->maquina.esperarNODAL();
  return 0;
}

int comtvIP::RxVEK(int, int codigo) {
  if (!d->listo() || !d->esVek() || d->saleMotor) return kErrorEnlaceCerrado;
  d->maquina.esperarVEK(codigo);
  return 0;
}

void comtvIP::TimeOut(int ms) {
  d->maquina.tiempoRespuesta(ms);
}

bool comtvIP::Seguida() const {
  return d->maquina.seguida();
}

bool comtvIP::Repetida() const {
  return d->maquina.repetida();
}

bool comtvIP::Portadora() const {
  return d->conector || d->device != TipoAcceso::Modem || d->portadora;
}

qint64 comtvIP::Oidos() const {
  return d->oidos;
}

QString comtvIP::Acceso() const {
  return d->acceso.isEmpty() ? QString::number(d->canal + 1) : d->acceso;
}

Para comtvIP::AbiertoPara() const {
  return d->paraAbierto != Para::Nada ? d->paraAbierto : d->paraPendiente;
}

void comtvIP::finApertura(int razon) {
  if (!d->acabado && d->paraAbierto == Para::Nada)
    d->terminarApertura(d->cerrando ? int{kErrorInterrumpido} : errorDeApertura(razon));
}

void comtvIP::cierre(int razon) {
  if (d->acabado) return;
  if (d->paraAbierto == Para::Nada)
    finApertura(razon != 0 ? razon : kAbandonado);
  else
    d->terminarCierre(errorDeCierre(razon, d->conector));
}

void comtvIP::linea(int numero) {
  constexpr int kSube = 5, kBaja = 6;
  if (d->acabado || d->conector || d->device != TipoAcceso::Modem ||
      (numero != kSube && numero != kBaja))
    return;
  d->portadora = numero == kSube;
  d->avisar([this] {
    if (d->cliente) d->cliente->CD_Evento(d->canal, d->portadora);
  });
}

void comtvIP::recepcion(QByteArray& buffer) {
  if (d->paraAbierto == Para::Nada) return;
  d->oidos += buffer.size();
  d->pasan(Sentido::Llega, buffer);
  d->maquina.recibir(buffer);
}

}  // namespace tarvo::enlace
