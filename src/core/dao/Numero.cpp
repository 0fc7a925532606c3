#include "core/dao/Numero.h"

#include <QLocale>
#include <cmath>

namespace tarvo::dao {

namespace {

bool esCifra(QChar c) {
  return c >= u'0' && c <= u'9';
}

qsizetype saltarCifras(QStringView s, qsizetype i) {
  while (i < s.size() && esCifra(s[i])) ++i;
  return i;
}

// The longest numeric prefix: sign, digits, point, digits, exponent.
QStringView prefijoNumerico(QStringView s) {
  qsizetype i = !s.isEmpty() && (s[0] == u'-' || s[0] == u'+') ? 1 : 0;
  const qsizetype inicio = i;
  i = saltarCifras(s, i);
  qsizetype cifras = i - inicio;
  if (i < s.size() && s[i] == u'.') {
    const qsizetype fin = saltarCifras(s, i + 1);
    cifras += fin - i - 1;
    i = fin;
  }
  if (cifras == 0) return {};
  if (i < s.size() && s[i].toLower() == u'e') {
    qsizetype e = i + 1;
    if (e < s.size() && (s[e] == u'-' || s[e] == u'+')) ++e;
    if (const qsizetype fin = saltarCifras(s, e); fin > e) i = fin;
  }
  return s.left(i);
}

}  // namespace

double realDeTexto(QStringView texto) {
  const QStringView numero = prefijoNumerico(texto.trimmed());
  return numero.isEmpty() ? 0 : numero.toDouble();
}

qint64 enteroDeTexto(QStringView texto) {
  const QStringView numero = prefijoNumerico(texto.trimmed());
  bool ok = false;
  const qint64 n = numero.toLongLong(&ok);
  return ok ? n : enteroDeReal(realDeTexto(texto));
}

qint64 enteroDeReal(double x) {
  if (std::isnan(x)) return 0;
  if (x >= 0x1p63) return std::numeric_limits<qint64>::max();
  if (x <= -0x1p63) return std::numeric_limits<qint64>::min();
  return std::llrint(x);
}

QString textoDeReal(double x) {
  if (x == std::trunc(x) && std::abs(x) < 1e15) return QString::number(static_cast<qint64>(x));
  return QString::number(x, 'g', QLocale::FloatingPointShortest);
}

}  // namespace tarvo::dao
