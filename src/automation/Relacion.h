// A run's results, group by group, for the end of its trace.
#pragma once

#include <QStringList>

#include "automation/Automat.h"

namespace tarvo::automation {

// A line per group (what was read, memorised and zeroed, and what was not done), and a line for
// each file exported to. Nothing for a run that asked nothing of any group and exported nothing.
Resultado<QStringList> relacionDe(const Taller& taller, qint64 ejecucion);

}  // namespace tarvo::automation
