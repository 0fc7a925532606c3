// The base of every window: bound texts, one instance a name, memory of its size, Escape, Return
// for the default button, focus back to its owner, and strips that say how things went.
//
//   class CfgComm final : public ventanas::Ventana {
//    public:
//     CfgComm(ventanas::Contexto& c, Motor& motor) : Ventana(c, u"CfgComm"_s) {
//       ui_.setupUi(cuerpo());
//       enlazar();
//       ...
//
// Windows are made by the registry (Ventanas) and nobody else.
#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QVariantMap>
#include <QWidget>
#include <any>

#include "core/ventanas/marco/Contexto.h"

namespace tarvo::ventanas {

class Buscable;
class Captura;
class Recorrido;
class Tira;
class TiraTrabajo;

using Argumentos = QVariantMap;

class Ventana : public QWidget {
  Q_OBJECT
 public:
  Ventana(Contexto& contexto, const QString& nombre);
  ~Ventana() override;

  const QString& nombre() const { return nombre_; }
  Contexto& contexto() const { return c_; }
  // The text of a number, and the same with "#" and the plural rule filled.
  QString t(int numero) const { return c_.textos(numero); }
  QString t(int numero, int cuantos) const { return Plural(c_.textos(numero), cuantos); }

  // Called by the registry at every opening, also when the window is loaded already. A failure is
  // shown, and a window that wasn't loaded yet isn't opened.
  virtual Resultado<> preparar(const Argumentos& argumentos);
  // True refuses the unloading. It asks whatever has to be asked.
  virtual bool QueryUnload() { return false; }
  // For a window that receives as long as it is open.
  virtual Captura* captura() { return nullptr; }
  // For a list that its children follow.
  virtual Recorrido* recorrido() { return nullptr; }

  // Opens the window of a door, in front of this one; see Ventanas::abrir and Ventanas::preguntar.
  template <class P>
  Ventana* abrir(const P& puerta);
  template <class P>
  auto preguntar(const P& puerta);

  // False when QueryUnload refused, or is still asking. What stands on the window (a modal one, a
  // box, a menu) is closed first, as with Escape; when that stays, the window does too. The object
  // goes with the next turn of the event loop, or after those that keep it (see Retenida).
  bool descargar();
  // Modal until aceptar() or rechazar() (Escape, the closing button); true for aceptar().
  bool ejecutar();
  void aceptar();
  void rechazar();

  // The strip at the top: that it went well; what went wrong and what to do; a doubt.
  void decirBien(const QString& texto);
  void decirDuda(const QString& texto, const QString& detalle = {});
  void decirFallo(const QString& texto, const QString& detalle = {});
  void decirFallo(const Error& error);
  // Shows the error and gives false when there is one.
  template <class T>
  bool haIdoBien(const Resultado<T>& r) {
    if (!r) decirFallo(r.error());
    return r.has_value();
  }
  Tira& tira() { return *tira_; }
  // A refusal that stands until it is settled: what a cell of a list didn't take.
  void decirPendiente(const Error& error);
  void resuelto();
  // A list of this window, which takes part in its search key as long as it lives.
  void acoger(Buscable& lista);
  // The strip for work in slices, hidden while there is none.
  TiraTrabajo& trabajo() { return *trabajo_; }

  QWidget* dueno() const { return dueno_; }

 Q_SIGNALS:
  void descargada(const QString& nombre);

 protected:
  // Where the form goes: ui_.setupUi(cuerpo()).
  QWidget* cuerpo() const { return cuerpo_; }
  // Once, after setupUi and before anything is filled: texts, names for assistive tools, size and
  // splitters as they were left.
  void enlazar();
  // Another size; the window moves where a part of it would leave the screen.
  void crecer(const QSize& tamano);
  // Ctrl+F, whatever has the focus: to the search of the list that has it, else of the first one.
  virtual void irABuscar();
  // The picture and the key of an action of the form, and what it does.
  void unir(QAction* accion, const QString& dibujo, const QKeySequence& tecla,
            const std::function<void()>& hacer);
  // Ends it with what its door hands back. REQUIRES the type that the door names.
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
  void recordar();
  void volverAlDueno();
  void terminar(bool aceptada);
  Ventana* modalEncima() const;
  bool cerrarLoDeEncima();
  void pulsarBoton(QKeyEvent& evento);
  void pedirMenu(QWidget& control);
  void pasarFicha(int pasos);

  Contexto& c_;
  QString nombre_;
  QWidget* cuerpo_;
  Tira* tira_;
  TiraTrabajo* trabajo_;
  QPointer<QWidget> dueno_, teclea_;
  std::vector<Buscable*> listas_;
  QString pendiente_;  // what decirPendiente said last
  std::any salida_;
  int retenida_ = 0;  // event loops that run in functions of this window
  bool modal_ = false, aceptada_ = false, cerrada_ = false, alcanzada_ = false, conSitio_ = false;
};

}  // namespace tarvo::ventanas
