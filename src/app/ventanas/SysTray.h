// The icon in the system tray. On a desktop without a tray it shows nothing, which is no error.
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
  void TipSysTray(const QString& tip);  // at most 63 characters
  void MenuSysTray(QMenu* menu);        // for the right button; the caller keeps ownership
  void FinSysTray();
  // Whether the user can reach the program by the icon.
  bool hay() const;
  // Emits the signals of a mouse message of the icon: 513 to 518, left and right, down, up, double.
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
