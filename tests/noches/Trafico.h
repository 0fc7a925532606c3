// The frames and the rows of a seed, so that two builds of the engine can be compared.
#pragma once

#include <QString>

namespace tarvo::noches {

// A line "seed frames rows": hashes of the frames received by the machines and of the contents of
// the database, and the number of differences that the oracle found. Without cuts, full disks and
// wire faults, which are drawn by event and so depend on timing; `averias` keeps the faults of the
// machines. `entero` puts the frames and the rows themselves before it.
QString trafico(quint64 semilla, bool averias, bool entero);

}  // namespace tarvo::noches
