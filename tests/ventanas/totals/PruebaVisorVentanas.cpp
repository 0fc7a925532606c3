// A person looks at the totals of a period: filters, the chart, a code across time.
#include <QCheckBox>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>

#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/ventanas/Grafica.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::prueba {

using namespace totals;

TEST(VentanaVisor, FiltraYLaGraficaSigue) {
  MesaDeTotales t;
  const qint64 lunes = t.dia("04/06/2018");
  auto* v = t.abrir(PuertaVerCols{.link = lunes, .clase = TipoTotal::PLUs});
  auto& grid = t.lista(v);
  EXPECT_EQ(grid.filas(), 60);
  auto* grafica = v->findChild<QWidget*>(u"grafica"_s);
  ASSERT_TRUE(esperar([&] { return grafica->accessibleDescription().contains(u"Artículo 30"); }));
  QTest::keyClicks(v->findChild<QLineEdit*>(u"hasta"_s), u"3"_s);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 6; }));
  ASSERT_TRUE(esperar([&] { return !grafica->accessibleDescription().contains(u"Artículo 30"); }));
  EXPECT_TRUE(grafica->accessibleDescription().contains(u"Artículo 3 6,00"))
      << grafica->accessibleDescription().toStdString();
  auto* clases = v->findChild<QComboBox*>(u"LstClase"_s);
  v->findChild<QLineEdit*>(u"hasta"_s)->clear();
  clases->setCurrentIndex(clases->findData(numeroDe(TipoTotal::Horario)));
  Q_EMIT clases->activated(clases->currentIndex());
  EXPECT_EQ(grid.filas(), 10);
  ASSERT_TRUE(esperar([&] { return grafica->accessibleName() == u"Ventas por horas"; }));
  EXPECT_TRUE(v->tira().isHidden());  // nothing failed
  QTest::keyClick(v, Qt::Key_G, Qt::ControlModifier);
  EXPECT_FALSE(grafica->isVisible());
  v->descargar();
  EXPECT_FALSE(
      t.abrir(PuertaVerCols{.link = lunes})->findChild<QWidget*>(u"grafica"_s)->isVisible());
}

// Names are complete, at any font size; below vertical bars, only those that don't overlap are
// shown.
TEST(VentanaVisor, LaGraficaNoCortaSusNombres) {
  for (const double escala : {1.0, 1.5}) {
    MesaDeTotales t;
    t.escritorio.tema().ponerEscala(escala);
    const qint64 lunes = t.dia("04/06/2018");
    t.sql(u"update GRUPOS set NOMGPO='FRUTERIA MOSTRADOR ' & CODGPO"_s);
    const auto nombres = [&](TipoTotal clase) {
      auto* v = t.abrir(PuertaVerCols{.link = lunes, .clase = clase});
      v->resize(1366, 700);
      const auto* vista = v->findChild<QGraphicsView*>();
      QStringList vistos;
      EXPECT_TRUE(esperar([&] {
        vistos.clear();
        QRectF anterior;
        for (const QGraphicsItem* i : vista->scene()->items(Qt::AscendingOrder)) {
          const auto* texto = qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(i);
          if (!texto || !texto->isVisible()) continue;
          vistos << texto->text();
          if (anterior.intersects(texto->sceneBoundingRect())) return false;
          anterior = texto->sceneBoundingRect();
        }
        return !vistos.empty() && vista->isVisible();
      })) << vistos.join(u'|').toStdString();
      v->descargar();
      return vistos.join(u'|');
    };
    EXPECT_EQ(nombres(TipoTotal::GranTotal), u"FRUTERIA MOSTRADOR 2|FRUTERIA MOSTRADOR 1");
    EXPECT_EQ(nombres(TipoTotal::Horario), u"9|10|11|12|13");
    t.escritorio.tema().ponerEscala(1);
  }
}

TEST(VentanaVisor, UnCodigoEnElTiempo) {
  MesaDeTotales t;
  for (const char* d : {"04/06/2018", "05/06/2018", "06/06/2018"}) t.dia(d);
  auto* v = t.abrir(PuertaVerFils{.clase = TipoTotal::PLUs, .seccion = 3, .codigo = 7});
  auto& grid = t.lista(v);
  ASSERT_EQ(grid.filas(), 3);
  EXPECT_EQ(grid.texto(0, u"COLUMNA.FECHA1"), u"6 junio 2018");
  EXPECT_EQ(grid.texto(0, u"sum(t.IMP)"), u"14,00");
  auto* grupos = v->findChild<QComboBox*>(u"AllGrp"_s);
  grupos->setCurrentIndex(1);
  Q_EMIT grupos->activated(1);
  EXPECT_EQ(grid.texto(0, u"t.IMP"), u"7,00");
}

// A line through one point would be a dot.
TEST(VentanaVisor, UnSoloDiaEsUnaBarra) {
  for (const int dias : {1, 2}) {
    MesaDeTotales t;
    for (int d = 0; d < dias; ++d) t.dia(d == 0 ? "04/06/2018" : "05/06/2018");
    auto* v = t.abrir(PuertaVerFils{.clase = TipoTotal::PLUs, .seccion = 3, .codigo = 7});
    auto* grafica = v->findChild<Grafica*>();
    ASSERT_TRUE(esperar([&] { return grafica->puntos() > 0; }));
    EXPECT_EQ(grafica->puntos(), dias);
    EXPECT_EQ(grafica->esLinea(), dias > 1);
  }
}

// The span of a code across time: what is typed, or a refusal beside its field.
TEST(VentanaVisor, ElIntervaloEsElQueSeEscribe) {
  MesaDeTotales t;
  const struct {
    int mision;
    QString campo, escrito, falta;
    const char* desde;
  } casos[] = {
      {kDiario, u"desde"_s, u"05/06/2018"_s, {}, "05/06/2018"},
      {kDiario, u"desde"_s, u"05/13/2018"_s, u"Escriba el día"_s, nullptr},
      {kMensual, u"anoDesde"_s, u"2017"_s, {}, "01/03/2017"},
      {kMensual, u"anoDesde"_s, u"17"_s, u"Escriba un número entero de 1980 a 2099"_s, nullptr},
      {kAnual, u"anoDesde"_s, u"2015"_s, {}, "01/01/2015"},
      {kAnual, u"anoDesde"_s, u"9999"_s, u"Escriba un número entero de 1980 a 2099"_s, nullptr}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.escrito.toStdString());
    t.textoModal.clear();
    t.alAbrirse([&](QWidget* w) {
      w->findChild<QCheckBox*>(u"ckDesde"_s)->click();
      w->findChild<QComboBox*>(u"mesDesde"_s)->setCurrentIndex(2);
      auto* campo = w->findChild<QLineEdit*>(c.campo);
      ASSERT_TRUE(campo->isVisible() && campo->isEnabled());
      campo->setText(c.escrito);
      if (!c.falta.isEmpty()) t.responder(u"Acepto"_s);
      QTest::keyClick(campo, Qt::Key_Return);
      if (!c.falta.isEmpty()) {
        EXPECT_TRUE(campo->property("falta").toBool());
        EXPECT_TRUE(t.textoModal.startsWith(c.falta)) << t.textoModal.toStdString();
        QTest::keyClick(w, Qt::Key_Escape);
      }
    });
    const auto salida =
        t.escritorio.ventanas().preguntar(PuertaImpUnaFila{.mision = c.mision}, nullptr);
    ASSERT_EQ(salida.has_value(), c.desde != nullptr);
    if (salida) {
      EXPECT_EQ(salida->desde, momento(c.desde));
    }
  }
}

}  // namespace tarvo::prueba
