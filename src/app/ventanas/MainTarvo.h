// The main window: entries in four panels, the person's own entries, the icon beside the clock, and
// the morning. It opens windows by name; an entry whose window isn't registered is disabled and
// says so.
#pragma once

#include "app/Aplicacion.h"
#include "app/ventanas/Lleva.h"
#include "core/ventanas/marco/Captura.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_MainTarvo.h"

class QMenu;

namespace tarvo::app {

class Manana;
class SysTray;

class MainTarvo final : public ventanas::Ventana {
  Q_OBJECT
 public:
  MainTarvo(ventanas::Contexto& contexto, const QString& nombre, Aplicacion& aplicacion);
  ~MainTarvo() override;

  bool QueryUnload() override;
  Manana& manana() { return *manana_; }
  SysTray& tray() { return *tray_; }

 private:
  enum Panel { kPrincipal, kAlmacen, kAvanzado, kPersonal };

  // --- MainTarvo.cpp
  void ponerEntradas();
  void ponerLetras();
  void mostrarPanel(Panel panel);
  void ir(const Lleva& adonde);
  void salir();
  void minimizar();
  void reaparecer();
  void atenderBandeja();
  bool atiendeEscape();
  bool esLaUnica() const;
  void moverFoco(int pasos);
  void changeEvent(QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

  // --- the person's own entries (MainTarvoPersonal.cpp)
  void refrescarPersonal();
  void pulsarPersonal();
  void ejecutarPersonal(const QString& titulo);
  void activar(const QString& ruta);
  void menuPersonal(QWidget* sobre, const QPoint& donde, std::optional<size_t> cual);
  void anadirAccion(QMenu& menu, int texto, const std::function<void(size_t)>& hacer,
                    std::optional<size_t> cual);
  void editarPersonal(std::optional<size_t> cual);
  void eliminarPersonal(size_t cual);
  void atenderMenu(QToolButton& boton, std::optional<size_t> cual);

  // --- the windows that receive from a machine now: asked to stop, and waited for, before the end
  std::vector<ventanas::Captura*> CapturasActivas() const;
  void suspenderCapturas();
  bool dejaElMotor();

  Aplicacion& app_;
  Ui::MainTarvo ui_;
  Manana* manana_;
  SysTray* tray_;
  bool suspendiendo_ = false;
  qint64 hijaIda_ = -1;      // when another window closed last, on the clock that only goes forward
  bool enPersonal_ = false;  // a pop-up or the dialog of an own entry is up
  QPointer<QWidget> ultimaEntrada_;
};

}  // namespace tarvo::app
