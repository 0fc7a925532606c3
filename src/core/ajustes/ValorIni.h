// How the values of TARVO.INI are read and written. Every reader takes what it can of a value, and
// returns false if that isn't all of it.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo::ini {

// A whole number, held within the limits.
bool leerEntre(QStringView v, Limites limites, int& campo);
bool leer16(QStringView v, int& campo);
bool leer32(QStringView v, int& campo);
// Outside the limits the old value stays: an absurdly long wait, or one that is over before it
// begins, is a typing error.
bool leerSiCabe(QStringView v, Limites limites, int& campo);
template <Limites kLimites>
bool leerLimitado(QStringView v, int& campo) {
  return leerSiCabe(v, kLimites, campo);
}
QString verEntero(int numero);

// A number that `vale` admits, or the one that is there; any other changes nothing.
bool leerRealSi(QStringView v, bool (*vale)(double), float& campo);

// "Sí" or "No", in another language "Yes" or "No"; both are read, and numbers too.
bool leerLogico(QStringView v, bool& campo);
QString verLogico(bool b, Idioma idioma);

// An unreadable date or time changes nothing.
bool leerFecha(QStringView v, Fecha& campo);
QString verFecha(Fecha fecha);
bool leerHora(QStringView v, Fecha& campo);
QString verHora(Fecha hora);  // hh:mm

bool leerTexto(const QString& v, QString& campo);
bool leerMayusculas(const QString& v, QString& campo);
QString verTexto(const QString& texto);

// Two numbers separated by "|".
bool leerPar(QStringView v, std::array<int, 2>& campo);
QString verPar(const std::array<int, 2>& campo);

// The n-th part of a list, empty when there are fewer.
QStringView parte(QStringView lista, QChar separador, qsizetype n);

}  // namespace tarvo::ini
