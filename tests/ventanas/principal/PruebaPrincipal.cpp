// The morning of a shop manager in the main window.
#include <pwd.h>
#include <unistd.h>

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include "MesaPrincipal.h"
#include "articles/Lotes.h"
#include "automation/historia/Historial.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

// How often a control was painted.
struct Pintadas final : QObject {
  bool eventFilter(QObject*, QEvent* e) override {
    veces += e->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int veces = 0;
};

}  // namespace

void MesaPrincipal::nocheMala() {
  sql(u"DELETE FROM GRUPOS"_s);
  grupo({.codigo = 1, .nombre = u"FRUTERIA", .remoto = 3});
  grupo({.codigo = 2, .nombre = u"PESCADERIA", .remoto = 3});
  const Fecha ahora = reloj.ahora();
  periodo({.link = 7,
           .desde = ahora.dia() - 1.0,
           .hasta = ahora.dia() - 1.0 + Fecha::kUltimoSegundo,
           .descr = u"Noche"});
  total(u"TOTGRT", {.link = 7, .codi = 1, .con = 9, .imp = 123456});
  automation::Historial historial(*fondo->db, fondo->textos);
  sql(u"CREATE TABLE IF NOT EXISTS Proceso (NOMBRE TEXT PRIMARY KEY, EJECUCION INTEGER)"_s);
  bien(historial.empezar(1, u"NOCHE"_s, ahora - 0.3, u"NOCHE.TZA"_s));
  for (const int g : {1, 2})
    fila(u"ProcesoTareas",
         {{u"EJECUCION", 1}, {u"PASO", 0}, {u"GRUPO", g}, {u"CLASE", 17}, {u"HECHA", g == 1}});
  bien(historial.tareaFallida(1, 2, TipoTarea::RxGrTot, u"No se encuentra el HOST especificado"_s));
  bien(historial.periodosHechos(1, {7}));
  bien(historial.acabar(1, automation::FinEjecucion::Problemas, ahora - 0.29));
}

// The failed group is on top with its reason, and Enter opens the window for collecting it again.
TEST(Principal, LaMananaTrasUnGrupoFallido) {
  MesaPrincipal t;
  t.nocheMala();
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"La noche tuvo problemas"_s));
  EXPECT_TRUE(pieza(*v, u"1.234,56"_s)) << "the amount of the night";
  auto* linea =
      pieza(*v, u"Fallido. 0002 PESCADERIA. No se recogió nada: No se encuentra el HOST"_s);
  ASSERT_TRUE(linea);
  EXPECT_EQ(linea->objectName(), u"Linea0");
  linea->setFocus();
  QTest::keyClick(linea, Qt::Key_Return);
  ASSERT_TRUE(t.suplente(u"gestcomm"_s));
  EXPECT_EQ(t.suplente(u"gestcomm"_s)->como<comm::PuertaGestcomm>().grupo, 2);
  EXPECT_EQ(t.suplente(u"gestcomm"_s)->dueno(), v);
  QTest::mouseClick(pieza(*v, u"Bien. 0001 FRUTERIA"_s), Qt::LeftButton);
  ASSERT_TRUE(t.suplente(u"VerCols#7"_s)) << "its sales in that period";
  EXPECT_EQ(t.suplente(u"VerCols#7"_s)->como<totals::PuertaVerCols>().grupo, 1);
  QTest::mouseClick(pieza(*v, u"La noche tuvo problemas"_s), Qt::LeftButton);
  EXPECT_TRUE(
      t.suplente(u"VeoLog"_s)->como<automation::PuertaVeoLog>().fichero.endsWith(u"/NOCHE.TZA"));
}

// Changes made in another window are shown when it closes.
TEST(Principal, LaProximaCambiaAlCerrarOtraVentana) {
  MesaPrincipal t;
  auto* v = t.conManana();
  EXPECT_FALSE(pieza(*v, u"HORARIO"_s));
  t.fichero(u"NOCHE.AUT"_s, "N:nada\r\n");
  t.fichero(u"HORARIO.CRO"_s, "22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
  t.todas().abrir(u"VerTot"_s, v);
  t.todas().descargar(u"VerTot"_s);
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"HORARIO"_s) != nullptr; }, 30'000));
}

// The board is updated by itself when rows change; the focus is kept.
TEST(Principal, LaMananaSigueALaBase) {
  MesaPrincipal t;
  t.nocheMala();
  auto* v = t.conManana();
  auto* linea = pieza(*v, u"0002 PESCADERIA"_s);
  linea->setFocus();
  t.sql(u"UPDATE ProcesoTareas SET HECHA=1"_s);
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"Bien. 0002 PESCADERIA"_s) != nullptr; }));
  EXPECT_EQ(v->focusWidget()->objectName(), u"Linea0"_s) << "the focus stays where it is";
}

// Amounts in a column belong to one period, reasons take one line, and data missing in the machines
// is reported with a way to send it.
TEST(Principal, LaMananaNoMezcla) {
  MesaPrincipal t;
  t.nocheMala();
  const Fecha dia = t.reloj.ahora().dia();
  t.sql(u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR) VALUES (8, 5, ?, ?, '')"_s,
        dia - 0.9, dia - 0.1);
  t.sql(u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON, [IMP]) VALUES (8, 2, 0, 1, 4321)"_s);
  automation::Historial historial(*t.fondo->db, t.fondo->textos);
  bien(historial.periodosHechos(1, {7, 8}));
  t.sql(u"UPDATE ProcesoTareas SET HECHA=1"_s);
  for (const char* porque : {"Uno.", "Dos.", "Tres."})
    bien(historial.aviso(1, {2, QString::fromUtf8(porque), automation::PesoAviso::Grave}));
  t.sql(u"DELETE FROM PLUSES"_s);
  t.sql(u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU) VALUES (1, 10, 'Pera')"_s);
  for (const int g : {1, 2}) t.sql(u"INSERT INTO EnviosGrupo (GRUPO, SECCION) VALUES (?, 1)"_s, g);
  t.sql(u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) VALUES (1, 11, 2, 0)"_s);
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"0001 FRUTERIA. 1.234,56"_s));
  auto* otro = pieza(*v, u"0002 PESCADERIA. Uno."_s);
  ASSERT_TRUE(otro);
  EXPECT_TRUE(
      otro->accessibleName().contains(u"y 2 motivos más. Tiene 43,21 en otro periodo (del "))
      << otro->accessibleName().toStdString();
  EXPECT_TRUE(otro->toolTip().contains(u"Tres."));
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"sin ningún artículo"_s) != nullptr; }));
  EXPECT_TRUE(pieza(*v, u"sin ningún artículo, porque se les borraron: 0001 FRUTERIA."_s));
  EXPECT_TRUE(pieza(*v, u"no tienen al día: 0002 PESCADERIA: 1 artículo"_s));
}

// The row of a group without a period, because nothing of its sales was asked for, opens that
// group.
TEST(Principal, LaFilaDeUnGrupoAbreEseGrupo) {
  MesaPrincipal t({u"EstadoEnvio"_s, u"VerTot"_s});
  t.sql(u"DELETE FROM GRUPOS"_s);
  t.grupo({.codigo = 7, .nombre = u"FRUTERIA", .remoto = 3});
  automation::Historial historial(*t.fondo->db, t.fondo->textos);
  const Fecha ahora = t.reloj.ahora();
  bien(historial.empezar(1, u"NOCHE"_s, ahora - 0.3, u"NOCHE.TZA"_s));
  t.fila(u"ProcesoTareas", {{u"EJECUCION", 1},
                            {u"PASO", 0},
                            {u"GRUPO", 7},
                            {u"CLASE", numeroDe(TipoTarea::TxPlus)},
                            {u"HECHA", true}});
  bien(historial.acabar(1, automation::FinEjecucion::Bien, ahora - 0.29));
  auto* v = t.conManana();
  auto* fila = pieza(*v, u"Bien. 0007 FRUTERIA"_s);
  ASSERT_TRUE(fila);
  QTest::mouseClick(fila, Qt::LeftButton);
  ASSERT_TRUE(t.suplente(u"EstadoEnvio"_s));
  EXPECT_EQ(t.suplente(u"EstadoEnvio"_s)->como<comm::PuertaEstadoEnvio>().grupo, 7);
}

// A change of many articles that was cut off comes before everything else, with its section, and
// leads to where it is resolved: where it can be finished, or else to the list of that section.
TEST(Principal, LoQueSeCortoSeDiceLoPrimero) {
  for (const bool seTermina : {true, false}) {
    MesaPrincipal t({u"BrowPLUs"_s, u"CambioLote"_s});
    t.seccion(3, u"PESCADO").en(3).articulo({.codigo = 10}).articulo({.codigo = 11});
    articles::Lotes lotes(t.aplicacion.catalogo());
    const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
    if (seTermina)
      bien(lotes.apuntar(lote, u"D 2"_s, std::vector<articles::ClaveArticulo>{{3, 10}, {3, 11}}));
    bien(lotes.guardar(lote, {3, 10}));
    auto* v = t.conManana();
    EXPECT_TRUE(pieza(*v, u"Hay un cambio de artículos a medias"_s));
    auto* aviso = pieza(*v, u"Sección 003 PESCADO. Un cambio de muchos artículos se cortó"_s);
    ASSERT_TRUE(aviso);
    EXPECT_EQ(aviso->objectName(), u"Linea0");
    QTest::mouseClick(aviso, Qt::LeftButton);
    auto* abierta = t.suplente(seTermina ? u"CambioLote"_s : u"BrowPLUs"_s);
    ASSERT_TRUE(abierta);
    EXPECT_EQ(seTermina ? abierta->como<precios::PuertaCambioLote>().seccion
                        : abierta->como<articles::PuertaBrowPLUs>().seccion,
              3);
  }
}

// Each entry has a letter, unique among the visible controls, and Tab reaches it.
TEST(Principal, LasEntradasTienenLetra) {
  QByteArray propias;
  for (int i = 1; i <= 25; ++i)
    propias += "Personal(" + QByteArray::number(i) + ")=Noche " + QByteArray::number(i) +
               " & cierre|NOCHE\r\n";
  MesaPrincipal t({u"VerTot"_s}, propias);
  auto* v = t.principal();
  auto* paneles = v->findChild<QStackedWidget*>(u"Paneles"_s);
  for (int i = 0; i < paneles->count(); ++i) {
    QSet<QKeySequence> letras;
    auto entradas = paneles->widget(i)->findChildren<QToolButton*>();
    for (const char16_t* n : {u"Salir", u"Minimizar"})
      entradas << v->findChild<QToolButton*>(QString::fromUtf16(n));
    for (const QToolButton* b : entradas) {
      const auto letra = QKeySequence::mnemonic(b->text());
      if (letra.isEmpty() && letras.size() > 15) continue;  // more entries than letters
      EXPECT_FALSE(letra.isEmpty()) << b->text().toStdString();
      EXPECT_FALSE(letras.contains(letra)) << b->text().toStdString();
      EXPECT_TRUE(b->focusPolicy() & Qt::TabFocus) << b->text().toStdString();
      letras << letra;
    }
  }
  EXPECT_LT(v->minimumSizeHint().height(), 700) << "many own entries are scrolled";
  QTest::keyClick(v, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(esperar([&] { return t.suplente(u"VerTot"_s) != nullptr; }));
}

// The focus returns to its place when another window has closed.
TEST(Principal, ElFocoVuelveADondeEstaba) {
  MesaPrincipal t;
  auto* v = t.conManana();
  auto* totales = v->findChild<QToolButton*>(u"Totales"_s);
  totales->setFocus();
  auto* hija = t.todas().abrir(u"PortalCnf"_s, v);
  ASSERT_TRUE(hija && QTest::qWaitForWindowActive(hija));
  hija->descargar();
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  EXPECT_EQ(v->focusWidget(), totales);
  // The letter of an entry is a way of using it.
  v->findChild<QToolButton*>(u"Balanzas"_s)->setFocus();
  QTest::keyClick(v, Qt::Key_T, Qt::AltModifier);
  ASSERT_TRUE(esperar([&] { return t.suplente(u"VerTot"_s) != nullptr; }));
  t.suplente(u"VerTot"_s)->descargar();
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  EXPECT_EQ(v->focusWidget(), totales);
}

TEST(Principal, SinNingunaNocheDiceQueHacer) {
  MesaPrincipal t(QStringList{});
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"Todavía no ha habido ninguna noche"_s));
  auto* totales = v->findChild<QToolButton*>(u"Totales"_s);
  EXPECT_EQ(totales->toolTip(), u"Esta versión de TARVO no tiene esta ventana.");
  totales->click();
  EXPECT_EQ(v->tira().texto(), totales->toolTip()) << "whoever presses it is told why";
  const auto masOscuro = [v](const QString& entrada) {
    const QImage foto = v->findChild<QToolButton*>(entrada)->grab().toImage();
    int oscuro = 255;
    for (int y = 0; y < foto.height(); ++y)
      for (int x = 48; x < foto.width(); ++x)  // the text
        oscuro = std::min(oscuro, qGray(foto.pixel(x, y)));
    return oscuro;
  };
  EXPECT_GT(masOscuro(u"Totales"_s), masOscuro(u"Avanzados"_s) + 40) << "and it looks like it";
  // Nor has the one that opens a half of a window which isn't there yet.
  auto* balanzas = v->findChild<QToolButton*>(u"Balanzas"_s);
  EXPECT_TRUE(balanzas->toolTip().startsWith(u"Los grupos de balanzas todavía"));
  balanzas->click();
  EXPECT_EQ(v->tira().texto(), balanzas->toolTip());
  QTest::mouseClick(pieza(*v, u"Bandeja de entrada"_s), Qt::LeftButton);
  EXPECT_TRUE(v->isVisible());
}

// The entries are dimmed while another window is active, and only so long.
TEST(Principal, LasEntradasVuelvenASuTono) {
  MesaPrincipal t;
  auto* v = t.todas().abrir(u"PortalCnf"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  auto* copias = v->findChild<QToolButton*>(u"CopiaSeguridad"_s);
  copias->click();
  EXPECT_EQ(v->tira().texto(), u"Esta versión de TARVO no tiene esta ventana.");
  Pintadas pintadas;
  copias->installEventFilter(&pintadas);
  QWidget otra;
  for (QWidget* activa : {&otra, static_cast<QWidget*>(v)}) {
    activa->show();
    activa->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(activa));
    EXPECT_TRUE(esperar([&] { return std::exchange(pintadas.veces, 0) > 0; }));
  }
}

TEST(Principal, PanelesYSalida) {
  MesaPrincipal t;
  auto* v = t.principal();
  auto* paneles = v->findChild<QStackedWidget*>(u"Paneles"_s);
  auto* salir = v->findChild<QToolButton*>(u"Salir"_s);
  const auto panel = [&] { return paneles->currentWidget()->objectName(); };
  // With keys alone: down to the warehouse, also over entries without their window.
  v->findChild<QToolButton*>(u"EnviarRecibir"_s)->setFocus();
  for (int i = 0; i < 3; ++i) QTest::keyClick(v->focusWidget(), Qt::Key_Down);
  EXPECT_EQ(v->focusWidget()->objectName(), u"Almacen");
  QTest::keyClick(v->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(panel(), u"PanelAlmacen");
  QTest::mouseClick(salir, Qt::LeftButton);
  EXPECT_EQ(panel(), u"PanelPrincipal");
  QTest::mouseClick(v->findChild<QToolButton*>(u"Avanzados"_s), Qt::LeftButton);
  EXPECT_EQ(panel(), u"PanelAvanzado");
  // With another window in front the panels stay where they are, paler; on return the main panel is
  // shown.
  QTest::mouseClick(v->findChild<QToolButton*>(u"Configuracion"_s), Qt::LeftButton);
  Ventana* otra = t.todas().cargada(u"PortalCnf"_s);
  ASSERT_TRUE(otra);
  EXPECT_TRUE(QTest::qWaitForWindowActive(otra));
  const auto tinta = [&] {
    const QImage foto = v->findChild<QToolButton*>(u"Almacen"_s)->grab().toImage();
    int oscuro = 255;
    for (int y = 0; y < foto.height(); ++y)
      for (int x = 0; x < foto.width(); ++x) oscuro = std::min(oscuro, qGray(foto.pixel(x, y)));
    return oscuro;
  };
  EXPECT_TRUE(paneles->isVisible());
  paneles->setCurrentIndex(0);
  const int detras = tinta();
  QTest::keyClick(otra, Qt::Key_Escape);
  EXPECT_TRUE(esperar([&] { return v->isActiveWindow() && panel() == u"PanelPrincipal"; }));
  EXPECT_LT(tinta(), detras);
  // A surplus key meant for the other window doesn't end the program.
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(v->isVisible());
  QTest::qWait(1050);
  // Escape unloads from any panel.
  QTest::mouseClick(v->findChild<QToolButton*>(u"Almacen"_s), Qt::LeftButton);
  bool vacio = false;
  QObject::connect(&t.todas(), &Ventanas::vacio, [&] { vacio = true; });
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(vacio);
  EXPECT_TRUE(QFile::exists(t.carpeta.filePath(u"TARVO.INI"_s))) << "the settings are written";
}

// The board reports faults of the start itself before anything else.
TEST(Principal, LaMananaDiceLoQueFallaAlEmpezar) {
  const QTemporaryDir otra;
  MesaPrincipal t(
      {}, "TimeACK= 0\r\nBaseDatos= " + QFile::encodeName(otra.filePath(u"X.MDB"_s)) + "\r\n");
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"Los datos están fuera de la carpeta"_s));
  EXPECT_TRUE(pieza(*v, u"«TimeACK= 0»; vale 2000"_s));
}

// A panel opens on its first entry, and goes back to its own.
TEST(Principal, ElFocoEntraYVuelveConElPanel) {
  MesaPrincipal t;
  auto* v = t.principal();
  static constexpr struct {
    const char16_t *entrada, *primera;
  } kPaneles[] = {{u"Avanzados", u"Automaticos"}, {u"Almacen", u"Ofertas"}};
  for (const auto& c : kPaneles) {
    auto* entrada = v->findChild<QToolButton*>(QString::fromUtf16(c.entrada));
    entrada->click();
    EXPECT_EQ(v->focusWidget()->objectName(), QString::fromUtf16(c.primera));
    v->findChild<QToolButton*>(u"Salir"_s)->click();
    EXPECT_EQ(v->focusWidget(), entrada);
  }
}

// Who changed a price is known, also in a service, which has no USER.
TEST(Aplicacion, LaHistoriaDiceQuienCambioElPrecio) {
  for (const bool deServicio : {false, true}) {
    const QByteArray usuario = qgetenv("USER"), nombre = qgetenv("LOGNAME");
    deServicio ? qunsetenv("USER") : qputenv("USER", "ana");
    if (deServicio) qunsetenv("LOGNAME");
    MesaPrincipal t;
    usuario.isNull() ? qunsetenv("USER") : qputenv("USER", usuario);
    if (!nombre.isNull()) qputenv("LOGNAME", nombre);
    t.articulo({.codigo = 10, .nombre = u"Pera"_s, .precio = 100});
    articles::Precios precios{};
    precios[0][0] = 200;
    bien(t.aplicacion.catalogo().ponerPrecios({1, 10}, precios, u"FastModf"_s));
    const QString quien = t.leer(u"select QUIEN from HistoriaPrecios"_s).section(u'@', 0, 0);
    const QString cuenta = QString::fromLocal8Bit(::getpwuid(::getuid())->pw_name);
    EXPECT_EQ(quien, deServicio ? cuenta : u"ana"_s);
  }
}

}  // namespace tarvo::prueba
