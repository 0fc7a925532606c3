// The kit's windows and buttons for assistive tools, beyond what the toolkit provides itself.
#pragma once

namespace tarvo::ventanas {

// Windows have the role of a window, modal ones that of a dialog; a press of a button or of a
// menu's entry, requested by an assistive tool, returns at once, even if it opens a modal window.
// For the whole program; further calls change nothing.
void prepararAccesible();

}  // namespace tarvo::ventanas
