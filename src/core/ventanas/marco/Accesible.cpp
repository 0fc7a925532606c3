#include "core/ventanas/marco/Accesible.h"

#include <QAccessibleWidget>
#include <QAction>
#include <QMenu>
#include <QPointer>
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

// An entry of a menu. One that opens a menu remains the toolkit's: that doesn't wait.
class AccesibleEntrada final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccesibleEntrada(QAction* a, QMenu* menu) : a_(a), menu_(menu) {}

  bool isValid() const override { return a_ && menu_; }
  QObject* object() const override { return a_; }
  QWindow* window() const override { return menu_ ? menu_->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(menu_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect sitio = menu_->actionGeometry(a_);
    return {menu_->mapToGlobal(sitio.topLeft()), sitio.size()};
  }
  QAccessible::Role role() const override {
    return a_ && a_->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
  }
  QString text(QAccessible::Text que) const override {
    if (!a_) return {};
    if (que == QAccessible::Accelerator) return a_->shortcut().toString(QKeySequence::NativeText);
    if (que != QAccessible::Name) return {};
    QString rotulo = a_->text();
    rotulo.remove(u'&');
    return rotulo;
  }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessible::State state() const override {
    QAccessible::State s;
    if (!isValid()) return s;
    s.invisible = !menu_->isVisible() || !a_->isVisible();
    s.disabled = a_->isSeparator() || !a_->isEnabled();
    s.focusable = true;
    s.focused = menu_->activeAction() == a_;
    s.checkable = a_->isCheckable();
    s.checked = a_->isChecked();
    return s;
  }
  void* interface_cast(QAccessible::InterfaceType cual) override {
    return cual == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override {
    if (!a_ || a_->isSeparator() || !a_->isEnabled()) return {};
    return {pressAction()};
  }
  void doAction(const QString& cual) override {
    if (cual == pressAction() && a_ && a_->isEnabled())
      QMetaObject::invokeMethod(a_, &QAction::trigger, Qt::QueuedConnection);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QPointer<QAction> a_;
  QPointer<QMenu> menu_;
};

AccesibleEntrada* hacerEntrada(QAction& a) {
  if (a.menu()) return nullptr;
  for (QObject* o : a.associatedObjects())
    if (auto* menu = qobject_cast<QMenu*>(o)) return new AccesibleEntrada(&a, menu);
  return nullptr;
}

QAccessibleInterface* hacer(const QString&, QObject* o) {
  if (auto* a = qobject_cast<QAction*>(o)) return hacerEntrada(*a);
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
