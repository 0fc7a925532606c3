// The dates of a period, typed or chosen.
#include <QCalendarWidget>

#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::prueba {

using totals::kDiario, totals::kMensual, totals::kAnual, totals::kOtros;

// A typing error is asked about, and creates nothing.
TEST(VentanaPeriodos, UnAnoLejanoSePregunta) {
  MesaDeTotales t;
  auto* v = t.abrir(totals::PuertaEditIntv{});
  auto* salvar = v->findChild<QPushButton*>(u"SalvBoton"_s);
  for (const auto& fecha : {u"04/06/1500"_s, u"04/06/9999"_s}) {
    v->findChild<QLineEdit*>(u"Fecha1"_s)->setText(fecha);
    t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Return); });
    QTest::mouseClick(salvar, Qt::LeftButton);
    EXPECT_TRUE(t.textoModal.contains(fecha)) << t.textoModal.toStdString();
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 0);
  }
  t.responder(u"Acepto"_s);
  QTest::mouseClick(salvar, Qt::LeftButton);
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 1);
}

// A year that is no year is marked and named; the period isn't that of the year before.
TEST(VentanaPeriodos, ElAnoEsElQueSeEscribe) {
  MesaDeTotales t;
  const struct {
    int tipo;
    QString ano, dicho, creado;
  } casos[] = {{kMensual, u"1500"_s, u"Escriba un número entero de 1980 a 2099"_s, {}},
               {kMensual, u"19"_s, u"Escriba un número entero de 1980 a 2099"_s, {}},
               {kAnual, u"9999"_s, u"Escriba un número entero de 1980 a 2099"_s, {}},
               {kAnual, u"20x8"_s, u"Escriba un número entero de 1980 a 2099"_s, {}},
               {kMensual, u"2017"_s, {}, u"3 42887"_s},
               {kAnual, u"2016"_s, {}, u"4 42370"_s}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.ano.toStdString());
    auto* v = t.abrir(totals::PuertaEditIntv{.tipo = c.tipo});
    auto* ano = v->findChild<QWidget*>(u"spAno"_s);
    v->findChild<QComboBox*>(u"LstMes"_s)->setCurrentIndex(5);
    ano->setFocus();
    QTest::keyClick(ano, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(ano, c.ano);
    QTest::keyClick(ano, Qt::Key_Tab);
    t.textoModal.clear();
    if (!c.dicho.isEmpty()) t.responder(u"Acepto"_s);
    QTest::mouseClick(v->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
    EXPECT_TRUE(t.textoModal.startsWith(c.dicho)) << t.textoModal.toStdString();
    EXPECT_EQ(ano->property("falta").toBool(), !c.dicho.isEmpty());
    EXPECT_EQ(v->isVisible(), !c.dicho.isEmpty());
    EXPECT_EQ(t.leer(u"select TIPO, FECHA1 from COLUMNA"_s), c.creado);
    t.sql(u"delete from COLUMNA"_s);
    if (!v->isVisible()) continue;
    t.responder(u"Acepto"_s);  // abandons it
    v->descargar();
  }
}

// The form shows the dates of the period, of each kind, and keeps them if nothing is typed.
TEST(VentanaPeriodos, ModificarEmpiezaPorLoQueHay) {
  MesaDeTotales t;
  const QString fechas = u"select TIPO, FECHA1, FECHAF from COLUMNA order by LINK"_s;
  std::vector<qint64> links;
  for (int tipo = kDiario; tipo <= kOtros; ++tipo)
    links.push_back(bien(t.periodos.CrearPeriodo(tipo, momento("14/06/2018 09:30:00"),
                                                 momento("15/06/2018 10:00:00"), true, {})));
  const QString antes = t.leer(fechas);
  for (const qint64 link : links) {
    auto* v = t.abrir(totals::PuertaEditIntv{.link = link});
    QTest::keyClick(v->findChild<QComboBox*>(u"LstTipo"_s), Qt::Key_Return);
    ASSERT_FALSE(v->isVisible()) << v->tira().texto().toStdString();
  }
  EXPECT_EQ(t.leer(fechas), antes);
  const auto* v = t.abrir(totals::PuertaEditIntv{});
  EXPECT_EQ(v->findChild<QLineEdit*>(u"Fecha1"_s)->text(), t.reloj.ahora().corta());
}

TEST(VentanaPeriodos, LaFechaSeEscogeEnUnCalendario) {
  MesaDeTotales t;
  const struct {
    int tipo;
    const char *escrita, *escogida;
  } casos[] = {{kDiario, "30/06/2018", "01/07/2018"},
               {kOtros, "30/06/2018 09:30:00", "01/07/2018 09:30:00"},
               {kDiario, "28/02/2020", "29/02/2020"}};
  for (const auto& c : casos) {
    auto* v = t.abrir(totals::PuertaEditIntv{.tipo = c.tipo});
    auto* fecha = v->findChild<QLineEdit*>(u"Fecha1"_s);
    fecha->setText(QString::fromLatin1(c.escrita));
    QTest::keyClick(fecha, Qt::Key_F4);
    auto* mes = qobject_cast<QCalendarWidget*>(QApplication::activePopupWidget());
    ASSERT_NE(mes, nullptr);
    QTest::keyClick(mes->focusWidget(), Qt::Key_Right);
    QTest::keyClick(mes->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(fecha->text(), QString::fromLatin1(c.escogida));
    EXPECT_TRUE(v->findChild<QLabel*>(u"limites"_s)->text().contains(fecha->text().left(10)));
    EXPECT_TRUE(v->isVisible()) << "that Return only closes the calendar";
    t.responder(u"Acepto"_s);  // abandons it
    v->descargar();
  }
}

}  // namespace tarvo::prueba
