// The clock beneath all nights in the tests.
#include <gtest/gtest.h>

#include <QStringList>

#include "core/tiempo/Reloj.h"

namespace tarvo {
namespace {

struct ConRelojVirtual : testing::Test {
  std::unique_ptr<Temporizador> nuevo(const char16_t* nombre) {
    return reloj.temporizador(
        [this, nombre] { oido += QString::fromUtf16(nombre) + QString::number(reloj.monotono()); });
  }
  QString todo() const { return oido.join(u' '); }
  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 28), QTime(23, 59, 58))};
  QStringList oido;
};

TEST_F(ConRelojVirtual, VencenPorHoraYALaMismaHoraPorOrdenDeArranque) {
  const auto a = nuevo(u"a"), b = nuevo(u"b"), c = nuevo(u"c"), d = nuevo(u"d");
  b->unaVez(20);
  a->unaVez(20);
  c->unaVez(10);
  d->unaVez(30);
  d->unaVez(5);   // a new start takes the place of the old one
  b->unaVez(20);  // and goes to the end of its instant
  while (reloj.siguiente()) {
  }
  EXPECT_EQ(todo(), u"d5 c10 a20 b20");
  EXPECT_FALSE(a->activo());
  EXPECT_EQ(a->intervalo(), 20);
}

TEST_F(ConRelojVirtual, AvanzarVenceLoSuyoYNadaMas) {
  const auto una = nuevo(u"u"), cada = nuevo(u"c"), pasado = nuevo(u"p");
  una->unaVez(100);
  cada->cada(40);
  pasado->unaVez(-5);
  reloj.avanzar(0);
  EXPECT_EQ(todo(), u"p0");
  reloj.avanzar(80);  // what is due at the very end is due
  EXPECT_EQ(todo(), u"p0 c40 c80");
  EXPECT_EQ(reloj.monotono(), 80);
  reloj.avanzar(50);
  EXPECT_EQ(todo(), u"p0 c40 c80 u100 c120");
  EXPECT_EQ(reloj.monotono(), 130);
  EXPECT_TRUE(cada->activo());
  cada->parar();
  reloj.avanzar(1000);
  EXPECT_EQ(oido.size(), 5);
  EXPECT_FALSE(reloj.siguiente());
}

// What an avanzar triggers within its time still happens in it.
TEST_F(ConRelojVirtual, UnVencimientoPuedeArrancarPararYDestruir) {
  std::unique_ptr<Temporizador> suicida, otro = nuevo(u"o"), vuelve;
  suicida = reloj.temporizador([&] {
    suicida.reset();
    otro->parar();
  });
  vuelve = reloj.temporizador([&] {
    oido += QStringLiteral("v%1").arg(reloj.monotono());
    if (oido.size() < 3) vuelve->unaVez(10);
  });
  suicida->unaVez(5);
  otro->unaVez(6);
  vuelve->unaVez(10);
  reloj.avanzar(30);
  EXPECT_EQ(todo(), u"v10 v20 v30");
  EXPECT_FALSE(suicida);
  // A timer destroyed while running takes its deadline with it.
  otro->cada(1);
  otro.reset();
  EXPECT_FALSE(reloj.siguiente());
}

TEST_F(ConRelojVirtual, LaParedSaltaYLoMonotonoNo) {
  const auto a = nuevo(u"a");
  a->unaVez(3000);
  EXPECT_EQ(reloj.ahora(), Fecha::de(QDate(2026, 3, 28), QTime(23, 59, 58)));
  reloj.avanzar(1999);  // whole seconds
  EXPECT_EQ(reloj.ahora(), Fecha::de(QDate(2026, 3, 28), QTime(23, 59, 59)));
  reloj.avanzar(1);
  EXPECT_EQ(reloj.ahora(), Fecha::de(QDate(2026, 3, 29), QTime(0, 0)));
  reloj.saltarPared(1 / 24.0);
  EXPECT_EQ(reloj.ahora(), Fecha::de(QDate(2026, 3, 29), QTime(1, 0)));
  reloj.saltarPared(-2);
  EXPECT_EQ(reloj.ahora(), Fecha::de(QDate(2026, 3, 27), QTime(1, 0)));
  EXPECT_EQ(reloj.monotono(), 2000);
  reloj.avanzar(1000);
  EXPECT_EQ(todo(), u"a3000");
}

}  // namespace
}  // namespace tarvo
