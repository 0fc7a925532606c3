// What the code of a frame means to a person.
#pragma once

namespace tarvo::comm {

// The number of its text; 0 for a code that has no name.
int nombreTrama(bool nodal, int codigo);

}  // namespace tarvo::comm
