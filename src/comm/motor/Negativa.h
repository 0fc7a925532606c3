// A machine's refusal in place of an answer: "ERR" and the number of its reason.
#pragma once

#include <QByteArrayView>
#include <optional>

namespace tarvo::motor {

inline constexpr QByteArrayView kMarcaNegativa = "ERR";
// 1 to 4 are refusals, 5 is "no such record"; any other number refuses nothing.
inline constexpr int kUltimaNegativa = 5;

// The number; nothing for a text that isn't "ERR" and two digits, or "ERR" and one from 1 to 5.
std::optional<int> numeroDeNegativa(QByteArrayView datos);

}  // namespace tarvo::motor
