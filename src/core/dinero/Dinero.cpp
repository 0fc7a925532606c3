#include "core/dinero/Dinero.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace tarvo {

namespace {

constexpr std::array<int, 7> kPotencias{1, 10, 100, 1000, 10000, 100000, 1000000};

// The format of numbers in the language of this build.
struct Signos {
  QChar millar, decimal;
};
constexpr Signos kSinMillares{u'\0', u'.'};
Signos signosDe(Idioma idioma) {
  if (idioma == Idioma::UK) return {u',', u'.'};
  return {u'.', u','};
}

bool nativaEuro(const Ajustes& a) {
  return a.MonedaNativa != 0;
}

// A rate that was never set (0) counts as 1, so that no amount is divided by zero.
double cambio(const Ajustes& a) {
  return a.Euro > 0 ? static_cast<double>(a.Euro) : 1.0;
}

int potencia(int decimales) {
  return kPotencias[static_cast<size_t>(std::clamp(decimales, 0, 6))];
}

bool cifras(QStringView s) {
  return std::all_of(s.begin(), s.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// "1234", "1.234": digits, or groups of three after a first of one to three.
std::optional<QString> parteEntera(QStringView s, QChar millar) {
  const auto grupos = s.split(millar);
  for (qsizetype i = 0; i < grupos.size(); ++i) {
    if (!cifras(grupos[i])) return std::nullopt;
    if (grupos.size() > 1 &&
        (i == 0 ? grupos[i].isEmpty() || grupos[i].size() > 3 : grupos[i].size() != 3))
      return std::nullopt;
  }
  QString todo = s.toString();
  return todo.remove(millar);
}

// Where the decimal sign is; -1 without one. The keypad has one sign only: a single thousands
// separator that can't separate a group of three is the decimal sign. "1.5" is one and a half,
// "0.250" a quarter, "1.500" fifteen hundred.
qsizetype sitioDecimal(QStringView t, Signos s) {
  if (const qsizetype decimal = t.indexOf(s.decimal); decimal >= 0) return decimal;
  const qsizetype millar = t.indexOf(s.millar);
  if (millar < 0 || t.count(s.millar) > 1) return -1;
  const QStringView entera = t.left(millar);
  const qsizetype detras = t.size() - millar - 1;
  const bool agrupa =
      detras == 3 && !entera.isEmpty() && entera.size() <= 3 && !entera.startsWith(u'0');
  return agrupa || detras == 0 ? -1 : millar;
}

// A number as it is typed: its digits, without separators.
struct Escrito {
  bool negativo = false;
  QString entera, decimales;
  double valor() const {
    const double x = QStringLiteral("0%1.%2").arg(entera, decimales).toDouble();
    return negativo ? -x : x;
  }
};

// Nothing if the text is no number; a thousands separator between groups of other sizes makes it
// none.
std::optional<Escrito> escrito(const QString& texto, Signos s) {
  QStringView t = QStringView(texto).trimmed();
  const bool negativo = t.startsWith(u'-');
  if (negativo || t.startsWith(u'+')) t = t.mid(1).trimmed();
  const qsizetype coma = sitioDecimal(t, s);
  const QStringView resto = coma < 0 ? QStringView() : t.mid(coma + 1);
  const auto entera = parteEntera(coma < 0 ? t : t.left(coma), s.millar);
  if (!entera || !cifras(resto) || (entera->isEmpty() && resto.isEmpty())) return std::nullopt;
  return Escrito{negativo, *entera, resto.toString()};
}

std::optional<double> numero(const QString& texto, Signos s) {
  const auto e = escrito(texto, s);
  return e ? std::optional(e->valor()) : std::nullopt;
}

// More digits after the decimal sign than there is room for; zeros at the end don't count.
bool sobran(const QString& texto, Signos s, int decimales) {
  const auto e = escrito(texto, s);
  return e && e->decimales.size() > decimales &&
         std::ranges::any_of(e->decimales.mid(decimales), [](QChar c) { return c != u'0'; });
}

// The whole part; nothing if it doesn't fit.
std::optional<qint64> entero(double x, double limite) {
  x = std::floor(x);
  if (!std::isfinite(x) || std::abs(x) > limite) return std::nullopt;
  return static_cast<qint64>(x);
}

// `n` in units of 10^-decimales, with the separators.
QString conSignos(qint64 n, int decimales, Signos s) {
  QString t = QString::number(n < 0 ? 0 - static_cast<quint64>(n) : static_cast<quint64>(n));
  t = t.rightJustified(decimales + 1, u'0');
  const qsizetype enteras = t.size() - decimales;
  if (decimales > 0) t.insert(enteras, s.decimal);
  for (qsizetype i = enteras - 3; i > 0; i -= 3) t.insert(i, s.millar);
  return n < 0 ? u'-' + t : t;
}

std::optional<DosLecturas> dosLecturas(const QString& texto, Signos s, int decimales) {
  constexpr int kMilesimas = 3;
  if (decimales <= 0 || texto.count(s.millar) != 1) return std::nullopt;
  const auto e = escrito(texto, s);
  if (!e || !e->decimales.isEmpty() || texto.contains(s.decimal)) return std::nullopt;
  const QString signo = e->negativo ? QStringLiteral("-") : QString();
  const int caben = std::min(decimales, kMilesimas), quita = potencia(kMilesimas - caben);
  const qint64 n = (e->entera.toLongLong() + quita / 2) / quita;
  return DosLecturas{signo + e->entera, signo + conSignos(n, caben, s)};
}

// The value of its first 15 digits: 1.005 times 100 is 100.5, not a little less.
double comoSeLee(double x) {
  return QString::number(x, 'g', 15).toDouble();
}

// A value in units of 10^-decimales, rounded half away from zero as its 15 digits read.
qint64 redondeado(double x) {
  const double t = std::round(comoSeLee(x));
  if (std::isnan(t)) return 0;
  return std::abs(t) < 9.2e18 ? static_cast<qint64>(t)
                              : std::numeric_limits<qint64>::max() * (t < 0 ? -1 : 1);
}

}  // namespace

int DecimalesCantidad(int cada) {
  return cada == 0 || cada == 1 ? 3 : 0;
}

int DecimalesMoneda(const Ajustes& a, int moneda) {
  return moneda == 0 ? std::clamp(a.decimalesLocal, 0, 4) : 2;
}

qint64 pot10(const Ajustes& a) {
  return potencia(DecimalesMoneda(a, nativaEuro(a) ? 1 : 0));
}

double FactorMoneda(const Ajustes& a, int moneda) {
  const auto f = static_cast<double>(pot10(a));
  if ((moneda == 1) == nativaEuro(a)) return f;
  return moneda == 1 ? f * cambio(a) : f / cambio(a);
}

std::optional<qint64> LeerImporte(const Ajustes& a, const QString& texto, int moneda) {
  const auto x = numero(texto, signosDe(a.idioma));
  return x ? entero(comoSeLee(*x * FactorMoneda(a, moneda)) + 0.5, 9e18) : std::nullopt;
}

qint64 AImporte(const Ajustes& a, const QString& texto, int moneda) {
  return LeerImporte(a, texto, moneda).value_or(0);
}

bool SobranDecimales(const Ajustes& a, const QString& texto, int moneda) {
  return sobran(texto, signosDe(a.idioma), DecimalesMoneda(a, moneda));
}

QString VerImporte(const Ajustes& a, qint64 n, int moneda) {
  const Signos s = signosDe(a.idioma);
  const int decimales = DecimalesMoneda(a, moneda);
  if ((moneda == 1) == nativaEuro(a)) return conSignos(n, decimales, s);  // exact
  double x = moneda == 0 ? cambio(a) : 1.0;
  if (!nativaEuro(a)) x /= cambio(a);
  x /= static_cast<double>(pot10(a));
  return conSignos(redondeado(x * static_cast<double>(n) * potencia(decimales)), decimales, s);
}

QString VerCantidad(Idioma idioma, qint64 n, int cada) {
  return conSignos(n, DecimalesCantidad(cada), signosDe(idioma));
}

std::optional<qint64> LeerCantidad(Idioma idioma, const QString& texto, int cada) {
  constexpr double kLargo = std::numeric_limits<int>::max();  // quantities are 32-bit columns
  const auto x = numero(texto, signosDe(idioma));
  if (!x) return std::nullopt;
  return DecimalesCantidad(cada) > 0 ? entero(comoSeLee(1000 * *x) + 0.5, kLargo)
                                     : entero(*x, kLargo);
}

qint64 ACantidad(Idioma idioma, const QString& texto, int cada) {
  return LeerCantidad(idioma, texto, cada).value_or(0);
}

bool SobranDecimales(Idioma idioma, const QString& texto, int cada) {
  return sobran(texto, signosDe(idioma), DecimalesCantidad(cada));
}

std::optional<DosLecturas> LeidoDeDosModos(const Ajustes& a, const QString& texto, int moneda) {
  return dosLecturas(texto, signosDe(a.idioma), DecimalesMoneda(a, moneda));
}

std::optional<DosLecturas> LeidoDeDosModos(Idioma idioma, const QString& texto, int cada) {
  return dosLecturas(texto, signosDe(idioma), DecimalesCantidad(cada));
}

bool SobranCentesimas(const QString& texto) {
  return sobran(QString(texto).replace(u',', u'.'), kSinMillares, 2);
}

std::optional<int> LeerCentesimas(const QString& texto) {
  const auto x = numero(QString(texto).replace(u',', u'.'), kSinMillares);
  if (!x || SobranCentesimas(texto) || std::abs(*x) > 1e6) return std::nullopt;
  return static_cast<int>(std::lround(*x * 100));
}

std::optional<int> LeerPorcentaje(const QString& texto) {
  const QString dicho = texto.trimmed();
  const auto x = LeerCentesimas(dicho.endsWith(u'%') ? dicho.chopped(1) : dicho);
  return x && *x >= 0 ? x : std::nullopt;
}

}  // namespace tarvo
