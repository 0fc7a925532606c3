// How a link opens, how a second client joins it, and how it ends.
#include "comm/cables/Parametros.h"
#include "comm/enlace/Errores.h"
#include "comm/enlace/EstadoComtvIP.h"

namespace tarvo::enlace {

namespace {

constexpr int kCanalesConfigurados = 4;
constexpr int kMaxSecuencia = 100;
constexpr int kLimiteApertura = 60000,
              kLimiteCierre = 30000;  // ms, on top of the time of the wire itself

// The longest time that a wire may take to report how its opening ended.
int limiteApertura(const ParametrosLinea& p) {
  if (p.device != TipoAcceso::Modem) return kLimiteApertura;
  const int vuelta = esperaEnMs(p.espera) + kLimiteApertura / 2;
  return 2 * kLimiteApertura + std::clamp(p.intentos, 1, 100) * std::min(vuelta, 3600 * 1000 / 2);
}

}  // namespace

comtvIP::Estado::Estado(Enlaces::Datos& laCasa, comtvIP& elDueno, int elCanal)
    : casa(laCasa),
      dueno(elDueno),
      canal(elCanal),
      conector(elCanal >= kCanalesConfigurados),
      limite(laCasa.reloj.temporizador([this] { venceLimite(); })),
      luego(laCasa.reloj.temporizador([this] { soltar(); })),
      maquina(
          *this, laCasa.reloj,
          {laCasa.tiempos.TimeACK, laCasa.tiempos.FactorEsperaNDL, laCasa.ajustes.WhoAmI & 0xFF},
          laCasa.tiempos.TimeOut) {
  if (!conector) device = laCasa.param(elCanal).Device;
}

// A direct cable has no access text, whatever the client gave.
QString comtvIP::Estado::normalizado(const QString& texto) const {
  return conector || device == TipoAcceso::Modem || device == TipoAcceso::TcpIp ? texto : QString();
}

int comtvIP::Estado::abrir(Para para, int baudios, const QString& texto) {
  paraPendiente = para;
  acceso = normalizado(texto);
  return conector ? abrirConector() : abrirConfigurado(baudios);
}

int comtvIP::Estado::abrirConfigurado(int baudios) {
  const ParametrosLinea p = parametrosDe(casa.param(canal), baudios, acceso);
  esperaColgar = std::max(p.esperaColgar, 0);
  cable = casa.fabrica.crear(device);
  if (!cable || !cable->configurar(p)) return kErrorPuerto;
  limite->unaVez(limiteApertura(p));
  cable->abrir(dueno);
  return 0;
}

int comtvIP::Estado::abrirConector() {
  if (casa.enUso(acceso, canal)) return kErrorEnUso;
  int razon = kSinNombre;
  cable = casa.fabrica.crearConector(acceso, razon);
  if (!cable) return errorDeApertura(razon != 0 ? razon : kSinNombre);
  if (!cable->configurar({})) return kErrorPuerto;
  limite->unaVez(kLimiteApertura);
  cable->abrir(dueno);
  return 0;
}

void comtvIP::Estado::venceLimite() {
  if (paraAbierto == Para::Nada)
    terminarApertura(cerrando ? kErrorInterrumpido : kErrorTiempoApertura);
  else if (cerrando)
    terminarCierre(kErrorDesconexion);
}

void comtvIP::Estado::terminarApertura(int error) {
  const bool motor = paraPendiente != Para::VekCaptura;
  const bool captura = paraPendiente == Para::VekCaptura || paraPendiente == Para::VekAmbos;
  limite->parar();
  if (error == 0) {
    paraAbierto = paraPendiente;
    paraPendiente = Para::Nada;
    portadora = portadora || cable->estado() == 5;
    maquina.empezar(casa.azar.entero(0, kMaxSecuencia));
  } else {
    acabado = true;
  }
  if (motor) avisarApertura(true, error);
  if (captura) avisarApertura(false, error);
  if (error != 0) casa.retirar(&dueno);
}

// --- sharing ---

bool comtvIP::Estado::puedeUnirse(Para para, const QString& texto) const {
  if (acabado || cerrando || normalizado(texto) != acceso) return false;
  const Para abierta = paraPendiente != Para::Nada ? paraPendiente : paraAbierto;
  if (abierta == Para::VekAmbos) return para == Para::VekMotor || para == Para::VekCaptura;
  return (abierta == Para::VekCaptura && para == Para::VekMotor) ||
         (abierta == Para::VekMotor && para == Para::VekCaptura);
}

// On a link that is still opening, the second client waits with the first.
void comtvIP::Estado::unir(Para para) {
  const bool motor = para == Para::VekMotor;
  paraPendiente = Para::VekAmbos;
  sale(motor) = false;
  if (paraAbierto == Para::Nada) return;
  uniendo = true;
  aplazar([this, motor] { terminarUnion(motor); });
}

void comtvIP::Estado::terminarUnion(bool motor) {
  if (!uniendo) return;
  uniendo = false;
  paraAbierto = Para::VekAmbos;
  paraPendiente = Para::Nada;
  avisarApertura(motor, 0);
}

// --- closing ---

int comtvIP::Estado::cerrar(Para para) {
  const Para abierta = paraPendiente != Para::Nada ? paraPendiente : paraAbierto;
  if (acabado) return kErrorEnlaceCerrado;
  if (para != Para::Nada && abierta != Para::VekAmbos && para != abierta)
    return kErrorEnlaceCerrado;
  if (abierta == Para::VekAmbos)
    dejar(para != Para::VekCaptura);
  else if (!cerrando)
    cerrarCable();
  return 0;
}

// One of two clients leaves. The link stays for the other, unless that one is leaving too.
void comtvIP::Estado::dejar(bool motor) {
  if (sale(motor)) return;
  if (paraAbierto == Para::Nada) return cancelarApertura(motor);
  const bool erasSolo = uniendo && paraAbierto == (motor ? Para::VekCaptura : Para::VekMotor);
  if (erasSolo) {  // it was only joining
    uniendo = false;
    paraPendiente = Para::Nada;
    paraAbierto = Para::VekAmbos;
  }
  sale(motor) = true;
  if (motor) maquina.abandonar();
  aplazar([this, motor] { terminarSalida(motor); });
}

// The opening goes on for the other client.
void comtvIP::Estado::cancelarApertura(bool motor) {
  paraPendiente = motor ? Para::VekCaptura : Para::VekMotor;
  sale(motor) = true;
  aplazar([this, motor] {
    if (std::exchange(sale(motor), false)) avisarApertura(motor, kErrorInterrumpido);
  });
}

void comtvIP::Estado::terminarSalida(bool motor) {
  if (!sale(motor)) return;  // it came back
  sale(motor) = false;
  if (paraAbierto != Para::VekAmbos) return cerrarCable();
  paraAbierto = motor ? Para::VekCaptura : Para::VekMotor;
  ClienteEnlace* const elMotor = motor ? std::exchange(cliente, nullptr) : nullptr;
  ClienteLinea* const laCaptura = motor ? nullptr : std::exchange(clienteLinea, nullptr);
  avisar([&] {
    if (elMotor) elMotor->Cerrar_Evento(canal, 0);
    if (laCaptura) laCaptura->Cerrar_Evento(canal, 0);
  });
}

void comtvIP::Estado::cerrarCable() {
  cerrando = true;
  if (paraAbierto != Para::Nada) maquina.abandonar();
  limite->unaVez(kLimiteCierre + esperaColgar);
  cable->cerrar();
}

// The link is gone. Its clients are notified; one that was only joining is told that it didn't
// open.
void comtvIP::Estado::terminarCierre(int error) {
  const Para era = std::exchange(paraAbierto, Para::Nada);
  const bool entraba = std::exchange(uniendo, false);
  paraPendiente = Para::Nada;
  portadora = false;
  acabado = true;
  maquina.parar();
  if (era != Para::VekCaptura) avisarCierre(true, error);
  if (era == Para::VekCaptura || era == Para::VekAmbos) avisarCierre(false, error);
  if (entraba && era != Para::VekAmbos)
    avisarApertura(era == Para::VekCaptura, kErrorEnlaceCerrado);
  casa.retirar(&dueno);
}

void comtvIP::Estado::abandonar() {
  acabado = true;
  cliente = nullptr;
  clienteLinea = nullptr;
  aplazados.clear();
  limite->parar();
  luego->parar();
  maquina.parar();
  if (dentro == 0) cable.reset();
}

// Another opening takes the channel, or the link is dropped: every client on it, except the one
// responsible, is told that it is closed.
void comtvIP::Estado::desalojar(const ClienteEnlace* nuevo, const ClienteLinea* nuevaLinea) {
  ClienteEnlace* const motor = cliente != nuevo ? cliente : nullptr;
  ClienteLinea* const captura = clienteLinea != nuevaLinea ? clienteLinea : nullptr;
  abandonar();
  avisar([&] {
    if (motor) motor->Cerrar_Evento(canal, kErrorDesconexion);
    if (captura) captura->Cerrar_Evento(canal, kErrorDesconexion);
  });
}

}  // namespace tarvo::enlace
