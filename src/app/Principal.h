// The program: reads the command line, does what it asks and gives the exit status.
#pragma once

namespace tarvo::app {

int principal(int argc, char** argv);

}  // namespace tarvo::app
