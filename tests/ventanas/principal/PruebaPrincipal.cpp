// The morning of a shop manager in the main window.
#include <pwd.h>
#include <unistd.h>

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include "MesaPrincipal.h"
#include "comm/cables/AjustesCables.h"
#include "core/ventanas/marco/Captura.h"
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
