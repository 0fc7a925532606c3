// What each column of a table fills: its heading, some of its values, and a list to choose from.
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
  // REQUIRES texts that outlive it.
  void mostrar(const Tabla& tabla, const Plan& plan, const Textos& textos);
  // A field chosen twice belongs to the first column.
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
