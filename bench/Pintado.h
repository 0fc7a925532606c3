// Shared by the measurements of windows: the times of painting, waiting on the event loop, and a
// line of output with its limit.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <algorithm>

#include "Comun.h"

namespace tarvo::banco {

constexpr int kPlazoMs = 20'000;

// The moments at which a widget was painted.
class Pintor final : public QObject {
 public:
  explicit Pintor(QWidget* w) { w->installEventFilter(this); }
  bool eventFilter(QObject* /*objeto*/, QEvent* evento) override {
    pintadas += evento->type() == QEvent::Paint;
    return false;
  }
  int pintadas = 0;
};

inline double ms(const QElapsedTimer& t) {
  return static_cast<double>(t.nsecsElapsed()) * 1e-6;
}

template <class F>
void esperar(const char* que, F&& listo) {
  QElapsedTimer plazo;
  plazo.start();
  while (!listo()) {
    if (plazo.elapsed() > kPlazoMs) morir(QStringLiteral("no llega: %1").arg(QLatin1String(que)));
    QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
  }
}

inline double enElLugar(std::vector<double>& v, double parte) {
  const auto n = static_cast<std::ptrdiff_t>(parte * static_cast<double>(v.size() - 1));
  std::ranges::nth_element(v, v.begin() + n);
  return v[static_cast<std::size_t>(n)];
}

// The median of some openings; the first is left out: what it does is done once by every program.
template <class A, class C>
double aperturas(A abrir, C cerrar) {
  constexpr int kVueltas = 9;
  std::vector<double> v;
  for (int i = 0; i <= kVueltas; ++i) {
    QElapsedTimer t;
    t.start();
    abrir();
    v.push_back(ms(t));
    cerrar();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  v.erase(v.begin());
  return enElLugar(v, 0.5);
}

inline bool decir(const char* nombre, double tardo, double limite) {
  const double razon = limite / std::max(tardo, 0.01);
  std::printf("%s %.2f 1.00 %s  # %.1f ms, limit %.0f ms\n", nombre, razon,
              razon >= 1 ? "ok" : "short", tardo, limite);
  std::fflush(stdout);
  return razon >= 1;
}

}  // namespace tarvo::banco
