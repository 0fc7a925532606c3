// An export to a file of a gigabyte, in a process of its own.
#pragma once

namespace tarvo::banco {

// Exports in this process and prints the most memory that it ever held, in KiB. The exit status.
int exporta();

}  // namespace tarvo::banco
