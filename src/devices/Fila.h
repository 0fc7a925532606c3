// Reading and writing a row by the names of its columns, where a Null or a missing column changes
// nothing.
#pragma once

#include <type_traits>

#include "core/dao/Recordset.h"
#include "core/valores/Tipos.h"

namespace tarvo::devices {

inline QString conNumero(const char16_t* prefijo, int n, const char16_t* sufijo = u"") {
  return QString::fromUtf16(prefijo) + QString::number(n).rightJustified(2, u'0') +
         QString::fromUtf16(sufijo);
}

// False if the table has no such column.
template <class T>
bool leerColumna(const dao::Recordset& fila, QStringView nombre, T& campo) {
  const int c = fila.columna(nombre);
  if (c < 0) return false;
  if (fila.nulo(c)) return true;
  if constexpr (std::is_same_v<T, QString>)
    campo = fila.texto(c);
  else if constexpr (std::is_same_v<T, bool>)
    campo = fila.logico(c);
  else
    campo = static_cast<T>(fila.entero(c));
  return true;
}
// Nothing for a number that stands for no value.
template <TipoNumerado T>
bool leerColumna(const dao::Recordset& fila, QStringView nombre, std::optional<T>& campo) {
  const int c = fila.columna(nombre);
  if (c >= 0 && !fila.nulo(c)) campo = deNumero<T>(fila.entero(c));
  return c >= 0;
}

inline bool ponerColumna(dao::Recordset& fila, QStringView nombre, const dao::Valor& valor) {
  const int c = fila.columna(nombre);
  if (c >= 0) fila.poner(c, valor);
  return c >= 0;
}

}  // namespace tarvo::devices
