#include "core/ventanas/aspecto/Tema.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QFocusFrame>
#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QScopedValueRollback>

#include "core/ventanas/aspecto/Estilo.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::ventanas {

namespace {

Cara caraDe(const QPalette& paleta) {
  return paleta.color(QPalette::Window).lightness() < 128 ? Cara::Oscura : Cara::Clara;
}

QPalette paletaDe(Cara cara) {
  const auto& t = tintes(cara);
  QPalette p;
  const auto poner = [&](QPalette::ColorRole papel, Tinte tinte) {
    p.setColor(papel, t[static_cast<size_t>(tinte)]);
  };
  poner(QPalette::Window, Tinte::Fondo);
  poner(QPalette::WindowText, Tinte::Texto);
  poner(QPalette::Base, Tinte::Base);
  poner(QPalette::AlternateBase, Tinte::BaseAlterna);
  poner(QPalette::Text, Tinte::Texto);
  poner(QPalette::PlaceholderText, Tinte::TextoPalido);
  poner(QPalette::Button, Tinte::Boton);
  poner(QPalette::ButtonText, Tinte::Texto);
  poner(QPalette::BrightText, Tinte::Mal);
  poner(QPalette::ToolTipBase, Tinte::Base);
  poner(QPalette::ToolTipText, Tinte::Texto);
  poner(QPalette::Highlight, Tinte::Seleccion);
  poner(QPalette::HighlightedText, Tinte::TextoSeleccion);
  poner(QPalette::Link, Tinte::Acento);
  poner(QPalette::LinkVisited, Tinte::Acento);
  poner(QPalette::Mid, Tinte::Borde);
  poner(QPalette::Dark, Tinte::Borde);
  poner(QPalette::Midlight, Tinte::Linea);
  poner(QPalette::Light, Tinte::Base);
  for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, papel, t[static_cast<size_t>(Tinte::TextoPalido)]);
  return p;
}

// A list marks its current cell; a ring around the whole list would say less, unless it is empty.
bool llevaAnillo(const QWidget* control) {
  const auto* lista = qobject_cast<const QAbstractItemView*>(control);
  if (lista && lista->model()) return lista->model()->rowCount() == 0;
  return control && !control->isWindow() && !lista && !control->inherits("QMenuBar") &&
         !control->inherits("QMenu") && !control->inherits("QTabBar");
}

}  // namespace

Tema::Tema(QApplication& app, std::optional<Cara> fija)
    : app_(app), fija_(fija), delEscritorio_(caraDe(app.palette())), cara_(delEscritorio_) {
  app_.setStyle(new Estilo);
  aplicar();
  connect(&app_, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* ahora) { ponerAnillo(llevaAnillo(ahora) ? ahora : nullptr); });
  app_.installEventFilter(this);
}

Tema::~Tema() {
  delete anillo_.data();
}

// The ring is a child of its control's window and is destroyed with it; the next focus creates
// another.
void Tema::ponerAnillo(QWidget* control) {
  if (!anillo_ && control) anillo_ = new QFocusFrame;
  if (anillo_) anillo_->setWidget(control);
}

void Tema::ponerCara(std::optional<Cara> fija) {
  fija_ = fija;
  aplicar();
}

void Tema::ponerEscala(double escala) {
  escala_ = escala;
  aplicar();
}

void Tema::aplicar() {
  const QScopedValueRollback en(aplicando_, true);
  cara_ = fija_.value_or(delEscritorio_);
  QFont letra = app_.font();
  letra.setPointSizeF(kLetra * escala_);
  app_.setFont(letra);
  app_.setPalette(paletaDe(cara_));
  app_.setStyleSheet(hojaEstilo(static_cast<int>(cara_)));
  Q_EMIT cambiado();
}

// The desktop's colours have changed; its theme is only visible once our own palette is removed.
bool Tema::eventFilter(QObject* objeto, QEvent* evento) {
  if (!aplicando_ && !fija_ && evento->type() == QEvent::ThemeChange) {
    const QScopedValueRollback en(aplicando_, true);
    app_.setPalette(QPalette());
    delEscritorio_ = caraDe(app_.palette());
    aplicar();
  }
  return QObject::eventFilter(objeto, evento);
}

QColor colorDe(Tinte tinte) {
  return tintes(caraDe(QApplication::palette()))[static_cast<size_t>(tinte)];
}

}  // namespace tarvo::ventanas
