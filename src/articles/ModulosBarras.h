// The bars of a code: of a label, of a picture of one.
#pragma once

#include <QString>
#include <vector>

namespace tarvo::articles {

// Its modules from left to right, true for a black one: EAN8 and EAN13 by their length, any other
// text as Code 128. Empty if the text can't be drawn.
std::vector<bool> modulosBarras(const QString& codigo);

}  // namespace tarvo::articles
