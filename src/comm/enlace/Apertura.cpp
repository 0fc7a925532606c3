// How a link opens, how a second client joins it, and how it ends.
#include "comm/cables/Parametros.h"
#include "comm/enlace/Errores.h"
#include "comm/enlace/EstadoComtvIP.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::enlace {

namespace {

constexpr int kCanalesConfigurados = 4;
constexpr int kMaxSecuencia = 100;
constexpr int kLimiteApertura = 60000,
              kLimiteCierre = 30000;  // ms, beyond what the wire itself takes

// No wire may take longer than this to say how its opening ended.
int limiteApertura(const ParametrosLinea& p) {
  if (p.device != 1) return kLimiteApertura;
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
          {laCasa.ajustes.TimeACK, laCasa.ajustes.FactorEsperaNDL, laCasa.ajustes.WhoAmI & 0xFF},
          laCasa.ajustes.TimeOut) {
  if (!conector) device = laCasa.ajustes.canales[static_cast<size_t>(elCanal)].Device;
}

// A direct cable has no access text, whatever the client gave.
QString comtvIP::Estado::normalizado(const QString& texto) const {
  return conector || device == 1 || device == 3 ? texto : QString();
}

int comtvIP::Estado::abrir(int para, int baudios, const QString& texto) {
  paraPendiente = para;
  acceso = normalizado(texto);
  return conector ? abrirConector() : abrirConfigurado(baudios);
}

int comtvIP::Estado::abrirConfigurado(int baudios) {
  const ParametrosLinea p =
      parametrosDe(casa.ajustes.canales[static_cast<size_t>(canal)], baudios, acceso);
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
  if (paraAbierto == kNada)
    terminarApertura(cerrando ? kErrorInterrumpido : kErrorTiempoApertura);
  else if (cerrando)
    terminarCierre(kErrorDesconexion);
}

void comtvIP::Estado::terminarApertura(int error) {
  const bool motor = paraPendiente != kVekCaptura;
  const bool captura = paraPendiente == kVekCaptura || paraPendiente == kVekAmbos;
  limite->parar();
  if (error == 0) {
    paraAbierto = paraPendiente;
    paraPendiente = kNada;
    portadora = portadora || cable->estado() == 5;
    maquina.empezar(casa.azar.entero(0, kMaxSecuencia));
  } else {
    acabado = true;
  }
  if (motor) avisarApertura(true, error);
  if (captura) avisarApertura(false, error);
  if (error != 0) casa.retirar(&dueno);
}

// --- sharing
// ---------------------------------------------------------------------------------------

bool comtvIP::Estado::puedeUnirse(int para, const QString& texto) const {
  if (acabado || cerrando || normalizado(texto) != acceso) return false;
  const int abierta = paraPendiente != kNada ? paraPendiente : paraAbierto;
  if (abierta == kVekAmbos) return para == kVekMotor || para == kVekCaptura;
  return (abierta == kVekCaptura && para == kVekMotor) ||
         (abierta == kVekMotor && para == kVekCaptura);
}

// On a link that is still opening the second client waits with the first one.
void comtvIP::Estado::unir(int para) {
  const bool motor = para == kVekMotor;
  paraPendiente = kVekAmbos;
  sale(motor) = false;
  if (paraAbierto == kNada) return;
  uniendo = true;
  aplazar([this, motor] { terminarUnion(motor); });
}

void comtvIP::Estado::terminarUnion(bool motor) {
  if (!uniendo) return;
  uniendo = false;
  paraAbierto = kVekAmbos;
  paraPendiente = kNada;
  avisarApertura(motor, 0);
}

// --- closing
// ---------------------------------------------------------------------------------------

int comtvIP::Estado::cerrar(int para) {
  const int abierta = paraPendiente != kNada ? paraPendiente : paraAbierto;
  if (acabado) return kErrorEnlaceCerrado;
  if (para != kNada && abierta != kVekAmbos && para != abierta) return kErrorEnlaceCerrado;
  if (abierta == kVekAmbos)
    dejar(para != kVekCaptura);
  else if (!cerrando)
    cerrarCable();
  return 0;
}

// One of two clients goes. The link stays for the other, unless that one is leaving too.
void comtvIP::Estado::dejar(bool motor) {
  if (sale(motor)) return;
  if (paraAbierto == kNada) return cancelarApertura(motor);
  const bool erasSolo = uniendo && paraAbierto == (motor ? kVekCaptura : kVekMotor);
  if (erasSolo) {  // it was only joining
    uniendo = false;
    paraPendiente = kNada;
    paraAbierto = kVekAmbos;
  }
  sale(motor) = true;
  if (motor) maquina.abandonar();
  aplazar([this, motor] { terminarSalida(motor); });
}

// The opening goes on for the other client.
void comtvIP::Estado::cancelarApertura(bool motor) {
  paraPendiente = motor ? kVekCaptura : kVekMotor;
  sale(motor) = true;
  aplazar([this, motor] {
    if (std::exchange(sale(motor), false)) avisarApertura(motor, kErrorInterrumpido);
  });
}

void comtvIP::Estado::terminarSalida(bool motor) {
  if (!sale(motor)) return;  // it came back
  sale(motor) = false;
  if (paraAbierto != kVekAmbos) return cerrarCable();
  paraAbierto = motor ? kVekCaptura : kVekMotor;
  ClienteEnlace* const elMotor = motor ? std::exchange(cliente, nullptr) : nullptr;
  ClienteLinea* const laCaptura = motor ? nullptr : std::exchange(clienteLinea, nullptr);
  avisar([&] {
    if (elMotor) elMotor->Cerrar_Evento(canal, 0);
    if (laCaptura) laCaptura->Cerrar_Evento(canal, 0);
  });
}

void comtvIP::Estado::cerrarCable() {
  cerrando = true;
  if (paraAbierto != kNada) maquina.abandonar();
  limite->unaVez(kLimiteCierre + esperaColgar);
  cable->cerrar();
}

// The link is gone. Whoever is on it hears of it; one who was only joining hears that it didn't
// open.
void comtvIP::Estado::terminarCierre(int error) {
  const int era = std::exchange(paraAbierto, int{kNada});
  const bool entraba = std::exchange(uniendo, false);
  paraPendiente = kNada;
  portadora = false;
  acabado = true;
  maquina.parar();
  if (era != kVekCaptura) avisarCierre(true, error);
  if (era == kVekCaptura || era == kVekAmbos) avisarCierre(false, error);
  if (entraba && era != kVekAmbos) avisarApertura(era == kVekCaptura, kErrorEnlaceCerrado);
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

// Another opening takes the channel, or somebody drops the link: whoever was on it and isn't the
// one who did it hears that it is closed.
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
