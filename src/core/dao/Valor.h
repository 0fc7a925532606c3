// One value of a column or a parameter: nothing (Null), a whole number, a real number or a text.
// A truth value is the whole number 1 or 0, a kind its number. A moment is its number of days.
#pragma once

#include <QString>
#include <variant>

#include "core/valores/Fecha.h"
#include "core/valores/Tipos.h"

namespace tarvo::dao {

class Valor {
 public:
  Valor() = default;
  Valor(std::nullptr_t) {}
  Valor(bool b) : v_(qint64{b}) {}
  Valor(int n) : v_(qint64{n}) {}
  Valor(qint64 n) : v_(n) {}
  Valor(long n) : v_(qint64{n}) {}
  template <TipoNumerado E>
  Valor(E e) : v_(qint64{numeroDe(e)}) {}
  Valor(double x) : v_(x) {}
  Valor(Fecha f) : v_(f.dias()) {}
  Valor(QString s) : v_(std::move(s)) {}
  Valor(const char16_t* s) : v_(QString::fromUtf16(s)) {}

  bool nulo() const { return std::holds_alternative<std::monostate>(v_); }
  bool esEntero() const { return std::holds_alternative<qint64>(v_); }
  bool esReal() const { return std::holds_alternative<double>(v_); }
  bool esTexto() const { return std::holds_alternative<QString>(v_); }

  // Lenient readings: Null is 0, false or empty; a text gives its leading number.
  qint64 entero() const;
  double real() const;
  bool logico() const { return esReal() ? real() != 0 : entero() != 0; }
  QString texto() const;
  Fecha fecha() const { return Fecha::deDias(real()); }

  bool operator==(const Valor&) const = default;

 private:
  std::variant<std::monostate, qint64, double, QString> v_;
};

}  // namespace tarvo::dao
