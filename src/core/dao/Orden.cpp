#include "core/dao/Orden.h"

#include <optional>

namespace tarvo::dao {

using namespace Qt::StringLiterals;

namespace {

struct Letra {
  char16_t mayuscula, minuscula;
  const char* clave;
};

// "N~" sorts after every "N" followed by another letter or digit. Only the letters of Spanish and
// Catalan: each takes two levels of the expression, whose depth engines limit (about thirty).
constexpr Letra kLetras[] = {{u'Á', u'á', "A"}, {u'À', u'à', "A"}, {u'É', u'é', "E"},
                             {u'È', u'è', "E"}, {u'Í', u'í', "I"}, {u'Ï', u'ï', "I"},
                             {u'Ó', u'ó', "O"}, {u'Ò', u'ò', "O"}, {u'Ú', u'ú', "U"},
                             {u'Ü', u'ü', "U"}, {u'Ç', u'ç', "C"}, {u'Ñ', u'ñ', "N~"}};

const Letra* letraDe(char32_t c) {
  for (const Letra& l : kLetras)
    if (l.mayuscula == c || l.minuscula == c) return &l;
  return nullptr;
}

// Gives the key of a UTF-8 text byte by byte; -1 at its end.
class Lector {
 public:
  explicit Lector(QByteArrayView s) : p_(s.begin()), fin_(s.end()) {}

  int siguiente() {
    if (*resto_) return *resto_++;
    if (p_ == fin_) return -1;
    const auto c = static_cast<unsigned char>(*p_++);
    if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
    // Every letter of the table is two bytes long.
    if ((c & 0xE0) != 0xC0 || p_ == fin_) return c;
    const char32_t letra = (c & 0x1FU) << 6 | (static_cast<unsigned char>(*p_) & 0x3FU);
    const Letra* l = letraDe(letra);
    if (!l) return c;
    ++p_;
    resto_ = l->clave + 1;
    return l->clave[0];
  }

 private:
  const char* p_;
  const char* fin_;
  const char* resto_ = "";
};

// The single character for a letter in a pattern: its key without the mark, but Ñ as itself.
QChar plegar(QChar c) {
  if (c >= u'a' && c <= u'z') return QChar(c.unicode() - 32);
  const Letra* l = c.unicode() < 0x80 ? nullptr : letraDe(c.unicode());
  if (!l) return c;
  return l->mayuscula == u'Ñ' ? QChar(u'Ñ') : QChar(QLatin1Char(l->clave[0]));
}

// Reads the list after "[" and moves `patron` past its "]". Nothing if the list is not closed.
std::optional<bool> casaLista(QStringView& patron, QChar c) {
  qsizetype i = 0;
  const bool negada = patron.startsWith(u'!');
  if (negada) ++i;
  const qsizetype fin = patron.indexOf(u']', i + 1);
  if (fin < 0) return std::nullopt;
  bool dentro = false;
  for (; i < fin; ++i) {
    const QChar desde = plegar(patron[i]);
    if (i + 2 < fin && patron[i + 1] == u'-') {
      dentro = dentro || (desde <= c && c <= plegar(patron[i + 2]));
      i += 2;
    } else {
      dentro = dentro || desde == c;
    }
  }
  patron = patron.mid(fin + 1);
  return dentro != negada;
}

// Takes one element of the pattern, which is not "*", and reports whether it accepts the character.
bool casaUno(QStringView& patron, QChar texto) {
  const QChar p = patron[0];
  const QChar c = plegar(texto);
  patron = patron.mid(1);
  if (p == u'?') return true;
  if (p == u'#') return c >= u'0' && c <= u'9';
  if (p == u'[')
    if (const auto r = casaLista(patron, c)) return *r;
  return plegar(p) == c;
}

}  // namespace

QString claveOrden(QStringView nombre) {
  QString clave;
  clave.reserve(nombre.size());
  for (const QChar c : nombre) {
    if (c >= u'a' && c <= u'z') {
      clave += QChar(c.unicode() - 32);
    } else if (const Letra* l = c.unicode() < 0x80 ? nullptr : letraDe(c.unicode())) {
      clave += QLatin1String(l->clave);
    } else {
      clave += c;
    }
  }
  return clave;
}

QString expresionOrden(QStringView columna) {
  QString e = u"upper("_s + columna.toString() + u')';
  for (const Letra& l : kLetras)
    for (const char16_t c : {l.mayuscula, l.minuscula})
      e = u"replace("_s + e + u",'"_s + QChar(c) + u"','"_s + QLatin1String(l.clave) + u"')"_s;
  return e;
}

int compararOrden(QByteArrayView a, QByteArrayView b) {
  Lector la(a), lb(b);
  for (;;) {
    const int ca = la.siguiente();
    const int cb = lb.siguiente();
    if (ca != cb) return ca - cb;
    if (ca < 0) return 0;
  }
}

// Greedy, backtracking only to the last "*". Never more than length times length steps.
bool casaPatron(QStringView patron, QStringView texto) {
  QStringView trasAsterisco, textoAsterisco;
  bool hayAsterisco = false;
  while (!texto.isEmpty() || !patron.isEmpty()) {
    if (patron.startsWith(u'*')) {
      patron = patron.mid(1);
      trasAsterisco = patron;
      textoAsterisco = texto;
      hayAsterisco = true;
      continue;
    }
    if (!patron.isEmpty() && !texto.isEmpty() && casaUno(patron, texto[0])) {
      texto = texto.mid(1);
      continue;
    }
    if (!hayAsterisco || textoAsterisco.isEmpty()) return false;
    textoAsterisco = textoAsterisco.mid(1);
    texto = textoAsterisco;
    patron = trasAsterisco;
  }
  return true;
}

}  // namespace tarvo::dao
