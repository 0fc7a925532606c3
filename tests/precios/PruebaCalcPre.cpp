#include "articles/precios/CalcPre.h"
#include "precios/TiendaDePrecios.h"

using namespace tarvo;
using namespace tarvo::precios;
using tarvo::prueba::bien;

namespace {

CalcPre con(ModoIva modo, qint64 redondeo, double iva) {
  CalcPre c(modo, redondeo);
  c.ponerIva(iva);
  return c;
}

TEST(CalcPre, ElRedondeoSoloSube) {
  const struct {
    qint64 n, paso, sale;
  } casos[] = {{1001, 5, 1005},   {1000, 5, 1000}, {1001, 0, 1001}, {1001, -5, 1001},
               {-1001, 5, -1000}, {-1, 5, 0},      {0, 5, 0},       {1, 1, 1}};
  for (const auto& c : casos) EXPECT_EQ(haciaArriba(c.n, c.paso), c.sale) << c.n << '/' << c.paso;
}

TEST(CalcPre, AlEntrarEnUnaCelda) {
  const struct {
    const char* que;
    ModoIva modo;
    qint64 redondeo;
    double iva;
    qint64 coste, precio;
    CalcPre::Cifras sale;
  } casos[] = {
      {"margin of a price with its VAT inside",
       ModoIva::Incluido,
       0,
       21,
       500,
       750,
       {500, 0, 500, 50, 250, 750, 0, 750, 750}},
      {"rounded", ModoIva::Incluido, 5, 21, 500, 751, {500, 0, 500, 50.2, 251, 751, 0, 751, 755}},
      {"VAT apart",
       ModoIva::Detallado,
       0,
       10,
       500,
       1100,
       {500, 50, 550, 100, 500, 1000, 100, 1100, 1100}},
      // 1005 / 1.21 is 831, and 831 with its VAT 1006: the cell's price isn't altered by it
      {"parts that don't add up",
       ModoIva::Detallado,
       0,
       21,
       831,
       1005,
       {831, 175, 1006, 0, 0, 831, 174, 1005, 1005}},
      {"no cost", ModoIva::Detallado, 0, 10, 0, 1100, {0, 0, 0, 0, 0, 1000, 100, 1100, 1100}},
      {"below the cost",
       ModoIva::Incluido,
       0,
       0,
       500,
       250,
       {500, 0, 500, -50, -250, 250, 0, 250, 250}},
  };
  for (const auto& c : casos) {
    CalcPre calc = con(c.modo, c.redondeo, c.iva);
    calc.entrar(c.coste, c.precio);
    EXPECT_EQ(calc.cifras(), c.sale) << c.que << ": " << calc.cifras().pcMarg << ' '
                                     << calc.cifras().VentaN << ' ' << calc.cifras().PVP;
  }
}

TEST(CalcPre, LoQueCambiaUnaPersona) {
  const struct {
    const char* que;
    void (*hacer)(CalcPre&);
    double pcMarg;
    qint64 VentaN, Calcu, PVP;
  } casos[] = {
      {"cost", [](CalcPre& c) { c.ponerCoste(600); }, 100, 1200, 1320, 1320},
      {"margin", [](CalcPre& c) { c.ponerPcMargen(33.335); }, 33.335, 667, 734, 734},
      {"amount", [](CalcPre& c) { c.ponerMargen(250); }, 50, 750, 825, 825},
      {"net price", [](CalcPre& c) { c.ponerVenta(600); }, 20, 600, 660, 660},
      {"price", [](CalcPre& c) { c.ponerCalculado(999); }, 81.6, 908, 999, 999},
      {"step", [](CalcPre& c) { c.ponerRedondeo(50); }, 100, 1000, 1100, 1100},
      {"rate", [](CalcPre& c) { c.ponerIva(21); }, 100, 1000, 1210, 1210},
      {"no rate", [](CalcPre& c) { c.ponerIva({}); }, 100, 1000, 1000, 1000},
      {"the other way", [](CalcPre& c) { c.ponerModo(ModoIva::Incluido); }, 120, 1100, 1100, 1100},
      {"no margin at all", [](CalcPre& c) { c.ponerPcMargen(std::nan("")); }, 0, 500, 550, 550},
      {"no cost", [](CalcPre& c) { c.ponerCoste(0); }, 0, 1000, 1100, 1100},
      {"a cost at last", [](CalcPre& c) { c.ponerCoste(0), c.ponerCoste(800); }, 25, 1000, 1100,
       1100},
      {"price without a cost", [](CalcPre& c) { c.ponerCoste(0), c.ponerVenta(700); }, 0, 700, 770,
       770},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.que);
    CalcPre c = con(ModoIva::Detallado, 0, 10);
    c.entrar(500, 1100);
    caso.hacer(c);
    EXPECT_DOUBLE_EQ(c.cifras().pcMarg, caso.pcMarg);
    EXPECT_EQ(c.cifras().VentaN, caso.VentaN);
    EXPECT_EQ(c.cifras().Calcu, caso.Calcu);
    EXPECT_EQ(c.cifras().PVP, caso.PVP);
  }
}

TEST(CalcPre, ElMargenBloqueadoMandaEnLasCeldas) {
  CalcPre c = con(ModoIva::Incluido, 5, 0);
  c.entrar(300, 1000);
  EXPECT_EQ(c.cifras().PVP, 1000);
  c.bloquear(c.cifras().pcMarg);
  EXPECT_DOUBLE_EQ(*c.bloqueado(), 233.33) << "what the box shows";
  c.entrar(1000, 1);
  EXPECT_EQ(c.cifras().PVP, 3335);
  c.entrar(0, 777);
  EXPECT_EQ(c.cifras().VentaN, 777) << "without a cost the price stays";
  c.desbloquear();
  c.entrar(1000, 2000);
  EXPECT_DOUBLE_EQ(c.cifras().pcMarg, 100);
}

TEST(CalcPre, TasasDeLosDepartamentos) {
  prueba::TiendaDePrecios p;
  EXPECT_EQ(bien(ivaDeDepartamento(p.catalogo, 1, 1)), 10);
  EXPECT_EQ(bien(ivaDeDepartamento(p.catalogo, 1, 2)), 0) << "rate 9 of three";
  EXPECT_EQ(bien(ivaDeDepartamento(p.catalogo, 1, 7)), 0) << "no such department";
}

// A step that the setting couldn't keep isn't accepted either: the box shows the one in force.
TEST(CalcPre, ElPasoCabeEnSuAjuste) {
  CalcPre c;
  const std::pair<qint64, qint64> casos[] = {{-1, 0}, {5, 5}, {32'767, 32'767}, {999'999, 32'767}};
  for (const auto& [paso, queda] : casos) {
    c.ponerRedondeo(paso);
    EXPECT_EQ(c.redondeo(), queda);
  }
}

}  // namespace
