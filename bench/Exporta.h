// An export in a process of its own.
#pragma once

namespace tarvo::banco {

// Exports a day of 400,000 rows in this process, to a file of so many MiB already or to a new one,
// and prints the most memory that it ever held, in KiB. The exit status.
int exporta(int mib);

}  // namespace tarvo::banco
