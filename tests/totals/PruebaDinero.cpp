#include "core/dinero/Dinero.h"
#include "totals/periodos/Clases.h"

using namespace tarvo;
using namespace tarvo::totals;
using namespace Qt::StringLiterals;

namespace {

Ajustes ajustesDe(int nativa, Idioma idioma = Idioma::Espanol) {
  Ajustes a(u"/tienda"_s, idioma);
  a.MonedaNativa = nativa;
  a.Euro = 166.386F;
  a.decimalesLocal = 0;
  return a;
}

TEST(Dinero, ElImporteGuardadoSeMuestra) {
  struct Caso {
    int nativa, moneda;
    qint64 n;
    const char* texto;
  };
  const Caso casos[] = {
      {1, 1, 0, "0,00"},
      {1, 1, 5, "0,05"},
      {1, 1, 123456789, "1.234.567,89"},
      {1, 1, -123456, "-1.234,56"},
      {1, 1, -5, "-0,05"},
      {1, 1, 9007199254740993, "90.071.992.547.409,93"},
      {1, 0, 100, "166"},
      {1, 0, 1000000, "1.663.860"},
      {0, 0, 1234567, "1.234.567"},
      {0, 1, 166386, "1.000,00"},
      {0, 1, -83193, "-500,00"},
      {0, 1, 1, "0,01"},
  };
  for (const Caso& c : casos)
    EXPECT_EQ(VerImporte(ajustesDe(c.nativa), c.n, c.moneda), QString::fromUtf8(c.texto)) << c.n;
  EXPECT_EQ(VerImporte(ajustesDe(1, Idioma::UK), 123456, 1), u"1,234.56"_s);
}

TEST(Dinero, ElImporteMostradoSeGuarda) {
  struct Caso {
    int nativa, moneda;
    const char* texto;
    qint64 n;
  };
  // "1,005" as written, though the double is just below.
  const Caso casos[] = {
      {1, 1, "1,006", 101},
      {1, 1, "1,005", 101},
      {1, 1, "4,035", 404},
      {1, 1, "1,0049999", 100},
      {1, 1, " 1.234,56 ", 123456},
      {1, 1, "-1,25", -125},
      {1, 1, "-1,256", -126},
      {1, 1, "+2", 200},
      {1, 1, ",5", 50},
      {1, 1, "5,", 500},
      {0, 1, "1.000", 166386},
      {1, 0, "166,386", 100},
      {0, 0, "12,5", 13},
      {1, 1, "", 0},
      {1, 1, "doce", 0},
      {1, 1, "1,2,3", 0},
      {1, 1, "1.5", 150},  // the keypad's point
      {1, 1, "-12.75", -1275},
      {1, 1, "1.500", 150000},
      {1, 1, "0.250", 25},
      {1, 1, "1234.567", 123457},
      {1, 1, "12.34.56", 0},
      {1, 1, "5.", 0},
      {1, 1, "12.34,5", 0},
      {1, 1, "-", 0},
      {1, 1, "99999999999999999999", 0},
  };
  for (const Caso& c : casos)
    EXPECT_EQ(AImporte(ajustesDe(c.nativa), QString::fromUtf8(c.texto), c.moneda), c.n) << c.texto;
}

// What reading would round away; zeros at the end take nothing.
TEST(Dinero, DecimalesQueNoCaben) {
  const std::tuple<int, const char*, bool> importes[] = {
      {1, "2,999", true},  {1, "2.9999", true}, {1, "2,99", false},  {1, "2,990", false},
      {1, "2.999", false}, {0, "2,5", true},    {0, "1.500", false}, {1, "doce", false}};
  for (const auto& [moneda, texto, sobran] : importes)
    EXPECT_EQ(SobranDecimales(ajustesDe(1), QString::fromUtf8(texto), moneda), sobran) << texto;
  const std::tuple<int, const char*, bool> cantidades[] = {
      {0, "1,234", false}, {0, "1,2345", true}, {2, "7", false}, {2, "7,9", true}};
  for (const auto& [cada, texto, sobran] : cantidades)
    EXPECT_EQ(SobranDecimales(Idioma::Espanol, QString::fromUtf8(texto), cada), sobran) << texto;
  const std::pair<const char*, std::optional<int>> tantos[] = {
      {"5.5", 550},   {"5,5", 550}, {" 21 ", 2100}, {"-3,25", -325}, {"5,555", {}},
      {"5,500", 550}, {"", {}},     {"1.2.3", {}},  {"99999999", {}}};
  for (const auto& [texto, centesimas] : tantos)
    EXPECT_EQ(LeerCentesimas(QString::fromUtf8(texto)), centesimas) << texto;
}

TEST(Dinero, LoLeidoDeDosModos) {
  struct Caso {
    const char *texto, *entera, *decimal, *conPeso;  // as money, and as a weight; empty: in one way
  };
  const Caso casos[] = {
      {"1.239", "1239", "1,24", "1,239"},
      {" -12.500 ", "-12500", "-12,50", "-12,500"},
      {"999.999", "999999", "1.000,00", "999,999"},
      {"1239", "", "", ""},
      {"1,239", "", "", ""},
      {"1.239,00", "", "", ""},
      {"1.239.000", "", "", ""},
      {"0.250", "", "", ""},
      {"1.5", "", "", ""},
      {"1.23x", "", "", ""},
  };
  const Ajustes a = ajustesDe(1);
  for (const Caso& c : casos) {
    const auto texto = QString::fromUtf8(c.texto);
    const auto dinero = LeidoDeDosModos(a, texto, 1),
               peso = LeidoDeDosModos(Idioma::Espanol, texto, 0);
    EXPECT_EQ(dinero ? dinero->entera : QString(), QString::fromUtf8(c.entera)) << c.texto;
    EXPECT_EQ(dinero ? dinero->decimal : QString(), QString::fromUtf8(c.decimal)) << c.texto;
    EXPECT_EQ(peso ? peso->decimal : QString(), QString::fromUtf8(c.conPeso)) << c.texto;
    EXPECT_FALSE(LeidoDeDosModos(a, texto, 0)) << "no decimals fit";
    EXPECT_FALSE(LeidoDeDosModos(Idioma::Espanol, texto, 2)) << "no decimals fit";
  }
  EXPECT_TRUE(LeidoDeDosModos(ajustesDe(1, Idioma::UK), u"1,239"_s, 1));
  EXPECT_FALSE(LeidoDeDosModos(ajustesDe(1, Idioma::UK), u"1.239"_s, 1));
}

TEST(Dinero, LosFactoresDividenLoGuardado) {
  const double euro = static_cast<double>(166.386F);
  EXPECT_EQ(FactorMoneda(ajustesDe(1), 1), 100.0);
  EXPECT_EQ(FactorMoneda(ajustesDe(1), 0), 100.0 / euro);
  EXPECT_EQ(FactorMoneda(ajustesDe(0), 0), 1.0);
  EXPECT_EQ(FactorMoneda(ajustesDe(0), 1), euro);
  Ajustes sinCambio = ajustesDe(1);
  sinCambio.Euro = 0;
  EXPECT_EQ(FactorMoneda(sinCambio, 0), 100.0);
}

TEST(Dinero, LasCantidadesSonGramosOUnidades) {
  EXPECT_EQ(VerCantidad(Idioma::Espanol, 1234567, 0), u"1.234,567"_s);
  EXPECT_EQ(VerCantidad(Idioma::Espanol, -5, 1), u"-0,005"_s);
  EXPECT_EQ(VerCantidad(Idioma::Espanol, 1234567, 2), u"1.234.567"_s);
  EXPECT_EQ(ACantidad(Idioma::Espanol, u"1,2345"_s, 0), 1235);
  EXPECT_EQ(ACantidad(Idioma::Espanol, u"7,9"_s, 2), 7);
  EXPECT_EQ(ACantidad(Idioma::Espanol, u"3.000.000"_s, 0), 0);  // above 32 bits
  EXPECT_EQ(ACantidad(Idioma::Espanol, u"kilo"_s, 0), 0);
  // With the separators of the language, as money has them.
  EXPECT_EQ(VerCantidad(Idioma::UK, 1234567, 0), u"1,234.567"_s);
  EXPECT_EQ(ACantidad(Idioma::UK, u"1,234.567"_s, 0), 1234567);
  EXPECT_TRUE(SobranDecimales(Idioma::UK, u"1.2345"_s, 0));
  EXPECT_TRUE(LeidoDeDosModos(Idioma::UK, u"1,239"_s, 0));
}

TEST(Clases, SalenDeSuTipo) {
  for (const TipoTotal t : todosLos<TipoTotal>()) {
    EXPECT_EQ(claseDe(t).tipo, t);
    EXPECT_EQ(totalDe(lecturaDe(t)), t);
  }
  EXPECT_EQ(NombreTabla(TipoTotal::OperHora), u"TOTOPHOR"_s);
  EXPECT_EQ(NombreVista(TipoTotal::OperHora), u"QNTOPH"_s);
  EXPECT_EQ(CodigoTotales(TipoTotal::Horario), u"06"_s);
  EXPECT_EQ(CampoSesion(TipoTotal::PLUs), u"SS_PLU"_s);
  EXPECT_EQ(enVigor(ajustesDe(1)).size(), 6U);
  EXPECT_EQ(enVigor(ajustesDe(1, Idioma::UK)).back().tipo, TipoTotal::Horario);
}

}  // namespace
