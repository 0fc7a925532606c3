#include "app/ventanas/Entrada.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::app {

using ventanas::escalar;

namespace {
constexpr double kDetras = 0.65;
}

Entrada::Entrada(QWidget* padre) : QToolButton(padre) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);
}

QSize Entrada::sizeHint() const {
  const int h = escalar(ventanas::kMargen),
            texto = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  return {h + iconSize().width() + h + texto + h,
          escalar(ventanas::kAltoControl + 2 * ventanas::kPaso)};
}

void Entrada::ponerSinVentana(const QString& motivo) {
  sinVentana_ = true;
  setToolTip(motivo);
  setAccessibleDescription(motivo);
  update();
}

bool Entrada::event(QEvent* evento) {
  if (evento->type() == QEvent::WindowActivate || evento->type() == QEvent::WindowDeactivate)
    update();
  return QToolButton::event(evento);
}

void Entrada::paintEvent(QPaintEvent*) {
  QStylePainter p(this);
  // Dimmed but still readable while another window is active.
  if (!isActiveWindow()) p.setOpacity(kDetras);
  QStyleOptionToolButton o;
  initStyleOption(&o);
  o.text.clear();
  o.icon = {};
  p.drawComplexControl(QStyle::CC_ToolButton, o);
  const int h = escalar(ventanas::kMargen);
  const QRect imagen(QPoint(h, (height() - iconSize().height()) / 2), iconSize());
  const bool vale = this->vale();
  icon().paint(&p, imagen, Qt::AlignCenter, vale ? QIcon::Normal : QIcon::Disabled);
  QPalette tinta = palette();  // the style itself draws no paler text for what can't be used
  tinta.setCurrentColorGroup(vale ? QPalette::Active : QPalette::Disabled);
  p.drawItemText(rect().adjusted(imagen.right() + h, 0, -h, 0),
                 Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, tinta, vale, text(),
                 QPalette::WindowText);
}

}  // namespace tarvo::app
