// Unfinished or invalid input: nothing is written, nothing is lost, and the reason is reported.
#include <QAction>
#include <QMessageBox>

#include "MesaDePrecios.h"
#include "articles/precios/ventanas/Puertas.h"

namespace tarvo::prueba {

namespace {

struct Tecleado : MesaDePrecios {
  QString precio(int codigo) {
    return leer(u"select PRECIO_00 from PLUSES where CODPLU=%1"_s.arg(codigo));
  }
  // Makes writes to articles fail, as under another program's lock, until permitir().
  void impedir() {
    sql(u"create trigger NO before update on PLUSES begin select raise(abort, 'no'); end"_s);
  }
  void permitir() { sql(u"drop trigger NO"_s); }
};

}  // namespace

// Article 3 costs 5,00 and is sold for 3,00. The input, and Alt+G from within the field.
TEST(VentanaCalculo, LoQueNoValeSeDiceYNoSeGuarda) {
  const struct {
    QString campo, texto, dicho;
  } casos[] = {
      {u"pcMarg"_s, u"-150"_s, u"El precio quedaría en -2,75, y no puede ser negativo"_s},
      {u"pcMarg"_s, u"999999999"_s, u"«999999999» no vale aquí: ha quedado 99999,00."_s},
      {u"pciva"_s, u"-5"_s, u"«-5» no vale aquí: ha quedado 0,00."_s},
      {u"costeN"_s, u"abc"_s, u"«abc» no es un número: escriba cifras"_s},
      {u"costeN"_s, u"1,005"_s, u"«1,005» tiene más decimales de los que caben (2)"_s},
      {u"costeN"_s, u"1.239"_s, u"«1.239» se puede leer de dos modos: escriba 1239 o 1,24"_s},
      {u"pcMarg"_s, u"1.239"_s, u"«1.239» se puede leer de dos modos: escriba 1239 o 1,239"_s},
      {u"pcMarg"_s, u"1e3"_s, u"«1e3» no es un número: escriba cifras"_s},
      {u"redon"_s, u"12.5"_s, u"«12.5» no vale: escriba sólo cifras, 6 como mucho."_s},
      {u"costeN"_s, u"-5"_s, u"El coste quedaría en -5,00, y no puede ser negativo"_s},
      {u"Calcu"_s, u"99999999,99"_s, u"«99999999,99» no vale aquí"_s},
      {u"Calcu"_s, u"10000000"_s, u"El precio quedaría en 10.000.000,00, y el mayor"_s},
      {u"costeN"_s, u""_s, u"El precio no puede quedar vacío"_s},
      {u"VentaN"_s, u""_s, u"El precio no puede quedar vacío"_s},
      {u"Calcu"_s, u""_s, u"El precio no puede quedar vacío"_s},
      {u"precio00"_s, u"1..5"_s, u"El precio «1..5» no es un importe"_s},
      {u"precio00"_s, u"1,005"_s, u"El precio «1,005» tiene más decimales"_s},
      {u"precio00"_s, u"2'99"_s, u"El precio «2'99» no es un importe"_s},
      {u"precio00"_s, u"1.239"_s, u"El precio «1.239» se puede leer de dos modos"_s},
      {u"precio00"_s, u"1.234.567,123"_s, u"El precio «1.234.567,123» tiene más decimales"_s},
  };
  for (const auto& c : casos) {
    Tecleado m;
    m.suyos.calculoPrecios = {.a = false, .b = 0};
    auto* v = m.abrir(u"CalcPre"_s);
    MesaDePrecios::escribir(v, c.campo, c.texto);
    QTest::keyClick(m.foco(), Qt::Key_G, Qt::AltModifier);
    ASSERT_TRUE(esperar([&] { return v->tira().isVisible(); })) << c.texto.toStdString();
    EXPECT_TRUE(v->tira().texto().startsWith(c.dicho))
        << c.texto.toStdString() << ": " << v->tira().texto().toStdString();
    EXPECT_EQ(m.leer(u"select PRECIO_00, COSTE from PLUSES where CODPLU=3"_s), u"300 500");
  }
}

// Return saves a jump only if that is meant: the default answer is no.
TEST(VentanaCalculo, IntroPreguntaPorUnSalto) {
  const struct {
    QString precio;
    bool pregunta, acepta;
    QString queda;
  } casos[] = {{u"30"_s, true, false, u"300"_s},
               {u"30"_s, true, true, u"3000"_s},
               {u"3,30"_s, false, true, u"330"_s}};
  for (const auto& c : casos) {
    Tecleado m;
    auto* v = m.abrir(u"CalcPre"_s);
    MesaDePrecios::escribir(v, u"Calcu"_s, c.precio);
    if (c.pregunta)
      m.alAbrirse([&](QWidget* w) {
        c.acepta ? w->findChild<QPushButton*>(u"Acepto"_s)->click()
                 : QTest::keyClick(w->focusWidget(), Qt::Key_Return);
      });
    m.pulsar(Qt::Key_Return);
    EXPECT_EQ(m.precio(3), c.queda) << c.precio.toStdString();
    EXPECT_EQ(
        m.textoModal.contains(u"Artículo 3, P. Base, tarifa 1: El precio pasa de 3,00 a 30,00"),
        c.pregunta)
        << m.textoModal.toStdString();
    EXPECT_EQ(m.campo(v, u"precio00"_s).text(), c.pregunta ? u"30,00" : u"3,30");
  }
}

// Walking on stores the prices as well, and the warning is told beside the next article.
TEST(VentanaCalculo, LaDudaDeUnPrecioSeDiceTambienAlPasar) {
  Tecleado m;
  m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(u"CalcPre"_s);
  MesaDePrecios::escribir(v, u"VentaN"_s, u"30"_s);
  m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(m.precio(3), u"3300");
  EXPECT_NE(m.texto(v, u"lbPLU"_s), u"0000003  Artículo 3");
  EXPECT_TRUE(v->tira().texto().startsWith(u"Artículo 3, P. Base, tarifa 1: El precio"))
      << v->tira().texto().toStdString();
}

TEST(VentanaCalculo, NoPasaDeArticuloConUnPrecioQueNoVale) {
  Tecleado m;
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(u"CalcPre"_s);
  MesaDePrecios::escribir(v, u"pcMarg"_s, u"-150"_s);
  m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000003  Artículo 3");
  lista->codigo = 9;
  lista->movido();
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000003  Artículo 3") << "the list moved by itself";
  EXPECT_EQ(m.precio(3), u"300");
  MesaDePrecios::escribir(v, u"costeN"_s, u"abc"_s);
  m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(m.campo(v, u"costeN"_s).text(), u"abc") << "it stays, to be corrected";
  EXPECT_EQ(m.enFoco(), u"costeN");
  MesaDePrecios::escribir(v, u"costeN"_s, u"4"_s);
  MesaDePrecios::escribir(v, u"pcMarg"_s, u"50"_s);
  m.responder(u"Acepto"_s);
  m.boton(v, u"Salvar"_s);
  EXPECT_EQ(m.leer(u"select PRECIO_00, COSTE from PLUSES where CODPLU=3"_s), u"660 400");
}

TEST(VentanaRapida, EscapeNoEscribeUnPrecioAMedias) {
  Tecleado m;
  auto* v = m.abrir(u"FastModf"_s);
  for (const QString& texto : {u"1..5"_s, u"7,66"_s}) {
    MesaDePrecios::escribir(v, u"precio00"_s, texto);
    if (texto == u"1..5") m.pulsar(Qt::Key_Return);
    EXPECT_EQ(v->tira().isVisible(), texto == u"1..5");
    m.pulsar(Qt::Key_Escape);
    ASSERT_TRUE(v->isVisible());
    EXPECT_FALSE(v->tira().isVisible()) << "the price was given up";
    EXPECT_EQ(m.campo(v, u"precio00"_s).text(), u"3,00");
  }
  m.pulsar(Qt::Key_Escape);
  EXPECT_FALSE(v->isVisible());
  EXPECT_EQ(m.precio(3), u"300");
}

// After any other action the price stays in its field, on its article, with a message.
TEST(VentanaRapida, UnPrecioQueNoSeEscribeSeQueda) {
  for (const bool ilegible : {true, false}) {
    Tecleado m;
    auto* v = m.abrir(u"FastModf"_s);
    auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
    auto& campo = m.campo(v, u"precio00"_s);
    const QString dicho = ilegible ? u"1,555"_s : u"4,44"_s;
    if (!ilegible) m.impedir();
    MesaDePrecios::escribir(v, u"precio00"_s, dicho);
    const std::function<void()> intentos[] = {
        [&] { m.pulsar(Qt::Key_Return); },
        [&] { m.pulsar(Qt::Key_Tab); },
        [&] { m.pulsar(Qt::Key_Down); },
        [&] { m.pulsar(Qt::Key_PageDown); },
        [&] { v->findChild<QAction*>(u"Siguiente"_s)->trigger(); },
        [&] { grid.vista()->setFocus(), grid.irA(5); },
        [&] { grid.refrescar(), grid.irA(7); },
        [&] { EXPECT_FALSE(v->descargar()); },
    };
    int n = 0;
    for (const auto& intento : intentos) {
      v->tira().quitar();
      intento();
      QCoreApplication::processEvents();
      EXPECT_EQ(campo.text(), dicho) << n;
      EXPECT_EQ(m.foco(), &campo) << n;
      EXPECT_TRUE(m.texto(v, u"lbArticulo"_s).startsWith(u"0000003")) << n;
      EXPECT_EQ(grid.filaActual(), 0) << n;
      EXPECT_TRUE(n == 6 || !v->tira().texto().isEmpty()) << n;
      ++n;
    }
    EXPECT_EQ(m.precio(3), u"300");
    if (ilegible)
      MesaDePrecios::escribir(v, u"precio00"_s, u"4,44"_s);
    else
      m.permitir();
    m.pulsar(Qt::Key_Return);
    EXPECT_EQ(m.precio(3), u"444");
    EXPECT_EQ(grid.filaActual(), 1) << "it moves to the next article";
    EXPECT_FALSE(v->tira().isVisible()) << "the fault is resolved";
  }
}

TEST(VentanaRapida, UnPrecioQueNoCabeEnLasBalanzasSeDice) {
  Tecleado m;
  m.oferta({.grupo = 1, .codigo = 3, .precio = 700});
  const QString aviso = u"El precio 12.000,00 pasa de 9.999,99: "_s;
  auto* rapida = m.abrir(u"FastModf"_s);
  MesaDePrecios::escribir(rapida, u"precio00"_s, u"12000"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(rapida->tira().texto().startsWith(u"Artículo 3, P. Base, tarifa 1: "_s + aviso));
  EXPECT_EQ(m.precio(3), u"1200000");
  for (const auto& [ventana, parrilla, columna] :
       {std::tuple{u"FastModf"_s, u"Grd"_s, u"PRECIO_00"_s},
        {u"BrowOfer"_s, u"Grid"_s, u"PRECIO_0"_s}}) {
    auto* v = m.abrir(ventana);
    v->tira().quitar();
    auto& grid = *v->findChild<ventanas::Parrilla*>(parrilla);
    const int fila = grid.filas() - 1;
    grid.vista()->setFocus();
    grid.vista()->setCurrentIndex(grid.modelo()->index(fila, grid.modelo()->columna(columna)));
    const std::pair<QString, QString> casos[] = {
        {u"-1"_s, u"El precio no puede ser negativo, y se ha escrito «-1»."_s},
        {u"10000000"_s, u"El precio «10000000» es demasiado alto"_s},
        {u"12000"_s, aviso}};
    ASSERT_TRUE(grid.editarCelda());
    for (const auto& [texto, dicho] : casos) {
      auto* celda = qobject_cast<QLineEdit*>(m.foco());
      ASSERT_NE(celda, nullptr);
      celda->setText(texto);
      QTest::keyClick(celda, Qt::Key_Return);
      EXPECT_TRUE(v->tira().texto().contains(dicho)) << v->tira().texto().toStdString();
    }
  }
  EXPECT_EQ(m.leer(u"select PRECIO_0 from OFERTAS"_s), u"1200000");
}

TEST(VentanaRapida, EmpiezaDondeEstabaLaLista) {
  Tecleado m;
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  lista->codigo = 7;
  auto* v = m.abrir(precios::PuertaFastModf{.seccion = 1});
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
  EXPECT_EQ(grid.texto(grid.filaActual(), u"CODPLU"), u"0000007");
  EXPECT_TRUE(m.texto(v, u"lbArticulo"_s).startsWith(u"0000007"));
  m.pulsar(Qt::Key_Tab);
  EXPECT_EQ(m.enFoco(), u"precio00") << "Tab moves from the list to its prices";
  m.campo(v, u"precio27"_s).setFocus();
  m.pulsar(Qt::Key_Tab);
  EXPECT_EQ(m.foco(), grid.campoBusca());
  m.alAbrirse([&](QWidget* w) {
    EXPECT_EQ(w->focusWidget()->objectName(), u"opcion0_1") << "the current option";
    m.boton(w, u"Cancelo"_s);
  });
  QTest::keyClick(v, Qt::Key_F9);
}

// Return at the question keeps the input; only the button discards it.
TEST(VentanasPrecios, NoSePierdeLoEscritoSinPreguntar) {
  const struct {
    QString ventana, campo, texto;
  } casos[] = {
      {u"NvaOfr"_s, u"Precio_1"_s, u"1,11"_s}, {u"NvaOfr"_s, u"Fecha_1"_s, u"01/01/2030"_s},
      {u"CalcPre"_s, u"costeN"_s, u"9"_s},     {u"CalcPre"_s, u"precio10"_s, u"9"_s},
      {u"FastAlta"_s, u"txNom"_s, u"Lomo"_s},  {u"FastAlta"_s, u"precio00"_s, u"2"_s}};
  for (const auto& c : casos) {
    Tecleado m;
    auto* v = m.abrir(c.ventana);
    const QPointer<QWidget> sigue = v;
    MesaDePrecios::escribir(v, c.campo, c.texto);
    QString pregunta;
    m.alAbrirse([&](QWidget* w) {
      pregunta = m.textoModal;
      QTest::keyClick(w, Qt::Key_Return);
    });
    v->descargar();
    EXPECT_EQ(pregunta, u"¿Abandonar los cambios realizados?");
    ASSERT_TRUE(v->isVisible()) << c.campo.toStdString();
    EXPECT_TRUE(m.campo(v, c.campo).text().startsWith(c.texto));
    m.responder(u"Acepto"_s);
    EXPECT_TRUE(v->descargar());
  }
  Tecleado m;
  auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  MesaDePrecios::escribir(v, u"Precio_0"_s, u"1,11"_s);
  m.campo(v, u"Entra"_s).setFocus();
  m.responder(u"Cancelo"_s);
  m.pulsar(Qt::Key_Escape);
  ASSERT_TRUE(v->isVisible()) << "there is a price";
  m.campo(v, u"Precio_0"_s).clear();
  m.campo(v, u"Entra"_s).setFocus();
  m.pulsar(Qt::Key_Escape);
  EXPECT_FALSE(v->isVisible()) << "Escape in the empty field closes";
}

// Escape gives up what is being typed, then asks about the figures; another article does as well.
TEST(VentanaCalculo, PreguntaAntesDeDejarUnPrecio) {
  Tecleado m;
  auto* v = m.abrir(precios::PuertaCalcPre{.seccion = 1, .codigo = 3});
  MesaDePrecios::escribir(v, u"costeN"_s, u"9,999"_s);
  m.pulsar(Qt::Key_Escape);
  ASSERT_TRUE(v->isVisible());
  EXPECT_EQ(m.campo(v, u"costeN"_s).text(), u"5,00");
  MesaDePrecios::escribir(v, u"costeN"_s, u"9"_s);
  m.pulsar(Qt::Key_Tab);
  QString pregunta;
  const auto negar = [&] {
    pregunta.clear();
    m.alAbrirse([&](QWidget* w) {
      pregunta = m.textoModal;
      QTest::keyClick(w, Qt::Key_Return);
    });
  };
  negar();
  m.pulsar(Qt::Key_Escape);
  EXPECT_EQ(pregunta, u"¿Abandonar los cambios realizados?");
  ASSERT_TRUE(v->isVisible());
  negar();
  m.abrir(precios::PuertaCalcPre{.seccion = 1, .codigo = 8});
  EXPECT_EQ(pregunta, u"¿Abandonar los cambios realizados?");
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000003  Artículo 3");
  m.responder(u"Acepto"_s);  // the price follows the cost
  m.boton(v, u"Salvar"_s);
  EXPECT_EQ(m.leer(u"select COSTE from PLUSES where CODPLU=3"_s), u"900");
  m.foco();
  m.pulsar(Qt::Key_Escape);
  EXPECT_FALSE(v->isVisible()) << "what is saved isn't asked about";
}

// A field takes its own typing back; then the key is the window's.
TEST(VentanaRapida, CtrlZEnUnPrecio) {
  Tecleado m;
  auto* v = m.abrir(u"FastModf"_s);
  MesaDePrecios::escribir(v, u"precio00"_s, u"4"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(m.precio(3), u"400");
  m.pulsar(Qt::Key_PageUp);
  MesaDePrecios::escribir(v, u"precio00"_s, u"77"_s);
  const auto ctrlZ = [&] { QTest::keyClick(m.foco(), Qt::Key_Z, Qt::ControlModifier); };
  while (m.campo(v, u"precio00"_s).isUndoAvailable()) ctrlZ();
  EXPECT_EQ(m.campo(v, u"precio00"_s).text(), u"4,00");
  EXPECT_EQ(m.precio(3), u"400");
  ctrlZ();
  EXPECT_EQ(m.precio(3), u"300");
  EXPECT_EQ(m.campo(v, u"precio00"_s).text(), u"3,00");
}

// The code is looked at before anything is asked.
TEST(VentanaAlta, UnCodigoQueYaEsNoSePregunta) {
  Tecleado m;
  auto* v = m.abrir(precios::PuertaFastAlta{});
  m.campo(v, u"txCod"_s).setText(u"12"_s);
  m.responder(u"Acepto"_s);
  m.boton(v, u"Alta"_s);
  EXPECT_TRUE(m.textoModal.contains(u"valores entrados es incorrecto"))
      << m.textoModal.toStdString();
  EXPECT_EQ(m.texto(v, u"faltatxCod"_s), u"El código 0000012 ya es de «Artículo 12».");
}

// A field that can't be left shows the reason beside itself and in the strip.
TEST(VentanaAlta, DicePorQueNoSeSale) {
  const struct {
    const char16_t *campo, *texto, *dice;
  } casos[] = {{u"txCod", u"", u"Código: un número de 3 a 9999999."},
               {u"txCod", u"2", u"Código: un número de 3 a 9999999."},
               {u"txCod", u"1a", u"Código: un número de 3 a 9999999."},
               {u"txCod", u"12", u"El código 0000012 ya es de «Artículo 12»."},
               {u"txNom", u"", u"Nombre: no puede quedar vacío."},
               {u"txNom", u"Mas de cincuenta letras no caben en el nombre de un PLU",
                u"El nombre tiene 55 letras, y caben 50."},
               {u"txdep", u"41", u"El valor entrado es incorrecto: Departamento, de 1 a 40"},
               {u"txdep", u"9", u"La sección no tiene el departamento 9: elija otro de la lista."},
               {u"txetq", u"21", u"El valor entrado es incorrecto: Formato Etiquetas, de 1 a 20"},
               {u"txbar", u"x", u"Prefijo del código de barras: sólo cifras, 7 como mucho."},
               {u"txdi1", u"x", u"Días 1: un número de 0 a 9999."}};
  for (const auto& c : casos) {
    Tecleado m;
    auto* v = m.abrir(precios::PuertaFastAlta{});
    const QString campo = QString::fromUtf16(c.campo);
    m.escribir(v, campo, QString::fromUtf16(c.texto));
    for (const int tecla : {Qt::Key_Tab, Qt::Key_Return}) {
      v->tira().quitar();
      m.pulsar(tecla);
      EXPECT_EQ(m.enFoco(), campo);
      EXPECT_EQ(v->tira().texto().toStdString(), QString::fromUtf16(c.dice).toStdString());
      EXPECT_EQ(m.texto(v, u"falta"_s + campo), QString::fromUtf16(c.dice));
    }
  }
}

// It starts with the list's current price, which is marked among the 24.
TEST(VentanaCalculo, EmpiezaPorElPrecioDado) {
  for (const precios::Celda celda : {precios::Celda{0, 0}, {2, 7}, {1, 3}}) {
    Tecleado m;
    m.sql(u"update PLUSES set PRECIO_27=727, PRECIO_13=613 where CODPLU=3"_s);
    auto* v = m.abrir(precios::PuertaCalcPre{.codigo = 3, .celda = celda});
    EXPECT_EQ(m.texto(v, u"PVP"_s), celda.nivel == 0   ? u"3,00"
                                    : celda.nivel == 2 ? u"7,27"
                                                       : u"6,13");
    QStringList marcadas;
    for (int n = 0; n < articles::kNiveles; ++n)
      for (int i = 0; i < articles::kTarifas; ++i) {
        const QString nombre = u"precio%1%2"_s.arg(n).arg(i);
        if (m.campo(v, nombre).font().bold()) marcadas << nombre;
      }
    EXPECT_EQ(marcadas.join(u' '), u"precio%1%2"_s.arg(celda.nivel).arg(celda.tarifa));
    m.campo(v, u"precio05"_s).setFocus();
    EXPECT_TRUE(m.campo(v, u"precio05"_s).font().bold()) << "the mark moves with the focus";
  }
}

// A rounding step left from the last time is shown, since it rounds each article passed.
TEST(VentanaCalculo, ElRedondeoActivoSeVe) {
  for (const int paso : {0, 5}) {
    Tecleado m;
    m.suyos.calculoPrecios = {.a = true, .b = paso};
    auto* v = m.abrir(precios::PuertaCalcPre{});
    EXPECT_EQ(m.texto(v, u"avisoRedondeo"_s), paso > 0 ? u"redondeo 5 activo" : u"");
  }
}

// Cells of both grids are restored, the last first.
TEST(VentanaRapida, LasCeldasSeDeshacen) {
  Tecleado m;
  auto* v = m.abrir(precios::PuertaFastModf{});
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
  grid.vista()->setFocus();
  grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"PRECIO_00")));
  for (const QString& texto : {u"3"_s, u",3"_s}) m.teclear(texto);
  m.pulsar(Qt::Key_Return);
  QCoreApplication::processEvents();
  grid.irA(1);
  MesaDePrecios::escribir(v, u"precio21"_s, u"8"_s);
  m.pulsar(Qt::Key_Return);
  const QString todos = u"select PRECIO_00, PRECIO_21 from PLUSES where CODPLU in (3, 4)"_s;
  EXPECT_EQ(m.leer(todos), u"330 0 | 400 800");
  auto* deshacer = v->findChild<QAction*>(u"Deshacer"_s);
  EXPECT_TRUE(deshacer->toolTip().contains(u"Hasta 2, Tarifa 2, que era «0,00»"))
      << deshacer->toolTip().toStdString();
  deshacer->trigger();
  EXPECT_EQ(m.leer(todos), u"330 0 | 400 0");
  EXPECT_EQ(grid.filaActual(), 1);
  deshacer->trigger();
  EXPECT_EQ(m.leer(todos), u"300 0 | 400 0");
  EXPECT_EQ(m.campo(v, u"precio00"_s).text(), u"3,00");
  EXPECT_FALSE(deshacer->isEnabled());
}

TEST(VentanaLote, DiceQueCifraNoVale) {
  Tecleado m;
  auto* v = m.abrir(precios::PuertaCambioLote{.seccion = 1});
  const struct {
    QString campo, texto, dicho;
  } casos[] = {{u"txPc"_s, u"-100"_s, u"La subida debe ser un número de -99,99 a 999,99"_s},
               {u"txPc"_s, u"abc"_s, u"La subida debe ser"_s},
               {u"txPc"_s, u"1.234"_s, u"«1.234» tiene más decimales de los que caben (2)"_s},
               {u"txPc"_s, u"5"_s, {}},
               {u"txPaso"_s, u"0"_s, u"El redondeo debe ser un importe de 0,01 a 9.999,99"_s},
               {u"txPaso"_s, u"10000"_s, u"El redondeo debe ser"_s}};
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  for (const auto& c : casos) {
    MesaDePrecios::escribir(v, c.campo, c.texto);
    const auto dicho = [&] {
      return std::ranges::any_of(grid.findChildren<QLabel*>(), [&](const QLabel* l) {
        return l->isVisible() && l->text().startsWith(c.dicho);
      });
    };
    EXPECT_TRUE(esperar([&] { return c.dicho.isEmpty() ? grid.filas() > 0 : dicho(); }, 5'000))
        << c.texto.toStdString();
  }
}

// The list of units is framed like a field when it lacks its value.
TEST(VentanaAlta, LaUnidadQueFaltaSeVe) {
  Tecleado m;
  auto* v = m.abrir(u"FastAlta"_s);
  auto* unidad = v->findChild<QComboBox*>(u"LstCada"_s);
  const auto borde = [&] { return unidad->grab().toImage().pixelColor(unidad->width() / 2, 1); };
  const QColor sano = borde();
  unidad->setCurrentIndex(-1);
  unidad->setFocus();
  m.pulsar(Qt::Key_Tab);
  EXPECT_EQ(m.foco(), unidad);
  EXPECT_NE(borde(), sano);
  EXPECT_FALSE(v->tira().texto().isEmpty());
  unidad->setCurrentIndex(0);
  v->findChild<QLineEdit*>(u"txNom"_s)->setFocus();
  EXPECT_EQ(borde(), sano);
}

}  // namespace tarvo::prueba
