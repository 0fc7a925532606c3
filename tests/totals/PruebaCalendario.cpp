#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/Calendario.h"

using namespace tarvo;
using namespace tarvo::totals;
using namespace Qt::StringLiterals;

namespace {

Fecha f(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

// 08:00 to 20:00: the core of the day is 11:00 to 17:00.
struct Tienda {
  Ajustes ajustes{u"/tienda"_s, Idioma::Espanol, {totals::ajustesPeriodos()}};
  Calendario calendario{ajustes};
  Periodo periodo(const char* desde, const char* hasta, const char* horario = "") const {
    return calendario.DeterminarPeriodo(f(desde), f(hasta),
                                        LeerHorario(QString::fromUtf8(horario)));
  }
};

TEST(Calendario, LosLimitesSonLosMismosPorCadaCamino) {
  struct Caso {
    int tipo;
    const char *momento, *desde, *ultimoDia;
  };
  const Caso casos[] = {
      {1, "10/06/2018 13:14:15", "10/06/2018", "10/06/2018"},
      {1, "10/06/2018 23:59:59", "10/06/2018", "10/06/2018"},
      {2, "10/06/2018 23:59:59", "04/06/2018", "10/06/2018"},  // a Sunday
      {2, "04/06/2018", "04/06/2018", "10/06/2018"},           // a Monday
      {2, "31/12/2020 10:00", "28/12/2020", "03/01/2021"},     // week 53
      {3, "15/02/2020 08:00", "01/02/2020", "29/02/2020"},
      {3, "15/02/2019", "01/02/2019", "28/02/2019"},
      {3, "15/02/1900", "01/02/1900", "28/02/1900"},
      {3, "31/12/2018 23:00", "01/12/2018", "31/12/2018"},
      {4, "29/02/2020 01:00", "01/01/2020", "31/12/2020"},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.momento);
    const Periodo p = LimitesPeriodo(c.tipo, f(c.momento), Fecha{});
    EXPECT_EQ(p.desde, f(c.desde));
    EXPECT_EQ(p.hasta.dias(), f(c.ultimoDia).dias() + Fecha::kUltimoSegundo);
    EXPECT_EQ(p.hasta.horaLarga(), u"23:59:59"_s);
    EXPECT_EQ(LimitesPeriodo(c.tipo, p.hasta, p.hasta), p);
  }
  const Periodo crudo{kOtros, f("01/01/2018 01:02:03"), f("01/01/2017")};
  EXPECT_EQ(LimitesPeriodo(kOtros, crudo.desde, crudo.hasta), crudo);
  const Fecha nunca = Fecha::deDias(1e300);
  EXPECT_EQ(LimitesPeriodo(kAnual, nunca, nunca), (Periodo{kAnual, nunca, nunca}));
}

TEST(Calendario, UnIntervaloEsElPeriodoDeSusHorasDeTrabajo) {
  struct Caso {
    const char *desde, *hasta;
    int tipo;
    const char* inicio;
  };
  const Caso casos[] = {
      {"05/06/2018 21:00", "06/06/2018 21:30", 1, "06/06/2018"},
      {"05/06/2018 21:00", "06/06/2018 14:00", 5, nullptr},  // read within hours
      {"06/06/2018 14:00", "06/06/2018 21:00", 5, nullptr},  // zeroed within hours
      {"05/06/2018 21:00", "06/06/2018 17:00", 5, nullptr},  // no step saw the end of the day
      {"05/06/2018 21:00", "06/06/2018 17:30:01", 1, "06/06/2018"},
      {"06/06/2018 11:00", "06/06/2018 20:00", 1, "06/06/2018"},  // the edge of the core is outside
      {"05/06/2018 23:59:59", "07/06/2018 00:00:00", 1, "06/06/2018"},
      {"28/02/2020 21:00", "29/02/2020 21:00", 1, "29/02/2020"},
      {"04/06/2018 21:00", "06/06/2018 21:30", 5, nullptr},       // two days
      {"04/06/2018 06:00", "06/06/2018 21:30", 2, "04/06/2018"},  // Monday to Wednesday
      {"09/06/2018 21:00", "12/06/2018 21:30", 5, nullptr},       // across Sunday
      {"30/12/2018 21:00", "04/01/2019 21:00", 2, "31/12/2018"},  // across the year
      {"31/05/2018 21:00", "30/06/2018 21:00", 3, "01/06/2018"},
      {"01/06/2018 06:00", "30/06/2018 21:00", 3, "01/06/2018"},
      {"01/01/2018 00:00", "31/12/2018 23:59:59", 4, "01/01/2018"},
      {"31/12/2019 21:00", "31/12/2020 21:00", 4, "01/01/2020"},
      {"06/06/2018 21:00", "06/06/2018 21:00", 5, nullptr},  // nothing
      {"06/06/2018 21:30", "05/06/2018 21:00", 5, nullptr},  // ends before it begins
      {"01/01/2000", "06/06/2018 21:00", 5, nullptr},        // never zeroed
  };
  const Tienda t;
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.desde);
    SCOPED_TRACE(c.hasta);
    const Periodo p = t.periodo(c.desde, c.hasta);
    const Periodo quiere = c.inicio ? LimitesPeriodo(c.tipo, f(c.inicio), {})
                                    : Periodo{kOtros, f(c.desde), f(c.hasta)};
    EXPECT_EQ(p, quiere) << TextoPeriodo(p).toStdString();
  }
}

TEST(Calendario, ElIntervaloMayorEsExacto) {
  Tienda t;
  t.ajustes.de<AjustesPeriodos>().FestivoSemanal = {false, true, true, true,
                                                    true,  true, true};  // Mondays only
  EXPECT_EQ(t.periodo("03/06/2018 21:00", "07/06/2018 21:00").tipo, kDiario);
  const Fecha desde = f("03/06/2018 21:00");
  const Calendario& c = t.calendario;
  EXPECT_TRUE(c.IntervaloDominante(kDiario, desde, desde + 4.0, {}));
  EXPECT_FALSE(c.IntervaloDominante(kDiario, desde, desde + 4.0001, {}));
  EXPECT_FALSE(c.IntervaloDominante(kSemanal, desde, desde + 4.0, {}));
}

TEST(Calendario, CuentanLosDiasCerradosYLasHorasPropias) {
  Tienda t;
  t.ajustes.de<AjustesPeriodos>().FestivoSemanal[6] = true;  // Sunday
  EXPECT_EQ(t.periodo("09/06/2018 21:00", "10/06/2018 21:00").tipo, kOtros);
  EXPECT_EQ(t.periodo("08/06/2018 21:00", "10/06/2018 21:00"),
            LimitesPeriodo(kDiario, f("09/06/2018"), {}));
  // The group's own hours override the holidays of the settings.
  const char* domingos = "||||||||||||10:00|14:00";
  EXPECT_EQ(t.periodo("09/06/2018 14:00", "10/06/2018 14:00", domingos),
            LimitesPeriodo(kDiario, f("10/06/2018"), {}));
  // A bar, 20:00 to 04:00: the core crosses midnight, and its two halves belong to the first day.
  const char* bar =
      "20:00|04:00||20:00|04:00||20:00|04:00||20:00|04:00||20:00|04:00||20:00|04:00||20:00|04:00";
  EXPECT_FALSE(t.calendario.EnHorario(f("06/06/2018 22:00"), LeerHorario(QString::fromUtf8(bar))));
  EXPECT_TRUE(
      t.calendario.EnHorario(f("06/06/2018 22:00:01"), LeerHorario(QString::fromUtf8(bar))));
  EXPECT_TRUE(t.calendario.EnHorario(f("06/06/2018"), LeerHorario(QString::fromUtf8(bar))));
  EXPECT_FALSE(t.calendario.EnHorario(f("06/06/2018 02:00"), LeerHorario(QString::fromUtf8(bar))));
}

TEST(Calendario, LosBordesDelCentroQuedanFueraTodosLosDias) {
  const Tienda t;
  for (Fecha d = f("01/01/1990"); d < f("01/01/2030"); d = d + 1) {
    const double dia = d.dias();
    for (const int hora : {11, 17})
      ASSERT_FALSE(t.calendario.EnHorario(Fecha::deDias(dia + hora * 3600 / 86400.0), {})) << dia;
    ASSERT_TRUE(t.calendario.EnHorario(Fecha::deDias(dia + 39601 / 86400.0), {})) << dia;
    ASSERT_TRUE(t.calendario.EnHorario(Fecha::deDias(dia + 61199 / 86400.0), {})) << dia;
  }
}

TEST(Calendario, LeeYEscribeElHorarioPorDias) {
  EXPECT_FALSE(LeerHorario(QString()));
  const auto h = LeerHorario(u"08:00|20:00||9:30||nada||10:00|25:00||||07:00|07:30"_s);
  ASSERT_TRUE(h);
  EXPECT_EQ((*h)[0], (Jornada{8 / 24.0, 20 / 24.0}));
  for (const size_t cerrado : {1U, 2U, 3U, 4U, 6U}) EXPECT_FALSE((*h)[cerrado]) << cerrado;
  EXPECT_EQ((*h)[5], (Jornada{7 / 24.0, 27000 / 86400.0}));
  EXPECT_EQ(LeerHorario(EscribirHorario(h)), h);
  EXPECT_EQ(LeerHorario(EscribirHorario(Horario{})), Horario{});
  EXPECT_EQ(EscribirHorario(Horario{}), QString(u'|').repeated(14));  // each day ends its entry
  EXPECT_EQ(EscribirHorario(std::nullopt), QString());
}

TEST(Calendario, ElPeriodoSeDiceSegunSuClase) {
  const std::pair<Periodo, const char*> casos[] = {
      {{1, f("04/06/2018"), {}}, "4 junio 2018    (DIARIO)"},
      {{2, f("04/06/2018"), {}}, "Semana 4 06 18    (SEMANAL)"},
      {{3, f("01/09/2018"), {}}, "2018 septiembre    (MENSUAL)"},
      {{4, f("01/01/2018"), {}}, "Año 2018    (ANUAL)"},
      {{5, f("04/06/2018 09:05:07"), f("05/06/2018")},
       "04/06/18  09:05:07 --- 05/06/18  00:00:00    (OTROS)"},
  };
  for (const auto& [p, texto] : casos) EXPECT_EQ(TextoPeriodo(p), QString::fromUtf8(texto));
}

}  // namespace
