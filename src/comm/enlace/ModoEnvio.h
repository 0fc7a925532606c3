#pragma once

namespace tarvo::enlace {

// How a frame goes out.
struct ModoEnvio {
  bool unaVez = false;  // the link never repeats it: the machine may have obeyed unheard
  // Its answer proves something, and must not be an earlier question's: while one of its code is
  // owed, it waits until the line has been quiet for the answer time.
  bool limpia = false;
  // VEK: an answer under another code counts too, where that code isn't owed and the client says
  // that it fits.
  bool otroCodigo = false;
};

}  // namespace tarvo::enlace
