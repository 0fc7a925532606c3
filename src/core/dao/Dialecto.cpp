#include "core/dao/Dialecto.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <array>

#include "core/dao/Lexico.h"
#include "core/valores/Fecha.h"

namespace tarvo::dao {

namespace {

using namespace Qt::StringLiterals;
using Clase = Elemento::Clase;
using Texto = Resultado<QString>;

constexpr int kHondura = 100;          // parentheses within parentheses
constexpr qsizetype kLargo = 200'000;  // of a translated expression

std::unexpected<Error> sinTraduccion(QStringView palabra) {
  return fallo(Fallo::Formato,
               QStringLiteral("La base de datos no entiende «%1» en una consulta.").arg(palabra));
}

const QSet<QString>& fronteras() {
  static const QSet<QString> palabras{
      u"select"_s, u"all"_s,     u"distinct"_s, u"from"_s,    u"where"_s, u"and"_s,    u"or"_s,
      u"not"_s,    u"like"_s,    u"in"_s,       u"between"_s, u"is"_s,    u"as"_s,     u"on"_s,
      u"set"_s,    u"values"_s,  u"order"_s,    u"by"_s,      u"group"_s, u"having"_s, u"asc"_s,
      u"desc"_s,   u"union"_s,   u"when"_s,     u"then"_s,    u"else"_s,  u"case"_s,   u"end"_s,
      u"limit"_s,  u"join"_s,    u"left"_s,     u"inner"_s,   u"begin"_s, u"into"_s,   u"delete"_s,
      u"update"_s, u"default"_s, u"check"_s,    u","_s,       u";"_s,     u"="_s,      u"<"_s,
      u">"_s,      u"<="_s,      u">="_s,       u"<>"_s};
  return palabras;
}

// Functions that differ in name only.
const QHash<QString, QString>& otrosNombres() {
  static const QHash<QString, QString> nombres{{u"len"_s, u"length"_s},
                                               {u"mid"_s, u"substr"_s},
                                               {u"sgn"_s, u"sign"_s},
                                               {u"nz"_s, u"ifnull"_s}};
  return nombres;
}

QString entreComillas(QString texto, QChar comilla) {
  return comilla + texto.replace(comilla, QString(2, comilla)) + comilla;
}

Texto literalDeFecha(const QString& texto) {
  static const QRegularExpression forma(
      u"^\\s*(\\d{1,2})/(\\d{1,2})/(\\d{3,4})(?:\\s+(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?)?\\s*$"_s);
  const auto m = forma.match(texto);
  const auto n = [&](int i) { return m.captured(i).toInt(); };
  const QDate dia(n(3), n(1), n(2));
  const QTime hora(n(4), n(5), n(6));
  if (!m.hasMatch() || !dia.isValid() || !hora.isValid()) return sinTraduccion(u'#' + texto + u'#');
  return QString::number(Fecha::de(dia, hora).dias(), 'g', 17);
}

class Traductor {
 public:
  Traductor(std::vector<Elemento> elementos, const EsColumnaDeTexto& esTexto)
      : e_(std::move(elementos)), esTexto_(esTexto) {}

  Texto traducir() {
    TARVO_INTENTAR(emparejar());
    esVista_ = es(0, u"create") && (es(1, u"view") || es(2, u"view"));
    esEsquema_ = es(0, u"create") || es(0, u"alter") || es(0, u"drop");
    return rango(0, tamano());
  }

 private:
  struct Args {
    std::vector<QString> v;
  };

  int tamano() const { return static_cast<int>(e_.size()); }
  bool es(int i, QStringView palabra) const {
    return i >= 0 && i < tamano() && e_[i].minusc == palabra;
  }
  bool esFrontera(int i) const {
    // left(x, n) is a function, LEFT JOIN a boundary.
    if (es(i, u"left") && es(i + 1, u"(")) return false;
    return !e_[i].minusc.isEmpty() && fronteras().contains(e_[i].minusc);
  }

  Resultado<> emparejar() {
    pareja_.assign(e_.size(), -1);
    std::vector<int> abiertos;
    for (int i = 0; i < tamano(); ++i) {
      if (es(i, u"(")) abiertos.push_back(i);
      if (abiertos.size() > kHondura) return sinTraduccion(u"(");
      if (!es(i, u")")) continue;
      if (abiertos.empty()) return sinTraduccion(u")");
      pareja_[abiertos.back()] = i;
      abiertos.pop_back();
    }
    if (!abiertos.empty()) return sinTraduccion(u"(");
    return {};
  }

  // The elements from i up to fin: each operand between two boundaries by itself.
  Texto rango(int i, int fin) {
    QString salida;
    bool ordenando = false;
    while (i < fin) {
      if (esFrontera(i)) {
        if (es(i, u"by")) ordenando = es(i - 1, u"order");
        if (es(i, u"limit") || es(i, u"union") || es(i, u";")) ordenando = false;
        TARVO_INTENTAR(frontera(i, fin, salida));
        continue;
      }
      int j = i;
      while (j < fin && !esFrontera(j)) j = es(j, u"(") ? pareja_[j] + 1 : j + 1;
      auto t = operando(i, j);
      if (!t) return t;
      unir(salida, *t);
      if (ordenando && ordenaPorTexto(i, j)) unir(salida, u"COLLATE tarvo_orden"_s);
      i = j;
      if (salida.size() > kLargo) return sinTraduccion(e_[i < tamano() ? i : i - 1].texto);
    }
    return salida;
  }

  // A boundary word or sign, and the Jet words that follow some of them.
  Resultado<> frontera(int& i, int fin, QString& salida) {
    unir(salida, e_[i].texto);
    const bool seleccion = es(i, u"select");
    const bool borrado = es(i, u"delete");
    ++i;
    if (seleccion && i < fin) {
      if (es(i, u"distinctrow")) ++i;
      if (es(i, u"top")) return sinTraduccion(e_[i].texto);
    }
    if (borrado) {
      if (es(i, u"all") || es(i, u"distinctrow")) ++i;
      if (es(i, u"*")) ++i;
    }
    return {};
  }

  // A plain column, qualified or not, that holds text.
  bool ordenaPorTexto(int i, int fin) const {
    if (esVista_ || esEsquema_ || !esTexto_ || fin <= i) return false;
    const bool solo = fin - i == 1;
    const bool calificado = fin - i == 3 && es(i + 1, u".");
    const Elemento& ultimo = e_[fin - 1];
    if (!(solo || calificado) || (ultimo.clase != Clase::Palabra && ultimo.clase != Clase::Nombre))
      return false;
    return esTexto_(ultimo.texto.toLower());
  }

  // An operand; if joined by &, it becomes a text in which Null counts as empty.
  Texto operando(int i, int fin) {
    QString salida;
    int inicio = i;
    bool unido = false;
    for (int j = i; j <= fin; ++j) {
      if (j < fin && !es(j, u"&")) {
        if (es(j, u"(")) j = pareja_[j];
        continue;
      }
      if (j == fin && !unido) return piezas(i, fin);
      if (j == inicio) return sinTraduccion(u"&");
      auto t = piezas(inicio, j);
      if (!t) return t;
      salida += (unido ? u"||ifnull("_s : u"ifnull("_s) + *t + u",'')"_s;
      unido = true;
      inicio = j + 1;
    }
    return u'(' + salida + u')';
  }

  Texto piezas(int i, int fin) {
    QString salida;
    while (i < fin) {
      auto t = pieza(i);
      if (!t) return t;
      unir(salida, *t);
    }
    return salida;
  }

  // One element, or a group or function with its parentheses; moves i past it.
  Texto pieza(int& i) {
    const Elemento& e = e_[i];
    if (es(i, u"(")) return grupo(i, QString());
    const bool llamada = e.clase == Clase::Palabra && es(i + 1, u"(") && !es(i - 1, u".");
    if (llamada) return funcion(i);
    ++i;
    switch (e.clase) {
      case Clase::Cadena:
        return entreComillas(e.texto, u'\'');
      case Clase::Nombre:
        return entreComillas(e.texto, u'"');
      case Clase::Fecha:
        return literalDeFecha(e.texto);
      case Clase::Palabra:
        return palabra(e, i);
      default:
        break;
    }
    if (e.minusc == u"/") return u"*1.0/"_s;
    if (e.minusc == u"\\") return u"/"_s;
    return e.texto;
  }

  Texto palabra(const Elemento& e, int siguiente) const {
    if (e.minusc == u"mod") return u"%"_s;
    if (e.minusc == u"cross" && !es(siguiente, u"join")) return entreComillas(e.texto, u'"');
    static const QSet<QString> ajenas{u"transform"_s, u"pivot"_s, u"parameters"_s, u"eqv"_s,
                                      u"xor"_s};
    if (ajenas.contains(e.minusc) && !es(siguiente, u".")) return sinTraduccion(e.texto);
    return e.texto;
  }

  Texto grupo(int& i, const QString& antes) {
    const int fin = pareja_[i];
    auto t = rango(i + 1, fin);
    if (!t) return t;
    i = fin + 1;
    return antes + u'(' + *t + u')';
  }

  Resultado<Args> argumentos(int& i) {
    const int fin = pareja_[i];
    Args a;
    int inicio = i + 1;
    for (int j = inicio; j <= fin; ++j) {
      if (j < fin && !es(j, u",")) {
        if (es(j, u"(")) j = pareja_[j];
        continue;
      }
      if (j == inicio) break;
      TARVO_TOMAR(auto t, rango(inicio, j));
      a.v.push_back(t);
      inicio = j + 1;
    }
    i = fin + 1;
    return a;
  }

  Texto funcion(int& i) {
    using Forma = Texto (Traductor::*)(const QString&, const Args&) const;
    static const QHash<QString, Forma> formas{
        {u"isnull"_s, &Traductor::esNulo},    {u"switch"_s, &Traductor::segun},
        {u"int"_s, &Traductor::suelo},        {u"fix"_s, &Traductor::truncado},
        {u"val"_s, &Traductor::valor},        {u"format"_s, &Traductor::formato},
        {u"left"_s, &Traductor::izquierda},   {u"right"_s, &Traductor::derecha},
        {u"ucase"_s, &Traductor::mayusculas}, {u"lcase"_s, &Traductor::minusculas}};
    const Elemento& e = e_[i];
    const auto forma = formas.constFind(e.minusc);
    if (forma == formas.constEnd() || (esEsquema_ && !esVista_)) {
      const QString nombre =
          e.minusc == u"cross" ? u"\"Cross\""_s : otrosNombres().value(e.minusc, e.texto);
      ++i;
      // A keyword or table name keeps the blank before its parenthesis.
      return grupo(i, nombre == e.texto ? nombre + u' ' : nombre);
    }
    ++i;
    TARVO_TOMAR(auto a, argumentos(i));
    auto t = (this->**forma)(e.texto, a);
    if (t && t->size() > kLargo) return sinTraduccion(e.texto);
    return t;
  }

  Texto esNulo(const QString& f, const Args& a) const {
    if (a.v.size() != 1) return sinTraduccion(f);
    return u"(("_s + a.v[0] + u") IS NULL)"_s;
  }
  Texto segun(const QString& f, const Args& a) const {
    if (a.v.empty() || a.v.size() % 2 != 0) return sinTraduccion(f);
    QString s = u"CASE"_s;
    for (size_t i = 0; i < a.v.size(); i += 2) s += u" WHEN "_s + a.v[i] + u" THEN "_s + a.v[i + 1];
    return s + u" END"_s;
  }
  // Rounds down to a whole number, also below zero, with built-in functions only.
  Texto suelo(const QString& f, const Args& a) const {
    if (a.v.size() != 1) return sinTraduccion(f);
    const QString entero = u"CAST("_s + a.v[0] + u" AS INTEGER)"_s;
    return u'(' + entero + u"-(("_s + a.v[0] + u")<"_s + entero + u"))"_s;
  }
  Texto truncado(const QString& f, const Args& a) const {
    if (a.v.size() != 1) return sinTraduccion(f);
    return u"CAST("_s + a.v[0] + u" AS INTEGER)"_s;
  }
  Texto valor(const QString& f, const Args& a) const {
    if (a.v.size() != 1) return sinTraduccion(f);
    return u"CAST("_s + a.v[0] + u" AS REAL)"_s;
  }
  // Patterns of zeros, with or without decimals; Null gives an empty text.
  Texto formato(const QString& f, const Args& a) const {
    static const QRegularExpression ceros(u"^'(0+)(?:\\.(0+))?'$"_s);
    if (a.v.size() != 2) return sinTraduccion(f);
    const auto m = ceros.match(a.v[1]);
    if (!m.hasMatch()) return sinTraduccion(f + u'(' + a.v[1] + u')');
    const auto decimales = m.capturedLength(2);
    const auto ancho = m.capturedLength(1) + (decimales > 0 ? decimales + 1 : 0);
    const QString forma =
        u"'%0"_s + QString::number(ancho) + u'.' + QString::number(decimales) + u"f'"_s;
    return u"iif(("_s + a.v[0] + u") IS NULL,'',printf("_s + forma + u',' + a.v[0] + u"))"_s;
  }
  Texto izquierda(const QString& f, const Args& a) const {
    if (a.v.size() != 2) return sinTraduccion(f);
    return u"substr("_s + a.v[0] + u",1,"_s + a.v[1] + u')';
  }
  Texto derecha(const QString& f, const Args& a) const {
    if (a.v.size() != 2) return sinTraduccion(f);
    return u"substr("_s + a.v[0] + u",-("_s + a.v[1] + u"))"_s;
  }
  Texto mayusculas(const QString& f, const Args& a) const {
    return caja(f, a, u"upper"_s, u"tarvo_ucase"_s);
  }
  Texto minusculas(const QString& f, const Args& a) const {
    return caja(f, a, u"lower"_s, u"tarvo_lcase"_s);
  }
  Texto caja(const QString& f, const Args& a, const QString& propia, const QString& nuestra) const {
    if (a.v.size() != 1) return sinTraduccion(f);
    return (esVista_ ? propia : nuestra) + u'(' + a.v[0] + u')';
  }

  static void unir(QString& salida, const QString& pieza) {
    const bool pegado = salida.isEmpty() || salida.endsWith(u'.') || pieza == u"." || pieza == u",";
    if (!pegado) salida += u' ';
    salida += pieza;
  }

  std::vector<Elemento> e_;
  std::vector<int> pareja_;
  const EsColumnaDeTexto& esTexto_;
  bool esVista_ = false, esEsquema_ = false;
};

}  // namespace

Resultado<QString> traducirJet(QStringView sql, const EsColumnaDeTexto& esTexto) {
  TARVO_TOMAR(auto elementos, cortar(sql));
  if (elementos.empty()) return fallo(Fallo::Formato, QStringLiteral("La consulta está vacía."));
  return Traductor(std::move(elementos), esTexto).traducir();
}

std::vector<QString> partirGuion(QStringView guion) {
  std::vector<QString> partes;
  QString actual;
  for (const QStringView linea : guion.tokenize(u'\n')) {
    const QStringView limpia = linea.trimmed();
    if (limpia.startsWith(u"--")) continue;
    actual += linea.toString() + u'\n';
    if (!limpia.endsWith(u';')) continue;
    actual = actual.trimmed();
    actual.chop(1);
    if (!actual.trimmed().isEmpty()) partes.push_back(actual);
    actual.clear();
  }
  if (!actual.trimmed().isEmpty()) partes.push_back(actual.trimmed());
  return partes;
}

}  // namespace tarvo::dao
