// Batches: everything done to articles since a batch began is undone, and nothing else.
#include "articles/LotesAMedias.h"
#include "lotes/TiendaDeLotes.h"

namespace tarvo::articles {
namespace {

using namespace Qt::StringLiterals;
using prueba::bien;

struct ConLotes : testing::Test, prueba::TiendaDeLotes {
  ConLotes() {
    conArticulos({10, 11, 12, 13});
    existencias({.almacen = 1, .codigo = 11, .inicial = 500});
  }

  QString articulos() {
    return leer(
        u"SELECT CODPLU, NOMPLU, PRECIO_00, CodBarExt FROM PLUSES WHERE CODPLU>2 "
        u"ORDER BY CODPLU"_s);
  }
  // A batch that was finished.
  qint64 cambiar(const QString& ventana, const QString& orden) {
    const qint64 lote = bien(lotes.empezar(ventana));
    bien(lotes.guardarDonde(lote, u"CODPLU>2"));
    sql(orden);
    bien(lotes.acabar(lote));
    return lote;
  }
  QString claves(const std::vector<ClaveArticulo>& v) {
    QStringList s;
    for (const auto& c : v) s << QString::number(c.codigo);
    return s.join(u' ');
  }
};

const QString kAntes = u"10 A10 100 B10 | 11 A11 100 B11 | 12 A12 100 B12 | 13 A13 100 B13"_s;

TEST_F(ConLotes, VuelveCuantoSeHizo) {
  const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
  for (const qint64 n : {10, 11, 12, 13, 20, 1}) bien(lotes.guardar(lote, {1, n}));
  // Two articles swap their bar codes, one is deleted with its stock, one is created, one stays.
  sql(u"UPDATE PLUSES SET CodBarExt=NULL, PRECIO_00=150 WHERE CODPLU=10"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='B10' WHERE CODPLU=12"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='B12' WHERE CODPLU=10"_s);
  sql(u"DELETE FROM PLUSES WHERE CODPLU=11"_s);
  articulo({.codigo = 20, .nombre = u"NUEVO"});
  bien(lotes.acabar(lote));
  ASSERT_EQ(leer(u"SELECT count(*) FROM MovsAlm"_s), u"0"_s);
  EXPECT_EQ(bien(lotes.ultimo(u"ImpPLU"_s))->articulos, 5);

  const auto d = bien(lotes.deshacer(lote, u"ImpPLU"_s));
  EXPECT_EQ(d.repuestos, 3);
  EXPECT_EQ(d.quitados, 1);
  EXPECT_TRUE(d.fuera.empty());
  EXPECT_EQ(articulos(), kAntes);
  EXPECT_EQ(leer(u"SELECT CODALM, SECCION, CODIGO, Inicial FROM MovsAlm"_s), u"1 1 11 500"_s);
  // Due again: the restored ones. To be deleted: the created one. As held: the untouched one.
  EXPECT_EQ(leer(u"SELECT plu, borra FROM [Cross] ORDER BY plu"_s), u"13 0 | 20 1"_s);
  EXPECT_EQ(leer(u"SELECT CODPLU, ANTES, AHORA, QUIEN, VENTANA FROM HistoriaPrecios ORDER BY 1"_s),
            u"10 150 100 Ana ImpPLU"_s)
      << "what comes back brings its prices: nobody set them";
  EXPECT_EQ(lotes.deshacer(lote, u"ImpPLU"_s).error().clase, Fallo::NoExiste);
  EXPECT_FALSE(bien(lotes.ultimo(u"ImpPLU"_s)));
}

struct Ajeno {
  const char* que;
  QString lote;    // what the batch did
  QString ajeno;   // changes by others since
  QString fuera;   // left alone
  QString quedan;  // the final articles
};

TEST_F(ConLotes, LoQueHizoOtroSeQueda) {
  const std::vector<Ajeno> casos{
      {"changed since", u"UPDATE PLUSES SET PRECIO_00=200 WHERE CODPLU IN (10, 11)"_s,
       u"UPDATE PLUSES SET NOMPLU='OTRO' WHERE CODPLU=10"_s, u"10"_s,
       u"10 OTRO 200 B10 | 11 A11 100 B11 | 12 A12 100 B12 | 13 A13 100 B13"_s},
      {"changed back by hand", u"UPDATE PLUSES SET PRECIO_00=200 WHERE CODPLU=10"_s,
       u"UPDATE PLUSES SET PRECIO_00=100 WHERE CODPLU=10"_s, u""_s, kAntes},
      {"deleted since", u"UPDATE PLUSES SET PRECIO_00=200 WHERE CODPLU IN (10, 11)"_s,
       u"DELETE FROM PLUSES WHERE CODPLU=10"_s, u"10"_s,
       u"11 A11 100 B11 | 12 A12 100 B12 | 13 A13 100 B13"_s},
      {"made anew since", u"DELETE FROM PLUSES WHERE CODPLU=10"_s,
       u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU) VALUES (1, 10, 'OTRO')"_s, u"10"_s,
       u"10 OTRO 0 - | 11 A11 100 B11 | 12 A12 100 B12 | 13 A13 100 B13"_s},
      {"its bar code taken, and that of the next by it",
       u"UPDATE PLUSES SET CodBarExt=switch(CODPLU=10,'X',CODPLU=11,'B10') WHERE CODPLU<12"_s,
       u"UPDATE PLUSES SET CodBarExt='B11' WHERE CODPLU=13"_s, u"10 11"_s,
       u"10 A10 100 X | 11 A11 100 B10 | 12 A12 100 B12 | 13 A13 100 B11"_s},
      {"stock of a new one moved",
       u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU) VALUES (1, 20, 'NUEVO')"_s,
       u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Venta) VALUES (1, 1, 20, 3)"_s, u"20"_s,
       kAntes + u" | 20 NUEVO 0 -"_s},
  };
  for (const Ajeno& c : casos) {
    SCOPED_TRACE(c.que);
    sql(u"DELETE FROM PLUSES"_s);
    for (const int n : {10, 11, 12, 13})
      articulo({.codigo = n, .nombre = u"A%1"_s.arg(n), .precio = 100, .barras = u"B%1"_s.arg(n)});
    const qint64 lote = bien(lotes.empezar(u"V"_s));
    bien(lotes.guardarDonde(lote, u"CODPLU<>13"));
    bien(lotes.guardar(lote, {1, 20}));
    sql(c.lote);
    bien(lotes.acabar(lote));
    sql(c.ajeno);
    EXPECT_EQ(claves(bien(lotes.deshacer(lote, u"V"_s)).fuera), c.fuera);
    EXPECT_EQ(articulos(), c.quedan);
  }
}

TEST_F(ConLotes, SinAcabarVuelveTodoYSinSeccionNada) {
  const qint64 cortado = bien(lotes.empezar(u"V"_s));
  bien(lotes.guardar(cortado, {1, 10}));
  sql(u"UPDATE PLUSES SET PRECIO_00=7 WHERE CODPLU=10"_s);
  EXPECT_EQ(bien(lotes.deshacer(cortado, u"V"_s)).repuestos, 1);
  EXPECT_EQ(articulos(), kAntes);

  const qint64 lote = bien(lotes.empezar(u"V"_s));
  bien(lotes.guardarDonde(lote, u"SECCION=?", std::array<dao::Valor, 1>{1}));
  sql(u"DELETE FROM PLUSES WHERE CODPLU>2"_s);
  bien(lotes.acabar(lote));
  sql(u"DELETE FROM SECCS"_s);
  EXPECT_EQ(claves(bien(lotes.deshacer(lote, u"V"_s)).fuera), u"10 11 12 13"_s);
}

// Undone in slices: swapped bar codes, far apart, and changes by others between two slices of the
// work.
TEST_F(ConLotes, EnTramos) {
  for (int n = 1000; n < 1500; ++n)
    articulo({.codigo = n, .nombre = u"X", .precio = 5, .barras = u"C%1"_s.arg(n)});
  const QString antes = articulos();
  const qint64 lote = bien(lotes.empezar(u"V"_s));
  bien(lotes.guardarDonde(lote, u"CODPLU>2"));
  bien(lotes.guardar(lote, {1, 2000}));
  sql(u"UPDATE PLUSES SET PRECIO_00=9, CodBarExt=NULL WHERE CODPLU>2"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='C1499' WHERE CODPLU=10"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='C1250' WHERE CODPLU=1499"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='B10' WHERE CODPLU=1250"_s);
  articulo({.codigo = 2000, .nombre = u"N", .barras = u"C1300"});
  for (const qint64 n : {11, 12}) bien(lotes.anotar(lote, {1, n}));
  sql(u"UPDATE PLUSES SET NOMPLU='OTRO' WHERE CODPLU=11"_s);  // while the work goes on
  Lotes::Deshecho d;
  EXPECT_TRUE(bien(lotes.deshacerTramo(lote, u"V"_s, d)));
  const auto queda = bien(lotes.ultimo(u"V"_s));
  ASSERT_TRUE(queda);
  EXPECT_FALSE(queda->acabado);
  EXPECT_EQ(queda->articulos, 505 - d.vistos);
  EXPECT_EQ(
      leer(u"SELECT CodBarExt FROM PLUSES WHERE CODPLU IN (10, 1250, 1499) ORDER BY CODPLU"_s),
      u"B10 | C1250 | C1499"_s)
      << "those that have each other's go back together";
  while (bien(lotes.deshacerTramo(lote, u"V"_s, d))) continue;
  EXPECT_EQ(claves(d.fuera), u"11"_s);
  EXPECT_EQ(d.repuestos, 503);
  EXPECT_EQ(d.quitados, 1);
  EXPECT_EQ(articulos(), QString(antes).replace(u"11 A11 100 B11"_s, u"11 OTRO 9 -"_s));
  EXPECT_FALSE(bien(lotes.ultimo(u"V"_s)));
  EXPECT_EQ(leer(u"SELECT count(*) FROM LoteAntes"_s) + leer(u"SELECT count(*) FROM LoteDespues"_s),
            u"00"_s);
}

// The history of a moved article comes back with it, however far apart its two sections are in the
// batch.
TEST_F(ConLotes, UnTrasladoEnTramos) {
  seccion(2);
  en(1);
  std::vector<ClaveArticulo> claves;
  for (int n = 1000; n < 1300; ++n) {
    articulo({.codigo = n, .nombre = u"X", .precio = 5});
    claves.push_back({1, n});
  }
  Articulo a = *bien(catalogo.leer({1, 1299}));
  a.precios[0][0] = 7;
  bien(catalogo.modificar({1, 1299}, a, u"V"_s));
  const QString kHistoria =
      u"SELECT SECCION, CODPLU, AHORA FROM HistoriaPrecios WHERE CODPLU=1299"_s;
  ASSERT_EQ(leer(kHistoria), u"1 1299 7");
  const qint64 lote = bien(lotes.empezar(u"V"_s));
  bien(lotes.mover(lote, claves, 2));
  bien(lotes.acabar(lote));
  EXPECT_EQ(leer(kHistoria), u"2 1299 7");
  Lotes::Deshecho d;
  while (bien(lotes.deshacerTramo(lote, u"V"_s, d))) continue;
  EXPECT_TRUE(d.fuera.empty());
  EXPECT_EQ(leer(u"SELECT count(*) FROM PLUSES WHERE SECCION=1 AND CODPLU>=1000"_s), u"300");
  EXPECT_EQ(leer(u"SELECT count(*) FROM PLUSES WHERE SECCION=2 AND CODPLU>=1000"_s), u"0");
  EXPECT_EQ(leer(kHistoria), u"1 1299 7");
}

// Out of order: what the first undoing would leave alone is reported beforehand, and asking changes
// nothing.
TEST_F(ConLotes, AntesDeDeshacerSeSabeLoQueNoVolveria) {
  const qint64 importado =
      cambiar(u"ImpPLU"_s, u"UPDATE PLUSES SET PRECIO_00=200 WHERE CODPLU<13"_s);
  const qint64 subido =
      cambiar(u"CambioLote"_s, u"UPDATE PLUSES SET PRECIO_00=210 WHERE CODPLU<12"_s);
  EXPECT_EQ(claves(bien(lotes.noVolverian(importado))), u"10 11");
  EXPECT_TRUE(bien(lotes.avisoDeVuelta(importado))->contains(u"001 0000010, 001 0000011"_s));
  EXPECT_FALSE(bien(lotes.avisoDeVuelta(subido)));
  EXPECT_EQ(bien(lotes.deshacer(subido, u"CambioLote"_s)).repuestos, 2);
  EXPECT_FALSE(bien(lotes.avisoDeVuelta(importado)));
  EXPECT_EQ(bien(lotes.deshacer(importado, u"ImpPLU"_s)).repuestos, 3);
  EXPECT_EQ(articulos(), kAntes);
}

// What was done long ago is forgotten with all its rows; what was cut off never is.
TEST_F(ConLotes, SoloLosVeinteUltimosYLosCortados) {
  const QString subir = u"UPDATE PLUSES SET PRECIO_00=PRECIO_00+50 WHERE CODPLU="_s;
  const qint64 hecho = cambiar(u"V"_s, subir + u"10"_s);
  const qint64 cortado = bien(lotes.empezar(u"CambioLote"_s));
  const std::vector<ClaveArticulo> todos{{1, 11}, {1, 12}};
  bien(lotes.apuntar(cortado, u"sube"_s, todos));
  bien(lotes.guardar(cortado, {1, 11}));
  sql(subir + u"11"_s);
  bien(lotes.tachar(cortado, {1, 11}));

  for (int i = 0; i < 25; ++i) bien(lotes.olvidar(cambiar(u"V"_s, subir + u"13"_s)));
  for (int i = 0; i < 25; ++i) cambiar(u"V"_s, subir + u"13"_s);
  EXPECT_EQ(leer(u"SELECT count(*) FROM LoteArticulos"_s), u"21"_s) << "twenty, and the cut off";
  EXPECT_EQ(lotes.deshacer(hecho, u"V"_s).error().clase, Fallo::NoExiste);
  for (const QString& tabla : {u"LoteAntes"_s, u"LoteDespues"_s, u"LoteMovs"_s})
    EXPECT_EQ(
        leer(u"SELECT count(*) FROM %1 WHERE LOTE NOT IN (SELECT LOTE FROM LoteArticulos)"_s.arg(
            tabla)),
        u"0"_s)
        << tabla.toStdString();

  EXPECT_TRUE(bien(motivoDeEspera(catalogo, 1)));
  ASSERT_TRUE(bien(lotes.porHacer(cortado)));
  EXPECT_EQ(claves(bien(lotes.porHacer(cortado))->claves), u"12");
  EXPECT_EQ(bien(lotes.deshacer(cortado, u"V"_s)).repuestos, 1);
  EXPECT_EQ(leer(u"SELECT PRECIO_00 FROM PLUSES WHERE CODPLU IN (11, 12)"_s), u"100 | 100"_s);
  EXPECT_FALSE(bien(motivoDeEspera(catalogo, 1)));
}

}  // namespace
}  // namespace tarvo::articles
