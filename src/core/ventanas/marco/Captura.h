// A window that receives from its machine while it is open, and must be allowed to finish: the
// program asks all of them to stop before it ends, and waits until they are unloaded.
#pragma once

namespace tarvo::ventanas {

class Captura {
 public:
  virtual ~Captura() = default;
  // Stops receiving and then unloads its window, at once or when the line is closed. `borrar`: it
  // isn't started again with the next start of the program either.
  virtual void SuspenderCaptura(bool borrar) = 0;
};

}  // namespace tarvo::ventanas
