// Delivers SIGINT and SIGTERM as a call from the event loop; a second one ends the program at once
// with status 2.
#pragma once

#include <QSocketNotifier>
#include <functional>

namespace tarvo::app {

// One per program. A signal received before the event loop runs is delivered when it does.
class Senales {
 public:
  explicit Senales(std::function<void()> alPedirFin);
  ~Senales();
  Senales(const Senales&) = delete;
  Senales& operator=(const Senales&) = delete;

 private:
  void atender();
  int fd_;
  bool pedida_ = false;
  std::function<void()> alPedirFin_;
  QSocketNotifier avisador_;
};

}  // namespace tarvo::app
