// The program's output: results and trace lines on standard output, faults on standard error, both
// as UTF-8.
#pragma once

#include <QString>

namespace tarvo::app {

void decir(const QString& linea);
void avisar(const QString& linea);

}  // namespace tarvo::app
