// What is asked before sales are deleted or repeated, and that Return takes the safe answer.
#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::prueba {

using namespace totals;

// Exported periods that are to be deleted don't come back with Ctrl+Z: two keys must not lose one.
TEST(VentanaPeriodos, ExportarPreguntaAntesDeBorrar) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  auto* x = t.abrir(PuertaXporTot{{t.dia("04/06/2018"), t.dia("05/06/2018")}});
  auto* destino = x->findChild<QComboBox*>(u"destino"_s);
  destino->setCurrentText(u"VENTAS"_s);
  auto* borrar = x->findChild<QAbstractButton*>(u"borrar"_s);
  borrar->click();
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  QTest::keyClick(borrar, Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return !x->trabajo().enMarcha(); }));
  EXPECT_EQ(t.textoModal.toStdString(),
            "ATENCIÓN: Después de exportar se borrará 1 periodo de totalización\nLos datos que va "
            "a borrar pueden ser valiosos: ¿Está seguro?\n\n4 junio 2018 (DIARIO): 2 grupos, 72 "
            "totales, "
            "930,00 Eur\n\nSólo quedarán en el fichero VENTAS.EXP: vuelven importándolo, no con "
            "Ctrl+Z.");
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 2);
  EXPECT_FALSE(QFile::exists(t.ruta(u"VENTAS.EXP"_s)));
}

// A name is the one typed, also where a file's begins with it, and Return exports to it.
TEST(VentanaPeriodos, ExportaAlNombreTecleado) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  for (const auto& nombre : {u"MIO.EXP"_s, u"MIOS2017.EXP"_s}) {
    QFile f(t.ruta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  }
  auto* x = t.abrir(PuertaXporTot{{t.dia("04/06/2018")}});
  auto* destino = x->findChild<QComboBox*>(u"destino"_s);
  destino->setCurrentText({});
  QTest::keyClicks(destino, u"mio"_s);
  EXPECT_EQ(destino->currentText(), u"mio");
  destino->setCurrentText({});
  QTest::keyClicks(destino, u"MIO"_s);
  QTest::keyClick(destino, Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return !x->tira().texto().isEmpty(); }, 5000));
  EXPECT_GT(QFileInfo(t.ruta(u"MIO.EXP"_s)).size(), 0);
  EXPECT_EQ(QFileInfo(t.ruta(u"MIOS2017.EXP"_s)).size(), 0);
}

// A day and the week that holds it: asked before the first is added, so that Cancelar adds none.
TEST(VentanaPeriodos, AcumularPreguntaPorTodosAntesDeEmpezar) {
  MesaDeTotales t;
  const qint64 lunes = t.dia("04/06/2018");
  bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(lunes))));
  auto* v = t.abrir(u"VerTot"_s);
  auto* mensual = v->findChild<QMenu*>(u"MnuAcu"_s)->actions().at(1);
  t.lista(v).elegir({lunes, 2});
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  mensual->trigger();
  ASSERT_TRUE(esperar([&] { return !v->tira().texto().isEmpty() && !v->trabajo().enMarcha(); }));
  EXPECT_EQ(t.textoModal.toStdString(),
            "Existe ya oto periodo relacionado con este que se acumuló: Si continúa, puede "
            "duplicar los datos: ¿CONTINUAR?\n\nSemana 4 06 18 (SEMANAL) repite ventas de "
            "4 junio 2018 (DIARIO)");
  EXPECT_EQ(v->tira().texto(), u"No se ha acumulado ningún periodo.");
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 2);
  EXPECT_EQ(t.cuenta(u"COLUMNA where ACUM3=1"_s), 0);
  t.lista(v).elegir({lunes, 2});
  t.responder(u"Acepto"_s);
  mensual->trigger();
  EXPECT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA where ACUM3=1"_s) == 2; }));
}

// A refused number is reported until it is corrected, no longer.
TEST(VentanaPeriodos, ElAvisoDeUnNumeroSeVaConSuCorreccion) {
  MesaDeTotales t;
  auto* v = t.abrir(PuertaEditIntv{});
  v->findChild<QComboBox*>(u"TpoTot"_s)->setCurrentIndex(0);
  v->findChild<QComboBox*>(u"LstGrupos"_s)->setCurrentIndex(0);
  auto* importe = v->findChild<QLineEdit*>(u"txImp"_s);
  importe->setFocus();
  QTest::keyClicks(importe, u"1.239"_s);
  QTest::keyClick(importe, Qt::Key_Return);
  EXPECT_FALSE(v->tira().texto().isEmpty());
  importe->clear();
  QTest::keyClicks(importe, u"34,50"_s);
  QTest::keyClick(importe, Qt::Key_Return);
  EXPECT_EQ(v->findChild<ventanas::Parrilla*>(u"Manual"_s)->filas(), 1);
  EXPECT_EQ(v->tira().texto(), u"");
}

// The origin of the rows of a sum: the periods summed, by name.
TEST(VentanaPeriodos, UnaSumaNombraSusPeriodos) {
  MesaDeTotales t;
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
  auto* lista = t.abrir(u"VerTot"_s);
  t.lista(lista).elegir({lunes, martes});
  t.alAbrirse([](QWidget* w) {
    QTest::mouseClick(w->findChild<QPushButton*>(u"Hacerlo"_s), Qt::LeftButton);
  });
  QTest::keyClick(t.lista(lista).vista(), Qt::Key_F7);
  auto* v = t.abrir(PuertaVerCols{.link = 3});
  const auto dice = [&] {
    return std::ranges::any_of(v->findChildren<QLabel*>(), [](const QLabel* l) {
      return l->text() == u"Suma de: 4 junio 2018, 5 junio 2018";
    });
  };
  EXPECT_TRUE(esperar(dice, 5'000));
}

}  // namespace tarvo::prueba
