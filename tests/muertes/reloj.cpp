// Preloaded into a program under test: its wall clock is MUERTES_SEGUNDOS ahead of this computer's,
// so that nights follow each other without a wait. The monotonic clock is left alone.
#include <dlfcn.h>
#include <sys/time.h>
#include <time.h>

#include <cstdlib>

namespace {

long adelanto() {
  static const char* const segundos = std::getenv("MUERTES_SEGUNDOS");
  return segundos ? std::atol(segundos) : 0;
}

template <class Funcion>
Funcion* verdadera(const char* nombre) {
  return reinterpret_cast<Funcion*>(::dlsym(RTLD_NEXT, nombre));
}

}  // namespace

extern "C" int clock_gettime(clockid_t cual, timespec* hora) noexcept {
  static const auto suya = verdadera<int(clockid_t, timespec*)>("clock_gettime");
  const int resultado = suya(cual, hora);
  if (resultado == 0 && cual == CLOCK_REALTIME) hora->tv_sec += adelanto();
  return resultado;
}

extern "C" int gettimeofday(timeval* hora, void* zona) noexcept {
  static const auto suya = verdadera<int(timeval*, void*)>("gettimeofday");
  const int resultado = suya(hora, zona);
  if (resultado == 0) hora->tv_sec += adelanto();
  return resultado;
}
