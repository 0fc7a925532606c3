// The settings of the task engine in TARVO.INI.
#pragma once

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::motor {

struct AjustesMotor {
  int TimeCero = 150000;   // ms to wait for the answer to a zeroing or a wipe
  int IntentosManual = 0;  // failures of a task before it stops, with nobody watching
  // An addition of ours: scales may answer a question under a different code.
  bool AceptaOtroCodigo = false;
};

SalaDeAjustes ajustesMotor();

}  // namespace tarvo::motor
