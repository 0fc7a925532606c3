// The commands of a window, each declared once: its icon, key, text, place in the tool bar and in
// the context menu of the list, and when it is available. Mnemonics and tab order follow by
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
  int pista = 0;                     // a text; 0 for its caption and its key
  bool enBarra = true;
};

class Ordenes final : public QObject {
  Q_OBJECT
 public:
  // `barra` null: commands by key and menu only.
  Ordenes(Ventana& ventana, QToolBar* barra, Parrilla* lista = nullptr);

  QAction* anadir(Orden orden);
  // Gives an existing action its place among them.
  void anadir(QAction* accion);
  void separar();
  // Updates which commands are available; called when rows are added or removed or the selection
  // changes.
  void actualizar();
  // Disables all commands while the window works in steps.
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

// Work in steps on a window: a strip shows its name and progress, Escape or its button stops it,
// and no command is available meanwhile. The steps done before a stop are kept: the window reports
// how far it got.
struct Faena {
  struct Fin {
    qint64 hechos = 0;
    bool parado = false;
    std::optional<Error> error = {};
  };

  QString que;
  qint64 total = 0;  // steps, or what `hasta` counts
  // Does step `i`, from 0 on. An error ends the work, and is reported.
  std::function<Resultado<>(qint64 i)> paso;
  // Called at the end, also of work stopped or failed.
  std::function<void(const Fin& fin)> acabar = {};
  std::function<QString()> parado = {};  // what is reported on a stop; empty: the number done
  QWidgetList quietos = {};              // controls disabled meanwhile
  // For steps whose number isn't known: the progress, and whether there is more to do.
  std::function<qint64()> hasta = {};
  std::function<bool()> sigue = {};
};
// False, without starting, while other work is under way.
bool trabajar(Ventana& ventana, Ordenes* ordenes, Faena faena);

}  // namespace tarvo::ventanas
