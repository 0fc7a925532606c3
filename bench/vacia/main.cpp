// The smallest possible window: empty, in the program's own style.
#include <QMainWindow>

#include "PrimerPintado.h"
#include "core/ventanas/aspecto/Tema.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  tarvo::banco::vigilarPintado();
  const tarvo::ventanas::Tema tema(app, tarvo::ventanas::Cara::Clara);
  QMainWindow ventana;
  ventana.resize(1120, 680);
  ventana.show();
  return QApplication::exec();
}
