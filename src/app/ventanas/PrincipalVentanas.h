// The program with windows: the same command line, a QApplication, and the windows that it asks
// for.
#pragma once

namespace tarvo::app {

int principalVentanas(int argc, char** argv);

}  // namespace tarvo::app
