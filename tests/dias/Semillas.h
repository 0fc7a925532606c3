// Seeds that once revealed a fault, kept as tests.
#pragma once

#include <QtGlobal>
#include <array>

namespace tarvo::dias {

inline constexpr std::array<quint64, 0> kGuardadas{};

}  // namespace tarvo::dias
