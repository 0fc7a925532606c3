// The names of the frames for the user, by their codes.
#pragma once

namespace tarvo::comm {

// The number of its text; 0 if the code has no name.
int nombreTrama(bool nodal, int codigo);

}  // namespace tarvo::comm
