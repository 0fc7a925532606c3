// A user drops, by name, the pending work of the nights that can never be done.
#include <QLabel>
#include <QPushButton>

#include "MesaDeProcesos.h"
#include "automation/historia/Pendientes.h"
#include "automation/historia/TablasHistoria.h"

namespace tarvo::automation {
namespace {

TEST(Debidos, SeOlvidaPorSuNombreYConCancelarPorDelante) {
  MesaDeProcesos s;
  ASSERT_TRUE(asegurarTablasHistoria(s.p.db()));
  s.p.periodo(
      {.link = 7, .desde = 43000, .hasta = 43000 + Fecha::kUltimoSegundo, .descr = u"Ventas"});
  Pendientes libro(s.p.db());
  ASSERT_TRUE(libro.anotarExporte({u"NOCHE"_s, u"X"_s, u"X.EXP"_s, {}}, {u"1.1"_s, {}, 7, true}));
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Acumular, 2}, {7}));
  s.p.sql(
      u"INSERT INTO BorradosPendientes (LINK, FECHA1, FECHAF) SELECT LINK, FECHA1, FECHAF FROM COLUMNA"_s);
  QWidget* v = s.todas().abrir(u"Debidos"_s);
  ASSERT_TRUE(v);
  auto* lista = pieza<ventanas::Parrilla>(v, u"Lista"_s);
  ASSERT_EQ(lista->filas(), 3);
  EXPECT_EQ(lista->texto(0, u"que"_s), u"Exportarlo a X.EXP y borrarlo después (proceso NOCHE)");
  EXPECT_EQ(lista->texto(1, u"que"_s), u"Acumularlo en el periodo SEMANAL");
  EXPECT_EQ(lista->texto(2, u"que"_s), u"Borrarlo, ya exportado, cuando no se deba nada más de él");
  for (const bool si : {false, true}) {
    lista->irA(0);
    QString pregunta;
    cuandoHayaCaja([&](QWidget& caja) {
      for (const auto* l : caja.findChildren<QLabel*>()) pregunta += l->text();
      if (si)
        QTest::mouseClick(pieza<QPushButton>(&caja, u"Acepto"_s), Qt::LeftButton);
      else
        QTest::keyClick(&caja, Qt::Key_Return);
    });
    QTest::mouseClick(pieza<QPushButton>(v, u"Olvidar"_s), Qt::LeftButton);
    EXPECT_TRUE(pregunta.contains(u"Ventas, 22 septiembre 2017 (DIARIO)"_s))
        << pregunta.toStdString();
    EXPECT_EQ(libro.todos()->size(), si ? 2U : 3U);
    EXPECT_EQ(lista->filas(), si ? 2 : 3);
  }
  lista->irA(1);
  cuandoHayaCaja([&](QWidget& caja) {
    QTest::mouseClick(pieza<QPushButton>(&caja, u"Acepto"_s), Qt::LeftButton);
  });
  QTest::mouseClick(pieza<QPushButton>(v, u"Olvidar"_s), Qt::LeftButton);
  EXPECT_EQ(libro.todos()->size(), 1U) << "it is no longer to be deleted";
  v->close();
}

}  // namespace
}  // namespace tarvo::automation
