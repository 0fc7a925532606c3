// The syntax of the settings files: lines of key, "=" and value. Pure functions on texts.
#pragma once

#include <QString>
#include <QStringView>
#include <functional>

namespace tarvo::ini {

struct Linea {
  QString clave;    // in capitals, without its index
  int indice = -1;  // the number in brackets, -1 for none
  QString valor;
  QString entera;  // as it is in the file
};

// Hands every line that isn't blank to `recibe`, in order. A line without "=", or with anything but
// a number in its brackets, has no key.
void recorrer(QStringView texto, const std::function<void(const Linea&)>& recibe);

// The longest leading number of a text, 0 if there is none. The decimal mark is "." or ",".
double real(QStringView texto);
// The same for whole numbers, held within the limits.
int entero(QStringView texto, int minimo, int maximo);
// The text is a number from its first character to its last.
bool esReal(QStringView texto);
bool esEntero(QStringView texto);
// A value on one line: characters that would end the line become blanks.
QString enUnaLinea(QString valor);

}  // namespace tarvo::ini
