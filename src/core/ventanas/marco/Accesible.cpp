#include "core/ventanas/marco/Accesible.h"

#include <QAccessibleWidget>
#include <QPushButton>
#include <QToolButton>

#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

namespace {

class AccesibleVentana final : public QAccessibleWidget {
 public:
  explicit AccesibleVentana(QWidget* v) : QAccessibleWidget(v, QAccessible::Window) {}
  QAccessible::Role role() const override {
    return widget()->isModal() ? QAccessible::Dialog : QAccessible::Window;
  }
};

class AccesibleBoton final : public QAccessibleWidget {
 public:
  explicit AccesibleBoton(QAbstractButton* b) : QAccessibleWidget(b, QAccessible::Button), b_(b) {}

  QAccessible::Role role() const override {
    return menu() ? QAccessible::ButtonMenu : QAccessible::Button;
  }
  QString text(QAccessible::Text que) const override {
    if (que == QAccessible::Accelerator) return b_->shortcut().toString(QKeySequence::NativeText);
    const QString dado = QAccessibleWidget::text(que);
    if (que != QAccessible::Name || !b_->accessibleName().isEmpty()) return dado;
    QString rotulo = b_->text();
    rotulo.remove(u'&');
    return rotulo.isEmpty() ? b_->toolTip() : rotulo;
  }
  QAccessible::State state() const override {
    QAccessible::State s = QAccessibleWidget::state();
    s.checkable = b_->isCheckable();
    s.checked = b_->isChecked();
    s.pressed = b_->isDown();
    s.hasPopup = menu();
    const auto* p = qobject_cast<const QPushButton*>(b_);
    s.defaultButton = p && p->isDefault();
    return s;
  }
  QStringList actionNames() const override {
    if (!widget()->isEnabled()) return {};
    return QStringList{b_->isCheckable() ? toggleAction() : pressAction()} +
           QAccessibleWidget::actionNames();
  }
  // Performed from the event loop: the caller waits for the answer, and the press may wait for a
  // user.
  void doAction(const QString& cual) override {
    if (cual != pressAction() && cual != toggleAction()) return QAccessibleWidget::doAction(cual);
    if (widget()->isEnabled())
      QMetaObject::invokeMethod(b_, &QAbstractButton::click, Qt::QueuedConnection);
  }
  QStringList keyBindingsForAction(const QString& cual) const override {
    const bool suya = cual == pressAction() || cual == toggleAction();
    if (!suya || b_->shortcut().isEmpty()) return QAccessibleWidget::keyBindingsForAction(cual);
    return {b_->shortcut().toString()};
  }

 private:
  bool menu() const {
    const auto* p = qobject_cast<const QPushButton*>(b_);
    const auto* h = qobject_cast<const QToolButton*>(b_);
    return (p && p->menu()) || (h && h->menu());
  }
  QAbstractButton* b_;
};

QAccessibleInterface* hacer(const QString&, QObject* o) {
  if (auto* v = qobject_cast<Ventana*>(o)) return new AccesibleVentana(v);
  if (qobject_cast<QPushButton*>(o) || qobject_cast<QToolButton*>(o))
    return new AccesibleBoton(static_cast<QAbstractButton*>(o));
  return nullptr;
}

}  // namespace

void prepararAccesible() {
  QAccessible::removeFactory(hacer);
  QAccessible::installFactory(hacer);
}

}  // namespace tarvo::ventanas
