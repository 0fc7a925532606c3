// The program with windows: the same command line, a QApplication, and the windows requested by it.
#pragma once

namespace tarvo::app {

int principalVentanas(int argc, char** argv);

}  // namespace tarvo::app
