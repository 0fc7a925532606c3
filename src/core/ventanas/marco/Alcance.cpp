#include "core/ventanas/marco/Alcance.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace tarvo::ventanas {

namespace {

// The mnemonic letter of a text; null if it has none.
QChar letraDe(const QString& texto) {
  for (qsizetype i = 0; i + 1 < texto.size(); ++i) {
    if (texto[i] != u'&') continue;
    if (texto[i + 1] != u'&') return texto[i + 1].toUpper();
    ++i;
  }
  return {};
}

void apuntar(const QString& texto, QSet<QChar>& usadas) {
  if (const QChar letra = letraDe(texto); !letra.isNull()) usadas << letra;
}

bool deUnCalendario(const QWidget* w) {
  while (w && !qobject_cast<const QCalendarWidget*>(w)) w = w->parentWidget();
  return w;
}

template <class W>
void ponerLetra(W& control, QSet<QChar>& usadas) {
  const QString texto = control.text();
  if (letraDe(texto).isNull() && !texto.contains(u'<') && !deUnCalendario(&control))
    control.setText(conLetra(texto, usadas));
}

// Escape in a menu of a bar ends with the menu: the bar itself would keep the keyboard, and the
// next key would act on a list that isn't seen to have it.
class SalidaDeMenu final : public QObject {
 public:
  SalidaDeMenu(QMenu& menu, QMenuBar& barra) : QObject(&menu), menu_(menu), barra_(barra) {
    menu.installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* evento) override {
    if (evento->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(evento)->key() != Qt::Key_Escape)
      return false;
    menu_.close();
    QKeyEvent otra(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&barra_, &otra);
    return true;
  }

 private:
  QMenu& menu_;
  QMenuBar& barra_;
};

bool deUnaBarra(const QAbstractButton& boton) {
  return qobject_cast<const QToolButton*>(&boton) &&
         qobject_cast<const QToolBar*>(boton.parentWidget());
}

// What has a letter; a button of a tool bar only if `conBarras`.
QSet<QChar> letrasDe(const QWidget& cuerpo, bool conBarras) {
  QSet<QChar> usadas;
  for (const QLabel* r : cuerpo.findChildren<QLabel*>())
    if (r->buddy()) apuntar(r->text(), usadas);
  for (const QAbstractButton* b : cuerpo.findChildren<QAbstractButton*>())
    if (conBarras || !deUnaBarra(*b)) apuntar(b->text(), usadas);
  for (const QGroupBox* g : cuerpo.findChildren<QGroupBox*>()) apuntar(g->title(), usadas);
  for (const QTabBar* t : cuerpo.findChildren<QTabBar*>())
    for (int i = 0; i < t->count(); ++i) apuntar(t->tabText(i), usadas);
  for (const QMenuBar* m : cuerpo.findChildren<QMenuBar*>())
    for (const QAction* a : m->actions()) apuntar(a->text(), usadas);
  return usadas;
}

// The captions of fields, the boxes and the buttons that have none.
void ponerLetras(QWidget& cuerpo, QSet<QChar>& usadas) {
  for (QLabel* r : cuerpo.findChildren<QLabel*>())
    if (r->buddy()) ponerLetra(*r, usadas);
  for (QAbstractButton* b : cuerpo.findChildren<QAbstractButton*>())
    if (qobject_cast<QPushButton*>(b) || qobject_cast<QCheckBox*>(b) ||
        qobject_cast<QRadioButton*>(b))
      ponerLetra(*b, usadas);
}

}  // namespace

QSet<QChar> letrasDeBotones(const QWidget& cuerpo) {
  QSet<QChar> usadas;
  for (const QAbstractButton* b : cuerpo.findChildren<QAbstractButton*>())
    apuntar(b->text(), usadas);
  return usadas;
}

QSet<QChar> letrasUsadas(const QWidget& cuerpo) {
  return letrasDe(cuerpo, true);
}

QString conLetra(const QString& texto, QSet<QChar>& usadas) {
  QString hecho = texto;
  const QChar propia = letraDe(texto);
  if (!propia.isNull() && !usadas.contains(propia)) {
    usadas << propia;
    return texto;
  }
  if (!propia.isNull()) hecho.remove(texto.indexOf(u'&'), 1);
  for (qsizetype i = 0; i < hecho.size(); ++i) {
    const QChar letra = hecho[i].toUpper();
    if (!letra.isLetterOrNumber() || letra.unicode() > 0x7f || usadas.contains(letra)) continue;
    usadas << letra;
    return hecho.insert(i, u'&');
  }
  return hecho;
}

void ponerLetras(QMenu& menu) {
  QSet<QChar> usadas;
  for (QAction* a : menu.actions())
    if (a->isVisible() && !a->isSeparator()) a->setText(conLetra(a->text(), usadas));
}

void desplegar(QMenu& menu, const QPoint& donde) {
  menu.popup(donde);
  const auto entradas = menu.actions();
  const auto primera = std::ranges::find_if(entradas, [](const QAction* e) {
    return e->isEnabled() && e->isVisible() && !e->isSeparator();
  });
  if (primera != entradas.end()) menu.setActiveAction(*primera);
}

QPoint bajo(QToolBar& barra, QAction& accion) {
  const QWidget* boton = barra.widgetForAction(&accion);
  const QWidget& sobre = boton && boton->isVisible() ? *boton : barra;
  return sobre.mapToGlobal(QPoint(0, sobre.height()));
}

QString tituloSinMarca(const QWidget& w) {
  return w.window()->windowTitle().remove(QStringLiteral("[*]"));
}

void seguirAccion(QToolButton& boton, QAction& accion) {
  const auto seguir = [&boton, &accion] {
    boton.setText(accion.text().remove(u'&'));
    boton.setIcon(accion.icon());
    boton.setToolTip(accion.toolTip());
    boton.setEnabled(accion.isEnabled());
  };
  QObject::connect(&accion, &QAction::changed, &boton, seguir);
  QObject::connect(&boton, &QToolButton::clicked, &accion, &QAction::trigger);
  seguir();
}

void ponerAlAlcance(QWidget& cuerpo) {
  // A button of a bar gets the letter of its own text while no field has it.
  QSet<QChar> usadas = letrasDe(cuerpo, false);
  for (QToolBar* barra : cuerpo.findChildren<QToolBar*>()) {
    // The bar's own place in the tab order; its buttons were created after everything in the form.
    const Qt::FocusPolicy suya = barra->focusPolicy();
    barra->setFocusPolicy(Qt::TabFocus);
    QWidget* antes = barra;
    for (QAction* accion : barra->actions()) {
      auto* boton = qobject_cast<QToolButton*>(barra->widgetForAction(accion));
      if (!boton) continue;
      boton->setFocusPolicy(Qt::TabFocus);
      QWidget::setTabOrder(std::exchange(antes, boton), boton);
      const bool conPalabras = boton->toolButtonStyle() != Qt::ToolButtonIconOnly;
      if (conPalabras && !accion->text().isEmpty())
        accion->setIconText(conLetra(accion->text(), usadas));
    }
    barra->setFocusPolicy(suya);
  }
  ponerLetras(cuerpo, usadas);
  for (QMenuBar* barra : cuerpo.findChildren<QMenuBar*>())
    for (const QAction* a : barra->actions())
      if (a->menu()) new SalidaDeMenu(*a->menu(), *barra);
}

}  // namespace tarvo::ventanas
