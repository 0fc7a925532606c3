#include <QFocusFrame>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/ventanas/aspecto/Medidas.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

using namespace ventanas;

// Every text is readable on each of its backgrounds, in both themes.
TEST(Tema, Contraste) {
  using T = Tinte;
  const struct {
    T texto;
    std::vector<T> fondos;
    double minimo;
  } pares[] = {
      {T::Texto,
       {T::Fondo, T::Base, T::BaseAlterna, T::Boton, T::FondoBien, T::FondoDuda, T::FondoMal},
       4.5},
      {T::TextoPalido, {T::Fondo, T::Base, T::BaseAlterna}, 4.5},
      {T::TextoSeleccion, {T::Seleccion}, 4.5},
      {T::TextoAcento, {T::Acento}, 4.5},
      {T::Acento, {T::Fondo, T::Base}, 4.5},
      {T::Bien, {T::Fondo, T::Base, T::BaseAlterna, T::FondoBien}, 4.5},
      {T::Duda, {T::Fondo, T::Base, T::BaseAlterna, T::FondoDuda}, 4.5},
      {T::Mal, {T::Fondo, T::Base, T::BaseAlterna, T::FondoMal}, 4.5},
      {T::Borde, {T::Fondo, T::Base}, 3},  // of controls, not of text
  };
  for (const Cara cara : {Cara::Clara, Cara::Oscura})
    for (const auto& p : pares)
      for (const T fondo : p.fondos) {
        const auto& t = tintes(cara);
        EXPECT_GE(contraste(t[static_cast<size_t>(p.texto)], t[static_cast<size_t>(fondo)]),
                  p.minimo)
            << static_cast<int>(cara) << ": " << static_cast<int>(p.texto) << " on "
            << static_cast<int>(fondo);
      }
  EXPECT_NEAR(contraste(Qt::black, Qt::white), 21, 0.01);
}

// Fonts and lengths grow together; icons take the colours of the theme.
TEST(Tema, CaraYEscala) {
  Mesa m;
  Tema& tema = m.escritorio.tema();
  const QSize lado(16, 16);
  const QImage clara = icono(u"abrir"_s).pixmap(lado).toImage();
  const int antes = escalar(100);
  tema.ponerEscala(1.5);
  EXPECT_NEAR(escalar(100), antes * 1.5, 2);
  tema.ponerCara(Cara::Oscura);
  EXPECT_EQ(tema.cara(), Cara::Oscura);
  EXPECT_EQ(qApp->palette().color(QPalette::Window), tintes(Cara::Oscura)[0]);
  EXPECT_NE(icono(u"abrir"_s).pixmap(lado).toImage(), clara);
  EXPECT_TRUE(icono(u"no hay"_s).isNull());
  // No placeholder of the style sheet is left.
  EXPECT_FALSE(qApp->styleSheet().contains(u'@'));
}

// Nothing cuts off the focus ring, inside a bar either.
TEST(Tema, ElFocoSeVeEntero) {
  Mesa m;
  QWidget v;
  auto* barra = new QToolBar;
  auto* campo = new QLineEdit;
  auto* todo = new QVBoxLayout(&v);
  todo->addWidget(barra);
  todo->addWidget(campo);
  QWidget* boton = barra->widgetForAction(barra->addAction(icono(u"abrir"_s), u"Abrir"_s));
  boton->setFocusPolicy(Qt::TabFocus);
  v.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&v));
  for (QWidget* control : {boton, static_cast<QWidget*>(campo)}) {
    control->setFocus();
    const auto* anillo = v.findChild<QFocusFrame*>();
    ASSERT_TRUE(anillo && anillo->isVisible());
    EXPECT_TRUE(anillo->parentWidget()->rect().contains(anillo->geometry()));
  }
}

}  // namespace tarvo::prueba
