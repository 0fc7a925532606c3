// The strip of work in slices: its name, its progress, and a button that stops it.
#pragma once

#include <QFrame>
#include <QPointer>
#include <memory>

#include "core/textos/Textos.h"
#include "core/tiempo/Trabajo.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace tarvo::ventanas {

class TiraTrabajo final : public QFrame {
  Q_OBJECT
 public:
  TiraTrabajo(const Textos& textos, Reloj& reloj, QWidget* padre);
  ~TiraTrabajo() override;

  // Runs `paso` in slices (see Trabajo); `alAcabar` gets the outcome. False, without running
  // anything, while other work is under way. The strip is shown only if the work takes longer than
  // a quarter of a second.
  bool empezar(const QString& que, Trabajo::Paso paso, Trabajo::AlAcabar alAcabar);
  void parar();
  // During its lifetime no step runs, so that a question about the work stays true until it is
  // answered. May outlive the strip.
  class [[nodiscard]] Pausa {
   public:
    explicit Pausa(TiraTrabajo& tira);
    ~Pausa();
    Pausa(const Pausa&) = delete;
    Pausa& operator=(const Pausa&) = delete;

   private:
    QPointer<TiraTrabajo> tira_;
  };
  bool enMarcha() const;
  // When the last work that was shown ended, on the monotonic clock; -1 before the first one.
  qint64 vistaHasta() const { return vistaHasta_; }

 private:
  void avanzar(const Trabajo::Avance& avance);

  const Textos& t_;
  Reloj& reloj_;
  QLabel* que_;
  QLabel* cuanto_;
  QProgressBar* barra_;
  QPushButton* parar_;
  qint64 desde_ = 0, vistaHasta_ = -1;
  int pausas_ = 0;
  std::unique_ptr<Trabajo> trabajo_;
};

}  // namespace tarvo::ventanas
