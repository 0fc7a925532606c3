// What assistive tools hear of the kit's windows and buttons beyond what the toolkit says itself.
#pragma once

namespace tarvo::ventanas {

// Windows are windows, modal ones dialogs; a press asked for by such a tool is answered at once,
// also where it opens a modal window. For the whole program; more calls change nothing.
void prepararAccesible();

}  // namespace tarvo::ventanas
