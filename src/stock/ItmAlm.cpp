#include "stock/Almacenes.h"
#include "stock/Movimientos.h"

namespace tarvo::stock {

Resultado<> ItmAlm::Init(dao::Database& db, int almacen, int seccion, qint64 codigo) {
  db_ = &db, almacen_ = almacen, seccion_ = seccion, codigo_ = codigo;
  TARVO_TOMAR(const auto cada,
              db.uno(u"select CADA from PLUSES where (SECCION=?) and (CODPLU=?)", seccion, codigo));
  cada_ = static_cast<int>(cada.entero());
  c_ = {};
  TARVO_TOMAR(auto rs,
              db.consultar(u"select Inicial, Entrada, Compra, Salida, Venta, Merma from MovsAlm "
                           u"where (CODALM=?) and (SECCION=?) and (CODIGO=?)",
                           almacen, seccion, codigo));
  if (!rs->Eof())
    for (int i = 0; i < 6; ++i) c_[static_cast<size_t>(i)] = rs->entero(i);
  return {};
}

qint64 ItmAlm::Stock() const {
  return c_[Inicial] + c_[Entrada] + c_[Compra] - c_[Salida] - c_[Venta] - c_[Merma];
}

Resultado<> ItmAlm::poner(Contador c, qint64 valor) {
  TARVO_TOMAR(const auto filas, fijarContador(*db_, {almacen_, seccion_, codigo_}, c, valor));
  if (filas > 0) c_[c] = valor;
  return {};
}

Resultado<> ItmAlm::ponerStock(qint64 x) {
  return poner(Merma, Stock() + c_[Merma] - x);
}

}  // namespace tarvo::stock
