// How the values of TARVO.INI are read and written. What reads takes as much of a value as it can,
// and gives false where that isn't all.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo::ini {

// A whole number, held within the limits.
bool leerEntre(QStringView v, Limites limites, int& campo);
bool leer16(QStringView v, int& campo);
bool leer32(QStringView v, int& campo);
// Outside the limits what was there stays: a wait that nobody would live to see, or that is over
// before it begins, is a slip.
bool leerSiCabe(QStringView v, Limites limites, int& campo);
template <Limites kLimites>
bool leerLimitado(QStringView v, int& campo) {
  return leerSiCabe(v, kLimites, campo);
}
QString verEntero(int numero);

bool leerReal(QStringView v, float& campo);

// "Sí" or "No", in another language "Yes" or "No"; both are read, and numbers too.
bool leerLogico(QStringView v, bool& campo);
QString verLogico(bool b, Idioma idioma);

// A date or a time that can't be read leaves what was there.
bool leerFecha(QStringView v, Fecha& campo);
QString verFecha(Fecha fecha);
bool leerHora(QStringView v, Fecha& campo);
QString verHora(Fecha hora);  // hh:mm

bool leerTexto(const QString& v, QString& campo);
bool leerMayusculas(const QString& v, QString& campo);
QString verTexto(const QString& texto);

// Two numbers parted by "|".
bool leerPar(QStringView v, std::array<int, 2>& campo);
QString verPar(const std::array<int, 2>& campo);

// The n-th part of a list, empty when there are fewer.
QStringView parte(QStringView lista, QChar separador, qsizetype n);

}  // namespace tarvo::ini
