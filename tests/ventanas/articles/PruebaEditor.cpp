// The complete editor: its checks and marks, its keys, its bar code.
#include <QPlainTextEdit>
#include <QTabWidget>

#include "MesaDeArticulos.h"

namespace tarvo::prueba {

TEST(Editor, LaListaDeFaltasYLaPrimeraDelante) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  t.control(v, u"txFormato")->setText(u"21"_s);
  t.control(v, u"txMinimo")->setText(u"99999,99"_s);
  t.control(v, u"txHasta2")->setText(u"doce"_s);
  t.responder(u"Acepto"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.textoModal,
            u"El valor entrado es incorrecto:\nFormato Etiquetas\nPrecio mínimo\nValor Hasta2");
  EXPECT_EQ(t.control<QTabWidget>(v, u"Fichas")->currentWidget()->objectName(), u"etq");
  EXPECT_EQ(v->focusWidget(), t.control(v, u"txFormato"));
  EXPECT_EQ(t.leer(u"select FORMATO, minimo, HASTA_2 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"1 0 0");
  EXPECT_EQ(t.cruces(), u"10 1 0 | 20 1 0");
  // Leaving asks first; "No" stays, and so does Return.
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  v->close();
  EXPECT_EQ(t.textoModal, u"¿Abandonar los cambios realizados?");
  EXPECT_TRUE(v->isVisible());
}

TEST(Editor, NiLaMonedaNiLaUnidadCambianNada) {
  MesaDeArticulos t;
  t.ajustes.Euro = 166.386F;
  t.sql(
      u"update PLUSES set COSTE=333, minimo=101, HASTA_1=1505, STK_MAX=2500 where SECCION=1 and CODPLU=10"_s);
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"3,33");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"554");
  QTest::mouseDClick(t.control<QWidget>(v, u"Moneda"), Qt::LeftButton);
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"3,33");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  auto* unidad = t.control<QComboBox>(v, u"LstCada");
  unidad->setCurrentIndex(2);
  EXPECT_EQ(t.control(v, u"txHasta1")->text(), u"1.505");
  EXPECT_EQ(t.control<QLabel>(v, u"lbUni")->text(), u"Uds.");
  unidad->setCurrentIndex(0);
  t.control(v, u"txNom")->setText(u"Otro"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_FALSE(v->isVisible());
  EXPECT_EQ(
      t.leer(
          u"select NOMPLU, COSTE, minimo, HASTA_1, STK_MAX, CADA from PLUSES where SECCION=1 and CODPLU=10"_s),
      u"Otro 333 101 1505 2500 0");
}

// After a price, Return moves on to the next tarifa, and doesn't overwrite the one before.
TEST(Editor, IntroPasaALaTarifaSiguiente) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  auto& precios = t.lista(v, u"GrdPre");
  t.abrirCelda(precios, u"P0"_s);
  for (const QChar c : u"2,45\r2,40\r"_s) {
    c == u'\r' ? t.tecla(Qt::Key_Return) : t.escribir(c);
    QCoreApplication::processEvents();
  }
  EXPECT_EQ((precios.texto(0, u"P0") + u' ' + precios.texto(1, u"P0")).toStdString(), "2,45 2,40");
}

// Ctrl+Z takes back prices and counters, the last first, whatever the currency shown meanwhile.
TEST(Editor, LasCeldasVuelven) {
  MesaDeArticulos t;
  t.almacen(1, u"Tienda"_s);
  t.ajustes.Euro = 166.386F;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  auto& precios = t.lista(v, u"GrdPre");
  auto& stock = t.lista(v, u"GrdStk");
  t.abrirCelda(precios, u"P0"_s);
  for (const QChar c : u"1,75\r2,99\r"_s) {
    c == u'\r' ? t.tecla(Qt::Key_Return) : t.escribir(c);
    QCoreApplication::processEvents();
  }
  t.control<QTabWidget>(v, u"Fichas")->setCurrentIndex(2);
  t.abrirCelda(stock, u"Inicial"_s);
  t.escribir(u"5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(stock.texto(0, u"Inicial"), u"5,000");
  QApplication::processEvents();
  const auto deshacer = [&] {
    stock.vista()->setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
  };
  deshacer();
  EXPECT_EQ(stock.texto(0, u"Inicial"), u"0,000");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  deshacer();
  EXPECT_EQ(v->tira().texto(), u"Deshecho: P. Base, tarifa 2, que era «0,00».");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ((precios.texto(0, u"P0") + u' ' + precios.texto(1, u"P0")).toStdString(), "1,75 0,00");
  deshacer();
  EXPECT_EQ(precios.texto(0, u"P0"), u"1,00");
  t.control<QPushButton>(v, u"Salir")->click();
  EXPECT_FALSE(v->isVisible()) << "nothing has changed, so nothing is asked";
}

// What the editor saved is taken back in the list: fields, counters and code at once, a new article
// as a whole; but not what another window changed meanwhile.
TEST(Editor, LoGuardadoVuelveEnLaLista) {
  const QString todo = u"select CODPLU, NOMPLU, PRECIO_00 from PLUSES where SECCION=1 order by 1"_s;
  const QString stock = u"select CODIGO, Inicial from MovsAlm where Inicial<>0 order by 1"_s;
  const struct {
    qint64 codigo;
    QString ajeno, dice;
    bool vuelve;
  } casos[] = {{10, {}, u"Deshecho: Cambios de la ficha de 0000011."_s, true},
               {10, u"update MovsAlm set Inicial=1 where CODIGO=11"_s,
                u"Otra ventana ha cambiado lo mismo después: se queda como está."_s, false},
               {10, u"update PLUSES set NOMPLU='Otro' where SECCION=1 and CODPLU=11"_s,
                u"Otra ventana ha cambiado lo mismo después: se queda como está."_s, false},
               {0, {}, u"Deshecho: Alta de 0000011."_s, true},
               {0, u"update PLUSES set FORMATO=2 where SECCION=1 and CODPLU=11"_s,
                u"Otra ventana ha cambiado lo mismo después: se queda como está."_s, false}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    t.almacen(1, u"Tienda"_s);
    t.existencias({.almacen = 1, .codigo = 10, .inicial = 500});
    const QString antes = t.leer(todo);
    auto* lista = t.abrir(PuertaBrowPLUs{});
    lista->findChild<QAction*>(c.codigo == 0 ? u"MnCompleto"_s : u"MnCompletoM"_s)->trigger();
    auto* v = t.escritorio.ventanas().cargada(u"xEditPLU#1.%1"_s.arg(c.codigo));
    ASSERT_TRUE(v && t.activa(v));
    t.control(v, u"txCod")->setText(u"11"_s);
    t.control(v, u"txNom")->setText(u"Níscalo"_s);
    auto& contadores = t.lista(v, u"GrdStk");
    t.control<QTabWidget>(v, u"Fichas")->setCurrentIndex(2);
    t.abrirCelda(contadores, u"Inicial"_s);
    t.escribir(u"7"_s);
    t.tecla(Qt::Key_Return);
    t.control<QPushButton>(v, u"Guardar")->click();
    ASSERT_FALSE(v->isVisible());
    EXPECT_TRUE(t.leer(todo).contains(u"11 Níscalo"_s));
    EXPECT_TRUE(t.leer(stock).contains(u"11 7000"_s)) << t.leer(stock).toStdString();
    if (!c.ajeno.isEmpty()) t.sql(c.ajeno);
    const QString guardado = t.leer(todo) + t.leer(stock);
    lista->activateWindow();
    ASSERT_TRUE(t.activa(lista));
    t.lista(lista).vista()->setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(lista->tira().texto(), c.dice);
    EXPECT_EQ((t.leer(todo) + t.leer(stock)).toStdString(),
              (c.vuelve ? antes + u"10 500"_s : guardado).toStdString())
        << c.codigo;
  }
}

TEST(Editor, BarrasExistenciasYLoQueOtroCambio) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  auto* dibujo = t.control<QLabel>(v, u"dibujo");
  auto* corregir = t.control<QPushButton>(v, u"Corregir");
  EXPECT_FALSE(dibujo->pixmap().isNull());
  t.control(v, u"txBarExt")->setText(u"8412345678904"_s);
  EXPECT_FALSE(corregir->isHidden());
  EXPECT_TRUE(dibujo->pixmap().isNull());
  corregir->click();
  EXPECT_EQ(t.control(v, u"txBarExt")->text(), u"8412345678905");
  EXPECT_FALSE(dibujo->pixmap().isNull());
  t.control<QTabWidget>(v, u"Fichas")->setCurrentIndex(2);
  auto& stock = t.lista(v, u"GrdStk");
  t.abrirCelda(stock, u"Inicial"_s);
  t.escribir(u"2,5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(stock.texto(0, u"actual"), u"2,500");
  t.sql(u"update PLUSES set PRECIO_00=5 where SECCION=1 and CODPLU=10"_s);
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_TRUE(t.textoModal.startsWith(u"Otra ventana ha cambiado"));
  EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s), u"5");
  t.responder(u"Acepto"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.leer(u"select PRECIO_00, CodBarExt from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"100 8412345678905");
  EXPECT_EQ(t.leer(u"select CODIGO, Inicial, Venta from MovsAlm"_s), u"10 2500 0");
  // The bar code already exists in the section.
  v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 20});
  t.control(v, u"txBarExt")->setText(u"8412345678905"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(v->tira().texto(), u"El código de registro ya existe: No debe duplicarse");
  EXPECT_TRUE(v->isVisible());
  // A code that doesn't exist opens nothing.
  EXPECT_EQ(t.escritorio.ventanas().abrir(PuertaXEditPLU{.seccion = 1, .codigo = 99}, v), nullptr);
}

namespace {

// Records whether a widget has been painted.
class Pintado final : public QObject {
 public:
  explicit Pintado(QWidget* w) : w_(w) { w->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() == QEvent::Paint) como_ = w_->property("falta").toBool();
    return false;
  }
  std::optional<bool> como() const { return como_; }

 private:
  QWidget* w_;
  std::optional<bool> como_;
};

}  // namespace

// Each Guardar marks all current faults, and the marks are painted.
TEST(Editor, LosMarcosDicenLoDeAhora) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  const char16_t* campos[] = {u"txCod", u"txMinimo", u"txHasta1", u"txHasta2"};
  const struct {
    const char16_t* textos[4];
    std::vector<bool> mal;
  } casos[] = {{{u"1", u"-3", u"x", u"999999"}, {true, true, true, true}},
               {{u"10", u"-3", u"1", u"999999"}, {false, true, false, true}},
               {{u"10", u"3", u"x", u"1"}, {false, false, true, false}}};
  std::vector<std::unique_ptr<Pintado>> pintados;
  for (const char16_t* campo : campos)
    pintados.push_back(std::make_unique<Pintado>(t.control(v, campo)));
  for (const auto& c : casos) {
    for (size_t i = 0; i < 4; ++i)
      t.control(v, campos[i])->setText(QString::fromUtf16(c.textos[i]));
    QApplication::processEvents();
    t.responder(u"Acepto"_s);
    t.control<QPushButton>(v, u"Guardar")->click();
    for (size_t i = 0; i < 4; ++i)
      EXPECT_TRUE(esperar([&] { return pintados[i]->como() == c.mal[i]; }, 5000))
          << QString::fromUtf16(campos[i]).toStdString() << ' ' << c.mal[i];
  }
}

// The tab in front, the control with the focus, the key, and the result.
TEST(Editor, PorTodasPartesConElTeclado) {
  const struct {
    int ficha;
    const char16_t* desde;
    Qt::Key tecla;
    Qt::KeyboardModifiers mandos;
    const char16_t *delante, *foco;  // the tab and the control after the key, where they matter
  } casos[] = {{0, u"txNom", Qt::Key_Tab, Qt::ControlModifier, u"otr", u""},
               {0, u"LstCada", Qt::Key_Tab, Qt::ControlModifier, u"otr", u""},
               {1, u"LstDep", Qt::Key_Tab, Qt::ControlModifier, u"stk", u""},
               {3, u"txTexto", Qt::Key_Tab, Qt::ControlModifier, u"pre", u""},
               {0, u"txNom", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, u"etq", u""},
               {0, u"txHasta2", Qt::Key_P, Qt::AltModifier, u"pre", u"GrdPre"},
               {0, u"txHasta2", Qt::Key_H, Qt::AltModifier, u"pre", u"historia"},
               {2, u"txCoste", Qt::Key_A, Qt::AltModifier, u"stk", u"GrdStk"},
               {0, u"txNom", Qt::Key_Q, Qt::AltModifier, u"etq", u""},
               {0, u"txNom", Qt::Key_B, Qt::AltModifier, u"otr", u""},
               {0, u"txNom", Qt::Key_L, Qt::AltModifier, u"stk", u""},
               {2, u"txNom", Qt::Key_E, Qt::AltModifier, u"pre", u""},
               {0, u"LstCada", Qt::Key_Return, Qt::NoModifier, u"pre", u"Moneda"},
               {0, u"chModificable", Qt::Key_Return, Qt::NoModifier, u"pre", u"historia"},
               {3, u"txTexto", Qt::Key_Tab, Qt::NoModifier, u"etq", u"Guardar"}};
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  auto* fichas = t.control<QTabWidget>(v, u"Fichas");
  for (const auto& c : casos) {
    fichas->setCurrentIndex(c.ficha);
    t.control<QWidget>(v, c.desde)->setFocus();
    t.tecla(c.tecla, c.mandos);
    const std::string donde =
        QString(QString::fromUtf16(c.desde) + u' ' + QString::number(c.tecla)).toStdString();
    EXPECT_EQ(fichas->currentWidget()->objectName(), QString::fromUtf16(c.delante)) << donde;
    if (*c.foco) {
      auto* control = t.control<QWidget>(v, c.foco);
      EXPECT_TRUE(control->hasFocus() || control->isAncestorOf(QApplication::focusWidget()))
          << donde;
    }
  }
  EXPECT_EQ(t.control<QPlainTextEdit>(v, u"txTexto")->toPlainText(), u"");
}

// On its tab the focus shows, and Return goes into the page: it saves nothing.
TEST(Editor, IntroEnLaPestanaEntraEnSuPagina) {
  MesaDeArticulos t;
  auto* lista = t.abrir(PuertaBrowPLUs{});
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 0, .padre = u"BrowPLUs"_s});
  t.control(v, u"txCod")->setText(u"77"_s);
  t.control(v, u"txNom")->setText(u"Níscalo"_s);
  auto* fichas = t.control<QTabWidget>(v, u"Fichas");
  t.control(v, u"txNom")->setFocus();
  const QImage sinFoco = fichas->tabBar()->grab().toImage();
  for (int i = 0; i < fichas->count(); ++i) {
    fichas->setCurrentIndex(i);
    fichas->tabBar()->setFocus();
    if (i == 0) {
      EXPECT_NE(fichas->tabBar()->grab().toImage(), sinFoco);
    }
    t.tecla(Qt::Key_Return);
    EXPECT_TRUE(fichas->currentWidget()->isAncestorOf(QApplication::focusWidget())) << i;
  }
  ASSERT_TRUE(v->isVisible());
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where CODPLU=77"_s), u"0");
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where CODPLU=77"_s), u"1");
  EXPECT_EQ(lista->tira().texto(),
            u"El artículo 0000077 se ha guardado sin ningún precio: compruebe que es lo que "
            u"quiere.");
}

// It fits a screen of 768 lines with a bar, also at a scale of 1.5.
TEST(Editor, CabeEnUnaPantallaBaja) {
  MesaDeArticulos t;
  t.escritorio.tema().ponerEscala(1.5);
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  constexpr int kBarra = 40, kMarco = 32;
  EXPECT_LE(v->minimumSizeHint().height(), 768 - kBarra - kMarco);
  t.escritorio.tema().ponerEscala(1);
}

// A bar code that no label can print is stored and reported: in the form, and then in the list.
TEST(Editor, ElCodigoDeBarrasRaroSeDice) {
  const struct {
    const char16_t *predefinido, *prefijo;
    int tipo;
    const char* dice;
  } casos[] = {
      {u"8412345678905", u"0", 1, ""},
      {u"96385074", u"0", 0, ""},
      {u"ABC;'\"", u"0", 1,
       "El código predefinido no es un EAN13 de 13 cifras: compruebe el código o su tipo"},
      {u"8412345678905", u"0", 0,
       "El código predefinido no es un EAN8 de 8 cifras: compruebe el código o su tipo"},
      {u"8412345678904", u"0", 1, "El dígito de control debería ser 5: compruebe el código"},
      {u"", u"12345", 0,
       "El prefijo y el código no caben en un código de este tipo: acorte el prefijo"}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    auto* lista = t.abrir(u"BrowPLUs"_s);
    t.tecla(Qt::Key_F4);
    auto* v = t.cargada(u"xEditPLU#1.10"_s);
    t.control(v, u"txBarExt")->setText(QString::fromUtf16(c.predefinido));
    t.control(v, u"txPfx")->setText(QString::fromUtf16(c.prefijo));
    t.control<QComboBox>(v, u"LstBarras")->setCurrentIndex(c.tipo);
    EXPECT_EQ(t.control<QLabel>(v, u"control")->text().toStdString(), c.dice);
    EXPECT_EQ(t.control<QLabel>(v, u"dibujo")->pixmap().isNull(), *c.dice != 0);
    t.control<QPushButton>(v, u"Guardar")->click();
    EXPECT_EQ(t.leer(u"select CodBarExt, PFX_BAR from PLUSES where SECCION=1 and CODPLU=10"_s),
              QString((*c.predefinido ? QString::fromUtf16(c.predefinido) : u"-"_s) + u' ' +
                      QString::fromUtf16(c.prefijo)));
    const std::string guardado = "0000010 está guardado. " + std::string(c.dice);
    EXPECT_EQ(lista->tira().texto().toStdString(), *c.dice ? guardado : "") << c.dice;
    if (!*c.dice) continue;
    // A later change of something else doesn't report it again.
    lista->tira().quitar();
    lista->activateWindow();
    ASSERT_TRUE(t.activa(lista));
    t.lista(lista).vista()->setFocus();
    t.tecla(Qt::Key_F4);
    v = t.cargada(u"xEditPLU#1.10"_s);
    t.control(v, u"txNom")->setText(u"Otro"_s);
    t.control<QPushButton>(v, u"Guardar")->click();
    EXPECT_TRUE(lista->tira().isHidden());
  }
}

// However it is saved, a cell still open counts, and a price that became 0 is told in the list.
TEST(Editor, ElPrecioACeroSeDiceSeGuardeComoSeGuarde) {
  enum Modo { kIntro, kRaton, kLetra };
  for (const Modo modo : {kIntro, kRaton, kLetra})
    for (const bool vale : {true, false}) {
      SCOPED_TRACE(testing::Message() << modo << vale);
      MesaDeArticulos t;
      auto* lista = t.abrir(u"BrowPLUs"_s);
      t.tecla(Qt::Key_F4);
      const QPointer<ventanas::Ventana> v = t.cargada(u"xEditPLU#1.10"_s);
      auto& precios = t.lista(v, u"GrdPre");
      t.abrirCelda(precios, u"P0"_s);
      t.escribir(vale ? u"0"_s : u"x"_s);
      auto* guardar = t.control<QPushButton>(v, u"Guardar");
      if (modo == kRaton) {
        QTest::mousePress(guardar, Qt::LeftButton);
        QApplication::processEvents();
        QTest::mouseRelease(guardar, Qt::LeftButton);
      } else {
        if (modo == kIntro) t.tecla(Qt::Key_Return);
        QApplication::processEvents();
        t.tecla(Qt::Key_G, Qt::AltModifier);
      }
      EXPECT_TRUE(esperar([&] { return (v && v->isVisible()) == !vale; }));
      EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s),
                vale ? u"0" : u"100");
      EXPECT_TRUE(vale || precios.editando());
      const auto& tira = (vale ? lista : v.data())->tira();
      const QString dicho = vale ? u"El precio era 1,00 y ahora es 0"_s : u"«x»"_s;
      EXPECT_TRUE(esperar([&] { return tira.texto().contains(dicho); }))
          << tira.texto().toStdString();
    }
}

// The history beside the prices shows what each was and is, at the form's own size.
TEST(Editor, LaHistoriaEnsenaElPrecioDeAhora) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  v->resize(1100, 640);
  QApplication::processEvents();
  for (const auto& [lista, campo] : {std::pair{u"historia", u"AHORA"}, {u"GrdPre", u"P2"}}) {
    auto& p = t.lista(v, lista);
    auto* vista = p.vista();
    const int c = p.modelo()->columna(campo);
    ASSERT_FALSE(vista->isColumnHidden(c));
    EXPECT_LE(vista->columnViewportPosition(c) + vista->columnWidth(c), vista->viewport()->width());
  }
}

// A discount outside 0 to 100 % is refused with the form open, and never stored as 0.
TEST(Editor, ElDescuentoFueraDeSuMargenNoSeGuarda) {
  const struct {
    const char16_t *texto, *queda;
    bool vale;
  } casos[] = {{u"101", u"500", false},  {u"-1", u"500", false},   {u"100,5", u"500", false},
               {u"nada", u"500", false}, {u"100", u"10000", true}, {u"0", u"0", true},
               {u"12,25", u"1225", true}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    t.sql(u"update PLUSES set DESCTO=500 where SECCION=1 and CODPLU=10"_s);
    QPointer<ventanas::Ventana> v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
    t.control(v, u"txDescto")->setText(QString::fromUtf16(c.texto));
    if (!c.vale) t.responder(u"Acepto"_s);
    t.control<QPushButton>(v, u"Guardar")->click();
    QApplication::processEvents();
    EXPECT_EQ(v && v->isVisible(), !c.vale) << QString::fromUtf16(c.texto).toStdString();
    EXPECT_EQ(t.leer(u"select DESCTO from PLUSES where SECCION=1 and CODPLU=10"_s),
              QString::fromUtf16(c.queda));
  }
}

// The history names where a price was changed as a person knows the window, never by its inside
// name; a file keeps its own.
TEST(Editor, LaHistoriaDiceDesdeDonde) {
  MesaDeArticulos t;
  int precio = 900;
  const QStringList desde{u"BrowPLUs"_s, u"xEditPLU"_s,   u"CalcPre"_s, u"FastAlta"_s,
                          u"FastModf"_s, u"EntNmSc"_s,    u"ImpPLU"_s,  u"CambioLote"_s,
                          u"ImpTabla"_s, u"BrowGrupos"_s, u"MainTvc"_s, u"julio.csv"_s};
  for (const QString& ventana : desde) {
    Articulo ahora = *bien(t.catalogo.leer({1, 10}));
    ahora.precios[0][0] = ++precio;
    bien(t.catalogo.modificar({1, 10}, ahora, ventana));
  }
  auto* v = t.abrir(PuertaXEditPLU{.seccion = 1, .codigo = 10});
  auto& p = t.lista(v, u"historia");
  ASSERT_EQ(p.filas(), desde.size());
  QStringList dichas;
  for (int f = 0; f < p.filas(); ++f) dichas << p.texto(f, u"VENTANA");
  for (const QString& ventana : desde.mid(0, desde.size() - 1))
    EXPECT_FALSE(dichas.contains(ventana)) << ventana.toStdString();
  EXPECT_TRUE(dichas.contains(desde.back()));
  EXPECT_EQ(QSet<QString>(dichas.begin(), dichas.end()).size(), desde.size());
}

}  // namespace tarvo::prueba
