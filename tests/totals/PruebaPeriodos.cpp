#include "totals/TiendaDeTotales.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/Papelera.h"
#include "totals/periodos/Sumas.h"

using namespace tarvo;
using namespace tarvo::totals;
using namespace Qt::StringLiterals;
using tarvo::prueba::bien;
using tarvo::prueba::momento;

namespace {

struct ConPeriodos : testing::Test, prueba::TiendaDeTotales {
  // The week of 4 June 2018, 0 when there is none.
  qint64 semana() {
    const auto c = bien(periodos.BuscarPeriodo(kSemanal, momento("04/06/2018"), {}));
    return c ? c->LINK : 0;
  }
};

TEST_F(ConPeriodos, SeCreanSeEncuentranYSeBorran) {
  EXPECT_EQ(crear(1, "05/06/2018 13:00"), 1);
  EXPECT_EQ(crear(5, "05/06/2018 13:00", "06/06/2018 08:30"), 2);
  EXPECT_EQ(col(1).periodo, LimitesPeriodo(1, momento("05/06/2018"), {}));
  EXPECT_EQ(col(2).periodo, (Periodo{5, momento("05/06/2018 13:00"), momento("06/06/2018 08:30")}));
  EXPECT_EQ(bien(periodos.BuscarPeriodo(1, momento("05/06/2018 23:59:59"), {}))->LINK, 1);
  EXPECT_FALSE(bien(periodos.BuscarPeriodo(1, momento("06/06/2018"), {})));
  for (const int link : {0, 1, 2}) plu(link, 7, 5), operHora(link, 1, 9, 5);
  bien(periodos.BorrarPeriodo(2, TipoTotal::PLUs));
  EXPECT_EQ(plus(2), QString());
  EXPECT_EQ(col(2).LINK, 2);
  EXPECT_EQ(leer(u"select LINK from TOTOPHOR"_s), u"0 | 1 | 2"_s);
  bien(periodos.BorrarPeriodo(2));
  EXPECT_TRUE(bien(periodos.BorrarPorFechas(1, momento("05/06/2018"), {})));
  EXPECT_FALSE(bien(periodos.BorrarPorFechas(1, momento("05/06/2018"), {})));
  EXPECT_EQ(leer(u"select LINK from TOTPLU"_s), u"0"_s);  // the inbox
  EXPECT_EQ(leer(u"select LINK from TOTOPHOR"_s), u"0"_s);
  EXPECT_TRUE(bien(periodos.lista()).empty());
}

TEST_F(ConPeriodos, SeSumanFilaAFila) {
  const qint64 a = crear(5, "04/06/2018", "05/06/2018"), b = crear(5, "05/06/2018", "06/06/2018");
  plu(a, 7, 1), plu(b, 7, 2), plu(b, 8, 3), plu(b, 7, 4, 2);
  operHora(a, 1, 9, 1), operHora(b, 1, 9, 2), operHora(b, 1, 10, 3);
  sql(u"update TOTPLU set PES=Null, SCO=Null where CODI=7"_s);
  bien(periodos.SumarPeriodo(a, b));
  EXPECT_EQ(plus(a), u"1 7 3 0 300 0 | 1 8 3 30 300 3000 | 2 7 4 0 400 0"_s);
  EXPECT_EQ(leer(u"select HORA, CON from TOTOPHOR where LINK=%1 order by HORA"_s.arg(a)),
            u"9 3 | 10 3"_s);
  bien(periodos.SumarPeriodo(a, b, -1));
  EXPECT_EQ(plus(a), u"1 7 1 0 100 0 | 1 8 0 0 0 0 | 2 7 0 0 0 0"_s);
  const qint64 c = crear(5, "06/06/2018", "07/06/2018");
  bien(periodos.SumarPeriodo(c, b, -1));
  EXPECT_EQ(plus(c), u"1 7 -2 0 -200 0 | 1 8 -3 -30 -300 -3000 | 2 7 -4 0 -400 0"_s);
}

TEST_F(ConPeriodos, LaSumaQueNoCabeSeDeshace) {
  const qint64 a = crear(5, "04/06/2018", "05/06/2018"), b = crear(5, "05/06/2018", "06/06/2018");
  plu(a, 7, 1), plu(b, 7, 2);
  sql(u"update TOTPLU set [IMP]=9000000000000000000"_s);
  EXPECT_FALSE(periodos.SumarPeriodo(a, b));
  EXPECT_EQ(plus(a), u"1 7 1 10 9000000000000000000 1000"_s);
}

TEST_F(ConPeriodos, UnDiaEntraEnSuSemanaYSale) {
  const qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_TRUE(col(dia).ACUM2);
  const Columna s = col(semana());
  EXPECT_FALSE(s.stkABLE);
  EXPECT_EQ(s.DESCR, QString());
  EXPECT_EQ(plus(s.LINK), u"1 7 2 20 200 2000"_s);
  EXPECT_TRUE(bien(periodos.DesacumularPeriodo(2, col(dia))));
  EXPECT_EQ(plus(s.LINK), u"1 7 0 0 0 0"_s);
  EXPECT_FALSE(bien(periodos.DesacumularPeriodo(2, col(dia))));
  EXPECT_FALSE(bien(periodos.AcumularPeriodo(2, s)));  // its own kind
  EXPECT_FALSE(bien(periodos.AcumularPeriodo(1, col(dia))));
}

TEST_F(ConPeriodos, UnIntervaloEntreDosSemanasSeQuedaFuera) {
  const qint64 dentro = crear(5, "05/06/2018 13:00", "10/06/2018 23:00");
  const qint64 cruza = crear(5, "09/06/2018", "11/06/2018 01:00");
  EXPECT_FALSE(bien(periodos.AcumularPeriodo(2, col(cruza))));
  EXPECT_EQ(semana(), 0);
  EXPECT_FALSE(col(cruza).ACUM2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dentro))));
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(3, col(cruza))));
  EXPECT_FALSE(periodos.ReacumularTodo(cruza, {.a2 = true})) << "the week would be without it";
}

TEST_F(ConPeriodos, LosMayoresYElStockSiguenUnCambio) {
  const qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2);
  for (const int tipo : {2, 4}) EXPECT_TRUE(bien(periodos.AcumularPeriodo(tipo, col(dia))));
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(bien(almacenes.DescontarVenta(dia, 1)));
  const auto marcas = bien(periodos.DesacumularTodo(dia));
  EXPECT_EQ(plus(semana()), u"1 7 0 0 0 0"_s);
  EXPECT_EQ(venta(), QString());
  plu(dia, 1000001, 3);
  bien(periodos.ReacumularTodo(dia, marcas));
  EXPECT_EQ(plus(semana()), plus(dia));
  EXPECT_EQ(venta(), u"7 4 | 1000001 60"_s);
  const Columna c = col(dia);
  EXPECT_TRUE(c.ACUM2 && !c.ACUM3 && c.ACUM4);
  EXPECT_EQ(c.stkADO, 2);
  EXPECT_FALSE(periodos.DesacumularTodo(99));
}

// Whoever asks, and with whatever was read before: a period goes into its week and off the stock
// once, and comes back once.
TEST_F(ConPeriodos, UnaVezBasta) {
  const qint64 dia = crear(1, "05/06/2018"), mano = crear(1, "07/06/2018", nullptr, false);
  plu(dia, 7, 2), plu(mano, 7, 9);
  const Columna comoEra = col(dia);
  EXPECT_EQ(bien(periodos.DescontarPeriodo(comoEra)), Descuento::Hecho);
  EXPECT_EQ(bien(periodos.DescontarPeriodo(comoEra)), Descuento::YaEstaba);
  EXPECT_EQ(bien(periodos.DescontarPeriodo(col(mano))), Descuento::NoProcede);
  EXPECT_EQ(bien(periodos.DescontarVarios({dia, mano, 99}, false)), 0);
  EXPECT_EQ(venta(), u"7 2"_s);
  EXPECT_EQ(col(dia).stkADO, 1);
  EXPECT_EQ(bien(periodos.DescontarVarios({dia, mano, 99}, true)), 1);
  EXPECT_EQ(bien(periodos.DescontarVarios({dia}, true)), 0);
  EXPECT_EQ(venta(), QString());
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, comoEra)));
  EXPECT_FALSE(bien(periodos.AcumularPeriodo(2, comoEra)));
  EXPECT_EQ(plus(semana()), plus(dia));
  const Columna dentro = col(dia);
  EXPECT_TRUE(bien(periodos.DesacumularPeriodo(2, dentro)));
  EXPECT_FALSE(bien(periodos.DesacumularPeriodo(2, dentro)));
  EXPECT_EQ(plus(semana()), u"1 7 0 0 0 0"_s);
}

// A week with sales of its own takes in a day: each is discounted once, in whatever order.
TEST_F(ConPeriodos, UnDiaEnUnaSemanaSuyaSeDescuentaUnaVez) {
  const qint64 propia = crear(2, "04/06/2018"), dia = crear(1, "05/06/2018");
  plu(propia, 7, 5), plu(dia, 7, 2);
  plu(propia, 1000001, 4), plu(dia, 1000001, 3);  // by weight
  for (const bool antes : {true, false}) {
    if (!antes) {
      EXPECT_EQ(bien(periodos.DescontarPeriodo(col(propia))), Descuento::Hecho);
    }
    EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
    if (antes) {
      EXPECT_EQ(bien(periodos.DescontarPeriodo(col(propia))), Descuento::Hecho);
    }
    EXPECT_EQ(bien(periodos.DescontarPeriodo(col(dia))), Descuento::Hecho);
    EXPECT_EQ(venta(), u"7 7 | 1000001 70"_s);
    EXPECT_TRUE(bien(periodos.DesacumularPeriodo(2, col(dia))));
    for (const qint64 link : {propia, dia})
      EXPECT_EQ(bien(periodos.DescontarPeriodo(col(link), true)), Descuento::Hecho);
    EXPECT_EQ(venta(), QString());
  }
}

// A day is replaced again and again; the week and the stock hold one version of it, never two.
TEST_F(ConPeriodos, UnDiaSustituidoCuentaUnaVez) {
  qint64 dia = crear(1, "05/06/2018");
  const qint64 otro = crear(1, "06/06/2018");
  plu(dia, 7, 2), plu(otro, 7, 100);
  operHora(dia, 1, 9, 2);
  const auto reemplazar = [&](int n) {
    dia = bien(periodos.sustituir(col(dia), u"otra"_s));
    sql(u"update TOTPLU set CON=?, PES=?, [IMP]=?, SCO=? where LINK=? and CODI=7"_s, n, 10 * n,
        100 * n, 1000 * n, dia);
  };
  const auto acumular = [&] { EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia)))); };
  const auto descontar = [&] {
    EXPECT_EQ(bien(periodos.DescontarPeriodo(col(dia))), Descuento::Hecho);
  };
  for (const qint64 link : {dia, otro}) {
    EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(link))));
    EXPECT_EQ(bien(periodos.DescontarPeriodo(col(link))), Descuento::Hecho);
  }
  reemplazar(5);
  EXPECT_EQ(dia, semana() + 1);
  const Columna c = col(dia);
  EXPECT_TRUE(c.stkABLE && !c.ACUM2 && c.stkADO == 0);
  EXPECT_EQ(c.DESCR, u"otra"_s);
  EXPECT_EQ(plus(semana()), u"1 7 102 1020 10200 102000"_s);  // what it held
  EXPECT_EQ(venta(), u"7 102"_s);
  reemplazar(6);  // its own marks are clear: the first version must go
  acumular();
  EXPECT_EQ(plus(semana()), u"1 7 106 1060 10600 106000"_s);
  EXPECT_EQ(leer(u"select HORA, CON from TOTOPHOR where LINK=%1"_s.arg(semana())), u"9 2"_s);
  EXPECT_EQ(venta(), u"7 102"_s);
  reemplazar(7);  // now the week holds 6 and the stock still 2
  descontar();
  EXPECT_EQ(venta(), u"7 107"_s);
  acumular();
  EXPECT_EQ(plus(semana()), u"1 7 107 1070 10700 107000"_s);
  // Settled: nothing is taken out twice, and nothing is recorded any more.
  EXPECT_EQ(leer(u"select count(*) from Sustituidos"_s), u"0"_s);
  EXPECT_EQ(leer(u"select count(*) from TotSusti"_s), u"0"_s);
  bien(periodos.ReacumularTodo(dia, bien(periodos.DesacumularTodo(dia))));
  EXPECT_EQ(plus(semana()), u"1 7 107 1070 10700 107000"_s);
  EXPECT_EQ(venta(), u"7 107"_s);
}

// In no larger period: what the stock holds of the first version is still known.
TEST_F(ConPeriodos, UnDiaSoloDescontadoYSustituidoCuentaUnaVez) {
  qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2), plu(dia, 1000001, 3);
  const Columna comoEra = col(dia);  // its marks have changed since it was read
  EXPECT_EQ(bien(periodos.DescontarPeriodo(comoEra)), Descuento::Hecho);
  dia = bien(periodos.sustituir(comoEra, QString()));
  sql(u"update TOTPLU set CON=5, PES=50"_s);
  EXPECT_EQ(bien(periodos.DescontarPeriodo(col(dia))), Descuento::Hecho);
  EXPECT_EQ(venta(), u"7 5 | 1000001 50"_s);
}

TEST_F(ConPeriodos, UnMayorHechoDeNuevoNoDebeNada) {
  qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(3, col(dia))));
  dia = bien(periodos.sustituir(col(dia), QString()));
  bien(periodos.BorrarPeriodo(semana()));
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_EQ(plus(semana()), u"1 7 2 20 200 2000"_s);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(3, col(dia))));
  const auto mes = bien(periodos.BuscarPeriodo(3, momento("01/06/2018"), {}));
  EXPECT_EQ(plus(mes->LINK), u"1 7 2 20 200 2000"_s);
}

TEST_F(ConPeriodos, SustituirSinMarcasNoRecuerdaNada) {
  const qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2);
  EXPECT_EQ(bien(periodos.sustituir(col(dia), QString())), dia);  // it was the last
  EXPECT_EQ(plus(dia), u"1 7 2 20 200 2000"_s);
  EXPECT_EQ(leer(u"select count(*) from Sustituidos"_s), u"0"_s);
  EXPECT_FALSE(periodos.sustituir(Columna{}, QString()));
}

struct ConVerTot : ConPeriodos {};

TEST_F(ConVerTot, EligeCadaPeriodoUnaVez) {
  const qint64 a = crear(1, "05/06/2018"), b = crear(1, "06/06/2018"),
               c = crear(5, "05/06/2018", "06/06/2018 12:00");
  EXPECT_TRUE(bien(verTot.SelecHnd(b)));
  EXPECT_FALSE(bien(verTot.SelecHnd(99)));
  EXPECT_TRUE(bien(verTot.Seleccionar(1, momento("05/06/2018"), momento("06/06/2018"))));
  EXPECT_EQ(verTot.LosSelec(), (std::vector{b, a}));
  EXPECT_FALSE(bien(
      verTot.Seleccionar(5, momento("05/06/2018"), momento("06/06/2018"))));  // dates as they are
  EXPECT_TRUE(bien(verTot.Seleccionar(5, momento("05/06/2018"), momento("06/06/2018 12:00"))));
  EXPECT_TRUE(bien(verTot.BorrarIntvalo(1, momento("06/06/2018"), momento("06/06/2018 10:00"))));
  EXPECT_EQ(verTot.LosSelec(), (std::vector{a, c}));
  EXPECT_FALSE(bien(verTot.BorrarIntvalo(1, momento("06/06/2018"), momento("09/06/2018"))));
  EXPECT_TRUE(verTot.ClrSelec());
  EXPECT_TRUE(verTot.LosSelec().empty());
  verTot.ponerSeleccion({a, a, c});
  EXPECT_EQ(verTot.LosSelec(), (std::vector{a, c}));
  const auto mes = bien(verTot.CrearIntvalo({3, momento("05/06/2018"), {}}, QString()));
  EXPECT_TRUE(col(mes.link).stkABLE);
  EXPECT_FALSE(mes.existia);
  // When asked for again, it is the same one, unchanged.
  const auto otraVez = bien(verTot.CrearIntvalo({3, momento("09/06/2018"), {}}, QString("otro")));
  EXPECT_TRUE(otraVez.existia);
  EXPECT_EQ(otraVez.link, mes.link);
  EXPECT_EQ(leer(u"select count(*) from COLUMNA where TIPO=3"_s), u"1"_s);
}

TEST_F(ConVerTot, AcumulaUnPeriodoUnaVez) {
  const qint64 dia = crear(1, "05/06/2018"), domingo = crear(5, "10/06/2018", "11/06/2018 12:00");
  plu(dia, 7, 2);
  EXPECT_FALSE(bien(verTot.AcumularIntv(2, 1)));  // nothing selected
  EXPECT_TRUE(bien(verTot.AcumularIntv(2, 0)));
  for (int i = 0; i < 2; ++i) {
    bien(verTot.SelecHnd(dia));
    EXPECT_TRUE(bien(verTot.AcumularIntv(2, 1)));
    EXPECT_TRUE(verTot.LosSelec().empty());
    EXPECT_EQ(plus(semana()), u"1 7 2 20 200 2000"_s);
  }
  verTot.ponerSeleccion({domingo, dia});
  EXPECT_FALSE(bien(verTot.AcumularEn(2)));  // one of them spans two weeks
  verTot.ponerSeleccion({dia, domingo});
  EXPECT_FALSE(bien(verTot.AcumularIntv(2, -1)));  // the answer of the last
  EXPECT_EQ(plus(semana()), u"1 7 0 0 0 0"_s);
}

TEST_F(ConVerTot, VeLoYaAcumulado) {
  const qint64 dia = crear(1, "05/06/2018"), mes = crear(3, "05/06/2018"),
               otro = crear(1, "06/06/2018");
  const qint64 tramo = crear(5, "05/06/2018 10:00", "05/06/2018 18:00");
  const auto chequeo = [&](qint64 link, int tipo) {
    return bien(verTot.ChequeoAcumulado(col(link), tipo));
  };
  EXPECT_EQ(chequeo(mes, 4), 0);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(4, col(dia))));
  EXPECT_EQ(chequeo(mes, 4), 1);
  EXPECT_EQ(chequeo(tramo, 4), 1);
  EXPECT_EQ(chequeo(otro, 4), 0);
  EXPECT_EQ(chequeo(dia, 4), 2);
  EXPECT_EQ(chequeo(dia, 2), 0);
  // Of what a process would count twice, the month that has the day; a span may be another group's.
  const auto dobles = [&](qint64 link) { return bien(verTot.yaAcumulados({link}, 4)).size(); };
  EXPECT_EQ(dobles(mes), 1U);
  EXPECT_EQ(dobles(tramo), 0U);
  EXPECT_EQ(dobles(otro), 0U);
  EXPECT_EQ(dobles(dia), 0U);
  // A related one precedes it in the list: it is accumulated nevertheless.
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(4, col(tramo))));
  EXPECT_EQ(chequeo(tramo, 4), 2);
}

TEST_F(ConVerTot, DescuentaUnPeriodoUnaVez) {
  const qint64 dia = crear(1, "05/06/2018"), otro = crear(1, "06/06/2018"),
               mano = crear(1, "07/06/2018", nullptr, false);
  for (const qint64 link : {dia, otro, mano}) plu(link, 7, 2);
  EXPECT_FALSE(bien(verTot.StockIntv()));
  verTot.ponerSeleccion({dia});
  EXPECT_TRUE(bien(verTot.StockIntv()));
  verTot.ponerSeleccion({mano, dia, otro});
  EXPECT_FALSE(bien(verTot.StockIntv()));
  EXPECT_EQ(venta(), u"7 4"_s);
  verTot.ponerSeleccion({dia, otro});
  EXPECT_TRUE(bien(verTot.StockIntv()));
  EXPECT_EQ(venta(), u"7 4"_s);
  verTot.ponerSeleccion({dia, otro});
  EXPECT_TRUE(bien(verTot.StockIntv(true)));
  EXPECT_EQ(venta(), QString());
}

// Other dates may leave no place in the week for its sales: they are not lost unasked.
TEST_F(ConVerTot, LasFechasNuevasNoSacanVentasDeLaSemanaSinPreguntar) {
  const qint64 tramo = crear(5, "05/06/2018 10:00", "06/06/2018 10:00");
  plu(tramo, 7, 2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(tramo))));
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(3, col(tramo))));
  const auto cambiar = [&](const char* hasta, bool aunque = false) {
    return periodos.CambiarPeriodo(tramo, 5, momento("05/06/2018 10:00"), momento(hasta), aunque);
  };
  bien(cambiar("07/06/2018 10:00"));
  EXPECT_EQ(plus(semana()), u"1 7 2 20 200 2000"_s);
  const auto mal = cambiar("12/06/2018 10:00");
  ASSERT_FALSE(mal);
  EXPECT_TRUE(mal.error().texto.contains(u"Semana 4 06 18"_s)) << mal.error().texto.toStdString();
  EXPECT_EQ(col(tramo).periodo.hasta, momento("07/06/2018 10:00"));
  EXPECT_TRUE(col(tramo).ACUM2);
  EXPECT_EQ(bien(periodos.saldriaDe(tramo, 2, momento("05/06/2018"), {})).size(), 1U);
  bien(cambiar("12/06/2018 10:00", true));
  EXPECT_EQ(plus(semana()), u"1 7 0 0 0 0"_s);
  EXPECT_FALSE(col(tramo).ACUM2);
  EXPECT_TRUE(col(tramo).ACUM3) << "the month has a place for it still";
}

TEST_F(ConVerTot, NombraLoQueUnaSumaCuentaDosVecesYLaDeshace) {
  ajustes.de<AjustesPeriodos>().FestivoSemanal[6] = true;
  const qint64 lunes = crear(1, "04/06/2018"), jueves = crear(1, "07/06/2018");
  plu(lunes, 7, 1), plu(lunes, 8, 5), plu(jueves, 7, 2), operHora(lunes, 1, 9, 1);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(lunes))));
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(3, col(semana()))));
  const qint64 mes = bien(periodos.BuscarPeriodo(3, momento("04/06/2018"), {}))->LINK;
  const auto solapes = [&](std::vector<qint64> links) {
    verTot.ponerSeleccion(links);
    QStringList textos;
    const auto suma = bien(verTot.destinoDeSuma());
    for (const auto& s : suma->solapes)
      textos << u"%1+%2%3"_s.arg(s.uno.tipo)
                    .arg(s.otro.tipo)
                    .arg(s.yaDentro ? u" dentro"_s : QString());
    return textos.join(u' ');
  };
  EXPECT_EQ(solapes({lunes, jueves}), u"1+2 dentro"_s);
  EXPECT_EQ(solapes({semana(), lunes}), u"2+1"_s);
  EXPECT_EQ(solapes({jueves}), QString());
  EXPECT_EQ(bien(verTot.destinoDeSuma())->sumandos, 0) << "a day alone is its own sum";
  EXPECT_TRUE(bien(verTot.SumarIntv()));
  EXPECT_EQ(plus(jueves), u"1 7 2 20 200 2000"_s);

  const QString antes = plus(semana());
  verTot.ponerSeleccion({lunes, jueves});
  Papelera papelera(periodos);
  const qint64 lote = bien(papelera.nuevoLote());
  EXPECT_TRUE(bien(verTot.SumarIntv(lote)));
  EXPECT_NE(bien(papelera.nuevoLote()), lote);
  EXPECT_EQ(plus(semana()), u"1 7 4 40 400 4000 | 1 8 10 100 1000 10000"_s);
  EXPECT_EQ(plus(mes), plus(semana())) << "larger periods follow";
  Sumas sumas(periodos);
  EXPECT_EQ(bien(sumas.repetidos(semana())), std::vector{col(lunes).periodo});
  EXPECT_EQ(solapes({lunes, jueves}), u"1+2 dentro 1+2 dentro"_s);
  plu(jueves, 9, 1);  // later additions to the parts don't belong to the sum
  bien(sumas.deshacer(semana(), lote));
  EXPECT_EQ(plus(semana()), antes);
  EXPECT_EQ(plus(mes), antes);
  EXPECT_EQ(leer(u"select HORA, CON from TOTOPHOR where LINK=%1"_s.arg(semana())), u"9 1"_s);
  EXPECT_TRUE(bien(sumas.repetidos(semana())).empty());
  EXPECT_FALSE(sumas.deshacer(semana(), lote));
}

// A part that the larger period of the target holds as well.
TEST_F(ConVerTot, NombraLaSemanaQueTendriaDosVecesUnSumando) {
  const qint64 dia = crear(1, "04/06/2018"),
               noche = crear(5, "04/06/2018 22:00:00", "04/06/2018 23:00:00");
  plu(dia, 7, 1), plu(noche, 7, 1);
  for (const qint64 link : {dia, noche}) EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(link))));
  verTot.ponerSeleccion({dia, noche});
  const auto suma = bien(verTot.destinoDeSuma());
  ASSERT_EQ(suma->existente->LINK, dia);
  EXPECT_TRUE(std::ranges::any_of(suma->solapes, [](const auto& s) {
    return s.uno.tipo == kOtros && s.otro.tipo == kSemanal;
  }));
}

// What the parts of the target hold themselves, and days in common that make no same period.
TEST_F(ConVerTot, NombraLoQueCuentaDosVecesPorLoQueTienenSusPartes) {
  const qint64 mes = crear(3, "01/06/2018"), semana = crear(2, "04/06/2018");
  const qint64 dia = crear(1, "06/06/2018"),
               primeros = crear(5, "01/06/2018", "06/06/2018 23:59:59"),
               demas = crear(5, "11/06/2018", "30/06/2018 23:59:59");
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  const auto comunes = [&](std::vector<qint64> links) {
    verTot.ponerSeleccion(links);
    QStringList textos;
    const auto suma = bien(verTot.destinoDeSuma());
    EXPECT_EQ(suma->existente->LINK, mes);
    for (const auto& s : suma->solapes)
      if (!s.yaDentro && s.uno.desde != momento("01/06/2018"))
        textos << TextoPeriodo(s.otro).simplified();
    return textos;
  };
  verTot.ponerSeleccion({semana, demas});
  ASSERT_TRUE(bien(verTot.SumarIntv()));
  const QString laSemana = TextoPeriodo(col(semana).periodo).simplified();
  EXPECT_EQ(comunes({primeros, dia, demas}), QStringList{laSemana});
  verTot.ponerSeleccion({primeros, demas});
  ASSERT_EQ(bien(verTot.destinoDeSuma())->solapes.size(), 2U) << "the days 1 to 6, and those held";
  EXPECT_TRUE(bien(verTot.destinoDeSuma())->solapes[1].yaDentro);
  EXPECT_EQ(bien(Sumas(periodos).contenido(col(mes))).size(), 3U) << "the week, its day, the rest";
}

// New dates of a period are those of its part of a sum and of its earlier version in the week.
TEST_F(ConVerTot, LoAnotadoDeUnPeriodoSigueASusFechas) {
  const qint64 mes = crear(3, "01/06/2018"), otro = crear(1, "07/06/2018");
  qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  dia = bien(periodos.sustituir(col(dia), u"otra"_s));
  sql(u"update TOTPLU set CON=3, PES=30, [IMP]=300, SCO=3000 where LINK=%1"_s.arg(dia));
  verTot.ponerSeleccion({dia, otro, crear(1, "20/06/2018")});
  ASSERT_TRUE(bien(verTot.SumarIntv()));
  ASSERT_TRUE(bien(Sumas(periodos).tiene(mes, col(dia).periodo)));
  bien(periodos.CambiarPeriodo(dia, 1, momento("12/06/2018"), {}));
  EXPECT_TRUE(bien(Sumas(periodos).tiene(mes, col(dia).periodo)));
  EXPECT_EQ(plus(semana()), u"1 7 0 0 0 0"_s) << "the earlier version has left the old week";
  const qint64 nueva = bien(periodos.BuscarPeriodo(2, momento("12/06/2018"), {}))->LINK;
  EXPECT_EQ(plus(nueva), u"1 7 2 20 200 2000"_s);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_EQ(plus(nueva), u"1 7 3 30 300 3000"_s);
  EXPECT_EQ(leer(u"select count(*) from Sustituidos"_s), u"0"_s);
}

// A sum into a period made for it leaves nothing when undone.
TEST_F(ConVerTot, LaSumaEnUnPeriodoNuevoVaEntera) {
  const qint64 a = crear(1, "04/06/2018"), b = crear(1, "05/06/2018");
  plu(a, 7, 1), plu(b, 8, 2);
  verTot.ponerSeleccion({a, b});
  const auto suma = bien(verTot.destinoDeSuma());
  const qint64 total = bien(periodos.CrearPeriodo(suma->periodo.tipo, suma->periodo.desde,
                                                  suma->periodo.hasta, false, {}));
  EXPECT_TRUE(bien(verTot.SumarIntv(9)));
  EXPECT_EQ(plus(total), u"1 7 1 10 100 1000 | 1 8 2 20 200 2000"_s);
  bien(Sumas(periodos).deshacer(total, 9, true));
  EXPECT_FALSE(bien(periodos.columna(total)));
  EXPECT_EQ(leer(u"select count(*) from Sumados"_s), u"0"_s);
}

TEST_F(ConVerTot, SumaEnUnPeriodoQueExiste) {
  ajustes.de<AjustesPeriodos>().FestivoSemanal[6] = true;
  const qint64 lunes = crear(1, "04/06/2018"), jueves = crear(1, "07/06/2018");
  plu(lunes, 7, 1), plu(jueves, 7, 2);
  EXPECT_FALSE(bien(verTot.SumarIntv()));
  verTot.ponerSeleccion({lunes, jueves});
  EXPECT_FALSE(bien(verTot.SumarIntv()));
  EXPECT_EQ(semana(), 0);
  const qint64 destino = crear(2, "04/06/2018");
  plu(destino, 7, 10);
  verTot.ponerSeleccion({lunes, jueves, destino});
  EXPECT_TRUE(bien(verTot.SumarIntv()));
  EXPECT_EQ(plus(destino), u"1 7 13 130 1300 13000"_s);
  EXPECT_FALSE(col(lunes).ACUM2);
}

}  // namespace
