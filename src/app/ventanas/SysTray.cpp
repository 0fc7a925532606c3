#include "app/ventanas/SysTray.h"

#include <QScopedValueRollback>
#include <QSystemTrayIcon>

namespace tarvo::app {

namespace {
constexpr qsizetype kTipMayor = 63;
constexpr int kAbajoIzda = 513, kArribaIzda = 514, kDobleIzda = 515, kAbajoDcha = 516,
              kArribaDcha = 517, kDobleDcha = 518;
}  // namespace

SysTray::SysTray(QObject* padre) : QObject(padre) {}

SysTray::~SysTray() = default;

void SysTray::IniSysTray(const QIcon& icono, const QString& tip) {
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
  bandeja_ = std::make_unique<QSystemTrayIcon>();
  connect(bandeja_.get(), &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason razon) {
            const bool doble = razon == QSystemTrayIcon::DoubleClick;
            const bool derecho = razon == QSystemTrayIcon::Context;
            if (doble) return mensaje(kDobleIzda);
            if (!derecho && razon != QSystemTrayIcon::Trigger) return;
            mensaje(derecho ? kAbajoDcha : kAbajoIzda);
            mensaje(derecho ? kArribaDcha : kArribaIzda);
          });
  IconSysTray(icono);
  TipSysTray(tip);
  bandeja_->show();
}

void SysTray::IconSysTray(const QIcon& icono) {
  if (bandeja_) bandeja_->setIcon(icono);
}

void SysTray::TipSysTray(const QString& tip) {
  if (bandeja_) bandeja_->setToolTip(tip.left(kTipMayor));
}

void SysTray::MenuSysTray(QMenu* menu) {
  if (bandeja_) bandeja_->setContextMenu(menu);
}

void SysTray::FinSysTray() {
  if (bandeja_) bandeja_.release()->deleteLater();
}

bool SysTray::hay() const {
  return bandeja_ && bandeja_->isVisible();
}

void SysTray::mensaje(int numero) {
  if (entregando_) return;
  const QScopedValueRollback en(entregando_, true);
  switch (numero) {
    case kAbajoIzda:
    case kAbajoDcha:
      Q_EMIT MouseDown(numero == kAbajoIzda ? 1 : 2);
      break;
    case kArribaIzda:
    case kArribaDcha:
      Q_EMIT MouseUp(numero == kArribaIzda ? 1 : 2);
      break;
    case kDobleIzda:
    case kDobleDcha:
      Q_EMIT DblClick(numero == kDobleIzda ? 1 : 2);
      break;
    default:
      break;
  }
}

}  // namespace tarvo::app
