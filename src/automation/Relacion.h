// What a run did, group by group, for the end of its trace.
#pragma once

#include <QStringList>

#include "automation/Automat.h"

namespace tarvo::automation {

// A line a group (what was read, memorised and zeroed, what was not done), and a line for each file
// that was exported to. Nothing for a run that asked nothing of any group and exported nothing.
Resultado<QStringList> relacionDe(const Taller& taller, qint64 ejecucion);

}  // namespace tarvo::automation
