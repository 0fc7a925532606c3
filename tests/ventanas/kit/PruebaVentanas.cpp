#include <QClipboard>
#include <QFocusFrame>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include "Muestra.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct PuertaDeMotor : ComoMuestra {
  static constexpr QStringView kNombre = u"gestcomm";
};
struct PuertaDeHorario : ComoMuestra {
  static constexpr QStringView kNombre = u"Cronos";
};
struct PuertaConocida : ComoMuestra {
  static constexpr QStringView kNombre = u"Conocida";
};

struct Contada final : Muestra {
  Contada(Contexto& c, const QString& n, dao::Database& db, int& hechas) : Muestra(c, n, db) {
    ++hechas;
  }
};

// With keys that its list has too.
struct Conocida final : Muestra {
  Conocida(Contexto& c, const QString& n, dao::Database& db) : Muestra(c, n, db) {
    ui.abrir->setShortcut(Qt::Key_F3);
    ui.borrar->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
  }
};

struct Puesto : Mesa {
  Puesto() : Mesa(kTextosMuestra) {
    todas().registrar<PuertaDeMuestra, Contada>(*db, hechas);
    todas().registrar<PuertaDeMotor, Contada>(*db, hechas);
    todas().registrar<PuertaDeHorario, Contada>(*db, hechas);
    todas().registrar<PuertaDePrincipal, Contada>(*db, hechas);
    todas().registrar<PuertaConocida, Conocida>(*db);
  }
  Ventanas& todas() { return escritorio.ventanas(); }
  Muestra* abrir(const QString& nombre, QWidget* dueno = nullptr) {
    return qobject_cast<Muestra*>(todas().abrir(nombre, dueno));
  }
  int hechas = 0;
};

// Calls `hacer` with the box as soon as one opens.
void cuandoHayaCaja(const std::function<void(QWidget&)>& hacer) {
  QTimer::singleShot(0, qApp, [hacer] {
    QWidget* caja = QApplication::activeModalWidget();
    if (!caja) return cuandoHayaCaja(hacer);
    hacer(*caja);
  });
}

}  // namespace

TEST(Ventanas, UnaSolaPorNombre) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  EXPECT_EQ(v->windowTitle(), u"Periodos de totalización");
  EXPECT_EQ(p.todas().abrir(PuertaDeMuestra{{.modo = 3}}), v);
  EXPECT_EQ(v->modo, 3) << "an open window is entered again";
  Muestra* otra = p.abrir(u"Muestra#12"_s);
  EXPECT_NE(otra, v);
  EXPECT_EQ(p.hechas, 2);
  EXPECT_EQ(p.todas().cargada(u"Muestra#12"_s), otra);
  EXPECT_FALSE(p.todas().cargada(u"Nada"_s));
  EXPECT_FALSE(p.abrir(u"Nada"_s, v));
  EXPECT_EQ(v->tira().texto(), u"No hay ninguna ventana Nada.");
  // A window that can't be entered isn't opened, and its owner reports the reason.
  EXPECT_FALSE(p.todas().abrir(PuertaDeMuestra{{.falla = true, .cual = u"13"_s}}, v));
  EXPECT_EQ(v->tira().texto(), u"No hay tal periodo.");
  EXPECT_FALSE(p.todas().cargada(u"Muestra#13"_s));
}

// A window without a remembered position is centred on its owner; others open in their last
// position.
TEST(Ventanas, NaceSobreSuDueno) {
  Puesto p;
  Muestra* dueno = p.abrir(u"MainTarvo"_s);
  dueno->resize(400, 300);
  dueno->move(250, 180);
  Muestra* v = p.abrir(u"Muestra"_s, dueno);
  v->resize(200, 100);
  const QPoint lejos = v->frameGeometry().center() - dueno->frameGeometry().center();
  EXPECT_LT(lejos.manhattanLength(), 600) << "not in a corner of the screen";
  EXPECT_GT(v->x() + v->y(), 0);
  EXPECT_TRUE(v->screen()->availableGeometry().contains(v->frameGeometry()));
  v->move(33, 44);
  v->descargar();
  EXPECT_EQ(p.abrir(u"Muestra"_s, dueno)->pos(), QPoint(33, 44));
}

TEST(Ventanas, EscapeDescargaYVuelveAlDueno) {
  Puesto p;
  Muestra* dueno = p.abrir(u"MainTarvo"_s);
  Muestra* v = p.abrir(u"Muestra"_s, dueno);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  v->seNiega = true;
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_EQ(v->preguntas, 1);
  EXPECT_TRUE(p.todas().cargada(u"Muestra"_s));
  v->seNiega = false;
  QSignalSpy ida(&p.todas(), &Ventanas::descargada);
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(p.todas().cargada(u"Muestra"_s));
  EXPECT_EQ(ida.count(), 1);
  EXPECT_TRUE(esperar([&] { return dueno->isActiveWindow(); }));
}

// Some platforms send the letter as text.
TEST(Ventanas, AltConUnaLetraNoEscribe) {
  Puesto p;
  QLineEdit campo;
  QKeyEvent conAlt(QEvent::KeyPress, Qt::Key_Z, Qt::AltModifier, u"z"_s);
  QApplication::sendEvent(&campo, &conAlt);
  EXPECT_EQ(campo.text(), QString());
  QTest::keyClicks(&campo, u"z"_s);
  EXPECT_EQ(campo.text(), u"z");
}

TEST(Ventanas, DescargaTodo) {
  Puesto p;
  Muestra* principal = p.abrir(u"MainTarvo"_s);
  Muestra* motor = p.abrir(u"gestcomm"_s);
  p.abrir(u"Cronos"_s);
  p.abrir(u"Muestra"_s);
  motor->seNiega = true;
  EXPECT_TRUE(p.todas().DescargaTodo(principal));
  EXPECT_EQ(p.todas().abiertas().size(), 4U) << "no window is closed during a transfer";
  motor->seNiega = false;
  EXPECT_FALSE(p.todas().DescargaTodo(principal));
  EXPECT_EQ(p.todas().abiertas().size(), 2U);
  EXPECT_TRUE(p.todas().cargada(u"Cronos"_s));
  // A window that refuses keeps those opened before it.
  p.abrir(u"Muestra"_s);
  p.abrir(u"Muestra#2"_s)->seNiega = true;
  EXPECT_TRUE(p.todas().DescargaTodo(principal));
  EXPECT_EQ(p.todas().abiertas().size(), 4U);
}

// Qt triggers neither of two actions with the same key: the list gives the key up to its window.
TEST(Ventanas, LasTeclasDeLaVentanaSonSuyas) {
  Puesto p;
  Muestra* v = p.abrir(u"Conocida"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  llenarArticulos(p, 20);
  bien(v->ui.lista->abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s}));
  v->ui.lista->vista()->setFocus();
  QSignalSpy abre(v->ui.abrir, &QAction::triggered), borra(v->ui.borrar, &QAction::triggered);
  QTest::keyClick(v->ui.lista->vista(), Qt::Key_F3);
  QTest::keyClick(v->ui.lista->vista(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(abre.count(), 1);
  EXPECT_EQ(borra.count(), 1);
  v->ui.lista->irA(0);
  v->ui.lista->campoBusca()->setText(u"000007"_s);
  QTest::keyClick(v->ui.lista->vista(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_TRUE(esperar([&] { return v->ui.lista->filaActual() == 6; }));
}

TEST(Ventanas, LosTextosDelJuegoSonLosDelPrograma) {
  Puesto p;
  EXPECT_EQ(QApplication::translate("QLineEdit", "&Copy"), u"&Copiar");
  EXPECT_EQ(QApplication::translate("QAbstractFileIconProvider", "Folder"), u"Carpeta");
}

// Ctrl+F moves to the search field of the list with the focus, and from elsewhere to the first one.
TEST(Ventanas, BuscarLlegaASuLista) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  const std::vector<std::pair<QWidget*, Parrilla*>> casos{{v->ui.tareas->vista(), v->ui.tareas},
                                                          {v->ui.lista->vista(), v->ui.lista},
                                                          {v->ui.Acepto, v->ui.lista}};
  for (const auto& [desde, lista] : casos) {
    desde->setFocus();
    QTest::keyClick(desde, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(lista->campoBusca()->hasFocus());
  }
}

// Answers are given with keys alone and delivered to the caller. Return presses the default button
// wherever the focus is, except on another button or in a field that uses Return itself.
TEST(Ventanas, ModalAceptaYRechaza) {
  const struct {
    const char* desde;
    Qt::Key tecla;
    bool respuesta;
  } casos[] = {{"Acepto", Qt::Key_Space, true},    {"Acepto", Qt::Key_Return, true},
               {"todos", Qt::Key_Return, true},    {"tipo", Qt::Key_Enter, true},
               {"Cancelo", Qt::Key_Return, false}, {"busca", Qt::Key_Return, false},
               {"Acepto", Qt::Key_Escape, false}};
  for (const auto& c : casos) {
    Puesto p;
    const Muestra* dueno = p.abrir(u"MainTarvo"_s);
    cuandoHayaCaja([&](QWidget& v) {
      EXPECT_EQ(v.windowHandle()->transientParent(), dueno->windowHandle());
      EXPECT_EQ(v.windowHandle()->type(), Qt::Dialog);
      auto* desde = v.findChild<QWidget*>(QString::fromLatin1(c.desde));
      desde->setFocus();
      QTest::keyClick(desde, c.tecla);
      if (v.isVisible()) QTest::keyClick(&v, Qt::Key_Escape);
    });
    EXPECT_EQ(p.todas().preguntar(PuertaDeMuestra(), p.todas().cargada(u"MainTarvo"_s)),
              c.respuesta)
        << c.desde;
    EXPECT_FALSE(p.todas().cargada(u"Muestra"_s));
  }
}

// The ring marks the focus, even after the window that contained the ring has been destroyed.
TEST(Ventanas, ElFocoSeVeEnCadaVentana) {
  Puesto p;
  Muestra* dueno = p.abrir(u"MainTarvo"_s);
  const auto conAnillo = [](const Muestra* v) {
    v->ui.Acepto->setFocus();
    return esperar([v] {
      const auto* anillo = v->findChild<QFocusFrame*>();
      return anillo && anillo->isVisible() && anillo->widget() == v->ui.Acepto;
    });
  };
  for (int i = 0; i < 2; ++i) {
    Muestra* v = p.abrir(u"Muestra"_s, dueno);
    ASSERT_TRUE(QTest::qWaitForWindowActive(v));
    EXPECT_TRUE(conAnillo(v));
    QTest::keyClick(v, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dueno));
    EXPECT_TRUE(conAnillo(dueno));
  }
}

// A window unloaded at the very end is deleted before the objects it depends on.
TEST(Ventanas, NingunaSobreviveAlEscritorio) {
  QPointer<Ventana> v;
  {
    Puesto p;
    v = p.abrir(u"Muestra"_s);
    EXPECT_TRUE(v->descargar());
    EXPECT_TRUE(v) << "deleted later, as its own keys may have closed it";
  }
  EXPECT_FALSE(v);
}

// What doesn't fit is scrolled, and no line of it is cut.
TEST(Ventanas, ElDetalleLargoSeDesplaza) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  for (const int lineas : {2, 80}) {
    v->decirDuda(u"Con avisos"_s, u"Un aviso que se lee.\n"_s.repeated(lineas).trimmed());
    QTest::mouseClick(v->tira().findChild<QToolButton*>(u"verDetalle"_s), Qt::LeftButton);
    QTest::qWait(20);
    const auto* sitio = v->tira().findChild<QScrollArea*>(u"sitioDetalle"_s);
    const auto* texto = v->tira().findChild<QLabel*>(u"detalle"_s);
    ASSERT_TRUE(sitio && sitio->isVisible());
    EXPECT_GE(texto->height(), texto->heightForWidth(texto->width()));
    EXPECT_EQ(sitio->verticalScrollBar()->maximum() > 0, lineas > 2);
    EXPECT_LT(v->tira().height(), 300);
  }
}

// A window that closes by its own clock takes no Escape to its owner.
TEST(Ventanas, ElEscapeDeLaQueSeCierraSolaNoEsDelDueno) {
  Puesto p;
  for (const bool sola : {true, false}) {
    Muestra* v = p.abrir(u"Muestra"_s);
    Muestra* hija = p.abrir(u"Muestra#1"_s, v);
    sola ? hija->cerrarSola() : hija->descargar();
    QTest::keyClick(v, Qt::Key_Escape);
    EXPECT_EQ(p.todas().cargada(u"Muestra"_s) != nullptr, sola);
    p.todas().descargar(u"Muestra"_s);
  }
}

TEST(Ventanas, RecuerdaSuTamano) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  v->resize(777, 444);
  v->ui.division->setSizes({100, 400});
  const auto partes = v->ui.division->sizes();
  p.todas().descargar(u"Muestra"_s);
  const Recuerdos leidos(p.ruta(u"VENTANAS.INI"_s));
  EXPECT_FALSE(leidos.leer(u"Muestra"_s, u"sitio"_s).isEmpty()) << "on disk, not only in memory";
  v = p.abrir(u"Muestra"_s);
  EXPECT_EQ(v->size(), QSize(777, 444));
  EXPECT_EQ(v->ui.division->sizes(), partes);
}

TEST(MyMsgBox, RespuestasPorTeclas) {
  const Mesa m;
  const struct {
    int estilo;
    const char* boton;
    Qt::Key tecla;
    bool respuesta;
  } casos[] = {
      {kAceptoCancelo, "Acepto", Qt::Key_Return, true},
      {kAceptoCancelo | kCritico, "Cancelo", Qt::Key_Space, false},
      {kAceptoCancelo | kExclamacion, "Acepto", Qt::Key_Escape, false},
      {kSoloAcepto, "Acepto", Qt::Key_Space, true},
      {kSoloAcepto, "Acepto", Qt::Key_Escape, false},
  };
  for (const auto& c : casos) {
    bool conCancelo = false;
    cuandoHayaCaja([&](QWidget& caja) {
      conCancelo = caja.findChild<QPushButton*>(u"Cancelo"_s) != nullptr;
      QTest::keyClick(caja.findChild<QPushButton*>(QString::fromLatin1(c.boton)), c.tecla);
    });
    EXPECT_EQ(MyMsgBox::Decide(nullptr, m.textos, u"¿Sigue?"_s, c.estilo), c.respuesta);
    EXPECT_EQ(conCancelo, (c.estilo & 15) == kAceptoCancelo);
  }
}

// The letter of the command that asked, pressed again, loses nothing.
TEST(MyMsgBox, LoQueSePierdeNoTieneLaLetraDeQuienPregunta) {
  const Mesa m;
  QWidget quien;
  QPushButton vaciar(u"V&aciar"_s, &quien);
  for (const int estilo : {int{kAceptoCancelo}, kAceptoCancelo | kExclamacion}) {
    cuandoHayaCaja([&](QWidget& caja) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&caja));
      QTest::keyClick(&caja, Qt::Key_A, Qt::AltModifier);
      QTimer::singleShot(300, &caja, &QWidget::close);  // a button pressed so takes a moment
    });
    EXPECT_EQ(MyMsgBox::Decide(&quien, m.textos, u"¿Vacía?"_s, estilo), estilo == kAceptoCancelo);
  }
}

TEST(MyMsgBox, ElFalloSeDetallaYSeCopia) {
  const Mesa m;
  cuandoHayaCaja([](QWidget& caja) {
    auto* detalle = caja.findChild<QPlainTextEdit*>(u"Detalle"_s);
    EXPECT_FALSE(detalle->isVisible());
    QTest::keyClick(caja.findChild<QPushButton*>(u"VerDetalle"_s), Qt::Key_Space);
    EXPECT_TRUE(detalle->isVisible());
    QTest::keyClick(caja.findChild<QPushButton*>(u"Copiar"_s), Qt::Key_Space);
    QTest::keyClick(&caja, Qt::Key_Escape);
  });
  MyMsgBox::mostrarFallo(nullptr, m.textos, u"No se guardó."_s, u"Haga sitio."_s, u"código 13"_s);
  EXPECT_EQ(QApplication::clipboard()->text(), u"No se guardó.\nHaga sitio.\ncódigo 13");
}

TEST(Trabajo, RebanadasAvanceYParada) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  std::optional<Resultado<Trabajo::Fin>> fin;
  int pasos = 0;
  const auto empezar = [&](int fallaEn) {
    fin.reset();
    pasos = 0;
    return v->trabajo().empezar(
        u"Contando"_s,
        [&, fallaEn](Trabajo::Avance& a) -> Resultado<bool> {
          QThread::msleep(1);
          a = {++pasos, 2000, {}};
          if (pasos == fallaEn) return fallo(Fallo::DiscoLleno, u"lleno"_s);
          return pasos < 2000;
        },
        [&](const Resultado<Trabajo::Fin>& f) { fin = f; });
  };
  ASSERT_TRUE(empezar(-1));
  EXPECT_FALSE(empezar(-1)) << "one work at a time";
  EXPECT_TRUE(esperar([&] { return v->trabajo().isVisible(); })) << "the window responds meanwhile";
  QTest::mouseClick(v->trabajo().findChild<QPushButton*>(u"parar"_s), Qt::LeftButton);
  ASSERT_TRUE(fin);
  EXPECT_EQ(**fin, Trabajo::Fin::Parado);
  EXPECT_FALSE(v->trabajo().isVisible());
  ASSERT_TRUE(empezar(20));
  ASSERT_TRUE(esperar([&] { return fin.has_value(); }));
  EXPECT_EQ(fin->error().clase, Fallo::DiscoLleno);
}

// What is below the strip stays under the pointer when the strip goes by itself.
TEST(Ventanas, LaTiraQueSeVaNoMueveNada) {
  Puesto p;
  Muestra* v = p.abrir(u"Muestra"_s);
  const auto arriba = [v] { return v->ui.lista->mapTo(v, QPoint()).y(); };
  const int sola = arriba();
  v->decirBien(u"Hecho."_s);
  ASSERT_TRUE(esperar([&] { return arriba() > sola; }));
  const int con = arriba();
  v->tira().quitar();
  QTest::qWait(50);
  EXPECT_EQ(arriba(), con);
  EXPECT_EQ(v->tira().texto(), QString());
}

}  // namespace tarvo::prueba
