#include "core/tiempo/Trabajo.h"

namespace tarvo {

Trabajo::Trabajo(Reloj& reloj, Paso paso, AlAvanzar alAvanzar, AlAcabar alAcabar)
    : reloj_(reloj),
      paso_(std::move(paso)),
      alAvanzar_(std::move(alAvanzar)),
      alAcabar_(std::move(alAcabar)),
      turno_(reloj.temporizador([this] { rebanada(); })) {}

void Trabajo::empezar() {
  if (!paso_ || std::exchange(enMarcha_, true)) return;
  turno_->unaVez(0);
}

void Trabajo::parar() {
  if (!enMarcha_) return;
  if (enPaso_)
    pidenParar_ = true;  // asked from within a step: it ends after that step
  else
    acabar(Fin::Parado);
}

void Trabajo::pausar() {
  enPausa_ = true;
}

void Trabajo::seguir() {
  if (std::exchange(enPausa_, false) && enMarcha_ && !enPaso_) turno_->unaVez(0);
}

// A step or a listener may destroy this object; `vivo` shows whether it did.
void Trabajo::rebanada() {
  if (enPausa_) return;
  const std::weak_ptr<bool> vivo = vivo_;
  const qint64 hasta = reloj_.monotono() + kRebanada;
  do {
    enPaso_ = true;
    const auto hayMas = paso_(avance_);
    if (vivo.expired()) return;
    enPaso_ = false;
    if (!hayMas) return acabar(std::unexpected(hayMas.error()));
    if (!*hayMas) return acabar(Fin::Acabado);
    if (pidenParar_) return acabar(Fin::Parado);
  } while (!enPausa_ && reloj_.monotono() < hasta);
  if (alAvanzar_) alAvanzar_(avance_);
  if (!vivo.expired() && enMarcha_ && !enPausa_) turno_->unaVez(0);
}

void Trabajo::acabar(Resultado<Fin> fin) {
  enMarcha_ = pidenParar_ = false;
  turno_->parar();
  // What the steps hold (a half-written file) is released before any listener is notified.
  paso_ = nullptr;
  const AlAcabar alAcabar = std::move(alAcabar_);
  if (alAcabar) alAcabar(fin);
}

}  // namespace tarvo
