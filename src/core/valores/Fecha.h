// A moment or a day as the database keeps it: days since 30 December 1899, with the time of day as
// the fraction. Nothing else in the program does arithmetic on dates. Limits of periods are
// compared for equality, so there is only one way to compute a moment: whole days plus seconds /
// 86400.0.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTime>
#include <compare>
#include <optional>

namespace tarvo {

class Fecha {
 public:
  // One second before midnight, the end of every calendar period.
  static constexpr double kUltimoSegundo = 0.999988425925926;

  constexpr Fecha() = default;
  static constexpr Fecha deDias(double dias) { return Fecha(dias); }
  static Fecha de(QDate dia, QTime hora = QTime(0, 0));
  static Fecha de(const QDateTime& momento);
  // "dd/mm/yyyy" with an optional "hh:nn[:ss]" after a blank; nothing if it is no date.
  static std::optional<Fecha> leer(QStringView texto);
  // The same, also with dashes, and then the year may come first.
  static std::optional<Fecha> leerConGuiones(QStringView texto);
  // As `leer`; "dd/mm" is the next such day, from `hoy` on.
  static std::optional<Fecha> leerProxima(QStringView texto, Fecha hoy);
  // A time of day alone, "hh:nn[:ss]", as a fraction; nothing if it is no time.
  static std::optional<Fecha> leerHora(QStringView texto);

  constexpr double dias() const { return dias_; }
  Fecha dia() const;    // the date part, 00:00:00
  double hora() const;  // the time part, 0 up to 1
  QDate qdate() const;
  QTime qtime() const;          // rounded to whole seconds
  QDateTime qdatetime() const;  // local time without a zone
  int diaSemana() const;        // 1 Monday to 7 Sunday

  QString corta() const;       // "dd/mm/yyyy"
  QString horaLarga() const;   // "hh:nn:ss"
  QString general() const;     // "dd/mm/yyyy hh:nn:ss", as traces show a moment
  QString literalSql() const;  // "#m/d/yyyy h:nn:ss#"

  constexpr Fecha operator+(double dias) const { return Fecha(dias_ + dias); }
  constexpr Fecha operator-(double dias) const { return Fecha(dias_ - dias); }
  constexpr double operator-(Fecha otra) const { return dias_ - otra.dias_; }
  constexpr auto operator<=>(const Fecha&) const = default;

 private:
  explicit constexpr Fecha(double dias) : dias_(dias) {}
  double dias_ = 0;
};

}  // namespace tarvo
