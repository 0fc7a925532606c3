#include "core/dao/Lexico.h"

namespace tarvo::dao {

namespace {

class Cortador {
 public:
  explicit Cortador(QStringView sql) : s_(sql) {}

  Resultado<std::vector<Elemento>> cortar() {
    while (saltarBlancos()) TARVO_INTENTAR(uno());
    return std::move(elementos_);
  }

 private:
  using Clase = Elemento::Clase;

  QChar mirar(qsizetype n = 0) const { return i_ + n < s_.size() ? s_[i_ + n] : QChar(); }
  static bool esLetra(QChar c) { return c.isLetter() || c == u'_'; }
  static bool esCifra(QChar c) { return c >= u'0' && c <= u'9'; }

  bool saltarBlancos() {
    for (; i_ < s_.size(); ++i_) {
      if (mirar() == u'-' && mirar(1) == u'-') {
        while (i_ < s_.size() && mirar() != u'\n') ++i_;
      }
      if (i_ < s_.size() && !mirar().isSpace()) return true;
    }
    return false;
  }

  Resultado<> uno() {
    const QChar c = mirar();
    if (esLetra(c)) return palabra();
    if (esCifra(c) || (c == u'.' && esCifra(mirar(1)))) return numero();
    switch (c.unicode()) {
      case u'[':
        return entre(Clase::Nombre, u']', false);
      case u'\'':
        return entre(Clase::Cadena, u'\'', true);
      case u'"':
        return entre(Clase::Cadena, u'"', true);
      case u'#':
        return entre(Clase::Fecha, u'#', false);
      case u'?':
        return anadir(Clase::Parametro, 1);
      default:
        return signo();
    }
  }

  Resultado<> anadir(Clase clase, qsizetype largo) {
    const QString texto = s_.mid(i_, largo).toString();
    const bool conMinusculas = clase == Clase::Palabra || clase == Clase::Signo;
    elementos_.push_back({clase, texto, conMinusculas ? texto.toLower() : QString()});
    i_ += largo;
    return {};
  }

  Resultado<> palabra() {
    qsizetype n = 1;
    while (esLetra(mirar(n)) || mirar(n).isDigit()) ++n;
    return anadir(Clase::Palabra, n);
  }

  Resultado<> numero() {
    qsizetype n = 0;
    while (esCifra(mirar(n)) || mirar(n) == u'.') ++n;
    if (mirar(n).toLower() == u'e') {
      const qsizetype e = mirar(n + 1) == u'-' || mirar(n + 1) == u'+' ? n + 2 : n + 1;
      if (esCifra(mirar(e))) {
        n = e;
        while (esCifra(mirar(n))) ++n;
      }
    }
    return anadir(Clase::Numero, n);
  }

  // The text between two marks; a doubled closing mark stands for one.
  Resultado<> entre(Clase clase, QChar cierre, bool doblado) {
    const qsizetype inicio = i_++;
    QString texto;
    for (; i_ < s_.size(); ++i_) {
      if (mirar() != cierre) {
        texto += mirar();
      } else if (doblado && mirar(1) == cierre) {
        texto += cierre;
        ++i_;
      } else {
        ++i_;
        elementos_.push_back({clase, texto, {}});
        return {};
      }
    }
    return fallo(Fallo::Formato,
                 QStringLiteral("Falta el cierre de «%1» en la consulta.").arg(s_.mid(inicio, 20)));
  }

  Resultado<> signo() {
    static constexpr QStringView kDobles[] = {u"<>", u"<=", u">="};
    for (const QStringView doble : kDobles)
      if (s_.mid(i_).startsWith(doble)) return anadir(Clase::Signo, 2);
    if (QStringView(u"()=<>+-*/\\&,;.").contains(mirar())) return anadir(Clase::Signo, 1);
    return fallo(
        Fallo::Formato,
        QStringLiteral("La consulta tiene un signo que no se entiende: «%1».").arg(mirar()));
  }

  QStringView s_;
  qsizetype i_ = 0;
  std::vector<Elemento> elementos_;
};

}  // namespace

Resultado<std::vector<Elemento>> cortar(QStringView sql) {
  return Cortador(sql).cortar();
}

}  // namespace tarvo::dao
