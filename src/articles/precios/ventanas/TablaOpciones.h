// Rows of a name and three options, of which one holds.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "core/textos/Textos.h"

class QButtonGroup;

namespace tarvo::precios {

class TablaOpciones final : public QWidget {
  Q_OBJECT
 public:
  explicit TablaOpciones(QWidget* padre = nullptr) : QWidget(padre) {}
  // The numbers of the first name and of the first option; the others follow.
  void preparar(const Textos& textos, int nombres, int cuantas, int opciones);
  void poner(int fila, int opcion);
  int valor(int fila) const;  // 0 to 2
  void enfocar(int fila);     // on its option that holds

 private:
  std::vector<QButtonGroup*> filas_;
};

}  // namespace tarvo::precios
