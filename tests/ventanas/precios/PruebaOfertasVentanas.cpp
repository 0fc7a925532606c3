#include <QClipboard>

#include "MesaDePrecios.h"
#include "articles/precios/ventanas/Puertas.h"

namespace tarvo::prueba {

namespace {

Fecha hoy(const MesaDePrecios& m) {
  return m.reloj.ahora().dia();
}

// The next Sunday after tomorrow.
Fecha domingo(Fecha manana) {
  return manana + (7 - manana.diaSemana());
}

const QString kOfertas =
    u"select GRUPO, CODIGO, PRECIO_0, FECHA_INI, FECHA_FIN, enviado, borrado from OFERTAS order by GRUPO, CODIGO"_s;

}  // namespace

// All of it by keys: an offer for both groups that begins tomorrow and ends on Sunday.
TEST(VentanaOfertas, UnaOfertaParaDosGruposHastaElDomingo) {
  MesaDePrecios m;
  auto* lista = m.abrir(u"BrowOfer"_s);
  QTest::keyClick(lista, Qt::Key_Insert);
  ventanas::Ventana* nueva = m.escritorio.ventanas().cargada(u"NvaOfr"_s);
  ASSERT_NE(nueva, nullptr);
  ASSERT_TRUE(esperar([&] { return nueva->isActiveWindow(); }));
  EXPECT_EQ(m.texto(nueva, u"LblGrp"_s), u"0001  Mostrador 1");
  nueva->findChild<QCheckBox*>(u"Todos"_s)->setFocus();
  m.pulsar(Qt::Key_Space);
  EXPECT_EQ(m.texto(nueva, u"LblGrp"_s), u"");
  m.campo(nueva, u"Entra"_s).setFocus();
  m.teclear(u"12"_s);
  EXPECT_EQ(m.texto(nueva, u"Nombrex"_s), u"Artículo 12");
  m.pulsar(Qt::Key_Return);
  const Fecha manana = hoy(m) + 1;
  for (const QString& valor : {u"9,95"_s, u""_s, u""_s, manana.corta(), domingo(manana).corta()}) {
    m.teclear(valor);
    m.pulsar(Qt::Key_Return);
  }
  m.pulsar(Qt::Key_Return);  // the button now has the focus
  const auto fila = [&](int grupo) {
    return u"%1 12 995 %2 %3 0 0"_s.arg(grupo).arg(manana.dias()).arg(domingo(manana).dias());
  };
  EXPECT_EQ(m.leer(kOfertas), fila(1) + u" | "_s + fila(2));
  EXPECT_EQ(m.foco(), &m.campo(nueva, u"Entra"_s));
  EXPECT_EQ(m.campo(nueva, u"Fecha_1"_s).text(), manana.corta()) << "the dates are kept";
  EXPECT_EQ(m.campo(nueva, u"Precio_0"_s).text(), u"");
  auto& grid = *lista->findChild<ventanas::Parrilla*>(u"Grid"_s);
  ASSERT_EQ(grid.filas(), 1);
  EXPECT_EQ(grid.texto(0, u"PRECIO_0"), u"9,95");
  m.teclear(u"1"_s);
  m.pulsar(Qt::Key_Escape);
  ASSERT_TRUE(nueva->isVisible()) << "the first Escape clears the field";
  m.pulsar(Qt::Key_Escape);
  EXPECT_FALSE(nueva->isVisible());
  lista->activateWindow();
  ASSERT_TRUE(esperar([&] { return lista->isActiveWindow(); }));
  QTest::keyClick(lista, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(m.leer(kOfertas), u"");
  EXPECT_EQ(lista->tira().texto(), u"Deshecho: Oferta de Artículo 12.");
}

TEST(VentanaOfertas, LoQueFaltaSeDiceYNoSeGuarda) {
  MesaDePrecios m;
  auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  const struct {
    QString articulo, precio, desde, hasta;
    const char16_t *aviso, *foco;
  } casos[] = {
      {u"99"_s, u"1"_s, {}, {}, u"No se ha entrado un código de artículo", u"Entra"},
      {u"2"_s, u"1"_s, {}, {}, u"No se ha entrado un código de artículo", u"Entra"},
      {u"12"_s, {}, {}, {}, u"No se ha entrado un Precio de artículo", u"Precio_0"},
      {u"12"_s, u"uno"_s, {}, {}, u"No se ha entrado un Precio de artículo", u"Precio_0"},
      {u"12"_s,
       u"1,2,3"_s,
       {},
       {},
       u"El precio «1,2,3» no es un importe: escriba, por ejemplo, 12,50.",
       u"Precio_0"},
      {u"12"_s,
       u"-1"_s,
       {},
       {},
       u"El precio no puede ser negativo, y se ha escrito «-1».",
       u"Precio_0"},
      {u"12"_s,
       u"99999999"_s,
       {},
       {},
       u"El precio «99999999» es demasiado alto: el mayor que se admite es 9.999.999,99.",
       u"Precio_0"},
      {u"12"_s,
       u"1"_s,
       u"31/02/2030"_s,
       {},
       u"La fecha no existe: escríbala como 24/12/2018, o deje la casilla vacía.",
       u"Fecha_1"},
      {u"12"_s, u"1"_s, u"02/01/2030"_s, u"01/01/2030"_s,
       u"La oferta acabaría antes de empezar: corrija una de las dos fechas.", u"Fecha_F"},
  };
  for (const auto& c : casos) {
    m.campo(v, u"Entra"_s).setText(c.articulo);
    m.campo(v, u"Precio_0"_s).setText(c.precio);
    m.campo(v, u"Fecha_1"_s).setText(c.desde);
    m.campo(v, u"Fecha_F"_s).setText(c.hasta);
    m.responder(u"Acepto"_s);
    m.boton(v, u"SalvBoton"_s);
    EXPECT_EQ(m.textoModal, QString::fromUtf16(c.aviso));
    EXPECT_EQ(m.enFoco(), QString::fromUtf16(c.foco));
  }
  EXPECT_EQ(m.leer(kOfertas), u"");
  v->findChild<QRadioButton*>(u"PorNom"_s)->click();
  m.campo(v, u"Entra"_s).setText(u"articulo 20"_s);
  EXPECT_EQ(m.texto(v, u"Codigox"_s), u"0000020") << "the first from there on, ignoring accents";
}

// Return doesn't pass in silence over what is missing or refused: the reason is beside the field.
TEST(VentanaOfertas, IntroNoPasaDeLoQueNoVale) {
  MesaDePrecios m;
  auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  const auto falta = [&](const QString& campo) {
    return v->findChild<QLabel*>(u"falta"_s + campo)->text();
  };
  m.campo(v, u"Entra"_s).setFocus();
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(falta(u"Entra"_s), u"No se ha entrado un código de artículo");
  m.campo(v, u"Entra"_s).setFocus();
  m.teclear(u"12"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(falta(u"Entra"_s), u"");
  EXPECT_EQ(m.enFoco(), u"Precio_0");
  m.teclear(u"9,999"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(m.enFoco(), u"Precio_0");
  EXPECT_NE(falta(u"Precio_0"_s), u"");
  m.teclear(u"9,99"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(m.enFoco(), u"Precio_1");
}

// However many faults there are, their words are apart, and whole.
TEST(VentanaOfertas, LasFaltasNoSeTapan) {
  MesaDePrecios m;
  auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  v->resize(500, v->minimumSizeHint().height());
  for (const QString& campo : {u"Precio_0"_s, u"Precio_1"_s, u"Precio_2"_s})
    m.campo(v, campo).setText(u"2,999"_s);
  for (const QString& campo : {u"Fecha_1"_s, u"Fecha_F"_s}) m.campo(v, campo).setText(u"x"_s);
  m.responder(u"Acepto"_s);
  m.boton(v, u"SalvBoton"_s);
  QCoreApplication::processEvents();
  QList<QWidget*> vistos;
  for (QWidget* w : v->findChildren<QWidget*>())
    if (w->isVisible() && (qobject_cast<QLabel*>(w) || qobject_cast<QLineEdit*>(w))) vistos << w;
  int faltas = 0;
  // With the frame of a wrong field, which is wider than the field.
  const auto sitio = [v](const QWidget* w) {
    return QRect(w->mapTo(v, QPoint()), w->size()) +
           (qobject_cast<const QLineEdit*>(w) ? QMargins(1, 1, 1, 1) : QMargins());
  };
  for (const QWidget* w : vistos) {
    const auto* falta = qobject_cast<const QLabel*>(w);
    if (!falta || !falta->objectName().startsWith(u"falta")) continue;
    ++faltas;
    EXPECT_GE(w->height(), w->heightForWidth(w->width())) << w->objectName().toStdString();
    for (const QWidget* otro : vistos)
      EXPECT_TRUE(otro == w || !sitio(otro).intersects(sitio(w)))
          << w->objectName().toStdString() << ' ' << otro->objectName().toStdString();
  }
  EXPECT_GE(faltas, 5);
}

// What is given away is asked about before it is stored.
TEST(VentanaOfertas, UnPrecioQueExtranaSeDice) {
  for (const auto& [precio, boton] :
       {std::pair{u"0"_s, u"Cancelo"_s}, {u"0"_s, u"Acepto"_s}, {u"99,99"_s, QString()}}) {
    MesaDePrecios m;
    auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
    m.campo(v, u"Entra"_s).setText(u"12"_s);
    m.campo(v, u"Precio_0"_s).setText(precio);
    if (!boton.isEmpty()) m.responder(boton);
    m.boton(v, u"SalvBoton"_s);
    EXPECT_EQ(m.leer(kOfertas).isEmpty(), boton == u"Cancelo");
    if (boton.isEmpty())
      EXPECT_TRUE(v->tira().texto().contains(u"Artículo 12, P. Base: El precio pasa de"))
          << v->tira().texto().toStdString();
    else
      EXPECT_EQ(m.textoModal, u"El precio de la oferta de Artículo 12 es 0. ¿La guarda así?");
  }
}

TEST(VentanaOfertas, PreguntaAntesDeReescribir) {
  MesaDePrecios m;
  m.oferta({.grupo = 1, .codigo = 12, .precio = 700, .enviado = 1});
  auto* v = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  for (const QString& boton : {u"Cancelo"_s, u"Acepto"_s}) {
    m.campo(v, u"Entra"_s).setText(u"12"_s);
    m.campo(v, u"Precio_0"_s).setText(u"6"_s);
    m.responder(boton);
    m.boton(v, u"SalvBoton"_s);
    EXPECT_EQ(m.textoModal,
              u"En Grupo Nº: 1 ya hay una oferta para este artículo: \n¿Desea reescribirla?");
    EXPECT_EQ(m.leer(kOfertas), boton == u"Acepto" ? u"1 12 600 - - 0 0" : u"1 12 700 - - 1 0");
  }
}

// A date entered in one row is set in all rows shown, and undone.
TEST(VentanaOfertas, UnaFechaVaATodasYSeDeshace) {
  MesaDePrecios m;
  for (const int codigo : {10, 11})
    m.oferta({.grupo = 1, .codigo = codigo, .precio = 700, .desde = 43000});
  m.oferta({.grupo = 2, .codigo = 10, .precio = 700});
  const QString antes = m.leer(kOfertas);
  auto* v = m.abrir(u"BrowOfer"_s);
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  ASSERT_EQ(grid.filas(), 2);
  const auto escribir = [&](QStringView columna, const QString& texto) {
    grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(columna)));
    ASSERT_TRUE(grid.editarCelda());
    auto* celda = qobject_cast<QLineEdit*>(m.foco());
    ASSERT_NE(celda, nullptr);
    celda->selectAll();
    QTest::keyClicks(celda, texto);
    QTest::keyClick(celda, Qt::Key_Return);
    QCoreApplication::processEvents();
  };
  m.responder(u"Cancelo"_s);
  escribir(u"FECHA_FIN", u"31/12/2030"_s);
  EXPECT_TRUE(m.textoModal.startsWith(u"Va a poner el final de 2 ofertas en 31/12/2030."));
  EXPECT_EQ(m.leer(kOfertas), antes);
  m.responder(u"Acepto"_s);
  escribir(u"FECHA_FIN", u"31/12/2030"_s);
  EXPECT_EQ(m.leer(kOfertas),
            u"1 10 700 43000 47848 0 0 | 1 11 700 43000 47848 0 0 | 2 10 700 - - 0 0");
  QTest::keyClick(m.foco(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(m.leer(kOfertas), antes);

  v->findChild<QCheckBox*>(u"Sincro"_s)->click();
  escribir(u"PRECIO_0", u"6,50"_s);
  EXPECT_EQ(m.leer(u"select GRUPO, PRECIO_0, FECHA_INI from OFERTAS where CODIGO=10"_s),
            u"1 650 43000 | 2 650 43000");
  QTest::keyClick(m.foco(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(m.leer(kOfertas), antes) << "all groups, each with its dates";
}

// A day without its year is the next one, and shows whole; what is no day stays in its cell.
TEST(VentanaOfertas, UnDiaSinAnoEsElProximo) {
  MesaDePrecios m;
  const Fecha manana = hoy(m) + 1;
  auto* nueva = m.abrir(precios::PuertaNvaOfr{.seccion = 1, .grupo = 1});
  m.escribir(nueva, u"Fecha_1"_s, manana.qdate().toString(u"d/M"));
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(m.campo(nueva, u"Fecha_1"_s).text(), manana.corta());
  m.escribir(nueva, u"Fecha_1"_s, u"30/11/2030"_s);
  m.escribir(nueva, u"Fecha_F"_s, u"15/11"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(m.texto(nueva, u"faltaFecha_F"_s).endsWith(u"escríbalo entero, como 15/11/2031."_s));
  EXPECT_EQ(m.campo(nueva, u"Fecha_F"_s).text(), u"15/11") << "never another year by itself";
  m.campo(nueva, u"Fecha_1"_s).clear();
  m.campo(nueva, u"Fecha_F"_s).clear();

  m.oferta({.grupo = 1, .codigo = 10, .precio = 700, .hasta = 43000});
  auto* v = m.abrir(u"BrowOfer"_s);
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  const auto hasta = [&] { return m.leer(u"select FECHA_FIN from OFERTAS"_s); };
  grid.vista()->setFocus();
  grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"FECHA_FIN")));
  m.pulsar(Qt::Key_F2);
  m.teclear(u"pronto"_s);
  m.pulsar(Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_TRUE(grid.editando());
  EXPECT_TRUE(v->tira().texto().startsWith(u"La fecha no existe"));
  EXPECT_EQ(hasta(), u"43000");
  m.pulsar(Qt::Key_Escape);
  m.oferta({.grupo = 1, .codigo = 11, .precio = 700, .hasta = 43000});
  bien(grid.refrescar());
  QApplication::clipboard()->setText(u"1/1/2030\n2/1/2030"_s);
  QTest::keyClick(m.foco(), Qt::Key_V, Qt::ControlModifier);
  QCoreApplication::processEvents();
  EXPECT_TRUE(v->tira().texto().contains(u"escriba una sola"));
  EXPECT_EQ(hasta(), u"43000 | 43000");
  m.sql(u"delete from OFERTAS where CODIGO=11"_s);
  bien(grid.refrescar());
  m.pulsar(Qt::Key_F2);
  qobject_cast<QLineEdit*>(m.foco())->selectAll();
  m.teclear(hoy(m).qdate().toString(u"d/M"));
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(esperar([&] { return hasta() == QString::number(hoy(m).dias()); }, 5'000));
  // A strange year is asked about, with a single offer too.
  for (const auto& [boton, queda] :
       {std::pair{u"Cancelo"_s, hoy(m)}, {u"Acepto"_s, momento("01/01/9999")}}) {
    m.pulsar(Qt::Key_F2);
    qobject_cast<QLineEdit*>(m.foco())->selectAll();
    m.teclear(u"1/1/9999"_s);
    m.textoModal.clear();
    m.responder(boton);
    m.pulsar(Qt::Key_Return);
    EXPECT_TRUE(esperar([&] { return !m.textoModal.isEmpty(); }, 5'000));
    EXPECT_TRUE(m.textoModal.contains(u"01/01/9999")) << m.textoModal.toStdString();
    EXPECT_EQ(hasta(), QString::number(static_cast<qint64>(queda.dias())));
  }
}

// Undo restores prices even if the offer is no longer listed; not those changed since.
TEST(VentanaOfertas, LosPreciosSeDeshacen) {
  const struct {
    const char16_t* otro;  // the change made meanwhile
    const char16_t *queda, *dice;
  } casos[] = {
      {u"", u"700 | 300", u"Deshecho: P. Base, que era «7,00»."},
      {u"update OFERTAS set PRECIO_0=1 where GRUPO=2", u"700 | 1", u"Precio devuelto. 1 oferta"},
      {u"update OFERTAS set PRECIO_0=1 where GRUPO=1", u"1 | 650", u"La oferta ha cambiado"},
      {u"delete from OFERTAS where GRUPO=1", u"650", u"La oferta ya no existe"}};
  for (const auto& c : casos) {
    MesaDePrecios m;
    for (const auto& [grupo, precio] : {std::pair{1, 700}, {2, 300}})
      m.sql(u"insert into OFERTAS (GRUPO, SECCION, CODIGO, PRECIO_0) values (?, 1, 10, ?)"_s, grupo,
            precio);
    auto* v = m.abrir(precios::PuertaBrowOfer{});
    auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
    v->findChild<QCheckBox*>(u"Sincro"_s)->click();
    grid.vista()->setFocus();
    grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"PRECIO_0")));
    for (const QString& texto : {u"6"_s, u",50"_s}) m.teclear(texto);
    m.pulsar(Qt::Key_Return);
    const QString precios = u"select PRECIO_0 from OFERTAS order by GRUPO"_s;
    EXPECT_EQ(m.leer(precios), u"650 | 650");
    if (*c.otro) m.sql(QString::fromUtf16(c.otro));
    m.escribir(v, u"TxtF1"_s, u"01/01/2030"_s);  // hides it with the filter
    m.pulsar(Qt::Key_Return);
    v->findChild<QAction*>(u"Deshacer"_s)->trigger();
    EXPECT_EQ(m.leer(precios), QString::fromUtf16(c.queda));
    EXPECT_TRUE(v->tira().texto().startsWith(QString::fromUtf16(c.dice)))
        << v->tira().texto().toStdString();
  }
}

// An emptied price stays in its open cell; a date that can't be read leaves the filter as it was,
// its field marked until it is right.
TEST(VentanaOfertas, LoQueNoValeNoCambiaNada) {
  MesaDePrecios m;
  m.oferta({.grupo = 1, .codigo = 10, .precio = 700, .hasta = 43000});
  m.oferta({.grupo = 1, .codigo = 11, .precio = 300, .hasta = 40000});
  auto* v = m.abrir(precios::PuertaBrowOfer{.seccion = 1});
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  grid.vista()->setFocus();
  grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"PRECIO_0")));
  m.pulsar(Qt::Key_F2);
  qobject_cast<QLineEdit*>(m.foco())->selectAll();
  m.pulsar(Qt::Key_Delete);
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(grid.editando());
  EXPECT_TRUE(v->tira().texto().startsWith(u"El precio no puede quedar vacío"));
  m.pulsar(Qt::Key_Escape);
  EXPECT_EQ(m.leer(u"select PRECIO_0 from OFERTAS order by CODIGO"_s), u"700 | 300");

  const auto filtrar = [&](const QString& texto) {
    m.escribir(v, u"TxtFf"_s, texto);
    m.pulsar(Qt::Key_Return);
    return grid.filas();
  };
  const int todas = grid.filas(), algunas = filtrar(Fecha::deDias(41000).corta());
  EXPECT_EQ(todas - algunas, 1);
  for (const QString& mala : {u"31/02/2020"_s, u"pronto"_s, u"2020-13-01"_s}) {
    EXPECT_EQ(filtrar(mala), algunas) << mala.toStdString();
    EXPECT_TRUE(v->tira().texto().contains(mala)) << v->tira().texto().toStdString();
    EXPECT_EQ(m.campo(v, u"TxtFf"_s).text(), mala);
  }
  m.campo(v, u"TxtFf"_s).clear();
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(grid.filas(), todas);
}

TEST(VentanaOfertas, BorrarAquiOEnTodosLosGrupos) {
  MesaDePrecios m;
  for (const int grupo : {1, 2}) m.oferta({.grupo = grupo, .codigo = 10, .precio = 700});
  m.oferta({.grupo = 1, .codigo = 11, .precio = 700});
  auto* v = m.abrir(u"BrowOfer"_s);
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  grid.irA(0);
  m.alAbrirse([&](QWidget* w) {
    EXPECT_EQ(m.texto(w, u"Seleccion"_s), u"Ha seleccionado una oferta...");
    EXPECT_EQ(m.texto(w, u"Pregunta"_s), u"Va a eliminar una Oferta: ¿Seguro?");
    w->findChild<QRadioButton*>(u"opTodo"_s)->click();
    EXPECT_EQ(m.texto(w, u"Pregunta"_s), u"Va a eliminar 2 Ofertas: ¿Seguro?");
    m.boton(w, u"Acepto"_s);
  });
  QTest::keyClick(v, Qt::Key_Delete);
  EXPECT_EQ(m.leer(kOfertas), u"1 11 700 - - 0 0");
  EXPECT_EQ(v->tira().texto(),
            u"2 ofertas borradas. Ctrl+Z lo deshace mientras no cierre la ventana.");
  m.sql(u"delete from GRUPOS where CODGPO=2"_s);
  grid.vista()->setFocus();
  QTest::keyClick(m.foco(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(m.leer(kOfertas), u"1 10 700 - - 0 0 | 1 11 700 - - 0 0");
  EXPECT_TRUE(v->tira().texto().startsWith(u"1 oferta no ha podido volver"));
  m.sql(u"delete from OFERTAS where CODIGO=10"_s);
  m.sql(u"update OFERTAS set enviado=1"_s);
  bien(grid.refrescar());
  grid.irA(0);
  m.alAbrirse([&](QWidget* w) { m.boton(w, u"Acepto"_s); });
  QTest::keyClick(v, Qt::Key_Delete);
  EXPECT_EQ(m.leer(kOfertas), u"1 11 700 - - 1 1") << "the scales have it still";
  QTest::keyClick(m.foco(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(m.leer(kOfertas), u"1 11 700 - - 1 0");
  m.sql(u"update OFERTAS set enviado=0"_s);
  grid.irA(0);
  m.alAbrirse([&](QWidget* w) {
    EXPECT_FALSE(w->findChild<QRadioButton*>(u"opTodo"_s)->isVisible()) << "nothing to choose";
    m.boton(w, u"Cancelo"_s);
  });
  QTest::keyClick(v, Qt::Key_Delete);
  EXPECT_EQ(m.leer(kOfertas), u"1 11 700 - - 0 0");
}

}  // namespace tarvo::prueba
