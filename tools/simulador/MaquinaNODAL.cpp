#include "simulador/MaquinaNODAL.h"

#include "simulador/Fichas.h"

namespace tarvo::simulador {
namespace {

constexpr int kNodoAck = 6, kNodoRechazo = 7, kNodoEspera = 8, kNodoNak = 21, kNodoFin = 26;

OpcionesMaquina conRepeticiones(OpcionesMaquina opciones) {
  if (opciones.repeticiones < 0) opciones.repeticiones = 3;
  return opciones;
}

}  // namespace

MaquinaNODAL::MaquinaNODAL(OpcionesMaquina opciones, Reloj& reloj)
    : Maquina(conRepeticiones(std::move(opciones)), reloj) {}

// An acknowledgement for another node of the wire isn't for us.
std::vector<Entrada> MaquinaNODAL::leer(const QByteArray& bytes) {
  std::vector<Entrada> entradas = lector_.leer(bytes);
  for (Entrada& entrada : entradas) {
    if (!esParaMi(entrada.peticion)) continue;
    if (entrada.peticion.codigo == kNodoAck) entrada.clase = Clase::Ack;
    if (entrada.peticion.codigo == kNodoNak) entrada.clase = Clase::Nak;
  }
  return entradas;
}

bool MaquinaNODAL::esParaMi(const Peticion& peticion) const {
  return peticion.addr == opciones().direccion;
}

Respuesta MaquinaNODAL::atender(const Peticion& peticion) {
  switch (peticion.codigo) {
    case 32:
      return guardarArticulo(peticion.datos);
    case 33:  // ticket header
    case 38:  // keyboard
      return {};
    case 36:
      return ponerHora(peticion.datos) ? Respuesta{} : negar(0);
    case 39:
      ticketAbierto_ = false;
      return {};
    case 71:
      cero(peticion.codigo, kTodos);
      return fin();
    case 72:
      return puestos();
    case 73:
      return borrarArticulos();
    case 77:
      memoria_.olvidar(Lista::Pedidos);
      return fin();
    default:
      return ticketAbierto_ ? negar(0) : totales(peticion);
  }
}

Respuesta MaquinaNODAL::totales(const Peticion& peticion) {
  const Contadores& contadores = memoria_.contadores();
  const Cuenta& total = contadores.granTotal;
  switch (peticion.codigo) {
    case 64: {
      Respuesta respuesta = fin();
      const QByteArray registro = campo(0, 18) + campo(total.imp, 10) + campo(total.sco, 10) +
                                  campo(total.pes, 8) + campo(total.con, 6);
      respuesta.mensajes.insert(respuesta.mensajes.begin(), {64, registro, opciones().pausaMs});
      return respuesta;
    }
    case 65:
      return lista(porNumero(contadores.operadores));
    case 66:
      return lista(porNumero(contadores.departamentos));
    case 67: {
      const qint64 desde = leerCampo(peticion.datos, 2, 4), hasta = leerCampo(peticion.datos, 6, 4);
      const bool bien = peticion.datos.size() == 10 && peticion.datos.startsWith("99");
      return bien && desde >= 0 && hasta >= 0 ? lista(articulos(desde, hasta)) : negar(0);
    }
    case 75:
      return lista(operadoresHora());
    case 76:
      return lista(pedidos());
    default:
      return negar(0);
  }
}

// All articles of the range that the machine holds or has sold, with or without sales.
std::vector<QByteArray> MaquinaNODAL::articulos(qint64 desde, qint64 hasta) const {
  std::map<int, Cuenta> cuentas = memoria_.contadores().articulos;
  for (const auto& [codigo, articulo] : memoria_.catalogo) cuentas.try_emplace(codigo);
  std::vector<QByteArray> registros;
  for (const auto& [codigo, cuenta] : cuentas)
    if (codigo >= desde && codigo <= hasta)
      registros.push_back(campo(codigo, 4) + campo(cuenta.imp, 8) + campo(std::abs(cuenta.pes), 8) +
                          campo(cuenta.con, 6));
  return registros;
}

// Positions count from 0 on this wire.
std::vector<QByteArray> MaquinaNODAL::porNumero(const std::map<int, Cuenta>& mapa) const {
  std::vector<QByteArray> registros;
  registros.reserve(mapa.size());
  for (const auto& [numero, cuenta] : mapa)
    registros.push_back(campo(numero - 1, 2) + campo(cuenta.imp, 10) + campo(cuenta.sco, 10) +
                        campo(cuenta.pes, 8) + campo(cuenta.con, 6));
  return registros;
}

std::vector<QByteArray> MaquinaNODAL::operadoresHora() const {
  std::vector<QByteArray> registros;
  for (const auto& [clave, cuenta] : memoria_.contadores().operHora)
    registros.push_back(campo((clave.first - 1) * 100 + clave.second, 4) + campo(cuenta.imp, 10) +
                        campo(cuenta.sco, 10) + campo(cuenta.pes, 8) + campo(cuenta.con, 6));
  return registros;
}

// Weights in the unit of the wire, a thousand to the gram.
std::vector<QByteArray> MaquinaNODAL::pedidos() const {
  std::vector<QByteArray> registros;
  for (const LineaLista& linea : memoria_.lista(Lista::Pedidos))
    registros.push_back(campo(linea.articulo, 4) + campo(linea.peso * 1000, 8) +
                        campo(linea.unidades, 8));
  return registros;
}

Respuesta MaquinaNODAL::lista(const std::vector<QByteArray>& registros) const {
  Respuesta respuesta;
  const auto porTrama = static_cast<std::size_t>(std::max(1, opciones().registrosPorTrama));
  for (std::size_t i = 0; i < registros.size(); ++i) {
    if (i % porTrama == 0) respuesta.mensajes.push_back({actual_.codigo, "00"});
    respuesta.mensajes.back().datos += registros[i];
  }
  respuesta.mensajes.push_back({kNodoFin, {}});
  respuesta.mensajes.front().retrasoMs = opciones().pausaMs;
  return respuesta;
}

Respuesta MaquinaNODAL::fin() const {
  return {{{kNodoFin, {}, opciones().pausaMs}}};
}

Respuesta MaquinaNODAL::negar(int) {
  return {{}, true};
}

Respuesta MaquinaNODAL::guardarArticulo(const QByteArray& datos) {
  const auto articulo = leerFichaEbony(datos);
  if (!articulo) return negar(0);
  memoria_.catalogo[articulo->codigo] = *articulo;
  memoria_.cambiada();
  return {};
}

// Articles that still have sales can't be wiped: zero first.
Respuesta MaquinaNODAL::borrarArticulos() {
  if (!memoria_.contadores().articulos.empty()) return negar(0);
  memoria_.catalogo.clear();
  memoria_.cambiada();
  return fin();
}

Respuesta MaquinaNODAL::puestos() const {
  QByteArray texto(16, '0');
  for (const int numero : opciones().balanzas)
    if (numero >= 0 && numero < texto.size()) texto[numero] = '1';
  return {{{kNodoEspera, "1", opciones().pausaMs}, {kNodoRechazo, texto}}};
}

// With another question's number: the next list in the table of codes.
Peticion MaquinaNODAL::otroNumero(Peticion peticion) const {
  if (peticion.codigo == 65 || peticion.codigo == 66) peticion.codigo = 131 - peticion.codigo;
  return peticion;
}

QByteArray MaquinaNODAL::trama(int destino, int codigo, const QByteArray& datos) {
  secuencia_ = (secuencia_ + 1) % 256;
  return tramaNODAL(opciones().direccion, destino, secuencia_, codigo, datos);
}

QByteArray MaquinaNODAL::ack(const Peticion& p) {
  return trama(p.origen, kNodoAck, {});
}
QByteArray MaquinaNODAL::nak(const Peticion& p) {
  return trama(p.origen, kNodoNak, {});
}
QByteArray MaquinaNODAL::rechazar(const Peticion& p) {
  return trama(p.origen, kNodoRechazo, {});
}

QByteArray MaquinaNODAL::construir(const Mensaje& mensaje) {
  return trama(actual_.origen, mensaje.codigo, mensaje.datos);
}

QByteArray MaquinaNODAL::conControlMalo(QByteArray trama) const {
  // Off by 80, which no single flipped bit of the frame can compensate.
  const qsizetype i = trama.size() - 3;
  const int alta = trama.mid(i, 1).toInt(nullptr, 16);
  trama[i] = QByteArray::number((alta + 5) % 16, 16).toUpper()[0];
  return trama;
}

}  // namespace tarvo::simulador
