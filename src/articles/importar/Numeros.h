// Numbers as people write them in tables: which sign is the decimal one is found out.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tarvo::importar {

enum class Signo { Coma, Punto };

// What one text says of the decimal sign; nothing when it could be either ("1.500") or is no
// number.
std::optional<Signo> signoDe(QStringView texto);
// What most of them say; Coma when none says anything.
class Escrutinio {
 public:
  void contar(QStringView texto);
  Signo signo() const { return punto_ > coma_ ? Signo::Punto : Signo::Coma; }

 private:
  qint64 coma_ = 0, punto_ = 0;
};

// "-1234.5" of a number with or without parts of thousands, a "€" or "%" round it; nothing for
// anything else.
std::optional<QString> leerDecimal(QStringView texto, Signo signo);
// A whole number without parts; "12,0" is one too.
std::optional<qint64> leerEntero(QStringView texto);

}  // namespace tarvo::importar
