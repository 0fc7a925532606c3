#include "articles/Busqueda.h"

#include <algorithm>

#include "core/dao/Orden.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

// What is a sign of a pattern counts as itself.
QString patron(QStringView palabra) {
  QString p;
  for (const QChar c : palabra)
    p += QStringView(u"*?#[").contains(c) ? u'[' + QString(c) + u']' : QString(c);
  return u'*' + p + u'*';
}

}  // namespace

Condicion condicionBusqueda(const QString& texto) {
  Condicion c;
  for (const QString& palabra : texto.simplified().split(u' ', Qt::SkipEmptyParts)) {
    const bool cifras = std::ranges::all_of(palabra, [](QChar x) { return x.isDigit(); });
    QString una = u"NOMPLU like ? or CodBarExt like ?"_s;
    if (cifras)
      una +=
          u" or format(CODPLU,'0000000') like ? or (CodBarExt is null and PFX_BAR & format(CODPLU,'000000') like ?)"_s;
    c.sql += (c.sql.isEmpty() ? u"("_s : u" and ("_s) + una + u')';
    c.valores.insert(c.valores.end(), cifras ? 4 : 2, patron(palabra));
  }
  return c;
}

}  // namespace tarvo::articles
