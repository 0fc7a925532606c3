// The frames and the rows of a seed, so that two builds of the engine can be compared.
#pragma once

#include <QString>

namespace tarvo::noches {

// A line "seed frames rows": the sums of what the machines heard and of what the database holds,
// and how many differences the oracle found. Without cuts, full disks and faults of the wires,
// which are drawn by event and so depend on the pace; `averias` keeps the faults of the machines.
// `entero` puts the frames and the rows themselves before it.
QString trafico(quint64 semilla, bool averias, bool entero);

}  // namespace tarvo::noches
