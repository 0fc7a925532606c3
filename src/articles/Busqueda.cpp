#include "articles/Busqueda.h"

#include <algorithm>

#include "core/dao/Orden.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

// Pattern characters count as themselves.
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
    // Digits have neither accents nor case: the store's own search is quicker for them.
    const bool cifras =
        std::ranges::all_of(palabra, [](QChar x) { return x >= u'0' && x <= u'9'; });
    // Leading zeros belong to the displayed code; without them the number itself will do.
    const QString codigo = palabra.startsWith(u'0') ? u"format(CODPLU,'0000000')"_s : u"CODPLU"_s;
    const QString una =
        cifras
            ? u"instr(NOMPLU,?)>0 or instr("_s + codigo +
                  u",?)>0 or instr(CodBarExt,?)>0 or (CodBarExt is null and instr(PFX_BAR & format(CODPLU,'000000'),?)>0)"_s
            : u"NOMPLU like ? or CodBarExt like ?"_s;
    c.sql += (c.sql.isEmpty() ? u"("_s : u" and ("_s) + una + u')';
    c.valores.insert(c.valores.end(), cifras ? 4 : 2,
                     cifras ? dao::Valor(palabra) : dao::Valor(patron(palabra)));
  }
  return c;
}

}  // namespace tarvo::articles
