// The icon beside the clock. Where the desktop has no such place nothing is shown and nothing is
// missed.
#pragma once

#include <QIcon>
#include <QObject>
#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace tarvo::app {

class SysTray final : public QObject {
  Q_OBJECT
 public:
  explicit SysTray(QObject* padre = nullptr);
  ~SysTray() override;

  void IniSysTray(const QIcon& icono, const QString& tip);
  void IconSysTray(const QIcon& icono);
  void TipSysTray(const QString& tip);  // 63 characters at most
  void MenuSysTray(QMenu* menu);        // of the right button; it stays its owner's
  void FinSysTray();
  // A person can reach the program by it.
  bool hay() const;
  // One mouse message of the icon as an event: 513 to 518, left and right, down, up, double.
  void mensaje(int numero);

 Q_SIGNALS:  // 1 left, 2 right
  void MouseDown(int boton);
  void MouseUp(int boton);
  void DblClick(int boton);

 private:
  std::unique_ptr<QSystemTrayIcon> bandeja_;
  bool entregando_ = false;
};

}  // namespace tarvo::app
