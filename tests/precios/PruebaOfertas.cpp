#include "articles/precios/Ofertas.h"
#include "precios/TiendaDePrecios.h"

using namespace tarvo;
using namespace tarvo::precios;
using tarvo::prueba::bien;
using tarvo::prueba::momento;
using namespace Qt::StringLiterals;

namespace {

Dia dia(const char* texto) {
  return *texto ? Dia(momento(texto)) : Dia();
}

const QString kSinEnviado =
    u"select GRUPO, CODIGO, PRECIO_0, FECHA_INI, FECHA_FIN, borrado from OFERTAS order by GRUPO"_s;

struct ConOfertas : testing::Test, prueba::TiendaDePrecios {
  Ofertas ofertas{*db, textosDePrueba(), reloj};

  void poner(int grupo, int codigo, qint64 precio, const char* desde, const char* hasta,
             bool enviado = false, bool borrado = false) {
    oferta({grupo, codigo, precio, comoValor(dia(desde)), comoValor(dia(hasta)), enviado});
    if (borrado) sql(u"update OFERTAS set borrado=1 where GRUPO=? and CODIGO=?"_s, grupo, codigo);
  }
  OfertaNueva nueva(int codigo, qint64 precio, const char* desde, const char* hasta) {
    return {1, codigo, {precio, 0, 0}, *Vigencia::de(dia(desde), dia(hasta))};
  }
  QString filas() {
    return leer(
        u"select GRUPO, CODIGO, PRECIO_0, FECHA_INI, FECHA_FIN, enviado, borrado from OFERTAS "
        "order by CODIGO, GRUPO"_s);
  }
};

TEST_F(ConOfertas, NingunaOfertaAcabaAntesDeEmpezar) {
  EXPECT_FALSE(Vigencia::de(dia("06/06/2018"), dia("05/06/2018")));
  EXPECT_TRUE(Vigencia::de(dia("06/06/2018 20:00"), dia("06/06/2018 09:00"))) << "days count whole";
  EXPECT_TRUE(Vigencia::de({}, dia("05/06/2018")));
}

// What happens to an existing offer of the group, and whether the article becomes due to the
// scales.
TEST_F(ConOfertas, GuardarSobreLoQueHay) {
  const struct {
    const char* que;
    qint64 precio;  // of the old one, 0 for none
    bool enviado, borrado;
    const char* desde;
    const char *fila, *loTienen;
    bool pregunta;
  } casos[] = {
      {"none", 0, false, false, "", "1 10 800 - 43261 0 0", "1 | 2", false},
      {"never sent", 700, false, false, "", "1 10 800 - 43261 0 0", "1 | 2", true},
      {"sent, other price", 700, true, false, "", "1 10 800 - 43261 0 0", "2", true},
      {"sent, same price", 800, true, false, "", "1 10 800 - 43261 1 0", "1 | 2", true},
      {"sent, begins later", 800, true, false, "08/06/2018", "1 10 800 43259 43261 1 0", "2", true},
      {"waits to go", 800, true, true, "", "1 10 800 - 43261 1 0", "1 | 2", false},
      {"waits to go, other price", 700, true, true, "", "1 10 800 - 43261 0 0", "2", false},
  };
  const std::array grupos{1};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.que);
    sql(u"delete from OFERTAS"_s);
    sql(u"delete from [Cross] where plu=10"_s);
    for (const int g : grupos)
      for (const int otro : {g, 2}) cruce(otro, {10});
    if (c.precio > 0) poner(1, 10, c.precio, "01/06/2018", "", c.enviado, c.borrado);
    EXPECT_EQ(bien(ofertas.ocupados(1, 10, grupos)).size(), c.pregunta ? 1U : 0U);
    const QString antes = leer(kSinEnviado);
    const auto alta = bien(ofertas.guardar(nueva(10, 800, c.desde, "10/06/2018"), grupos));
    EXPECT_EQ(filas(), QString::fromLatin1(c.fila));
    EXPECT_EQ(loTienen(10), QString::fromLatin1(c.loTienen));
    // Taken back; the scales that held one that waited to go are still to forget it.
    EXPECT_EQ(bien(ofertas.deshacer(alta)), 0);
    EXPECT_EQ(leer(kSinEnviado), antes);
    EXPECT_EQ(leer(u"select count(*) from OFERTAS where borrado and not enviado"_s), u"0");
  }
}

// One that was changed afterwards stays; one that the scales hold by now waits to be removed.
TEST_F(ConOfertas, LaOfertaNuevaSeDeshaceSiSigueComoEstaba) {
  const std::array grupos{1, 2, 3};
  const auto alta = bien(ofertas.guardar(nueva(10, 800, "", "10/06/2018"), grupos));
  sql(u"update OFERTAS set enviado=1 where GRUPO=2"_s);
  sql(u"update OFERTAS set PRECIO_0=1 where GRUPO=3"_s);
  EXPECT_EQ(bien(ofertas.deshacer(alta)), 1);
  EXPECT_EQ(filas(), u"2 10 800 - 43261 1 1 | 3 10 1 - 43261 0 0");
  EXPECT_EQ(ofertas.deshacer(alta).error().clase, Fallo::Restriccion);
}

TEST_F(ConOfertas, LosPreciosVanALosDemasGruposSiSePide) {
  poner(1, 10, 700, "01/06/2018", "", true);
  poner(2, 10, 650, "", "09/06/2018", true);
  poner(3, 10, 650, "", "", true, true);
  poner(2, 11, 650, "", "", true);
  EXPECT_EQ(bien(ofertas.ponerPrecios({1, 1, 10}, {750, 0, 0}, false)).otras(), 0);
  EXPECT_EQ(filas(),
            u"1 10 750 43252 - 0 0 | 2 10 650 - 43260 1 0 | 3 10 650 - - 1 1 | 2 11 650 - - 1 0");
  EXPECT_EQ(loTienen(10), u"2");
  EXPECT_EQ(bien(ofertas.ponerPrecios({1, 1, 10}, {760, 0, 0}, true)).otras(), 1);
  EXPECT_EQ(filas(),
            u"1 10 760 43252 - 0 0 | 2 10 760 43252 - 0 0 | 3 10 650 - - 1 1 | 2 11 650 - - 1 0");
  EXPECT_EQ(loTienen(10), u"");
  EXPECT_EQ(loTienen(11), u"1 | 2");
  EXPECT_EQ(ofertas.ponerPrecios({3, 1, 10}, {1, 0, 0}, false).error().clase, Fallo::NoExiste);
}

TEST_F(ConOfertas, LasFechasDeTodasCambianYVuelven) {
  poner(1, 10, 700, "01/06/2018", "10/06/2018");
  poner(1, 11, 700, "01/07/2018", "");
  poner(1, 12, 700, "01/06/2018", "", true, true);
  poner(2, 10, 700, "02/06/2018", "10/06/2018", true);
  const QString antes = filas();
  const FiltroOfertas deUno{1}, deUnoHasta{1, {}, dia("30/06/2018")};
  EXPECT_EQ(bien(ofertas.contar(deUno, false)), 2);
  EXPECT_EQ(bien(ofertas.contar(deUno, true)), 3);
  EXPECT_EQ(bien(ofertas.contar(deUnoHasta, true)), 2);

  const auto mal = ofertas.cambiarFechas(deUno, true, Extremo::Hasta, dia("15/06/2018"));
  ASSERT_FALSE(mal);
  EXPECT_TRUE(mal.error().texto.startsWith(u"1 oferta acabaría antes")) << "11 begins in July";
  EXPECT_EQ(filas(), antes);

  const auto cambio = bien(ofertas.cambiarFechas(deUno, false, Extremo::Hasta, {}));
  EXPECT_EQ(filas(),
            u"1 10 700 43252 - 0 0 | 2 10 700 43253 43261 1 0 | 1 11 700 43282 - 0 0 | "
            u"1 12 700 43252 - 1 1");
  EXPECT_EQ(bien(ofertas.deshacer(cambio)), 2);
  EXPECT_EQ(filas(), antes);

  // An offer on the scales that now begins later: the normal price must go back to them.
  const auto luego =
      bien(ofertas.cambiarFechas(deUnoHasta, true, Extremo::Desde, dia("07/06/2018")));
  EXPECT_EQ(luego.filas.size(), 2U);
  EXPECT_EQ(loTienen(10), u"1");
  sql(u"delete from OFERTAS where GRUPO=1 and CODIGO=10"_s);
  EXPECT_EQ(bien(ofertas.deshacer(luego)), 1) << "the other one is gone";
}

TEST_F(ConOfertas, SeBorraAquiOEnTodosLosGrupos) {
  const auto montar = [&] {
    sql(u"delete from OFERTAS"_s);
    poner(1, 10, 700, "01/06/2018", "");
    poner(2, 10, 650, "01/06/2018", "", true);
    poner(3, 10, 650, "02/06/2018", "", true);  // other days: not the same offer
    poner(1, 11, 700, "", "", true);
    poner(2, 11, 700, "", "");
    poner(3, 11, 700, "", "", true, true);
  };
  const std::array claves{ClaveOferta{1, 1, 10}, ClaveOferta{1, 1, 11}};
  montar();
  EXPECT_EQ(bien(ofertas.contarIguales(claves)), 4);
  EXPECT_EQ(bien(ofertas.borrar(claves, false)).size(), 2U);
  EXPECT_EQ(leer(u"select GRUPO, CODIGO, borrado from OFERTAS order by CODIGO, GRUPO"_s),
            u"2 10 0 | 3 10 0 | 1 11 1 | 2 11 0 | 3 11 1");
  montar();
  EXPECT_EQ(bien(ofertas.borrar(claves, true)).size(), 4U);
  EXPECT_EQ(leer(u"select GRUPO, CODIGO, borrado from OFERTAS order by CODIGO, GRUPO"_s),
            u"2 10 1 | 3 10 0 | 1 11 1 | 3 11 1");
}

// The end of an offer as typed on 27 November. An end without its year never becomes one of another
// year by itself.
TEST(Vigencia, ElFinalComoSeEscribe) {
  const struct {
    const char16_t *texto, *desde, *queda, *proximo;
  } casos[] = {{u"", u"", u"", u""},
               {u"30/11", u"", u"30/11/2026", u""},
               {u"27/11", u"", u"27/11/2026", u""},
               {u"15/11", u"", u"", u"15/11/2027"},
               {u"15/11", u"30/11/2026", u"", u"15/11/2027"},
               {u"15/11", u"30/11/2030", u"", u"15/11/2031"},
               {u"15/12", u"30/11/2030", u"15/12/2030", u""},
               {u"15/12", u"01/12/2025", u"15/12/2026", u""},
               {u"06/01", u"20/12/2026", u"", u"06/01/2027"},
               {u"06/01/2027", u"20/12/2026", u"06/01/2027", u""},
               {u"29/02", u"", u"", u"29/02/2028"},
               {u"31/02", u"", u"", u""},
               {u"pronto", u"", u"", u""}};
  for (const auto& c : casos) {
    const std::string cual = QString::fromUtf16(c.texto).toStdString();
    const auto corta = [](const Dia& d) { return d ? d->corta() : QString(); };
    const auto leido = leerFin(QString::fromUtf16(c.texto), Fecha::leer(c.desde),
                               Fecha::de(QDate(2026, 11, 27), QTime(18, 0)));
    EXPECT_EQ(leido.has_value(), *c.queda || !*c.texto) << cual;
    EXPECT_EQ(corta(leido ? *leido : Dia()), QString::fromUtf16(c.queda)) << cual;
    EXPECT_EQ(corta(leido ? Dia() : leido.error().proximo), QString::fromUtf16(c.proximo)) << cual;
  }
}

}  // namespace
