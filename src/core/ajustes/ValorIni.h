// How the values of TARVO.INI are read and written. Every reader returns false for a value that it
// doesn't understand whole. Of a number with something after it the number counts; any other such
// value, and a list with a single bad part, changes nothing.
#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo::ini {

// A whole number within the limits. Outside them the old value stays: an absurdly long wait, or one
// that is over before it begins, is a typing error.
bool leerSiCabe(QStringView v, Limites limites, int& campo);
template <Limites kLimites>
bool leerLimitado(QStringView v, int& campo) {
  return leerSiCabe(v, kLimites, campo);
}
inline constexpr Limites kDe16{-32768, 32767};
inline constexpr Limites kPositivo{1, std::numeric_limits<int>::max()};
bool leer16(QStringView v, int& campo);
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

// The parts of a list, trimmed.
std::vector<QStringView> partes(QStringView lista, QChar separador);
// Nothing for a text that isn't a whole number within the limits.
std::optional<int> numeroEntre(QStringView parte, Limites limites);

// Two numbers separated by "|".
bool leerParEntre(QStringView v, Limites limites, std::array<int, 2>& campo);
template <Limites kLimites>
bool leerPar(QStringView v, std::array<int, 2>& campo) {
  return leerParEntre(v, kLimites, campo);
}
QString verPar(const std::array<int, 2>& campo);

}  // namespace tarvo::ini
