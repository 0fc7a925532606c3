// What a person changed in a window, and the way back from each, the last first: Ctrl+Z, a button,
// and words that say what comes back.
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
  // Brings it back, and says so: empty words are "<what> is undone"; a doubt where not all of it
  // came. On a failure nothing has changed; the change stays to be undone when the failure may
  // pass, and is dropped when it can't, so that those before it can be reached.
  struct Vuelto {
    QString texto = {};
    bool duda = false;
    bool queda = false;  // not now: nothing is said, and it can be taken back later
  };
  using Vuelta = std::function<Resultado<Vuelto>()>;

  // Of the window; `accion` is its command, and gets picture, key and words. Null makes one.
  explicit Deshacer(Ventana& ventana, QAction* accion = nullptr);
  QAction* accion() const { return accion_; }

  // Its number.
  int apuntar(const QString& que, Vuelta vuelta);
  // One that can't be taken back from here any more.
  void retirar(int numero);
  // Cells that are written into are kept, each with what stood there. The list reads its rows again
  // after a cell that comes back. `cuando` false leaves a cell of that column out.
  void seguirCeldas(Parrilla& lista, std::function<bool(int columna)> cuando = {});
  // What is written into many cells at once comes back at once.
  void seguirTandas(Parrilla& lista);
  void deshacer();
  bool vacia() const { return pila_.empty(); }
  void olvidar();

 Q_SIGNALS:
  void deshecho();  // after one that went well

 private:
  struct Cambio {
    int numero;
    QString que;
    Vuelta vuelta;
  };
  void juntar(int desde, int cuantas);
  void pintar();

  Ventana& v_;
  QAction* accion_;
  std::vector<Cambio> pila_;
  int ultimo_ = 0;
};

}  // namespace tarvo::ventanas
