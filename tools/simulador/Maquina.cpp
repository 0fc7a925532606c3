#include "simulador/Maquina.h"

#include <QDateTime>

#include "simulador/DiaDeVentas.h"

namespace tarvo::simulador {
namespace {

constexpr std::size_t kOidasMaximas = 20000;

}  // namespace

Maquina::Maquina(OpcionesMaquina opciones, Reloj& reloj)
    : opciones_(std::move(opciones)),
      reloj_(reloj),
      percances_(opciones_.fallos, opciones_.semilla),
      emisor_(reloj),
      lento_(reloj),
      relojAck_(reloj.temporizador([this] { alVencerAck(); })) {}

Maquina::~Maquina() = default;

void Maquina::conectar(Conexion conexion) {
  olvidarDialogo();
  lento_.conectar(conexion);
  emisor_.conectar(std::move(conexion));
}

void Maquina::desconectar() {
  emisor_.desconectar();
  lento_.desconectar();
  olvidarDialogo();
}

void Maquina::olvidarDialogo() {
  cola_.clear();
  enVuelo_.clear();
  tardias_.clear();
  relojAck_->parar();
  vaciarLector();
}

bool Maquina::rechazaConexion() {
  return reloj_.monotono() < oscuraHasta_ || percances_.rechazaConexion();
}

void Maquina::recibir(const QByteArray& bytes) {
  for (const Entrada& entrada : leer(bytes)) {
    if (!emisor_.conectado()) return;
    if (entrada.clase == Clase::Ack) alConfirmar();
    if (entrada.clase == Clase::Peticion && esParaMi(entrada.peticion)) procesar(entrada.peticion);
  }
}

Fecha Maquina::ahora() const {
  return reloj_.ahora() + desfase_;
}

void Maquina::sell(Venta venta) {
  venta.cuando = ahora();
  venta.hora = venta.cuando.qtime().hour();
  if (venta.departamento == 0) {
    const auto sitio = memoria_.catalogo.find(venta.articulo);
    venta.departamento = sitio == memoria_.catalogo.end() ? 1 : sitio->second.departamento;
  }
  memoria_.vender(venta);
}

void Maquina::venderAlAzar(int articulo) {
  if (memoria_.catalogo.empty()) return;
  Venta venta = ventaAlAzar(memoria_, percances_.azar());
  if (const auto sitio = memoria_.catalogo.find(articulo); sitio != memoria_.catalogo.end())
    venta.articulo = articulo, venta.departamento = sitio->second.departamento;
  sell(venta);
}

// The effect of a question, including its faults.
void Maquina::procesar(const Peticion& peticion) {
  Sucesos sucesos = percances_.peticion(peticion.codigo);
  if (sucesos.tiene(Averia::Oscura))
    oscuraHasta_ = reloj_.monotono() + sucesos.valor(Averia::Oscura, percances_.fallos().oscuraMs);
  if (reloj_.monotono() < oscuraHasta_ || sucesos.tiene(Averia::Sorda)) return;
  if (sucesos.tiene(Averia::Corte) || sucesos.tiene(Averia::CierreLimpio)) {
    emisor_.cortar(sucesos.tiene(Averia::CierreLimpio));
    return;
  }
  // A copy that came while it was busy is treated as the question was.
  if (reloj_.monotono() < lentaHasta_ && peticion.codigo == actual_.codigo &&
      peticion.addr == actual_.addr && peticion.datos == actual_.datos)
    sucesos.negarComo(negada_);
  negada_ = sucesos;
  oidas_.push_back(peticion);
  if (oidas_.size() > kOidasMaximas) oidas_.pop_front();
  cola_.clear();
  enVuelo_.clear();
  relojAck_->parar();
  actual_ = peticion;
  if (sucesos.tiene(Averia::Nak)) {
    emisor_.enviar(nak(peticion), retrasoDelAck(sucesos));
    return;
  }
  contestar(peticion, decidir(peticion, sucesos), sucesos);
  if (sucesos.tiene(Averia::VentaDetras)) venderAlAzar(sucesos.valor(Averia::VentaDetras, 0));
}

Respuesta Maquina::decidir(const Peticion& peticion, Sucesos& sucesos) {
  const bool cero = esCero(peticion.codigo);
  if (sucesos.tiene(Averia::VentaEnMedio)) venderAlAzar();
  if (sucesos.tiene(Averia::ListaSinFin)) vueltas_ = percances_.fallos().limiteLista;
  if (sucesos.tiene(Averia::Err)) return negar(sucesos.valor(Averia::Err, 1));
  if (sucesos.tiene(Averia::Rechazo)) return {{}, true};
  if (cero && sucesos.tiene(Averia::CeroRechazado)) return negar(1);
  incumple_ = sucesos.tiene(Averia::CeroIncumplido);
  Respuesta respuesta =
      atender(sucesos.tiene(Averia::OtroNumero) ? otroNumero(peticion) : peticion);
  if (cero && sucesos.tiene(Averia::CeroSinRespuesta)) {
    respuesta.mensajes.clear();
    sucesos.poner(Averia::AckPerdido);
  }
  if (sucesos.tiene(Averia::ListaSinFin) && respuesta.mensajes.size() > 1) {
    const std::vector<Mensaje> cuerpo(respuesta.mensajes.begin(), respuesta.mensajes.end() - 1);
    for (; vueltas_ > 0; vueltas_ -= static_cast<int>(cuerpo.size()))
      respuesta.mensajes.insert(respuesta.mensajes.begin(), cuerpo.begin(), cuerpo.end());
  }
  return respuesta;
}

void Maquina::contestar(const Peticion& peticion, Respuesta respuesta, const Sucesos& sucesos) {
  const QByteArray delante = sucesos.tiene(Averia::AckPerdido) ? QByteArray()
                             : respuesta.rechazo               ? rechazar(peticion)
                                                               : ack(peticion);
  cola_.assign(respuesta.mensajes.begin(), respuesta.mensajes.end());
  if (sucesos.tiene(Averia::Espera) && opciones_.tipo == Tipo::Ebony)
    anunciarEspera(sucesos.valor(Averia::Espera, 1));
  indice_ = 0;
  const int retraso = retrasoDelAck(sucesos);
  if (tardias_.empty() && retraso == 0) {
    emitirSiguiente(delante);
    return;
  }
  emisor_.enviar(delante, retraso);
  for (const QByteArray& tardia : tardias_) emisor_.enviar(tardia);
  tardias_.clear();
  emitirSiguiente({});
}

// A machine does one thing after the other.
int Maquina::retrasoDelAck(const Sucesos& sucesos) {
  constexpr int kTimeACK = 2000;
  int retraso = 0;
  if (sucesos.tiene(Averia::AckLento))
    retraso = sucesos.valor(Averia::AckLento, kTimeACK + percances_.azar().entero(300, 5500));
  else if (reloj_.monotono() < lentaHasta_)
    retraso = percances_.azar().entero(0, 1000);
  else
    return 0;
  retraso += emisor_.retrasoPendiente();
  lentaHasta_ = reloj_.monotono() + retraso;
  return retraso;
}

void Maquina::anunciarEspera(int unidades) {
  constexpr int kCodigoEspera = 8;
  if (!cola_.empty()) cola_.front().retrasoMs = percances_.fallos().esperaMs;
  cola_.push_front({kCodigoEspera, QByteArray::number(unidades), opciones_.pausaMs});
}

bool Maquina::sinFin() {
  return vueltas_ > 0 && vueltas_-- > 0;
}

Respuesta Maquina::cero(int codigo, int conjuntos) {
  if (!incumple_) memoria_.ponerACero(ahora(), codigo, conjuntos);
  return {};
}

bool Maquina::ponerHora(const QByteArray& texto) {
  const QDate dia(int(leerCampo(texto, 4, 4)), int(leerCampo(texto, 2, 2)),
                  int(leerCampo(texto, 0, 2)));
  const qint64 segundos = texto.size() > 12 ? leerCampo(texto, 12, 2) : 0;
  const QTime hora(int(leerCampo(texto, 8, 2)), int(leerCampo(texto, 10, 2)), int(segundos));
  if (!dia.isValid() || !hora.isValid()) return false;
  desfase_ = Fecha::de(dia, hora) - reloj_.ahora();
  memoria_.cambiada();
  return true;
}

}  // namespace tarvo::simulador
