// A sheet as a user fills it in: accepted texts, reported faults, ways to leave it; and its door.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "Muestra.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct Datos {
  QString nombre = u"Ajo"_s;
  int numero = 3, codigo = 7, descto = 1250, uso = 9;
  qint64 precio = 333, peso = 1500;
  std::optional<Fecha> dia = Fecha::de(QDate(2026, 3, 4));
  Fecha hora = Fecha::deDias(0.5);
  bool si = false;
  bool operator==(const Datos&) const = default;
};

struct PuertaDeLista {
  static constexpr QStringView kNombre = u"Lista";
};

struct PuertaMuestra {
  static constexpr QStringView kNombre = u"FichaMuestra";
  using Salida = Datos;
  Datos datos = {};
};

class FichaMuestra final : public FichaDe<Datos> {
 public:
  FichaMuestra(Contexto& c, const QString& nombre, int& aplicadas)
      : FichaDe(c, nombre), aplicadas_(aplicadas) {
    auto f = formulario(9900);
    nombre_ = &f.fila(9911, u"nombre"_s, texto(r.nombre, 5, true));
    f.fila(9910, u"numero"_s, numero(r.numero, 1, 16));
    f.fila(9910, u"codigo"_s, FichaDe::codigo(r.codigo, 4, 0, 9999));
    f.fila(9912, u"descto"_s, centesimas(r.descto, 0, 100'00));
    f.fila(9912, u"precio"_s, dinero(r.precio, [this] { return moneda; }));
    f.fila(9913, u"peso"_s, cantidad(r.peso, [] { return 0; }));
    f.fila(9914, u"dia"_s, fecha(r.dia));
    f.fila(9914, u"hora"_s, FichaDe::hora(r.hora));
    f.fila(9918, u"uso"_s, r.uso, numeros({1, 2}));
    f.casilla(9915, u"si"_s, r.si);
    acabar();
  }
  Resultado<> entrar(const PuertaMuestra& p) { return editar(p.datos); }
  int moneda = 1;
  using FichaDe::mostrar;

 private:
  std::vector<FaltaCampo> comprobar() override {
    if (r.nombre == u"Ajos") return {{nombre_, u"Ya hay uno."_s}};
    return {};
  }
  Resultado<> aplicar() override {
    ++aplicadas_;
    if (r.numero == 13) return fallo(Fallo::Restriccion, u"El trece no."_s);
    return {};
  }
  void aplicada() override { entregar(r); }
  Campo* nombre_;
  int& aplicadas_;
};

struct ConFicha : testing::Test {
  ConFicha() { mesa.escritorio.ventanas().registrar<PuertaMuestra, FichaMuestra>(aplicadas); }

  // Calls `hacer` in the modal sheet; returns the sheet's result.
  std::optional<Datos> preguntar(const std::function<void(QWidget&)>& hacer,
                                 const PuertaMuestra& puerta = {}) {
    QTimer::singleShot(0, qApp, [&] { hacer(*QApplication::activeModalWidget()); });
    return mesa.escritorio.ventanas().preguntar(puerta, nullptr);
  }
  static void escribir(QWidget& v, const QString& campo, const QString& texto) {
    auto* linea = v.findChild<QLineEdit*>(campo);
    linea->setFocus();
    linea->selectAll();
    QTest::keyClick(linea, Qt::Key_Delete);
    QTest::keyClicks(linea, texto);
    EXPECT_EQ(linea->text(), texto) << "every key is accepted";
  }
  static void pulsar(QWidget& v, const QString& boton) {
    QTest::mouseClick(v.findChild<QPushButton*>(boton), Qt::LeftButton);
  }
  // Returns the text of the box opened by `hacer`, and closes it with that button.
  static QString caja(const std::function<void()>& hacer, const QString& boton = u"Acepto"_s) {
    QString texto;
    QTimer::singleShot(0, qApp, [&] {
      QWidget* w = QApplication::activeModalWidget();
      texto = w->findChild<QLabel*>(u"Mensaje"_s)->text();
      pulsar(*w, boton);
    });
    hacer();
    return texto;
  }

  Mesa mesa{kTextosMuestra};
  int aplicadas = 0;
};

}  // namespace

TEST_F(ConFicha, CadaCampoTomaLoSuyoYDiceSusLimites) {
  const struct {
    QString campo, texto, falta;  // no fault: accepted
    std::function<bool(const Datos&)> queda;
  } casos[] = {
      {u"nombre"_s, u"Pan"_s, {}, [](const Datos& d) { return d.nombre == u"Pan"; }},
      {u"nombre"_s, u"Panes y"_s, u"Caben 5 letras y hay 7."_s, {}},
      {u"nombre"_s, u"  "_s, u"No puede quedar vacío."_s, {}},
      {u"numero"_s, u"16"_s, {}, [](const Datos& d) { return d.numero == 16; }},
      {u"numero"_s, u"17"_s, u"Escriba un número entero de 1 a 16."_s, {}},
      {u"numero"_s, u"1x75"_s, u"Escriba un número entero de 1 a 16."_s, {}},
      {u"numero"_s, {}, u"Escriba un número entero de 1 a 16."_s, {}},
      {u"codigo"_s, u"0012"_s, {}, [](const Datos& d) { return d.codigo == 12; }},
      {u"codigo"_s, {}, {}, [](const Datos& d) { return d.codigo == 0; }},
      {u"codigo"_s, u"10000"_s, u"Escriba un número entero de 0 a 9999."_s, {}},
      {u"descto"_s,
       u"5,555"_s,
       u"Escriba un número de 0,00 a 100,00, con coma para los decimales."_s,
       {}},
      {u"descto"_s, u"99,99"_s, {}, [](const Datos& d) { return d.descto == 99'99; }},
      {u"descto"_s,
       u"100,01"_s,
       u"Escriba un número de 0,00 a 100,00, con coma para los decimales."_s,
       {}},
      {u"precio"_s, u"1.234,50"_s, {}, [](const Datos& d) { return d.precio == 1234'50; }},
      {u"precio"_s, u"2.5"_s, {}, [](const Datos& d) { return d.precio == 250; }},
      {u"precio"_s,
       u"2,999"_s,
       u"«2,999» tiene más decimales de los que caben (2): escríbalo redondeado."_s,
       {}},
      {u"precio"_s, u"1.239"_s, u"«1.239» se puede leer de dos modos: escriba 1239 o 1,24."_s, {}},
      {u"precio"_s, u"1.239,00"_s, {}, [](const Datos& d) { return d.precio == 1239'00; }},
      {u"precio"_s, u"1239"_s, {}, [](const Datos& d) { return d.precio == 1239'00; }},
      {u"precio"_s, u"-1"_s, u"Escriba un importe: cifras, con coma para los decimales."_s, {}},
      {u"precio"_s, u"99999999999"_s, u"Lo más que cabe es 20.000.000,00."_s, {}},
      {u"peso"_s, u"2,5"_s, {}, [](const Datos& d) { return d.peso == 2500; }},
      {u"peso"_s, u"1.239"_s, u"«1.239» se puede leer de dos modos: escriba 1239 o 1,239."_s, {}},
      {u"peso"_s, u"0.250"_s, {}, [](const Datos& d) { return d.peso == 250; }},
      {u"peso"_s,
       u"2,0005"_s,
       u"«2,0005» tiene más decimales de los que caben (3): escríbalo redondeado."_s,
       {}},
      {u"peso"_s, u"dos"_s, u"Escriba una cantidad: cifras, con coma para los decimales."_s, {}},
      {u"dia"_s,
       u"31/12/2026"_s,
       {},
       [](const Datos& d) { return d.dia == Fecha::de(QDate(2026, 12, 31)); }},
      {u"dia"_s, u"31/02/2026"_s, u"Escriba el día como 24/12/2018."_s, {}},
      {u"hora"_s, u"07:45"_s, {}, [](const Datos& d) { return d.hora.qtime() == QTime(7, 45); }},
      {u"hora"_s,
       u"22:30:15"_s,
       {},
       [](const Datos& d) { return d.hora.qtime() == QTime(22, 30, 15); }},
      {u"hora"_s, u"24:00"_s, u"Escriba la hora como 07:45 o como 07:45:30."_s, {}},
  };
  for (const auto& c : casos) {
    const std::string cual = (c.campo + u' ' + c.texto).toStdString();
    const int antes = aplicadas;
    const auto dado = preguntar([&](QWidget& v) {
      escribir(v, c.campo, c.texto);
      if (c.falta.isEmpty()) return pulsar(v, u"Acepto"_s);
      const QString dicho = caja([&] { pulsar(v, u"Acepto"_s); });
      EXPECT_TRUE(dicho.endsWith(c.falta)) << cual << ": " << dicho.toStdString();
      EXPECT_EQ(v.findChild<QLabel*>(u"falta"_s + c.campo)->text(), c.falta) << cual;
      EXPECT_TRUE(v.findChild<QLineEdit*>(c.campo)->property("falta").toBool()) << cual;
      EXPECT_EQ(v.focusWidget()->objectName(), c.campo);
      EXPECT_EQ(caja([&] { pulsar(v, u"Cancelo"_s); }), u"¿Abandonar los cambios realizados?");
    });
    EXPECT_EQ(dado.has_value(), c.falta.isEmpty()) << cual;
    EXPECT_EQ(aplicadas - antes, c.falta.isEmpty() ? 1 : 0) << cual;
    if (dado && c.queda) {
      EXPECT_TRUE(c.queda(*dado)) << cual;
    }
  }
}

// Whatever sign a person mistypes, no field takes the digits around it for a number.
TEST_F(ConFicha, NingunCampoTomaOtroNumero) {
  const QStringList campos{u"numero"_s, u"codigo"_s, u"descto"_s, u"precio"_s, u"peso"_s};
  for (const QString& campo : campos)
    for (const QString& texto :
         {u"2'99"_s, u"1e3"_s, u"1 2"_s, u"0x10"_s, u"1,2,3"_s, u"12$"_s, u"12.5"_s}) {
      const bool conDecimales = campos.indexOf(campo) > 1;
      if (texto == u"12.5" && conDecimales) continue;
      const auto dado = preguntar([&](QWidget& v) {
        escribir(v, campo, texto);
        caja([&] { pulsar(v, u"Acepto"_s); });
        EXPECT_TRUE(v.findChild<QLineEdit*>(campo)->property("falta").toBool())
            << campo.toStdString() << ' ' << texto.toStdString();
        caja([&] { pulsar(v, u"Cancelo"_s); });
      });
      EXPECT_FALSE(dado) << campo.toStdString() << ' ' << texto.toStdString();
    }
  EXPECT_EQ(aplicadas, 0);
}

// A key that a field can't take is heard of at once.
TEST_F(ConFicha, LaTeclaQueNoEntraSeDice) {
  preguntar([&](QWidget& w) {
    auto& v = static_cast<FichaMuestra&>(w);
    auto* campo = v.findChild<QLineEdit*>(u"codigo"_s);
    campo->setMaxLength(2);
    escribir(v, u"codigo"_s, u"12"_s);
    EXPECT_FALSE(v.tira().isVisible());
    QTest::keyClicks(campo, u"3"_s);
    EXPECT_EQ(campo->text(), u"12");
    EXPECT_TRUE(v.tira().texto().startsWith(u"Lo último que tecleó no se puede escribir"_s));
    caja([&] { pulsar(v, u"Cancelo"_s); });
  });
}

// An untouched field keeps its exact value; a value missing from a list stays selected in it.
TEST_F(ConFicha, LoQueNadieTocaQuedaComoEstaba) {
  mesa.ajustes.Euro = 166.386F;
  const auto dado = preguntar([&](QWidget& v) {
    auto& ficha = static_cast<FichaMuestra&>(v);
    EXPECT_EQ(v.findChild<QComboBox*>(u"uso"_s)->currentText(), u"9");
    ficha.moneda = 0;
    ficha.mostrar();
    EXPECT_EQ(v.findChild<QLineEdit*>(u"precio"_s)->text(), u"554");
    EXPECT_FALSE(ficha.QueryUnload()) << "display alone is no change";
    pulsar(v, u"Acepto"_s);
  });
  EXPECT_EQ(dado, Datos());
}

TEST_F(ConFicha, LasFaltasSeNombranTodasYSeAplicaUnaVez) {
  const auto dado = preguntar([&](QWidget& v) {
    escribir(v, u"nombre"_s, u"Ajos"_s);
    escribir(v, u"numero"_s, u"99"_s);
    EXPECT_EQ(caja([&] { pulsar(v, u"Acepto"_s); }),
              u"Hay valores que corregir:\nArtículo: Ya hay uno.\nCódigo: Escriba un número "
              u"entero de 1 a 16.");
    EXPECT_EQ(v.focusWidget()->objectName(), u"nombre");
    escribir(v, u"nombre"_s, u"Apio"_s);
    EXPECT_TRUE(v.findChild<QLabel*>(u"faltanombre"_s)->text().isEmpty()) << "cleared by a key";
    escribir(v, u"numero"_s, u"13"_s);
    pulsar(v, u"Acepto"_s);
    EXPECT_TRUE(v.isVisible()) << "the sheet stays open after a refusal";
    EXPECT_EQ(static_cast<Ventana&>(v).tira().texto(), u"El trece no.");
    EXPECT_EQ(caja([&] { QTest::keyClick(&v, Qt::Key_Escape); }, u"Cancelo"_s),
              u"¿Abandonar los cambios realizados?");
    EXPECT_TRUE(v.isVisible());
    escribir(v, u"numero"_s, u"12"_s);
    pulsar(v, u"Acepto"_s);
  });
  EXPECT_EQ(aplicadas, 2);
  ASSERT_TRUE(dado);
  EXPECT_EQ(dado->nombre, u"Apio");
  EXPECT_EQ(dado->numero, 12);
}

// A distant date is asked about, and "No" applies nothing.
TEST_F(ConFicha, UnDiaLejanoSePregunta) {
  const auto dado = preguntar([&](QWidget& v) {
    for (const auto& dia : {u"01/03/1500"_s, u"31/12/9999"_s}) {
      escribir(v, u"dia"_s, dia);
      EXPECT_TRUE(caja([&] { pulsar(v, u"Acepto"_s); }, u"Cancelo"_s).contains(dia));
      EXPECT_TRUE(v.isVisible());
    }
    EXPECT_EQ(aplicadas, 0);
    caja([&] { pulsar(v, u"Acepto"_s); });
  });
  EXPECT_EQ(aplicadas, 1);
  ASSERT_TRUE(dado);
  EXPECT_EQ(dado->dia, Fecha::de(QDate(9999, 12, 31)));
}

// Every action can be reached: the bar by Tab, each of its buttons by a letter of its own.
TEST(Alcance, LaBarraEntraEnElTabulador) {
  Mesa m(kTextosMuestra);
  m.escritorio.ventanas().registrar<PuertaDeMuestra, Muestra>(*m.db);
  auto* v = static_cast<Muestra*>(m.escritorio.ventanas().abrir(u"Muestra"_s));
  ASSERT_TRUE(esperar([&] { return v->isActiveWindow(); }));
  QSet<QKeySequence> letras;
  int botones = 0;
  for (QAction* a : {v->ui.abrir, v->ui.borrar, v->ui.sumar})
    for (auto* barra : v->findChildren<QToolBar*>())
      if (auto* b = qobject_cast<QToolButton*>(barra->widgetForAction(a))) {
        ++botones;
        EXPECT_TRUE(b->focusPolicy() & Qt::TabFocus);
        EXPECT_FALSE(b->shortcut().isEmpty()) << a->text().toStdString();
        letras << b->shortcut();
      }
  EXPECT_EQ(botones, 3);
  EXPECT_EQ(letras.size(), 3);
}

TEST(Alcance, CtrlFDesdeUnaLista) {
  Mesa m(kTextosMuestra);
  llenarArticulos(m, 20);
  m.escritorio.ventanas().registrar<PuertaDeMuestra, Muestra>(*m.db);
  auto* v = static_cast<Muestra*>(m.escritorio.ventanas().abrir(u"Muestra"_s));
  ASSERT_TRUE(esperar([&] { return v->isActiveWindow(); }));
  auto* lista = v->findChild<QComboBox*>();
  ASSERT_TRUE(lista);
  lista->setFocus();
  QTest::keyClick(lista, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(v->focusWidget(), v->ui.lista->campoBusca());
}

TEST(Alcance, LetrasQueNoSeRepiten) {
  QSet<QChar> usadas{u'A'};
  EXPECT_EQ(conLetra(u"A&brir"_s, usadas), u"A&brir");
  EXPECT_EQ(conLetra(u"&Abono"_s, usadas), u"Ab&ono");
  EXPECT_EQ(conLetra(u"Ñu"_s, usadas), u"Ñ&u") << "on every keyboard";
  EXPECT_EQ(conLetra(u"ab"_s, usadas), u"ab") << "no letter is left";
}

// The data for assistive tools; and a press from one doesn't wait for the modal window it opens.
TEST_F(ConFicha, ParaQuienNoVe) {
  auto& ventanas = mesa.escritorio.ventanas();
  Ventana* v = ventanas.abrir(PuertaMuestra());
  ASSERT_TRUE(v);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(v)->role(), QAccessible::Window);
  // On this platform a combo box gets its accessible name from its buddy label.
  const auto rotulos = QAccessible::queryAccessibleInterface(v->findChild<QComboBox*>(u"uso"_s))
                           ->relations(QAccessible::Label);
  ASSERT_EQ(rotulos.size(), 1);
  EXPECT_EQ(rotulos[0].first->text(QAccessible::Name), u"Tipo");
  v->descargar();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  bool contestado = false;
  preguntar([&](QWidget& w) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&w)->role(), QAccessible::Dialog);
    escribir(w, u"numero"_s, u"99"_s);
    auto* boton = QAccessible::queryAccessibleInterface(w.findChild<QPushButton*>(u"Acepto"_s));
    boton->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    contestado = QApplication::activeModalWidget() == &w;
    caja([] { QCoreApplication::processEvents(); });
    caja([&] { pulsar(w, u"Cancelo"_s); });
  });
  EXPECT_TRUE(contestado);
}

// An entry of a menu pressed by an assistive tool answers before what it opens does.
TEST(Accesible, UnaEntradaDeMenuNoEspera) {
  const Mesa m;
  QMenu menu;
  QAction* entrada = menu.addAction(u"&Puesta a CERO…"_s);
  menu.addSeparator();
  QAction* vetada = menu.addAction(u"Vetada"_s);
  vetada->setEnabled(false);
  const QMenu* otro = menu.addMenu(u"Más"_s);
  int dadas = 0;
  for (QAction* a : {entrada, vetada})
    QObject::connect(a, &QAction::triggered, &menu, [&] { ++dadas; });
  const auto hijo = [&](int cual) {
    return QAccessible::queryAccessibleInterface(&menu)->child(cual);
  };
  auto* i = hijo(0);
  ASSERT_TRUE(i && i->actionInterface());
  EXPECT_EQ(i->text(QAccessible::Name), u"Puesta a CERO…");
  EXPECT_EQ(i->role(), QAccessible::MenuItem);
  EXPECT_EQ(i->parent()->object(), &menu);
  EXPECT_EQ(hijo(1)->role(), QAccessible::Separator);
  EXPECT_TRUE(hijo(2)->state().disabled);
  EXPECT_EQ(hijo(3)->child(0)->object(), otro);
  for (const int cual : {0, 2})
    hijo(cual)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(dadas, 0) << "it waited";
  QCoreApplication::processEvents();
  EXPECT_EQ(dadas, 1);
}

// After a stop it reports how far it got; its commands are disabled meanwhile.
TEST(Faena, DiceDondeSeParo) {
  Mesa m(kTextosMuestra);
  m.escritorio.ventanas().registrar<PuertaDeLista, Lisa>();
  Ventana* v = m.escritorio.ventanas().abrir(PuertaDeLista());
  Ordenes ordenes(*v, nullptr);
  QAction* orden = ordenes.anadir({.nombre = u"abrir"_s, .texto = 9904, .hacer = [] {}});
  Deshacer deshacer(*v);
  int deshechas = 0;
  deshacer.apuntar(u"algo"_s, [&]() -> Resultado<Deshacer::Vuelto> {
    ++deshechas;
    return Deshacer::Vuelto();
  });
  QWidget quieto;
  qint64 acabado = -1;
  ASSERT_TRUE(trabajar(*v, &ordenes,
                       {.que = u"Trabajando"_s,
                        .total = 1000,
                        .paso = [&](qint64 i) -> Resultado<> {
                          deshacer.deshacer();  // not while it works
                          if (i == 4) QTest::keyClick(v, Qt::Key_Escape);
                          return {};
                        },
                        .acabar = [&](const Faena::Fin& f) { acabado = f.hechos; },
                        .quietos = {&quieto}}));
  EXPECT_FALSE(quieto.isEnabled());
  EXPECT_FALSE(orden->isEnabled());
  EXPECT_FALSE(trabajar(*v, &ordenes, {.que = {}, .total = 1, .paso = {}}));
  ASSERT_TRUE(esperar([&] { return acabado >= 0; }));
  EXPECT_EQ(acabado, 5);
  EXPECT_EQ(deshechas, 0);
  EXPECT_TRUE(quieto.isEnabled());
  EXPECT_EQ(v->tira().texto(), u"Parado en 5 de 1000. Lo hecho hasta ahí queda hecho.");
  EXPECT_TRUE(orden->isEnabled());
}

}  // namespace tarvo::prueba
