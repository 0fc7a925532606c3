// The main window: entries in four panels, the user's own entries, the icon in the system tray, and
// the summary of the morning. It opens windows by name; an entry whose window isn't registered is
// disabled, and its tool tip says so.
#pragma once

#include "app/AjustesPersonal.h"
#include "app/Aplicacion.h"
#include "app/ventanas/Lleva.h"
#include "core/ventanas/edicion/Deshacer.h"
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
  Resultado<> entrar(const PuertaMainTarvo&);

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
  bool atiendeEscape(const QKeyEvent& escape);
  bool esLaUnica() const;
  void moverFoco(int pasos);
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void hijaCerradaSola() override;
  void changeEvent(QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

  // --- the user's own entries (MainTarvoPersonal.cpp)
  void refrescarPersonal();
  void pulsarPersonal();
  void ejecutarPersonal(const QString& titulo);
  void activar(const QString& ruta);
  void menuPersonal(QWidget* sobre, const QPoint& donde, std::optional<size_t> cual);
  void anadirAccion(QMenu& menu, int texto, const std::function<void(size_t)>& hacer,
                    std::optional<size_t> cual);
  void editarPersonal(std::optional<size_t> cual);
  void eliminarPersonal(size_t cual);
  Resultado<ventanas::Deshacer::Vuelto> reponerPersonal(const Personal& ida, size_t cual);
  void atenderMenu(QToolButton& boton, std::optional<size_t> cual);

  // --- windows receiving from a machine: before the end they are asked to stop, and waited for
  std::vector<ventanas::Captura*> CapturasActivas() const;
  void suspenderCapturas();
  bool dejaElMotor();

  Aplicacion& app_;
  Ui::MainTarvo ui_;
  Manana* manana_;
  SysTray* tray_;
  ventanas::Deshacer* deshacer_;  // of the person's own entries
  bool suspendiendo_ = false;
  qint64 hijaIda_ =
      -1;  // when another window, a box or a menu was last closed, on the monotonic clock
  bool escapeAjeno_ = false;  // the next Escape may be meant for a window that has closed by itself
  bool enPersonal_ = false;   // the pop-up menu or the dialog of an own entry is open
  bool preguntaba_ = false;   // when it ceased to be active, a question or dialog of its own began
  QPointer<QWidget> ultimaEntrada_;
};

}  // namespace tarvo::app
