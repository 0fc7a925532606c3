#include "comm/maquinas/Caja.h"

#include <cmath>
#include <cstdlib>

namespace tarvo::maquinas::caja {

namespace {

// Registers count in thousandths.
qint64 deMilesimas(qint64 n) {
  return std::llround(static_cast<double>(n) / 1000.0);
}

constexpr int kTipoGranTotal = 12, kTipoGranTotalBis = 17, kTipoDepartamento = 1;

}  // namespace

Peticion puestaACero(int paso) {
  return {3052 + 2 * paso, {}};
}
Peticion articulos() {
  return {kArticulos, QByteArray(12, ' ') + "118000"};
}
Peticion totales() {
  return {kTotales, {}};
}

bool finDeLista(int codigo, QByteArrayView registro) {
  if (codigo == kArticulos)
    return registro.size() >= 15 && registro.sliced(2, 13) == QByteArrayView("             ");
  return codigo == kTotales && registro.startsWith("0099");
}

QByteArray clave(int codigo, const QByteArray& registro) {
  return codigo == kArticulos ? registro.mid(2, 13) : registro.left(6);
}

Leido<std::optional<Total>> leerArticulo(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  t.numero = l.clave(3, 13);
  t.con = std::abs(deMilesimas(l.numero(16, 10)));
  t.imp = l.numero(26, 10);
  if (l.falta()) return std::unexpected(*l.falta());
  if (t.con == 0 && t.imp == 0) return std::nullopt;
  return t;
}

Leido<std::optional<Total>> leerGranTotal(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  t.numero = l.clave(1, 4);
  if (!l.falta() && t.numero != kTipoGranTotal && t.numero != kTipoGranTotalBis)
    return std::nullopt;
  t.con = l.numero(7, 10);
  t.imp = l.numero(17, 10);
  return l.comprobado(t);
}

Leido<std::optional<Total>> leerDepartamento(QByteArrayView registro, Rigor rigor) {
  Lector l(registro, rigor);
  Total t;
  const qint64 tipo = l.clave(1, 4);
  if (!l.falta() && tipo != kTipoDepartamento) return std::nullopt;
  t.numero = l.clave(5, 2);
  t.con = deMilesimas(l.numero(7, 10));
  t.imp = l.numero(17, 10);
  if (l.falta()) return std::unexpected(*l.falta());
  if (t.imp == 0 && t.con > 0) return std::nullopt;
  return t;
}

}  // namespace tarvo::maquinas::caja
