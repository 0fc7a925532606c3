// Alt with a letter that no control answers to is no text: some platforms would write the letter
// into the field that has the focus, or over the cell in hand.
#pragma once

#include <QObject>

namespace tarvo::ventanas {

class AltSuelto final : public QObject {
 public:
  AltSuelto();  // for the whole program, as long as it lives
  bool eventFilter(QObject* objeto, QEvent* evento) override;
};

}  // namespace tarvo::ventanas
