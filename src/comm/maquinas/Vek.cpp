#include "comm/maquinas/Vek.h"

#include <algorithm>
#include <cstdlib>

namespace tarvo::maquinas::vek {

namespace {

// Imp, pes and con in a row from `pos`, as departments, hours and the cross have them.
Total importePesoCuenta(Lector& l, int pos) {
  Total t;
  t.imp = l.numero(pos, 9);
  t.pes = l.numero(pos + 9, 9);
  t.con = l.numero(pos + 18, 5);
  return t;
}

}  // namespace

Peticion fechaHora(Fecha ahora) {
  return {10, ahora.qdatetime().toString(u"ddMMyyyyHHmm").toLatin1()};
}
Peticion puestaACero(bool toda) {
  return {toda ? 915 : 910, {}};
}
Peticion articulo(qint64 codigo) {
  return {830, Ceros(codigo, 7)};
}
Peticion siguienteArticulo(qint64 codigo) {
  return {835, Ceros(codigo, 7) + Ceros(300, 4)};
}
Peticion granTotal(TipoGrupo tipo) {
  return {tipo == TipoGrupo::Birch ? 860 : 850, {}};
}
Peticion operador(int posicion) {
  return {800, Ceros(posicion, 2)};
}
Peticion departamento(int numero) {
  return {810, Ceros(numero, 2)};
}
Peticion hora(int h) {
  return {840, Ceros(h, 2)};
}
Peticion operadorHora(int posicion, int h) {
  return {820, Ceros(posicion, 2) + Ceros(h, 2)};
}
Peticion lineas(int desde, bool inventario) {
  return {610, Ceros(desde, 3) + (inventario ? '1' : '0')};
}
Peticion olvidarLista(bool inventario) {
  return {880, inventario ? "1" : "0"};
}

std::optional<qint64> cabeza(QByteArrayView registro, int inicio, int ancho) {
  Lector l(registro);
  const qint64 n = l.numero(inicio, ancho);
  if (l.falta()) return {};
  return n;
}

Leido<Total> leerArticulo(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  t.numero = l.clave(1, 7);
  t.imp = l.numero(8, 9);
  const qint64 peso = std::abs(l.numero(17, 9));
  t.pes = t.imp < 0 ? -peso : peso;  // a return's weight has the sign of its amount
  t.con = l.numero(26, 5);
  t.sco = l.numero(40, 9);
  return l.comprobado(t);
}

Leido<Total> leerGranTotal(QByteArrayView registro, TipoGrupo tipo, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  t.imp = l.numero(1, 9);
  t.pes = l.numero(10, 9);
  t.con = l.numero(24, 5);
  if (tipo == TipoGrupo::Birch) t.sco = l.numero(57, 9) + l.numero(71, 9);
  return l.comprobado(t);
}

Leido<Total> leerOperador(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  t.imp = l.numero(3, 9);
  t.con = l.numero(12, 5);
  t.sco = l.numero(50, 9);
  return l.comprobado(t);
}

Leido<Total> leerDepartamento(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  const qint64 numero = l.clave(1, 2);
  Total t = importePesoCuenta(l, 3);
  t.numero = numero;
  return l.comprobado(t);
}

Leido<Total> leerHora(QByteArrayView registro, Rigor rigor) {
  return leerDepartamento(registro, rigor);
}

Leido<Total> leerOperadorHora(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  const qint64 numero = l.clave(1, 2);
  const qint64 h = l.clave(3, 2);
  Total t = importePesoCuenta(l, 5);
  t.numero = numero;
  t.hora = static_cast<int>(h);
  return l.comprobado(t);
}

Leido<TrozoLista> leerLineas(QByteArrayView datos, Rigor rigor) {
  constexpr int kAncho = 23;
  TrozoLista trozo;
  QByteArrayView resto = datos.isEmpty() ? datos : datos.sliced(1);
  const qsizetype total = resto.size();
  // What is left over after whole lines is asked for again; alone, it is all there is of a line.
  const auto otra = [&] {
    return resto.size() >= kAncho ||
           (rigor == Rigor::Tolerante && trozo.lineas.empty() && !resto.trimmed().isEmpty());
  };
  for (qsizetype ancho = 0; otra(); resto = resto.sliced(ancho)) {
    ancho = std::min<qsizetype>(kAncho, resto.size());
    Lector l(resto.first(ancho), rigor);
    Linea linea;
    linea.articulo = l.clave(1, 7);
    if (!l.falta() && linea.articulo <= 0) {
      trozo.fin = true;
      return trozo;
    }
    linea.peso = l.numero(8, 8);
    linea.unidades = l.numero(16, 8);
    if (l.falta()) return std::unexpected(*l.falta());
    trozo.lineas.push_back(linea);
  }
  // An answer that neither brings a line nor ends the list would be requested for ever.
  if (trozo.lineas.empty()) return std::unexpected(RegistroMalo{RegistroMalo::Corto, total, {}});
  return trozo;
}

}  // namespace tarvo::maquinas::vek
