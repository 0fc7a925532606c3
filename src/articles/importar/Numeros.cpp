#include "articles/importar/Numeros.h"

#include <QList>
#include <algorithm>

namespace tarvo::importar {

namespace {

constexpr qsizetype kLargo = 30;

// Without blanks, currency or percent signs at either end.
QStringView limpio(QStringView t) {
  const auto sobra = [](QChar c) { return c.isSpace() || c == u'€' || c == u'$' || c == u'%'; };
  while (!t.isEmpty() && sobra(t.front())) t = t.sliced(1);
  while (!t.isEmpty() && sobra(t.back())) t.chop(1);
  return t;
}

bool soloCifras(QStringView t) {
  return std::ranges::all_of(t, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// Digits, or groups of three after a first group of one to three.
std::optional<QString> parteEntera(QStringView t, QChar millar) {
  const auto grupos = t.split(millar);
  for (qsizetype i = 0; i < grupos.size(); ++i) {
    if (!soloCifras(grupos[i])) return std::nullopt;
    if (grupos.size() == 1) continue;
    if (i == 0 ? grupos[i].isEmpty() || grupos[i].size() > 3 : grupos[i].size() != 3)
      return std::nullopt;
  }
  return t.toString().remove(millar);
}

}  // namespace

std::optional<Signo> signoDe(QStringView texto) {
  QStringView t = limpio(texto);
  if (t.startsWith(u'-')) t = t.sliced(1);
  const qsizetype comas = t.count(u','), puntos = t.count(u'.');
  if (comas + puntos == 0 || t.size() > kLargo) return std::nullopt;
  if (!std::ranges::all_of(
          t, [](QChar c) { return c == u',' || c == u'.' || (c >= u'0' && c <= u'9'); }))
    return std::nullopt;
  if (comas > 0 && puntos > 0)
    return t.lastIndexOf(u',') > t.lastIndexOf(u'.') ? Signo::Coma : Signo::Punto;
  if (comas > 1) return Signo::Punto;
  if (puntos > 1) return Signo::Coma;
  const qsizetype donde = comas > 0 ? t.indexOf(u',') : t.indexOf(u'.');
  const QStringView entera = t.first(donde);
  const bool podriaPartir =
      t.size() - donde == 4 && !entera.isEmpty() && entera.size() <= 3 && !entera.startsWith(u'0');
  if (podriaPartir) return std::nullopt;
  return comas > 0 ? Signo::Coma : Signo::Punto;
}

void Escrutinio::contar(QStringView texto) {
  const auto signo = signoDe(texto);
  if (signo) ++(*signo == Signo::Coma ? coma_ : punto_);
}

std::optional<QString> leerDecimal(QStringView texto, Signo signo) {
  QStringView t = limpio(texto);
  if (t.size() > kLargo) return std::nullopt;
  const bool negativo = t.startsWith(u'-');
  if (negativo || t.startsWith(u'+')) t = t.sliced(1);
  const QChar decimal = signo == Signo::Coma ? u',' : u'.';
  const QChar millar = signo == Signo::Coma ? u'.' : u',';
  const qsizetype donde = t.indexOf(decimal);
  const QStringView resto = donde < 0 ? QStringView() : t.sliced(donde + 1);
  const auto entera = parteEntera(donde < 0 ? t : t.first(donde), millar);
  if (!entera || !soloCifras(resto) || (entera->isEmpty() && resto.isEmpty())) return std::nullopt;
  QString salida = negativo ? QStringLiteral("-") : QString();
  salida += entera->isEmpty() ? QStringLiteral("0") : *entera;
  if (!resto.isEmpty()) salida.append(u'.').append(resto);
  return salida;
}

std::optional<qint64> leerEntero(QStringView texto) {
  QStringView t = texto.trimmed();
  if (const qsizetype donde = t.indexOf(u','); donde > 0) {
    const QStringView resto = t.sliced(donde + 1);
    if (!std::ranges::all_of(resto, [](QChar c) { return c == u'0'; })) return std::nullopt;
    t = t.first(donde);
  }
  if (t.isEmpty() || t.size() > 18 || !soloCifras(t)) return std::nullopt;
  return t.toLongLong();
}

}  // namespace tarvo::importar
