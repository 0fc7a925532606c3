#include "stock/Listas.h"

namespace tarvo::stock {

namespace {

const QString kDeUno = QStringLiteral(
    "select SECCION as S, CODIGO as C, Inicial as c0, Entrada as c1, Compra as c2, Salida as c3, "
    "Venta as c4, Merma as c5 from MovsAlm where CODALM=?");
const QString kDeTodos = QStringLiteral(
    "select SECCION as S, CODIGO as C, sIni as c0, sEnt as c1, sCom as c2, sSal as c3, sVen as c4, "
    "sMer as c5 from STOCKPLU where ?=-1");

QString condicion(int vista) {
  switch (vista) {
    case 1:
      return QStringLiteral("coalesce(c0+c1+c2-c3-c4-c5, 0)<>0");
    case 2:
      return QStringLiteral("(c0<>0 or c1<>0 or c2<>0 or c3<>0 or c4<>0 or c5<>0)");
    default:
      return QStringLiteral("1=1");
  }
}

Almacenes::FilaStock filaDe(const dao::Recordset& r) {
  Almacenes::FilaStock f{static_cast<int>(r.entero(0)), r.entero(1), r.texto(2),
                         static_cast<int>(r.entero(3)), 0,           {}};
  for (int i = 0; i < 6; ++i) f.contadores[static_cast<size_t>(i)] = r.entero(4 + i);
  const auto& c = f.contadores;
  f.stock = c[0] + c[1] + c[2] - c[3] - c[4] - c[5];
  return f;
}

}  // namespace

Resultado<std::vector<Almacenes::FilaStock>> listarStock(dao::Database& db,
                                                         std::optional<int> almacen,
                                                         const Vista& como) {
  const QString sql = dao::conMarcas(
      u"select PLUSES.SECCION, CODPLU, NOMPLU, CADA, c0, c1, c2, c3, c4, c5 "
      u"from PLUSES left join ({existencias}) m on PLUSES.SECCION=m.S and PLUSES.CODPLU=m.C "
      u"where (?<=0 or PLUSES.SECCION=?) and {vista} order by {orden}",
      {{u"existencias", almacen ? kDeUno : kDeTodos},
       {u"vista", condicion(como.vista)},
       {u"orden", como.orden == 1 ? QStringLiteral("NOMPLU, PLUSES.SECCION, CODPLU")
                                  : QStringLiteral("PLUSES.SECCION, CODPLU")}});
  return dao::reunir(db.consultar(sql, almacen.value_or(-1), como.seccion, como.seccion), filaDe);
}

}  // namespace tarvo::stock
