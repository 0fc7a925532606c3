// One night of the whole engine on the virtual clock, in a process of its own.
#pragma once

namespace tarvo::banco {

// Runs it in this process and prints "cpu-seconds peak-KiB": the cost of the run itself without the
// making of the shop, and the most memory that the process ever held. The exit status.
int noche(int grupos);
// The most memory that this process ever held.
long picoKiB();

}  // namespace tarvo::banco
