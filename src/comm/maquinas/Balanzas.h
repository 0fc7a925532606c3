// Which scales a group has: a question that changes nothing, and its answer, the same text for all
// families of scales.
#pragma once

#include <vector>

#include "comm/maquinas/Campos.h"

namespace tarvo::maquinas {

inline constexpr int kPreguntaVek = 570, kPreguntaNodal = 72;
// Of the kinds 1, 2 and 4; a register has no such question.
Peticion balanzas(Protocolo protocolo);
// Whether the scale of each number, from 0 on, is there. Nothing for any other text: it consists of
// "0" and "1", and an address has two digits.
std::optional<std::vector<bool>> leerBalanzas(QByteArrayView datos);

}  // namespace tarvo::maquinas
