// Whom a link is open for, and with which protocol.
#pragma once

namespace tarvo::enlace {

enum class Para { Nada, VekMotor, NodalMotor, VekCaptura, VekAmbos };

}  // namespace tarvo::enlace
