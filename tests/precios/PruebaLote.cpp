#include "articles/precios/CambioLote.h"
#include "precios/TiendaDePrecios.h"

using namespace tarvo;
using namespace tarvo::precios;
using articles::ClaveArticulo;
using tarvo::prueba::bien;
using namespace Qt::StringLiterals;

namespace {

TEST(SubePrecios, PorcentajeYPaso) {
  using enum Redondeo;
  const struct {
    int centesimas;
    qint64 paso;
    Redondeo como;
    qint64 de, a;
  } casos[] = {
      {500, 1, MasProximo, 1000, 1050}, {500, 1, MasProximo, 10, 11},  // 10.5
      {333, 1, MasProximo, 1000, 1033}, {-1000, 1, MasProximo, 999, 899},
      {500, 5, MasProximo, 1001, 1050}, {500, 5, HaciaArriba, 1001, 1055},
      {500, 5, HaciaAbajo, 1004, 1050}, {0, 10, MasProximo, 1005, 1010},
      {-9999, 1, HaciaAbajo, 50, 0},    {99'999, 1, MasProximo, 999'999, 10'999'889},
  };
  for (const auto& c : casos)
    EXPECT_EQ(SubePrecios::de(c.centesimas, c.paso, c.como, {}, {})->aplicar(c.de), c.a)
        << c.de << ' ' << c.centesimas;
  EXPECT_FALSE(SubePrecios::de(-10'000, 1, MasProximo, {}, {}));
  EXPECT_FALSE(SubePrecios::de(0, 0, MasProximo, {}, {}));
  EXPECT_FALSE(SubePrecios::de(0, 1, MasProximo, 3, {}));
}

struct ConLote : testing::Test, prueba::TiendaDePrecios {
  articles::Lotes lotes{catalogo};
  CambioLote lote{catalogo, lotes};

  QString previa(const SeleccionLote& s, const OrdenLote& o) {
    QStringList salida;
    for (const LineaLote& l : bien(lote.previa(s, o)))
      salida << u"%1 %2>%3 x%4 %5"_s.arg(l.clave.codigo)
                    .arg(l.antes)
                    .arg(l.despues)
                    .arg(l.cambian)
                    .arg(static_cast<int>(l.desenlace));
    return salida.join(u" | ");
  }
  CambioLote::Hecho aplicar(const std::vector<ClaveArticulo>& claves, const OrdenLote& orden) {
    const auto marcha = lote.empezar(claves, orden, u"CambioLote"_s);
    while (bien(marcha->paso())) continue;
    bien(marcha->acabar());
    return marcha->hecho();
  }
  QString filas() { return leer(u"select CODPLU, PRECIO_00, PRECIO_27, DEPTO from PLUSES"_s); }
};

TEST_F(ConLote, EnQueQuedariaCadaUno) {
  articulo({.codigo = 2, .precio = 900});
  sql(u"update PLUSES set PRECIO_27=990000, DEPTO=2, NOMPLU='Jamón 5*' where CODPLU=11"_s);
  sql(u"update PLUSES set PRECIO_00=0 where CODPLU=12"_s);
  const OrdenLote diez = *SubePrecios::de(1000, 5, Redondeo::MasProximo, {}, {});
  EXPECT_EQ(previa({1}, diez), u"10 1000>1100 x1 0 | 11 990000>1089000 x2 2 | 12 0>0 x0 1")
      << "not the system article, not a price of 0";
  const OrdenLote base = *SubePrecios::de(-9990, 100, Redondeo::MasProximo, 0, 0);
  EXPECT_EQ(previa({1, {}, 2}, base), u"11 1100>0 x1 3");
  EXPECT_EQ(previa({1, {12, 10}}, PoneDepartamento{2}), u"10 1>2 x1 0 | 12 1>2 x1 0");
  EXPECT_EQ(previa({1, {}, {}, u"jamon 5*"_s}, PoneFormato{1}), u"11 1>1 x0 1");
  EXPECT_EQ(lote.previa({1}, PoneDepartamento{7}).error().clase, Fallo::Restriccion);
  EXPECT_EQ(lote.previa({1}, PoneFormato{21}).error().clase, Fallo::Restriccion);
}

TEST_F(ConLote, SeAplicaEnteroYSeDeshace) {
  sql(u"update PLUSES set PRECIO_00=999999 where CODPLU=11"_s);
  const QString antes = filas();
  const std::vector<ClaveArticulo> claves{{1, 10}, {1, 11}, {1, 99}};
  const OrdenLote diez = *SubePrecios::de(1000, 1, Redondeo::MasProximo, {}, {});
  const auto hecho = aplicar(claves, diez);
  EXPECT_EQ(hecho.cambiados, 1);
  EXPECT_EQ(hecho.fuera, 2) << "one doesn't fit, one is gone";
  EXPECT_EQ(filas(), u"10 1100 0 1 | 11 999999 0 1 | 12 1200 0 1");
  EXPECT_EQ(loTienen(10), u"");
  EXPECT_EQ(loTienen(11), u"1 | 2");
  EXPECT_EQ(leer(u"select CODPLU, ANTES, AHORA, VENTANA from HistoriaPrecios"_s),
            u"10 1000 1100 CambioLote");
  EXPECT_EQ(bien(lotes.deshacer(hecho.lote, u"CambioLote"_s)).repuestos, 1);
  EXPECT_EQ(filas(), antes);

  const auto nada = aplicar(claves, PoneDepartamento{1});
  EXPECT_EQ(nada.lote, 0);
  EXPECT_EQ(leer(u"select count(*) from LoteArticulos where LOTE>%1"_s.arg(hecho.lote)), u"0");
}

TEST_F(ConLote, LoCortadoSigueDondeEstaba) {
  const int kMuchos = 1200;
  for (int n = 0; n < kMuchos; ++n)
    articulo({.codigo = 1000 + n, .nombre = u"X", .depto = 1, .precio = 100});
  std::vector<ClaveArticulo> claves;
  for (int n = 0; n < kMuchos; ++n) claves.push_back({1, 1000 + n});
  const OrdenLote orden = *SubePrecios::de(1000, 1, Redondeo::MasProximo, {}, {});
  EXPECT_EQ(bien(lote.previa({1}, orden)).size(), 1'203u);
  qint64 cortado = 0;
  {
    const auto marcha = lote.empezar(claves, orden, u"CambioLote"_s);
    while (marcha->hecho().cambiados == 0) ASSERT_TRUE(bien(marcha->paso()));
    cortado = marcha->hecho().lote;
  }
  const auto subidos = [&] { return leer(u"select count(*) from PLUSES where PRECIO_00=110"_s); };
  EXPECT_EQ(subidos(), u"500");
  // One has been deleted meanwhile.
  sql(u"delete from PLUSES where CODPLU=2199"_s);
  const auto resto = bien(lote.seguir(cortado, u"CambioLote"_s));
  while (bien(resto->paso())) continue;
  bien(resto->acabar());
  EXPECT_EQ(resto->hecho().cambiados, 699);
  EXPECT_EQ(resto->hecho().fuera, 1);
  EXPECT_EQ(subidos(), u"1199") << "none of them twice";
  EXPECT_EQ(lote.seguir(cortado, u"CambioLote"_s).error().clase, Fallo::NoExiste);
  EXPECT_EQ(bien(lotes.deshacer(cortado, u"CambioLote"_s)).repuestos, 1199);
  EXPECT_EQ(subidos(), u"0");
}

TEST(OrdenLote, VuelveDeSuTexto) {
  const OrdenLote ordenes[] = {*SubePrecios::de(-350, 5, Redondeo::HaciaAbajo, {}, 0),
                               *SubePrecios::de(99'999, 999'999, Redondeo::MasProximo, 2, {}),
                               PoneDepartamento{40}, PoneFormato{20}};
  for (const OrdenLote& o : ordenes) EXPECT_EQ(leerOrden(escribirOrden(o)), o);
  for (const char16_t* malo : {u"", u"P", u"P 5", u"P 5 0 0", u"P 5 1 7", u"D", u"D x", u"Z 1"})
    EXPECT_FALSE(leerOrden(malo)) << QString::fromUtf16(malo).toStdString();
}

}  // namespace
