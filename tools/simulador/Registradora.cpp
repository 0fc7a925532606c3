#include "simulador/Registradora.h"

#include "simulador/Fichas.h"

namespace tarvo::simulador {
namespace {

constexpr int kMal = 1;
constexpr int kCero1 = 3054, kCero2 = 3056, kCero3 = 3058;
constexpr int kVentasTotal = 12, kDevolucionesTotal = 17, kDepartamento = 1;
// Records with other figures of the register, which belong to no total.
constexpr int kTiquesTotal = 2, kCajonTotal = 20;

// Type 4, department 2, count 10, amount 10.
QByteArray registroTotal(int tipo, int departamento, qint64 cuenta, qint64 importe) {
  return campo(tipo, 4) + campo(departamento, 2) + campo(cuenta, 10) + campo(importe, 10);
}

}  // namespace

Registradora::Registradora(OpcionesMaquina opciones, Reloj& reloj)
    : MaquinaVEK(std::move(opciones), reloj, true) {}

bool Registradora::esParaMi(const Peticion& peticion) const {
  return peticion.addr == opciones().direccion;
}

bool Registradora::esCero(int codigo) const {
  return codigo == kCero1 || codigo == kCero2 || codigo == kCero3;
}

// Answers begin with a digit, which the frame requires after the four of the code.
Respuesta Registradora::atender(const Peticion& peticion) {
  switch (peticion.codigo) {
    case 2057:
      return articulos(peticion.datos);
    case 2060:
      return totales();
    case kCero1:
    case kCero2:
    case kCero3:
      cero(peticion.codigo,
           opciones().borra[static_cast<std::size_t>(peticion.codigo - kCero1) / 2]);
      return con("00");
    case 4003:
      return guardarArticulo(peticion.datos);
    case 4098:
      return borrarArticulos(peticion.datos);
    default:
      return negar(kMal);
  }
}

// One frame for each article with sales, in the order of their bar codes; blanks for a code end the
// list.
Respuesta Registradora::articulos(const QByteArray& datos) {
  if (datos != QByteArray(12, ' ') + "118000") return negar(kMal);
  std::map<QByteArray, Cuenta> porBarras;
  for (const auto& [articulo, cuenta] : memoria_.contadores().articulos)
    porBarras[barras(articulo).rightJustified(13, '0')] = cuenta;
  Respuesta respuesta;
  for (const auto& [codigo, cuenta] : porBarras)
    respuesta.mensajes.push_back(
        {actual_.codigo, "00" + codigo + campo(cuenta.con * 1000, 10) + campo(cuenta.imp, 10)});
  respuesta.mensajes.push_back({actual_.codigo, "00" + QByteArray(13, ' ') + campo(0, 20)});
  return respuesta;
}

// The two parts of the grand total first, then the departments; type 99 ends the list.
Respuesta Registradora::totales() {
  const Contadores& contadores = memoria_.contadores();
  const Cuenta &ventas = contadores.ventas, &devueltas = contadores.devoluciones;
  std::vector<QByteArray> registros{
      registroTotal(kTiquesTotal, 0, contadores.granTotal.con, 0),
      registroTotal(kVentasTotal, 0, ventas.con, ventas.imp),
      registroTotal(kDevolucionesTotal, 0, devueltas.con, devueltas.imp),
      registroTotal(kCajonTotal, 0, 1, contadores.granTotal.imp)};
  for (const auto& [departamento, cuenta] : contadores.departamentos)
    registros.push_back(registroTotal(kDepartamento, departamento, cuenta.con * 1000, cuenta.imp));
  registros.push_back(registroTotal(99, 0, 0, 0));
  Respuesta respuesta;
  for (const QByteArray& registro : registros)
    respuesta.mensajes.push_back({actual_.codigo, registro});
  return respuesta;
}

Respuesta Registradora::guardarArticulo(const QByteArray& datos) {
  const auto articulo = leerFichaRegistradora(datos, memoria_.catalogo);
  if (!articulo) return negar(kMal);
  memoria_.catalogo[articulo->codigo] = *articulo;
  memoria_.cambiada();
  return con("00");
}

Respuesta Registradora::borrarArticulos(const QByteArray& datos) {
  if (datos != "00") return negar(kMal);
  memoria_.catalogo.clear();
  memoria_.cambiada();
  return con("00");
}

// The code read at the till; an article no longer held keeps the number it was sold under.
QByteArray Registradora::barras(int articulo) const {
  const auto sitio = memoria_.catalogo.find(articulo);
  if (sitio != memoria_.catalogo.end() && !sitio->second.barras.isEmpty())
    return sitio->second.barras;
  return campo(articulo, 13);
}

}  // namespace tarvo::simulador
