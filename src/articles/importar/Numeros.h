// Numbers as people write them in tables: the decimal sign is detected.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tarvo::importar {

enum class Signo { Coma, Punto };

// The decimal sign shown by one text; nothing when it could be either ("1.500") or is no number.
std::optional<Signo> signoDe(QStringView texto);
// The sign of most of them; Coma when none shows one.
class Escrutinio {
 public:
  void contar(QStringView texto);
  Signo signo() const { return punto_ > coma_ ? Signo::Punto : Signo::Coma; }

 private:
  qint64 coma_ = 0, punto_ = 0;
};

// "-1234.5" from a number with or without thousands separators, with or without "€" or "%"; nothing
// for anything else.
std::optional<QString> leerDecimal(QStringView texto, Signo signo);
// An integer; "12,0" counts as one.
std::optional<qint64> leerEntero(QStringView texto);

}  // namespace tarvo::importar
