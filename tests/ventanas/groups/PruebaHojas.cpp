// The sheets of a group and of its machines, from the editor to the database.
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>

#include "MesaDeGrupos.h"

namespace tarvo::prueba {

namespace {

// Opens a sheet with a command of the editor, works on it, and presses one of its buttons.
template <class F>
void enHoja(MesaDeGrupos& t, ventanas::Ventana* v, const QString& orden, const QString& boton,
            F hacer) {
  t.activa(v);
  t.alAbrirse([=](QWidget* w) {
    ASSERT_TRUE(esperar([w] { return w->isActiveWindow() && QApplication::focusWidget(); }, 3000));
    hacer(w);
    auto* b = w->findChild<QPushButton*>(boton);
    ASSERT_NE(b, nullptr);
    b->click();
  });
  MesaDeGrupos::orden(v, orden)->trigger();
}

void editar(QWidget* w, const char16_t* lista, int fila, const QString& campo,
            const QString& texto) {
  auto& p = MesaDeGrupos::lista(w, lista);
  p.irA(fila);
  MesaDeGrupos::abrirCelda(p, campo);
  QTest::keyClicks(QApplication::focusWidget(), texto);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

}  // namespace

// After a format of the set A, those of B and those without a set are no longer offered.
TEST(Hojas, CassettesYEtiquetas) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.ir(v, 0);
  enHoja(t, v, u"MnCas"_s, u"ATodas"_s, [&](QWidget* w) {
    EXPECT_EQ(w->windowTitle(), u"Cassettes y formatos de etiqueta en balanza nº1  (G)");
    auto* formatos = t.control<QComboBox>(w, u"ListaEtq");
    const auto ofrecidos = [&] {
      QStringList s;
      for (int n = 0; n < formatos->count(); ++n) s << formatos->itemText(n);
      return s.join(u' ');
    };
    EXPECT_EQ(ofrecidos(), u"(ninguno) cuatro dos tres uno");
    t.lista(w, u"GridEtq").irA(2);
    t.elegir(w, u"ListaEtq", 2);
    EXPECT_EQ(ofrecidos(), u"(ninguno) dos uno");
    EXPECT_TRUE(t.control<QLabel>(w, u"lbJue")->text().contains(u"A"));
    editar(w, u"GridEtq", 3, u"formato"_s, u"uno"_s);
    EXPECT_TRUE(t.control<QWidget>(w, u"casete2")->isVisible());
    t.elegir(w, u"modo2", 4);
    t.poner(w, u"oper3", u"20"_s);
  });
  // Only the models that have them show the cassettes 2 and 3; a format that isn't offered is
  // refused.
  t.ir(v, 1);
  enHoja(t, v, u"MnCas"_s, u"Cancelo"_s, [&](QWidget* w) {
    EXPECT_FALSE(t.control<QWidget>(w, u"casete2")->isVisible());
    editar(w, u"GridEtq", 5, u"formato"_s, u"tres"_s);
    EXPECT_TRUE(qobject_cast<ventanas::Ventana*>(w)->tira().texto().contains(u"otro juego"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  });
  t.envio() = 2;
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select NMBZA, ETQ13, ETQ14, MODAL02, OPERA03 from BZAS where SUGPO=1"_s),
            u"0 dos uno 4 20 | 1 dos uno 4 20");
  EXPECT_EQ(t.cola(), u"5 8") << "options and labels";
}

TEST(Hojas, OpcionesYCodigoDelTicket) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.ir(v, 0);
  enHoja(t, v, u"MnOpc"_s, u"Guardar"_s, [&](QWidget* w) {
    t.control<QCheckBox>(w, u"F_Devo")->click();
    auto* formato = t.control(w, u"fmato");
    t.poner(w, u"fmato", u"ckxibsoq"_s);
    EXPECT_EQ(formato->text(), u"CKIBSOQ") << "in capitals, and without letters that mean nothing";
    t.poner(w, u"fmato", u"CCCCCCCCKKKKK"_s);
    EXPECT_EQ(formato->text(), u"CCCCCCCCKKKK");
    t.control<QRadioButton>(w, u"e08")->click();
    EXPECT_EQ(formato->text(), u"CCCCCCC") << "a longer one is cut";
    t.poner(w, u"pfija", u"21"_s);
    EXPECT_FALSE(t.control(w, u"fjo_plu")->isEnabled());
    t.poner(w, u"Digt_plu", u"4"_s);
    t.poner(w, u"fjo_plu", u"123"_s);
  });
  t.ir(v, 1);
  enHoja(t, v, u"MnOpc"_s, u"Guardar"_s, [&](QWidget* w) {
    t.control<QRadioButton>(w, u"OpDisaBC")->click();
    EXPECT_FALSE(t.control(w, u"fmato")->isVisible());
  });
  t.envio() = 2;
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select P_VOID, HABIL_BC, TIPO_BC, FIJO_BC, FORMA_BC, DIGIT_PLU, FIJO_PLU from "
                   u"BZAS where SUGPO=1 order by NMBZA"_s),
            u"0 1 1 21 CCCCCCC 4 123 | 1 0 0 0 CCCCCCKIIIII 7 -");
  EXPECT_EQ(t.cola(), u"5");
}

TEST(Hojas, MensajeYRazonSocial) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.ir(v, 0);
  enHoja(t, v, u"MnPub"_s, u"Guardar"_s, [&](QWidget* w) {
    EXPECT_EQ(t.control<QSlider>(w, u"Velo")->value(), 99) << "none is shown as the longest";
    QTest::keyClicks(t.control<QPlainTextEdit>(w, u"txMensaje"), u"HOY PESCADO"_s);
    t.control<QRadioButton>(w, u"OpDch")->click();
  });
  enHoja(t, v, u"MnRzs"_s, u"Guardar"_s, [&](QWidget* w) {
    EXPECT_EQ(w->windowTitle(), u"Razón social en balanza  nº 1 (G)");
    t.poner(w, u"linea1", u"CASA PEPE"_s);
    auto* fuente = t.control<QToolButton>(w, u"fuente1");
    fuente->setFocus();
    for (int n = 0; n < 8; ++n) QTest::keyClick(fuente, Qt::Key_F);
    auto* baja = t.control<QToolButton>(w, u"LinArba");
    EXPECT_FALSE(baja->isEnabled()) << "all lines are above";
    for (int n = 0; n < 2; ++n) t.control<QToolButton>(w, u"LinAbjo")->click();
    t.poner(w, u"linea5", u"GRACIAS"_s);
  });
  t.envio() = 2;
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select MESSAG, MESS_T, MESS_R from BZAS where SUGPO=1 order by NMBZA"_s)
                .section(u" | "_s, 0, 0),
            u"HOY PESCADO 1 0");
  EXPECT_EQ(t.uno(u"select RZSOCIAL from BZAS where SUGPO=1 and NMBZA=0"_s).texto(),
            u"C:3:CASA PEPE\r\nC:0:\r\nC:0:\r\nC:0:\r\nP:0:GRACIAS\r\nP:0:\r\n");
  EXPECT_EQ(t.cola(), u"5 3");
}

// Of a register, in a group that has no name yet.
TEST(Hojas, ElTituloDeUnaCaja) {
  MesaDeGrupos t;
  auto* v = t.abrir(PuertaEdiCajas());
  t.ir(v, 1);
  t.tecla(Qt::Key_Insert);
  for (const auto& [orden, titulo] : {std::pair{u"MnPub"_s, u"Mensaje publicitario en caja nº 2"_s},
                                      {u"MnOpc"_s, u"Opciones en caja nº 2"_s}})
    enHoja(t, v, orden, u"Cancelo"_s, [&](QWidget* w) { EXPECT_EQ(w->windowTitle(), titulo); });
}

// The sheets of the whole group: operators, VAT, advanced options with the hours.
TEST(Hojas, LasDelGrupo) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  enHoja(t, v, u"MnOps"_s, u"Acepto"_s, [&](QWidget* w) {
    EXPECT_EQ(w->windowTitle(), u"Operadores del Grupo  (G)");
    EXPECT_EQ(t.lista(w, u"GrdOps").filas(), 20);
    editar(w, u"GrdOps", 0, u"codigo"_s, u"9"_s);
    EXPECT_TRUE(qobject_cast<ventanas::Ventana*>(w)->tira().texto().contains(u"ningún operador 9"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    editar(w, u"GrdOps", 0, u"codigo"_s, u"2"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(t.lista(w, u"GrdOps").filaActual(), 1) << "Return goes to the next place";
    t.elegir(w, u"LstOpe", 3);
    t.control<QCheckBox>(w, u"imgSI")->click();
  });
  enHoja(t, v, u"MnIva"_s, u"Acepto"_s, [&](QWidget* w) {
    editar(w, u"GrdTpos", 1, u"tasa"_s, u"10,5"_s);
    editar(w, u"GrdDeps", 0, u"tipo"_s, u"2"_s);
  });
  enHoja(t, v, u"MnAvan"_s, u"Acepto"_s, [&](QWidget* w) {
    t.control<QCheckBox>(w, u"TkLog")->click();
    EXPECT_FALSE(t.control<QWidget>(w, u"frmCop")->isVisible());
    t.control<QCheckBox>(w, u"TkCop")->click();
    t.control<QCheckBox>(w, u"TkBCRc")->click();
    auto* fichas = t.control<QTabWidget>(w, u"tabstr");
    fichas->setCurrentIndex(3);
    t.poner(w, u"h00", u"9:00"_s);
    t.poner(w, u"h01", u"21:30"_s);
  });
  t.envio() = 2;
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(
      t.leer(u"select OP01_C, OP02_C, OP02_T, IVA02, IVD01, IVD02, TK_FLAGS, TK_CPIA, Horario "
             u"from GRUPOS where CODGPO=1"_s),
      u"2 3 1 1050 2 1 11111001 2 09:00|21:30||||||||||||||");
  EXPECT_EQ(t.cola(), u"4");
  // An Ebony group has its hours alone.
  v = t.editor(2);
  enHoja(t, v, u"MnAvan"_s, u"Acepto"_s, [&](QWidget* w) {
    auto* fichas = t.control<QTabWidget>(w, u"tabstr");
    EXPECT_EQ(fichas->tabText(fichas->currentIndex()).remove(u'&'), u"Horario comercial");
    EXPECT_FALSE(fichas->isTabVisible(0));
    t.poner(w, u"h00", u"9:00"_s);
    t.responder(u"Acepto"_s);
    w->findChild<QPushButton*>(u"Acepto"_s)->click();
    EXPECT_TRUE(t.textoModal.contains(u"Falta esta hora")) << t.textoModal.toStdString();
    t.poner(w, u"h01", u"14:00"_s);
  });
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select Horario from GRUPOS where CODGPO=2"_s), u"09:00|14:00||||||||||||||");
}

}  // namespace tarvo::prueba
