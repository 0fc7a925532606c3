// Putting a note into stock, and taking it out again.
#include <cmath>

#include "stock/Almacenes.h"
#include "stock/Movimientos.h"

namespace tarvo::stock {

namespace {

struct Nota {
  int stkADO = 0, almacen = 0, origen = 0;
};
Resultado<std::optional<Nota>> leerNota(dao::Database& db, qint64 numero) {
  TARVO_TOMAR(auto rs,
              db.consultar(u"select stkADO, Almacen, Origen from ALBA_CAB where NUMALB=?", numero));
  if (rs->Eof()) return std::nullopt;
  const auto entero = [&](int i) { return static_cast<int>(rs->entero(i)); };
  return Nota{entero(0), entero(1), entero(2)};
}

struct Linea {
  int seccion;
  qint64 codigo, cantidad, total;  // total: the article's stock over all warehouses
  std::optional<qint64> coste;
};
Resultado<std::vector<Linea>> leerLineas(dao::Database& db, qint64 numero) {
  return dao::reunir(
      db.consultar(u"select ALBA_LIN.SECCION, ALBA_LIN.CODIGO, coalesce(UNIDS, 0)+coalesce(PESO, "
                   u"0), STOCK, COSTE from ALBA_LIN left join STOCKPLU on "
                   u"ALBA_LIN.SECCION=STOCKPLU.SECCION and ALBA_LIN.CODIGO=STOCKPLU.CODIGO where "
                   u"NUMALB=?",
                   numero),
      [](const dao::Recordset& r) {
        return Linea{static_cast<int>(r.entero(0)), r.entero(1), r.entero(2), r.entero(3),
                     r.nulo(4) ? std::nullopt : std::optional(r.entero(4))};
      });
}

// The mean cost of present stock and new goods; nothing if the divisor would be zero or the mean
// can't be a price (as with stock below zero).
std::optional<qint64> costeMedio(const Linea& l, qint64 coste) {
  const double total = static_cast<double>(l.total) + static_cast<double>(l.cantidad);
  if (total == 0) return std::nullopt;
  const double x = (static_cast<double>(l.total) * static_cast<double>(coste) +
                    static_cast<double>(l.cantidad) * static_cast<double>(*l.coste)) /
                   total;
  return std::abs(x) < 2147483647.0 ? std::optional(std::llround(x)) : std::nullopt;
}

Resultado<> actualizarCoste(dao::Database& db, const Linea& l, int modo) {
  if (!l.coste || (modo != 1 && modo != 2)) return {};
  std::optional<qint64> nuevo = l.coste;
  if (modo == 2) {
    TARVO_TOMAR(
        const auto antes,
        db.uno(u"select coste from PLUSES where (SECCION=?) and (CODPLU=?)", l.seccion, l.codigo));
    nuevo = costeMedio(l, antes.entero());
  }
  if (!nuevo) return {};
  TARVO_INTENTAR(db.ejecutar(u"update PLUSES set coste=? where (SECCION=?) and (CODPLU=?)", *nuevo,
                             l.seccion, l.codigo));
  return {};
}

Resultado<> moverLinea(dao::Database& db, const Linea& l, int almacen, int origen, int modoCoste) {
  const Casilla aqui{almacen, l.seccion, l.codigo};
  if (origen == 0) {
    TARVO_INTENTAR(actualizarCoste(db, l, modoCoste));
    return moverContador(db, aqui, ItmAlm::Compra, l.cantidad);
  }
  TARVO_INTENTAR(moverContador(db, aqui, ItmAlm::Entrada, l.cantidad));
  return moverContador(db, {origen, l.seccion, l.codigo}, ItmAlm::Salida, l.cantidad);
}

}  // namespace

Resultado<bool> Almacen::IncorporarAlbaran(qint64 numero, int modoCoste, bool quitar) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(*db_));
  TARVO_TOMAR(const auto nota, leerNota(*db_, numero));
  if (!nota) return false;
  const Nota& n = *nota;
  if (n.stkADO != 0 && n.almacen != 0 && n.almacen != fila_.CODALM) return false;
  TARVO_TOMAR(auto lineas, leerLineas(*db_, numero));
  for (Linea& l : lineas) {
    if (quitar) l.cantidad = -l.cantidad;
    TARVO_INTENTAR(moverLinea(*db_, l, fila_.CODALM, n.origen, modoCoste));
  }
  const int stk = n.stkADO + (quitar ? -1 : 1);
  TARVO_INTENTAR(db_->ejecutar(u"update ALBA_CAB set stkADO=?, Almacen=? where NUMALB=?", stk,
                               stk == 0 ? dao::Valor() : dao::Valor(fila_.CODALM), numero));
  TARVO_INTENTAR(borrarCeros(*db_, fila_.CODALM));
  if (n.origen != 0) TARVO_INTENTAR(borrarCeros(*db_, n.origen));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

}  // namespace tarvo::stock
