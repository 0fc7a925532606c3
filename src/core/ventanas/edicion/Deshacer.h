// The undo stack of a window: the user's changes and the way back from each, the last first, with
// Ctrl+Z, a button, and a text that names the next change to be undone. Those with a way forward as
// well can be done again with Ctrl+Y, until something else is changed.
#pragma once

#include <QAction>
#include <functional>
#include <vector>

#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

class Parrilla;

class Deshacer final : public QObject {
  Q_OBJECT
 public:
  // Undoes the change and reports it: an empty text means "<what> is undone"; a doubt, that not all
  // of it could be restored. A failure has changed nothing; the change stays on the stack if the
  // failure may pass, and is dropped otherwise, so that those below it can be reached.
  struct Vuelto {
    QString texto = {};
    bool duda = false;
    bool queda = false;  // not now: nothing is reported, and it can be undone later
  };
  using Vuelta = std::function<Resultado<Vuelto>()>;
  // Whether something else has been saved of the record `de` since, elsewhere, which undoing this
  // leaves as it is. Then it is asked first.
  struct Despues {
    QString de = {};
    std::function<Resultado<bool>()> hay = {};
  };

  // `ventana` owns it; `accion` is its command, and gets an icon, a key and a text. Null creates
  // one.
  explicit Deshacer(Ventana& ventana, QAction* accion = nullptr);
  QAction* accion() const { return accion_; }
  // The command that does again what was undone; made by the first call.
  QAction* accionRehacer();

  // Pushes a change and returns its number.
  int apuntar(const QString& que, Vuelta vuelta) { return apuntar(que, std::move(vuelta), {}); }
  int apuntar(const QString& que, Vuelta vuelta, Despues despues);
  // The same with a way forward. On a failure nothing can be done again any more.
  int apuntarIdaYVuelta(const QString& que, Vuelta vuelta, std::function<Resultado<>()> ida);
  // What was undone can't be done again: something has changed that was not noted.
  void olvidarIdas();
  // Removes a change that can no longer be undone from here.
  void retirar(int numero);
  // Notes every cell written, with its former contents. The list reads its rows again after a cell
  // is restored. `cuando` returns false for a column to be left out.
  void seguirCeldas(Parrilla& lista, std::function<bool(int columna)> cuando = {});
  // Makes cells written together a single step, or none when none of them was written.
  void seguirTandas(Parrilla& lista);
  // Makes what `apuntarVarios` pushes a single step.
  void comoUno(const std::function<void()>& apuntarVarios);
  void deshacer();
  void rehacer();
  bool vacia() const { return pila_.empty(); }
  void olvidar();

 Q_SIGNALS:
  void deshecho();  // after a successful undo

 private:
  struct Cambio {
    int numero;
    QString que;
    Vuelta vuelta;
    Despues despues = {};
    std::function<Resultado<>()> ida = {};
  };
  int apuntar(Cambio cambio);
  static Resultado<bool> hayDespues(const std::vector<Cambio>& cambios);
  bool conforme(const Cambio& cambio);
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void juntar(int desde, int cuantas);
  void pintar();

  Ventana& v_;
  QAction* accion_;
  QAction* accionRehacer_ = nullptr;
  std::vector<Cambio> pila_, deshechos_;
  int ultimo_ = 0;
};

}  // namespace tarvo::ventanas
