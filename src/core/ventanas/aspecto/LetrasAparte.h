// The system's fonts, listed beside what a program does before its first window.
#pragma once

#include <future>

namespace tarvo::ventanas {

// Starts the listing, a fifth of the work up to the first window, on a thread of its own; Qt finds
// it done, or waits for it. The destructor waits for its end.
class LetrasAparte {
 public:
  LetrasAparte();

 private:
  std::future<void> listado_;
};

}  // namespace tarvo::ventanas
