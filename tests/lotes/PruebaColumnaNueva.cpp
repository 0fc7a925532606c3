// A later version gives the articles a column: batches kept before and after that can still be
// undone.
#include "lotes/TiendaDeLotes.h"

namespace tarvo::articles {
namespace {

using namespace Qt::StringLiterals;
using prueba::bien;

struct ColumnaNueva : testing::Test, prueba::TiendaDeLotes {
  qint64 loteQueCambiaYBorra() {
    const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
    for (const qint64 n : {10, 11}) bien(lotes.guardar(lote, {1, n}));
    sql(u"UPDATE PLUSES SET PRECIO_00=150 WHERE CODPLU=10"_s);
    sql(u"DELETE FROM PLUSES WHERE CODPLU=11"_s);
    bien(lotes.acabar(lote));
    return lote;
  }
};

TEST_F(ColumnaNueva, NoImpideDeshacer) {
  dao::TablasDeSala comunes = esquema::tablasComunes();
  conArticulos({10, 11});
  existencias({.almacen = 1, .codigo = 11, .inicial = 500});
  const qint64 anterior = loteQueCambiaYBorra();

  const int ultimo = comunes.pasos.back().numero;
  comunes.pasos.push_back(
      dao::columna(ultimo + 1, u"PLUSES"_s, u"ORIGEN"_s, u"TEXT DEFAULT 'ES'"_s));
  comunes.pasos.push_back(
      dao::columna(ultimo + 2, u"MovsAlm"_s, u"Rotura"_s, u"INTEGER DEFAULT 0"_s));
  bien(dao::darPasos(*db, {comunes, tablasArticulos()}));
  for (const QString& copia : {u"LoteAntes"_s, u"LoteDespues"_s})
    EXPECT_TRUE(db->existeColumna(copia, u"ORIGEN")) << copia.toStdString();
  EXPECT_TRUE(db->existeColumna(u"LoteMovs", u"Rotura"));

  const QString articulos = u"SELECT CODPLU, PRECIO_00, ORIGEN FROM PLUSES ORDER BY CODPLU"_s;
  EXPECT_EQ(bien(lotes.deshacer(anterior, u"ImpPLU"_s)).repuestos, 2);
  EXPECT_EQ(leer(articulos), u"10 100 ES | 11 100 ES"_s);
  const qint64 posterior = loteQueCambiaYBorra();
  EXPECT_EQ(bien(lotes.deshacer(posterior, u"ImpPLU"_s)).repuestos, 2);
  EXPECT_EQ(leer(articulos), u"10 100 ES | 11 100 ES"_s);
  EXPECT_EQ(leer(u"SELECT CODIGO, Inicial, Rotura FROM MovsAlm"_s), u"11 500 0"_s);
}

}  // namespace
}  // namespace tarvo::articles
