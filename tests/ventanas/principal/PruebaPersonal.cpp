// The user's own entries: added, renamed, run and removed.
#include "MesaPrincipal.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

// Chooses an entry of the pop-up by its position, and then fills in the dialog.
void enElMenu(int cual, const std::function<void(QWidget&)>& enDialogo = {}) {
  QTimer::singleShot(50, qApp, [=] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return enElMenu(cual, enDialogo);
    if (enDialogo) {
      QTimer::singleShot(50, qApp, [=] {
        QWidget* dialogo = QApplication::activeModalWidget();
        ASSERT_TRUE(dialogo);
        enDialogo(*dialogo);
      });
    }
    ASSERT_TRUE(menu->actions().value(cual)->isEnabled());
    QTest::keyClick(menu, Qt::Key_Down);
    for (int i = 0; i < cual; ++i) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
  });
}

void menuSobre(QWidget& boton) {
  boton.window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(boton.window()));
  boton.setFocus();
  QTest::keyClick(&boton, Qt::Key_F10, Qt::ShiftModifier);
}

void rellenarElemento(QWidget& d, const QString& titulo, const QString& proceso) {
  auto* campo = d.findChild<QLineEdit*>(u"Titulo"_s);
  campo->selectAll();
  QTest::keyClicks(campo, titulo);
  for (auto* lista :
       {d.findChild<QListWidget*>(u"Procesos"_s), d.findChild<QListWidget*>(u"Diferidos"_s)})
    for (auto* linea : lista->findItems(proceso, Qt::MatchExactly)) lista->setCurrentItem(linea);
  QTest::mouseClick(d.findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
}

}  // namespace

TEST(Personal, SePoneSeCambiaSeEjecutaYSeQuita) {
  MesaPrincipal t;
  t.fichero(u"PEDIDO.AUT"_s, "@INICIO BATCH\r\nS:ABRIR\r\n@FINAL BATCH\r\n");
  auto* v = t.principal();
  auto* entrada = v->findChild<QToolButton*>(u"Personalizado"_s);
  // With an empty list a click opens the pop-up.
  enElMenu(0, [](QWidget& d) {
    // A missing title isn't accepted, nor one with the bar that separates it from its process.
    const auto trasLaCaja = [](const std::function<void()>& hacer) {
      QTimer::singleShot(
          0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
      hacer();
    };
    trasLaCaja([&] { QTest::mouseClick(d.findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton); });
    EXPECT_TRUE(d.isVisible());
    trasLaCaja([&] { rellenarElemento(d, u"a|b"_s, u"PEDIDO"_s); });
    EXPECT_TRUE(d.isVisible());
    rellenarElemento(d, u"Hacer pedido"_s, u"PEDIDO"_s);
  });
  QTest::mouseClick(entrada, Qt::LeftButton);
  ASSERT_EQ(t.personal().size(), 1U);
  EXPECT_EQ(entrada->text().remove(u'&'), u"Hacer pedido");

  // It is confirmed first, and Return cancels: a single click must not start a night.
  for (const bool sigue : {false, true}) {
    QString pregunta;
    QTimer::singleShot(0, qApp, [&] {
      QWidget* caja = QApplication::activeModalWidget();
      pregunta = caja->findChild<QLabel*>(u"Mensaje"_s)->text();
      if (sigue)
        QTest::mouseClick(caja->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
      else
        QTest::keyClick(caja, Qt::Key_Return);  // the first button is Cancelar
    });
    QTest::mouseClick(entrada, Qt::LeftButton);
    EXPECT_TRUE(pregunta.contains(u"«Hacer pedido»")) << pregunta.toStdString();
    ASSERT_EQ(t.suplente(u"Automat"_s) != nullptr, sigue);
  }
  EXPECT_TRUE(
      t.suplente(u"Automat"_s)->como<automation::PuertaAutomat>().proceso.endsWith(u"/PEDIDO.AUT"));
  t.todas().descargar(u"Automat"_s);
  v->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));

  enElMenu(1, [](QWidget& d) { rellenarElemento(d, u"Pedido diario"_s, u"PEDIDO"_s); });
  menuSobre(*entrada);
  EXPECT_EQ(entrada->text().remove(u'&'), u"Pedido diario");
  EXPECT_EQ(t.personal().front().proceso, u"PEDIDO");

  enElMenu(2);
  menuSobre(*entrada);
  EXPECT_TRUE(t.personal().empty());
  EXPECT_EQ(entrada->text().remove(u'&'), u"Personalizado");
  EXPECT_TRUE(v->tira().texto().contains(u"Ctrl+Z")) << v->tira().texto().toStdString();
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  ASSERT_EQ(t.personal().size(), 1U);
  EXPECT_EQ(t.personal().front().titulo, u"Pedido diario");
  EXPECT_EQ(entrada->text().remove(u'&'), u"Pedido diario");
}

// The fault in a process is reported, instead of a missing timetable with its name.
// What a process makes machines forget is named, group by group, before it runs; Return keeps it.
TEST(Personal, LoQueHaceOlvidarSeNombraAntes) {
  for (const char* paso : {"T:TX_ZERO,1", "T:BORRPLU,ALL", "N:%1,Grupo\r\nT:TX_ZERO,%1"}) {
    MesaPrincipal t;
    t.sql(u"update GRUPOS set NOMGPO='Charcutería', TIPO=2, REMOTO=4 where CODGPO=1"_s);
    t.fichero(u"CIERRE.AUT"_s, QByteArray("@INICIO BATCH\r\n") + paso + "\r\n@FINAL BATCH\r\n");
    t.personal() = {{u"Cierre"_s, u"CIERRE"_s}};
    auto* v = t.principal();
    QString pregunta;
    QTimer::singleShot(0, qApp, [&] {
      QTimer::singleShot(0, qApp, [&] {
        ASSERT_TRUE(esperar([] { return QApplication::activeModalWidget(); }));
        QWidget* caja = QApplication::activeModalWidget();
        pregunta = caja->findChild<QLabel*>(u"Mensaje"_s)->text();
        QTest::keyClick(caja, Qt::Key_Return);
      });
      QTest::mouseClick(QApplication::activeModalWidget()->findChild<QPushButton*>(u"Acepto"_s),
                        Qt::LeftButton);
    });
    QTest::mouseClick(v->findChild<QToolButton*>(u"Personalizado"_s), Qt::LeftButton);
    EXPECT_TRUE(pregunta.contains(u"0001 Charcutería"_s)) << paso << pregunta.toStdString();
    EXPECT_FALSE(t.suplente(u"Automat"_s)) << paso;
  }
}

TEST(Personal, ElProcesoQueNoSeLeeDiceSuLinea) {
  MesaPrincipal t;
  t.fichero(u"PEDIDO.AUT"_s, "@INICIO BATCH\r\nS:ABRIR\r\nT:NADA,ALL\r\n@FINAL BATCH\r\n");
  t.personal() = {{u"Pedido"_s, u"PEDIDO"_s}};
  auto* v = t.principal();
  QTest::mouseClick(v->findChild<QToolButton*>(u"Personalizado"_s), Qt::LeftButton);
  EXPECT_FALSE(t.suplente(u"Cronos"_s));
  EXPECT_TRUE(v->tira().texto().contains(u"NADA")) << v->tira().texto().toStdString();
}

// The only file there is needs no choosing, nor does the only one of its kind that has the focus.
TEST(Personal, LoUnicoYaEstaElegido) {
  for (const bool conProcesos : {false, true}) {
    MesaPrincipal t;
    t.fichero(u"HORARIO.CRO"_s, "22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
    for (const char16_t* p : {u"UNO.AUT", u"DOS.AUT"})
      if (conProcesos) t.fichero(QString::fromUtf16(p), "N:a\r\n");
    auto* v = t.principal();
    enElMenu(0, [](QWidget& d) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&d));
      QTest::keyClicks(d.findChild<QLineEdit*>(u"Titulo"_s), u"Noche"_s);
      d.findChild<QListWidget*>(u"Diferidos"_s)->setFocus(Qt::TabFocusReason);
      QTest::mouseClick(d.findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    });
    QTest::mouseClick(v->findChild<QToolButton*>(u"Personalizado"_s), Qt::LeftButton);
    ASSERT_EQ(t.personal().size(), 1U) << conProcesos;
    EXPECT_EQ(t.personal().front().proceso, u"HORARIO");
  }
}

// Two entries open a panel, in the order of the list; a delayed program takes over and the main
// window is closed.
TEST(Personal, DosAbrenUnPanel) {
  MesaPrincipal t;
  t.fichero(u"HORARIO.CRO"_s, "22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
  t.personal() = {{u"Uno"_s, u"PEDIDO"_s}};
  auto* v = t.principal();
  enElMenu(0, [](QWidget& d) {
    QTest::mouseClick(d.findChild<QPushButton*>(u"Subir"_s), Qt::LeftButton);
    EXPECT_FALSE(d.findChild<QPushButton*>(u"Subir"_s)->isEnabled());
    rellenarElemento(d, u"La noche"_s, u"HORARIO"_s);
  });
  menuSobre(*v->findChild<QToolButton*>(u"Personalizado"_s));
  ASSERT_EQ(t.personal().size(), 2U);
  EXPECT_EQ(t.personal()[0].titulo, u"La noche");
  v->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  QTest::mouseClick(v->findChild<QToolButton*>(u"Personalizado"_s), Qt::LeftButton);
  auto* primera = v->findChild<QToolButton*>(u"Personal0"_s);
  ASSERT_TRUE(primera && primera->isVisible());
  // A dialog given up there leads back there.
  enElMenu(1, [](QWidget& d) { QTest::keyClick(&d, Qt::Key_Escape); });
  menuSobre(*primera);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  EXPECT_TRUE(primera->isVisible());
  QTest::mouseClick(primera, Qt::LeftButton);
  ASSERT_TRUE(t.suplente(u"Cronos"_s));
  EXPECT_TRUE(
      t.suplente(u"Cronos"_s)->como<automation::PuertaCronos>().horario.endsWith(u"/HORARIO.CRO"));
}

}  // namespace tarvo::prueba
