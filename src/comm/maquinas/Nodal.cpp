#include "comm/maquinas/Nodal.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tarvo::maquinas::nodal {

namespace {

constexpr int kCabecera = 2;  // characters before the records of a frame

// Cuts a frame into records and reads each with `leer`. A remainder after whole ones is a truncated
// record, or blanks.
template <class Leer>
Leido<std::vector<Total>> registros(QByteArrayView datos, int ancho, Rigor rigor, Leer leer) {
  std::vector<Total> salida;
  QByteArrayView resto = datos.sliced(std::min<qsizetype>(kCabecera, datos.size()));
  const bool entera = datos.size() >= kCabecera && resto.size() % ancho == 0;
  if (!entera && (rigor == Rigor::Estricto || resto.isEmpty()))
    return std::unexpected(RegistroMalo{RegistroMalo::Corto, resto.size() % ancho, {}});
  while (!resto.isEmpty() && (entera || !resto.trimmed().isEmpty())) {
    const QByteArrayView registro = resto.first(std::min<qsizetype>(ancho, resto.size()));
    Lector l(registro, rigor);
    salida.push_back(leer(l));
    if (l.falta()) return std::unexpected(*l.falta());
    resto = resto.sliced(registro.size());
  }
  return salida;
}

// Position, imp, sco, pes, con, as operators and departments have them.
Total posicionYCuentas(Lector& l) {
  Total t;
  t.numero = l.clave(1, 2) + 1;
  t.imp = l.numero(3, 10);
  t.sco = l.numero(13, 10);
  t.pes = l.numero(23, 8);
  t.con = l.numero(31, 6);
  return t;
}

}  // namespace

Peticion fechaHora(Fecha ahora) {
  return {36, ahora.qdatetime().toString(u"ddMMyyyyHHmmss").toLatin1()};
}
Peticion cerrarTickets() {
  return {39, "99"};
}
Peticion puestaACero() {
  return {71, {}};
}
Peticion articulos(qint64 desde, qint64 hasta) {
  const auto cuatro = [](qint64 n) { return Ceros(std::clamp<qint64>(n, 0, kUltimoArticulo), 4); };
  return {67, "99" + cuatro(desde) + cuatro(hasta)};
}
Peticion granTotal() {
  return {64, {}};
}
Peticion operadores() {
  return {65, {}};
}
Peticion departamentos() {
  return {66, {}};
}
Peticion operadoresHoras() {
  return {75, {}};
}
Peticion pedido() {
  return {76, {}};
}
Peticion olvidarPedido() {
  return {77, {}};
}

bool esDePeticion(int codigo) {
  constexpr int kPeticiones[] = {33, 36, 38, 39, 64, 65, 66, 67, 71, 75, 76, 77};
  return std::ranges::find(kPeticiones, codigo) != std::end(kPeticiones);
}

Leido<std::vector<Total>> leerArticulos(QByteArrayView datos, Rigor rigor) {
  return registros(datos, 26, rigor, [](Lector& l) {
    Total t;
    t.numero = l.clave(1, 4);
    t.imp = l.numero(5, 8);
    const qint64 peso = std::abs(l.numero(13, 8));
    t.pes = t.imp < 0 ? -peso : peso;
    t.con = l.numero(21, 6);
    return t;
  });
}

Leido<Total> leerGranTotal(QByteArrayView datos, Rigor rigor) {
  Lector l(datos, rigor);
  Total t;
  t.imp = l.numero(19, 10);
  t.sco = l.numero(29, 10);
  t.pes = l.numero(39, 8);
  t.con = l.numero(47, 6);
  return l.comprobado(t);
}

Leido<std::vector<Total>> leerOperadores(QByteArrayView datos, Rigor rigor) {
  return registros(datos, 36, rigor, posicionYCuentas);
}

Leido<std::vector<Total>> leerDepartamentos(QByteArrayView datos, Rigor rigor) {
  return registros(datos, 36, rigor, posicionYCuentas);
}

Leido<std::vector<Total>> leerOperadoresHoras(QByteArrayView datos, Rigor rigor) {
  return registros(datos, 38, rigor, [](Lector& l) {
    Total t;
    const qint64 x = l.clave(1, 4);
    t.numero = x / 100 + 1;
    t.hora = static_cast<int>(x % 100);
    t.imp = l.numero(5, 10);
    t.pes = l.numero(25, 8);
    t.con = l.numero(33, 6);
    return t;
  });
}

Leido<std::vector<Linea>> leerPedido(QByteArrayView datos, Rigor rigor) {
  constexpr int kAncho = 20, kMilesimas = 1000;
  std::vector<Linea> lineas;
  QByteArrayView resto = datos.sliced(std::min<qsizetype>(kCabecera, datos.size()));
  if (rigor == Rigor::Estricto && datos.size() < kCabecera + kAncho && !resto.isEmpty())
    return std::unexpected(RegistroMalo{RegistroMalo::Corto, resto.size(), {}});
  const auto otra = [&] {
    return resto.size() >= kAncho || (rigor == Rigor::Tolerante && !resto.trimmed().isEmpty());
  };
  for (qsizetype ancho = 0; otra(); resto = resto.sliced(ancho)) {
    ancho = std::min<qsizetype>(kAncho, resto.size());
    Lector l(resto.first(ancho), rigor);
    Linea linea;
    linea.articulo = l.clave(1, 4);
    if (!l.falta() && linea.articulo < 1) return lineas;
    const qint64 milesimas = l.numero(5, 8);
    linea.peso = std::llround(static_cast<double>(milesimas) / kMilesimas);
    linea.redondeado = milesimas % kMilesimas != 0;
    linea.unidades = l.numero(13, 8);
    if (l.falta()) return std::unexpected(*l.falta());
    lineas.push_back(linea);
  }
  // The list is not requested again from here, so a cut line would be lost.
  if (rigor == Rigor::Estricto && !resto.trimmed().isEmpty())
    return std::unexpected(RegistroMalo{RegistroMalo::Corto, resto.size(), {}});
  return lineas;
}

}  // namespace tarvo::maquinas::nodal
