#include "app/Cesion.h"

namespace tarvo::app {

namespace {

constexpr qint64 kSeguidasMs = 60'000;  // between calls of one and the same wait

}  // namespace

bool Cesion::agotada(bool pregunta) {
  const int fase = automat_.fase(), paso = automat_.pasoActual();
  const qint64 ahora = reloj_.monotono();
  const bool quieta =
      pregunta || fase == automation::kDetenidoEnPaso || fase == automation::kConfirmando;
  const bool laMisma = fase == fase_ && paso == paso_ && ahora - vista_ <= kSeguidasMs;
  fase_ = fase, paso_ = paso, vista_ = ahora;
  if (!quieta || !laMisma || desde_ < 0) desde_ = quieta ? ahora : -1;
  return desde_ >= 0 && ahora - desde_ >= kPacienciaMs;
}

}  // namespace tarvo::app
