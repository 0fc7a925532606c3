// Alt with a letter that belongs to no control isn't text: some platforms would insert the letter
// into the field with the focus, or over the current cell.
#pragma once

#include <QObject>

namespace tarvo::ventanas {

class AltSuelto final : public QObject {
 public:
  AltSuelto();  // for the whole program, during its lifetime
  bool eventFilter(QObject* objeto, QEvent* evento) override;
};

}  // namespace tarvo::ventanas
