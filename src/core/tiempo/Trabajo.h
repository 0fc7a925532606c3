// Long work in slices of the event loop, with progress and a stop, so that nothing else has to
// wait.
#pragma once

#include <functional>
#include <memory>

#include "core/tiempo/Reloj.h"
#include "core/valores/Resultado.h"

namespace tarvo {

class Trabajo {
 public:
  static constexpr int kRebanada = 15;  // ms of work before the event loop gets its turn

  struct Avance {
    qint64 hechos = 0;
    qint64 total = -1;  // -1 while it isn't known
    QString texto;      // the current activity; may be empty
  };
  enum class Fin { Acabado, Parado };

  // One small step of a few milliseconds at most: true while there is more to do. It updates the
  // progress. An error ends the work.
  using Paso = std::function<Resultado<bool>(Avance& avance)>;
  using AlAvanzar = std::function<void(const Avance& avance)>;  // after each slice
  using AlAcabar = std::function<void(const Resultado<Fin>& fin)>;

  // REQUIRES that the clock outlives it.
  Trabajo(Reloj& reloj, Paso paso, AlAvanzar alAvanzar, AlAcabar alAcabar);

  void empezar();  // call once
  // Ends it between two steps: AlAcabar gets Parado before this returns.
  void parar();
  // Between the two calls no step runs, so that a question about the work can be asked; it still
  // counts as under way, and can be stopped.
  void pausar();
  void seguir();
  bool enMarcha() const { return enMarcha_; }

 private:
  void rebanada();
  void acabar(Resultado<Fin> fin);

  Reloj& reloj_;
  Paso paso_;
  AlAvanzar alAvanzar_;
  AlAcabar alAcabar_;
  Avance avance_;
  bool enMarcha_ = false, enPaso_ = false, pidenParar_ = false, enPausa_ = false;
  std::shared_ptr<bool> vivo_ = std::make_shared<bool>(true);
  std::unique_ptr<Temporizador> turno_;
};

}  // namespace tarvo
