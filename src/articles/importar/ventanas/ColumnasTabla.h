// The columns of a table: for each its heading, some of its values, and a drop-down list of the
// fields that it may fill.
#pragma once

#include <QScrollArea>
#include <vector>

#include "articles/importar/FilaArticulo.h"

class QComboBox;
class QGridLayout;

namespace tarvo::importar {

class ColumnasTabla final : public QScrollArea {
  Q_OBJECT
 public:
  explicit ColumnasTabla(QWidget* padre = nullptr);
  // REQUIRES that the texts outlive it.
  void mostrar(const Tabla& tabla, const Plan& plan, const Textos& textos);
  // A field selected twice is assigned to the first of the columns.
  Emparejado elegidas() const;

 Q_SIGNALS:
  void cambiado();

 private:
  void anadir(QGridLayout& reja, const Tabla& tabla, const Plan& plan, int columna,
              const Textos& textos);
  QComboBox* lista(std::optional<Campo> campo, const Textos& textos);

  std::vector<QComboBox*> listas_;
};

}  // namespace tarvo::importar
