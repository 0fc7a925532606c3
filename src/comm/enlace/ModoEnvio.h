#pragma once

namespace tarvo::enlace {

// How a frame is sent.
struct ModoEnvio {
  bool unaVez = false;  // the link never repeats it: the machine may have obeyed unheard
  // Its answer proves something and must not be that to an earlier question: while an answer with
  // its code is owed, it waits until the line has been quiet for the answer time.
  bool limpia = false;
  // VEK: an answer under another code counts too, if that code isn't owed and the client accepts
  // it.
  bool otroCodigo = false;
};

}  // namespace tarvo::enlace
