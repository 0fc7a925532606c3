#include "core/dao/Valor.h"

#include <cmath>

#include "core/dao/Numero.h"

namespace tarvo::dao {

qint64 Valor::entero() const {
  if (const auto* n = std::get_if<qint64>(&v_)) return *n;
  if (const auto* x = std::get_if<double>(&v_)) return enteroDeReal(*x);
  if (const auto* s = std::get_if<QString>(&v_)) return enteroDeTexto(*s);
  return 0;
}

double Valor::real() const {
  if (const auto* n = std::get_if<qint64>(&v_)) return static_cast<double>(*n);
  if (const auto* x = std::get_if<double>(&v_)) return *x;
  if (const auto* s = std::get_if<QString>(&v_)) return realDeTexto(*s);
  return 0;
}

QString Valor::texto() const {
  if (const auto* n = std::get_if<qint64>(&v_)) return QString::number(*n);
  if (const auto* x = std::get_if<double>(&v_)) return textoDeReal(*x);
  if (const auto* s = std::get_if<QString>(&v_)) return *s;
  return {};
}

}  // namespace tarvo::dao
