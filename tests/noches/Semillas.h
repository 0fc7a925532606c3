// Seeds that once showed a fault, kept as tests.
#pragma once

#include <QtGlobal>

namespace tarvo::noches {

inline constexpr quint64 kGuardadas[] = {
    2,    19,   25,   26,   44,    59,    77,    138,   190,   204,  230,   401,  414,
    449,  490,  499,  560,  829,   841,   932,   978,   1034,  1442, 1448,  2040, 2073,
    2120, 3044, 1531, 1597, 2272,  2352,  3147,  4146,  4368,  4620, 5519,  5547, 6030,
    9065, 9445, 9461, 9686, 10231, 11766, 10922, 14114, 15497, 8737, 11658, 6721};

}  // namespace tarvo::noches
