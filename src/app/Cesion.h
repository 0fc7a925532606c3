// A run of a person that doesn't move, at an unanswered question or held before a step, while
// another process waits for its turn: after a time it has to yield, or a night would not run
// because somebody went home.
#pragma once

#include "automation/Automat.h"

namespace tarvo::app {

class Cesion {
 public:
  static constexpr qint64 kPacienciaMs = 5LL * 60 * 1000;

  // REQUIRES that both outlive it.
  Cesion(const automation::Automat& automat, const Reloj& reloj)
      : automat_(automat), reloj_(reloj) {}

  // To be called again and again while another process waits; `pregunta`: a question of the run is
  // open. True when nothing has moved for that time.
  bool agotada(bool pregunta);

 private:
  const automation::Automat& automat_;
  const Reloj& reloj_;
  int paso_ = -1, fase_ = -1;
  qint64 desde_ = -1, vista_ = -1;  // monotonic ms
};

}  // namespace tarvo::app
