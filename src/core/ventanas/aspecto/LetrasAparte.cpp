#include "core/ventanas/aspecto/LetrasAparte.h"

#include <fontconfig/fontconfig.h>

namespace tarvo::ventanas {

// Of several threads that list at once, the first to end sets the list.
LetrasAparte::LetrasAparte() : listado_(std::async(std::launch::async, [] { FcInit(); })) {}

}  // namespace tarvo::ventanas
