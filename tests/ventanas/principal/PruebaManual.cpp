// F1 and the pages of the manual, with the windows registered by the program.
#include <QComboBox>
#include <QTextBrowser>
#include <QWindow>

#include "TodasLasVentanas.h"
#include "core/ventanas/marco/Manual.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct Ayudada : MesaPrincipal {
  Ayudada() : MesaPrincipal(QStringList{}) {
    app::registrarVentanas(todas(), aplicacion);
    sql(u"DELETE FROM OPERS"_s);
    sql(u"INSERT INTO OPERS (CODOPE, NOMOPE) VALUES (5, 'Ana')"_s);
  }
  Ventana* abrir(const QString& nombre) {
    auto* v = todas().abrir(nombre);
    EXPECT_TRUE(QTest::qWaitForWindowActive(v));
    return v;
  }
  Manual* manual() { return static_cast<Manual*>(todas().cargada(PuertaManual())); }
  // The page opened by F1 from there, empty if none; the manual is closed again.
  QString pagina(QWidget* foco) {
    QTest::keyClick(foco, Qt::Key_F1);
    if (!manual()) return {};
    const QString dada = manual()->pagina();
    EXPECT_EQ(manual()->windowHandle()->transientParent(), foco->window()->windowHandle())
        << "a modal window would block it otherwise";
    QTest::keyClick(manual(), Qt::Key_Escape);
    EXPECT_FALSE(manual());
    return dada;
  }
};

// The heading of a window's page.
QString tituloDe(const QString& ventana) {
  QFile pagina(u":/manual/%1.md"_s.arg(ventana));
  EXPECT_TRUE(pagina.open(QIODevice::ReadOnly)) << ventana.toStdString();
  return QString::fromUtf8(pagina.readLine()).mid(2).trimmed();
}

}  // namespace

TEST(Manual, CadaVentanaTieneSuPagina) {
  Ayudada t;
  EXPECT_GT(t.todas().nombres().size(), 50);
  for (const QString& nombre : t.todas().nombres())
    EXPECT_TRUE(Manual::hay(nombre)) << nombre.toStdString();
}

// Whoever presses F1 recognises the window.
TEST(Manual, LaPaginaSeLlamaComoLaVentana) {
  // Their title names what they show, not what they do.
  const QStringList conOtroTitulo{u"EntNmSc"_s,  u"GrpDlg"_s,  u"MainTarvo"_s, u"Manual"_s,
                                  u"V_ColOpH"_s, u"VerCols"_s, u"VerFils"_s};
  TodasLasVentanas t;
  for (const QString& nombre : t.todas().nombres()) {
    if (conOtroTitulo.contains(nombre)) continue;
    auto* v = t.abrir(nombre);
    ASSERT_TRUE(v) << nombre.toStdString();
    const QString titulo = v->windowTitle();
    EXPECT_TRUE(titulo.contains(tituloDe(nombre), Qt::CaseInsensitive))
        << nombre.toStdString() << ": " << titulo.toStdString();
    t.cerrar(*v);
  }
}

TEST(Manual, F1DesdeDondeSeEste) {
  Ayudada t;
  EXPECT_EQ(t.pagina(t.abrir(u"MainTarvo"_s)->findChild<QToolButton*>(u"Totales"_s)), u"MainTarvo");
  auto* totales = t.abrir(u"VerTot"_s);
  EXPECT_EQ(t.pagina(totales->findChild<QComboBox*>()), u"VerTot") << "from a drop-down list";
  // One of several instances, by the name they share.
  EXPECT_EQ(t.pagina(t.abrir(u"VerCols#7"_s)), u"VerCols");

  auto* personas = t.abrir(u"BrowOper"_s);
  auto* lista = personas->findChild<Parrilla*>();
  QWidget* celda = lista->findChild<QAbstractItemView*>();
  celda->setFocus();
  QTest::keyClick(celda, Qt::Key_F2);
  auto* escribe = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_TRUE(escribe && celda->isAncestorOf(escribe));
  EXPECT_EQ(t.pagina(escribe), u"BrowOper") << "from a cell editor";
}

TEST(Manual, F1ConUnaListaDesplegada) {
  Ayudada t;
  auto* v = t.abrir(u"VerTot"_s);
  auto* tipos = v->findChild<QComboBox*>();
  tipos->showPopup();
  ASSERT_TRUE(esperar([] { return QApplication::activePopupWidget() != nullptr; }));
  QTest::keyClick(tipos->view(), Qt::Key_F1);
  ASSERT_TRUE(t.manual());
  EXPECT_EQ(t.manual()->pagina(), u"VerTot");
  EXPECT_FALSE(QApplication::activePopupWidget()) << "it would receive the keys";
}

// A box belongs to a window, and F1 opens that window's page; a modal window has a page of its own,
// which is closed with it.
TEST(Manual, F1SobreLoQuePregunta) {
  Ayudada t;
  auto* v = t.abrir(u"VerTot"_s);
  const auto alPreguntar = [](const std::function<void(QWidget*)>& hacer) {
    QTimer::singleShot(30, qApp, [hacer] {
      QWidget* w = QApplication::activeModalWidget();
      ASSERT_TRUE(w);
      hacer(w);
      w->close();
    });
  };
  QString deCaja, deModal;
  alPreguntar([&](QWidget* caja) { deCaja = t.pagina(caja->focusWidget()); });
  MyMsgBox::Decide(v, t.textos, u"¿?"_s, kAceptoCancelo);
  EXPECT_EQ(deCaja, u"VerTot");
  alPreguntar([&](QWidget* modal) {
    QTest::keyClick(modal, Qt::Key_F1);
    deModal = t.manual() ? t.manual()->pagina() : QString();
  });
  t.todas().preguntar(comm::PuertaEdiParms(), v);
  EXPECT_EQ(deModal, u"EdiParms");
  EXPECT_TRUE(esperar([&] { return !t.manual(); }));
}

TEST(Manual, SeBuscaYSeSiguenEnlaces) {
  Ayudada t;
  QTest::keyClick(t.abrir(u"VerTot"_s), Qt::Key_F1);
  auto* m = t.manual();
  // By the actual focus, not only by the chain of its owners.
  ASSERT_TRUE(m && esperar([&] { return QGuiApplication::focusWindow() == m->windowHandle(); }));
  auto* texto = m->findChild<QTextBrowser*>();
  QTest::keyClick(texto, Qt::Key_F, Qt::ControlModifier);
  auto* busca = m->findChild<QLineEdit*>(u"Busca"_s);
  ASSERT_EQ(m->focusWidget(), busca);
  const auto buscar = [&](const QString& que) {
    busca->clear();
    QTest::keyClicks(busca, que);
    QTest::keyClick(busca, Qt::Key_Return);
    return texto->textCursor().selectedText();
  };
  EXPECT_EQ(buscar(u"CUADRAN"_s), u"CUADRAN");
  EXPECT_EQ(m->pagina(), u"VerTot") << "this page first";
  EXPECT_EQ(buscar(u"paridad"_s), u"paridad");
  EXPECT_EQ(m->pagina(), u"EdiParms") << "then the others";
  EXPECT_EQ(buscar(u"unicornio"_s), QString());
  EXPECT_TRUE(m->tira().texto().contains(u"«unicornio»"));
  QTest::mouseClick(m->findChild<QPushButton*>(u"Atras"_s), Qt::LeftButton);
  EXPECT_EQ(m->pagina(), u"VerTot");
  QTest::mouseClick(m->findChild<QPushButton*>(u"Indice"_s), Qt::LeftButton);
  EXPECT_EQ(m->pagina(), u"Manual");
  EXPECT_GT(texto->toPlainText().size(), 1000);
  QTest::keyClick(m, Qt::Key_F1);
  EXPECT_EQ(t.manual(), m) << "its own page is the index";
}

}  // namespace tarvo::prueba
