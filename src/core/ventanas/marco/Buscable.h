// A list as its window sees it: Ctrl+F leads to the search of one.
#pragma once

#include <QWidget>

namespace tarvo::ventanas {

class Buscable {
 public:
  virtual ~Buscable() = default;
  virtual QWidget& control() = 0;
  virtual bool seBusca() const = 0;  // it shows its search field
  virtual void irABuscar() = 0;
};

}  // namespace tarvo::ventanas
