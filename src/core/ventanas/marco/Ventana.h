// The base of every window: bound texts, one instance per name, a remembered size, Escape, Return
// for the default button, the focus back to the owner, and strips that report results.
//
//   class CfgComm final : public ventanas::Ventana {
//    public:
//     CfgComm(ventanas::Contexto& c, Motor& motor) : Ventana(c, u"CfgComm"_s) {
//       ui_.setupUi(cuerpo());
//       enlazar();
//       ...
//
// Windows are created only by the registry (Ventanas).
#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <any>

#include "core/ventanas/marco/Contexto.h"

class QTabBar;

namespace tarvo::ventanas {

class Buscable;
class Captura;
class Recorrido;
class Tira;
class TiraTrabajo;

// Property of an action: why it can't be given while it is disabled, in words.
inline constexpr const char* kPorQueNo = "porQueNo";

class Ventana : public QWidget {
  Q_OBJECT
 public:
  Ventana(Contexto& contexto, const QString& nombre);
  ~Ventana() override;

  const QString& nombre() const { return nombre_; }
  Contexto& contexto() const { return c_; }
  // The text of a number; below, the same with "#" and the plural rule filled in.
  QString t(int numero) const { return c_.textos(numero); }
  QString t(int numero, int cuantos) const { return Plural(c_.textos(numero), cuantos); }

  // True refuses the unloading. Asks the user first if anything is at stake.
  virtual bool QueryUnload() { return false; }
  // For a window that receives while it is open.
  virtual Captura* captura() { return nullptr; }
  // For a list that its children follow.
  virtual Recorrido* recorrido() { return nullptr; }

  // Opens the window of a door, on top of this one; see Ventanas::abrir and Ventanas::preguntar.
  template <class P>
  Ventana* abrir(const P& puerta);
  template <class P>
  auto preguntar(const P& puerta);

  // Unloads the window; false if QueryUnload refused, or is still asking. Everything on top of the
  // window (a modal one, a box, a menu) is closed first, as with Escape; if that refuses, the
  // window stays too. The object is deleted in the next turn of the event loop, or after the last
  // Retenida that keeps it.
  bool descargar();
  // The same, by a clock of the window and not by its user, whose Escape at that moment was meant
  // for this window: it doesn't close the owner.
  bool cerrarSola();
  // Runs it as a modal dialog until aceptar() or rechazar() (Escape, the close button); true for
  // aceptar().
  bool ejecutar();
  void aceptar();
  void rechazar();

  // Report on the strip at the top: a success; a doubt; a failure and its remedy.
  void decirBien(const QString& texto);
  void decirDuda(const QString& texto, const QString& detalle = {});
  void decirFallo(const QString& texto, const QString& detalle = {});
  void decirFallo(const Error& error);
  // Shows the error, if any, and then returns false.
  template <class T>
  bool haIdoBien(const Resultado<T>& r) {
    if (!r) decirFallo(r.error());
    return r.has_value();
  }
  Tira& tira() { return *tira_; }
  // A hint: what a command lacks, or why it can't be given now. The next command removes it.
  void decirPista(const QString& texto);
  void quitarPista();
  // Connects a command of this window; giving it removes an earlier hint.
  void alDar(QAction* accion, const std::function<void()>& hacer);
  // For a window of settings: a doubt that names those that another program has changed in
  // TARVO.INI meanwhile.
  void decirCambiadosFuera();
  // Shows a refusal until it is settled: a text that a cell of a list didn't accept.
  void decirPendiente(const Error& error);
  void resuelto();
  // Something has been changed without a word: an earlier failure no longer is the last thing to
  // know. A command given through alDar that changes the store does this by itself.
  void acierto();
  // Adds a list of this window to those searched by Ctrl+F, for the lifetime of the list.
  void acoger(Buscable& lista);
  // The strip for work in slices, hidden while there is none.
  TiraTrabajo& trabajo() { return *trabajo_; }

  QWidget* dueno() const { return dueno_; }

 Q_SIGNALS:
  void descargada(const QString& nombre);

 protected:
  // A window on top of this one has closed by itself (cerrarSola).
  virtual void hijaCerradaSola();
  // The widget for the form: ui_.setupUi(cuerpo()).
  QWidget* cuerpo() const { return cuerpo_; }
  // To be called once, after setupUi and before anything is filled: texts, accessible names, and
  // the remembered size and splitters.
  void enlazar();
  // Resizes the window, and moves it if part of it would leave the screen.
  void crecer(const QSize& tamano);
  // Ctrl+F, wherever the focus is: moves to the search field of the list with the focus, else of
  // the first list.
  virtual void irABuscar();
  // Gives an action of the form its icon, its key and its slot.
  void unir(QAction* accion, const QString& dibujo, const QKeySequence& tecla,
            const std::function<void()>& hacer);
  // Closes the window with the result of its door. REQUIRES the type named by the door.
  template <class S>
  void entregar(S salida, bool aceptada = true) {
    salida_ = std::move(salida);
    terminar(aceptada);
    if (!cerrada_) salida_.reset();
  }

  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  bool event(QEvent* evento) override;

 private:
  friend class Ventanas;
  friend class Retenida;
  void mostrarSobre(QWidget* dueno);
  void colocar(const QWidget* dueno);
  void oirRechazos();
  void recordar();
  void volverAlDueno();
  void terminar(bool aceptada);
  Ventana* modalEncima() const;
  bool cerrarLoDeEncima();
  void pulsarBoton(QKeyEvent& evento);
  void entrarEnFicha(QTabBar& barra);
  QString ahoraNo(const QAction& accion) const;
  void decirPorQueNo(const QAction& accion);
  bool decirPorQueNo(const QKeyEvent& evento);
  void pedirMenu(QWidget& control);
  void pasarFicha(int pasos);

  Contexto& c_;
  QString nombre_;
  QWidget* cuerpo_;
  Tira* tira_;
  TiraTrabajo* trabajo_;
  QPointer<QWidget> dueno_, teclea_;
  std::vector<Buscable*> listas_;
  QString pendiente_;  // the last text of decirPendiente
  int pista_ = -1;     // the strip's count while it shows a hint
  std::any salida_;
  int retenida_ = 0;      // event loops running in functions of this window
  qint64 hijaSola_ = -1;  // when a window on top closed by itself, on the monotonic clock
  bool modal_ = false, aceptada_ = false, cerrada_ = false, alcanzada_ = false, conSitio_ = false;
};

}  // namespace tarvo::ventanas
