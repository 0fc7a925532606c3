// The letters that each family of machines has.
#pragma once

#include <QString>

namespace tarvo::maquinas {

// An accent that stands behind its letter becomes part of it.
QString letrasCompuestas(const QString& texto);
// One character of such a text in the characters of a kind of machine.
char16_t letraDeBalanza(int tipo, char16_t caracter);
// The byte of what letraDeBalanza gave; -1 where the machine lacks it.
// Kinds 1 and 2 have seven bits, 3 and 4 Windows-1252.
int byteDeBalanza(int tipo, char16_t caracter);

}  // namespace tarvo::maquinas
