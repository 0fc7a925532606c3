// An export in a process of its own.
#pragma once

namespace tarvo::banco {

// Exports a day of 400,000 rows in this process, to a file that already has `mib` MiB or to a new
// one, and prints the peak memory in KiB. Returns the exit status.
int exporta(int mib);

}  // namespace tarvo::banco
