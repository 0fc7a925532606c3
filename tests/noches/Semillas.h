// Seeds that once showed a fault, kept as tests.
#pragma once

#include <QtGlobal>

namespace tarvo::noches {

inline constexpr quint64 kGuardadas[] = {1};

}  // namespace tarvo::noches
