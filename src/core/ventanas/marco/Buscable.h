// A list as its window sees it: Ctrl+F moves to the search field of one.
#pragma once

#include <QWidget>

namespace tarvo::ventanas {

class Buscable {
 public:
  virtual ~Buscable() = default;
  virtual QWidget& control() = 0;
  virtual bool seBusca() const = 0;  // whether it shows its search field
  virtual void irABuscar() = 0;
};

}  // namespace tarvo::ventanas
