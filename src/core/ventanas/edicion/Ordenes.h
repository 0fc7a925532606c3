// The commands of a window, each declared once: its picture, key, words, place in the tool bar, in
// the context menu of the list, and when it can be given. Letters and the order of Tab come by
// themselves (see marco/Alcance.h).
//
//   ordenes_.anadir({u"Borro"_s, kTxBorrar, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); },
//                    [this] { return ui_.Grid->filas() > 0; }});
#pragma once

#include <QAction>
#include <QToolBar>
#include <functional>
#include <optional>
#include <vector>

#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

class Parrilla;

struct Orden {
  QString nombre;  // of the action
  int texto = 0;
  QString dibujo = {};
  QKeySequence tecla = {};
  std::function<void()> hacer = {};
  std::function<bool()> puede = {};  // empty: always
  int pista = 0;                     // a text; 0 for its words and its key
  bool enBarra = true;
};

class Ordenes final : public QObject {
  Q_OBJECT
 public:
  // `barra` null: commands by key and menu only.
  Ordenes(Ventana& ventana, QToolBar* barra, Parrilla* lista = nullptr);

  QAction* anadir(Orden orden);
  // An action that is there already takes its place among them.
  void anadir(QAction* accion);
  void separar();
  // Asks each again whether it can be given; called when rows come, go, or are chosen.
  void actualizar();
  // While the window works in steps none can be given.
  void ocupar(bool ocupada);
  bool ocupada() const { return ocupada_; }

 private:
  struct Una {
    QAction* accion;
    std::function<bool()> puede;
  };
  Ventana& v_;
  QToolBar* barra_;
  Parrilla* lista_;
  std::vector<Una> todas_;
  QList<QAction*> menu_;
  bool ocupada_ = false;
};

// Work in steps on a window: a strip shows what it does and how far it is, Escape or its button
// stops it, and no command can be given meanwhile. What is done when it stops stays done: the
// window says where that was.
struct Faena {
  struct Fin {
    qint64 hechos = 0;
    bool parado = false;
    std::optional<Error> error = {};
  };

  QString que;
  qint64 total = 0;  // of steps, or of what `hasta` counts
  // Does number `i`, from 0 on. An error ends the work, and is said.
  std::function<Resultado<>(qint64 i)> paso;
  // At the end, also of one that stopped or failed.
  std::function<void(const Fin& fin)> acabar = {};
  std::function<QString()> parado = {};  // the words where it stops; empty for the number done
  QWidgetList quietos = {};              // controls that are disabled meanwhile
  // For steps whose number nobody knows: how far it is, and whether there is more to do.
  std::function<qint64()> hasta = {};
  std::function<bool()> sigue = {};
};
// False, and nothing is begun, while other work is under way.
bool trabajar(Ventana& ventana, Ordenes* ordenes, Faena faena);

}  // namespace tarvo::ventanas
