// Many articles written as one set: every table ends up as if they had been written one by one.
#include "articles/Tanda.h"

#include "articles/LotesAMedias.h"
#include "lotes/TiendaDeLotes.h"

namespace tarvo::articles {
namespace {

using namespace Qt::StringLiterals;
using prueba::bien;

struct Mundo : prueba::TiendaDeLotes {
  qint64 lote = 0;

  Mundo() {
    conArticulos({10, 11, 12}, {{u"PRECIO_13", 5}});
    almacen(2, u"B"_s);
    for (const int n : {10, 11, 12}) existencias({.almacen = 1, .codigo = n, .inicial = n});
    existencias({.almacen = 2, .codigo = 11, .venta = 3});
    seccion(2, u"DOS"_s);
    lote = bien(lotes.empezar(u"V"_s));
  }
  std::vector<Articulo> nuevas() {
    std::vector<Articulo> v =
        bien(catalogo.leerVarios(std::vector<ClaveArticulo>{{1, 10}, {1, 11}, {1, 99}}));
    EXPECT_EQ(v.size(), 2u);
    v[0].precios[0][0] = 120;
    v[0].precios[2][7] = 7;
    v[1].nombre = u"OTRO"_s;
    v[1].precios[1][3] = 0;
    Articulo n;
    n.clave = {2, 10};
    n.nombre = u"NUEVO"_s;
    n.depto = 1;
    n.precios[1][0] = 50;
    v.push_back(n);
    return v;
  }
  QString huella() {
    QStringList s;
    for (const char16_t* que :
         {u"* FROM PLUSES WHERE CODPLU>2 ORDER BY SECCION, CODPLU",
          u"SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, QUIEN, VENTANA FROM "
          u"HistoriaPrecios ORDER BY 1, 2, 3, 4",
          u"* FROM [Cross] ORDER BY 1, 2, 3", u"* FROM LoteAntes ORDER BY SECCION, CODPLU",
          u"* FROM LoteDespues ORDER BY SECCION, CODPLU",
          u"* FROM LoteMovs ORDER BY ANTES, SECCION, CODIGO, CODALM"})
      s << leer(u"SELECT "_s + QString::fromUtf16(que));
    return s.join(u"\n");
  }
};

TEST(Tanda, ComoUnoAUno) {
  Mundo juntos, sueltos;
  Tanda tanda(juntos.catalogo, juntos.lotes, u"V"_s, Tanda::Oyen::Todos);
  bien(tanda.escribir(juntos.lote, juntos.nuevas()));
  for (const Articulo& a : sueltos.nuevas()) {
    bien(sueltos.lotes.guardar(sueltos.lote, a.clave));
    bien(a.clave.seccion == 2 ? sueltos.catalogo.crear(a, u"V"_s)
                              : sueltos.catalogo.modificar(a.clave, a, u"V"_s));
    bien(sueltos.lotes.anotar(sueltos.lote, a.clave));
  }
  EXPECT_EQ(juntos.huella().toStdString(), sueltos.huella().toStdString());
  EXPECT_EQ(juntos.catalogo.cambios().SeccionesModificadas(),
            sueltos.catalogo.cambios().SeccionesModificadas());
  // When written again, the last state holds, and all of it can be undone.
  auto otra = juntos.nuevas();
  otra[2].nombre = u"OTRA VEZ"_s;
  bien(tanda.escribir(juntos.lote, otra));
  bien(juntos.lotes.acabar(juntos.lote));
  const auto d = bien(juntos.lotes.deshacer(juntos.lote, u"V"_s));
  EXPECT_EQ(std::tuple(d.repuestos, d.quitados, d.fuera.size()), std::tuple(2, 1, 0u));
  EXPECT_EQ(juntos.leer(u"SELECT CODPLU, NOMPLU, PRECIO_00, PRECIO_13, PRECIO_27 FROM PLUSES WHERE "
                        u"CODPLU>2 ORDER BY 1"_s),
            u"10 A10 100 5 0 | 11 A11 100 5 0 | 12 A12 100 5 0");
}

TEST(Tanda, LoImportadoNoLoOyenLasMaquinasYUnFalloNoDejaNada) {
  Mundo m;
  Tanda tanda(m.catalogo, m.lotes, u"V"_s, Tanda::Oyen::Nadie);
  auto malas = m.nuevas();
  malas[2].clave.seccion = 200;  // no such section
  const QString antes = m.huella();
  EXPECT_FALSE(tanda.escribir(m.lote, malas));
  EXPECT_EQ(m.huella().toStdString(), antes.toStdString());
  bien(tanda.escribir(m.lote, m.nuevas()));
  EXPECT_EQ(m.leer(u"SELECT plu FROM [Cross] ORDER BY plu"_s), u"10 | 11 | 12");
  EXPECT_TRUE(m.catalogo.cambios().SeccionesModificadas().empty());
}

// The rows of a batch too old to be undone are deleted bit by bit, with the work of the next ones.
TEST(Tanda, LosLotesViejosSeVanPocoAPoco) {
  Mundo m;
  m.sql(
      u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3500) INSERT INTO "
      u"LoteAntes (LOTE, HABIA, SECCION, CODPLU) SELECT ?, 0, 1, 100+i FROM n"_s,
      m.lote);
  m.sql(u"UPDATE LoteArticulos SET ACABADO=1"_s);
  for (int i = 0; i < 20; ++i) m.lote = bien(m.lotes.empezar(u"V"_s));
  EXPECT_EQ(m.leer(u"SELECT count(*) FROM LoteAntes"_s), u"2500");
  EXPECT_EQ(m.leer(u"SELECT count(*) FROM LoteArticulos"_s), u"20");
  Tanda tanda(m.catalogo, m.lotes, u"V"_s, Tanda::Oyen::Todos);
  for (int i = 0; i < 3; ++i) bien(tanda.escribir(m.lote, m.nuevas()));
  EXPECT_EQ(m.leer(u"SELECT count(*) FROM LoteAntes WHERE LOTE<%1"_s.arg(m.lote)), u"0");
}

TEST(LotesAMedias, SeSabenYRetienenSuSeccion) {
  Mundo m;
  EXPECT_TRUE(bien(lotesAMedias(m.catalogo)).empty()) << "nothing has changed yet";
  bien(m.lotes.apuntar(m.lote, u"D 2"_s, std::vector<ClaveArticulo>{{1, 10}, {1, 11}, {1, 12}}));
  Tanda tanda(m.catalogo, m.lotes, u"V"_s, Tanda::Oyen::Todos);
  bien(tanda.escribir(m.lote, bien(m.catalogo.leerVarios(std::vector<ClaveArticulo>{{1, 10}}))));
  bien(m.lotes.tachar(m.lote, {1, 10}));
  const auto lotes = bien(lotesAMedias(m.catalogo));
  ASSERT_EQ(lotes.size(), 1u);
  EXPECT_EQ(lotes[0].ventana, u"V");
  EXPECT_EQ(lotes[0].secciones, std::vector{1});
  EXPECT_EQ(std::tuple(lotes[0].lote.articulos, lotes[0].porHacer), std::tuple(1, 2));
  const auto motivo = bien(motivoDeEspera(m.catalogo, 1));
  EXPECT_EQ(lotes[0].donde, m.leer(u"SELECT '001 ' & NOMSEC FROM SECCS WHERE NMSECC=1"_s));
  EXPECT_EQ(motivo, u"Sección %1. "_s.arg(lotes[0].donde) +
                        textosDePrueba()(12000, {lotes[0].lote.cuando.general(), 1, 2}));
  EXPECT_FALSE(bien(motivoDeEspera(m.catalogo, 2)));
  EXPECT_EQ(bien(m.lotes.porHacer(m.lote))->claves, (std::vector<ClaveArticulo>{{1, 11}, {1, 12}}));
  // Once its undoing has begun it can't be resumed; once undone, it no longer exists.
  Lotes::Deshecho d;
  EXPECT_TRUE(bien(m.lotes.deshacerTramo(m.lote, u"V"_s, d)));
  EXPECT_FALSE(bien(m.lotes.porHacer(m.lote)));
  while (bien(m.lotes.deshacerTramo(m.lote, u"V"_s, d))) continue;
  EXPECT_TRUE(bien(lotesAMedias(m.catalogo)).empty());

  const qint64 otro = bien(m.lotes.empezar(u"V"_s));
  bien(tanda.escribir(otro, m.nuevas()));
  EXPECT_EQ(bien(lotesAMedias(m.catalogo))[0].secciones, (std::vector{1, 2}));
  bien(m.lotes.darPorHecho(otro));
  EXPECT_TRUE(bien(lotesAMedias(m.catalogo)).empty());
}

}  // namespace
}  // namespace tarvo::articles
