// A window that receives from its machine as long as it is open, and must be let finish: the
// program asks all of them to stop before it ends, and waits until they have gone.
#pragma once

namespace tarvo::ventanas {

class Captura {
 public:
  virtual ~Captura() = default;
  // Stops receiving and then unloads its window, at once or when the line is closed. `borrar`: it
  // doesn't begin again with the next start either.
  virtual void SuspenderCaptura(bool borrar) = 0;
};

}  // namespace tarvo::ventanas
