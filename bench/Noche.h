// One night of the whole engine in a process of its own.
#pragma once

namespace tarvo::banco {

// On the virtual clock. Runs it in this process and prints "cpu-seconds peak-KiB": the cost of the
// run itself, without the creation of the shop, and the peak memory of the process. Returns the
// exit status.
int noche(int grupos);
// The peak memory of this process.
long picoKiB();
// On the real clock, over sockets on this computer: over a connector for each group, or over the
// four channels. Prints "seconds peak-KiB".
int nochePared(int grupos, int articulos, bool canales);

}  // namespace tarvo::banco
