#include "articles/importar/Campos.h"

#include <QHash>

#include "articles/importar/TextosImportar.h"
#include "core/dao/Orden.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasConTitulos = 20;

// A heading for comparison: letters and digits, accents and case ignored.
QString pelado(const QString& titulo) {
  QString t;
  for (const QChar c : titulo) t += c.isLetterOrNumber() ? c : QChar(u' ');
  return dao::claveOrden(t.simplified());
}

// The names of a field, the displayed one first.
QStringList nombres(Campo campo, const Textos& textos) {
  if (!esPrecio(campo))
    return textos(kTxCampos + static_cast<int>(campo)).split(u'|', Qt::SkipEmptyParts);
  const int i = static_cast<int>(campo) - static_cast<int>(Campo::Precio);
  const int nivel = i / articles::kTarifas, tarifa = i % articles::kTarifas;
  // The first tarifa is 1 for people, 0 in column names.
  QStringList n = textos(kTxPreciosNivel + nivel, {tarifa + 1}).split(u'|', Qt::SkipEmptyParts);
  n << articles::columnaPrecio(nivel, tarifa);
  if (i == 0) n << textos(kTxPrecioSolo).split(u'|', Qt::SkipEmptyParts);
  return n;
}

using Candidatos = std::vector<Campo>;

class Diccionario {
 public:
  explicit Diccionario(const Textos& textos) {
    for (int i = 0; i < kCampos; ++i)
      for (const QString& n : nombres(static_cast<Campo>(i), textos))
        campos_[pelado(n)].push_back(static_cast<Campo>(i));
  }
  // The field named by the whole heading, or else by the longest name at its beginning.
  Candidatos buscar(QString titulo, bool entero) const {
    titulo = pelado(titulo);
    for (;;) {
      const auto hallado = campos_.constFind(titulo);
      if (hallado != campos_.constEnd()) return *hallado;
      const qsizetype corte = titulo.lastIndexOf(u' ');
      if (entero || corte < 0) return {};
      titulo.truncate(corte);
    }
  }

 private:
  QHash<QString, Candidatos> campos_;
};

// Unambiguous names first, so that "Artículo" is whatever "Código" leaves over.
Emparejado columnasDe(const Tabla& tabla, int fila, const Diccionario& d) {
  struct Vuelta {
    bool entero;
    size_t sentidos;
  };
  Emparejado salida(static_cast<size_t>(tabla.columnas()));
  for (const auto& [entero, sentidos] : {Vuelta{true, 1}, Vuelta{true, 2}, Vuelta{false, 2}})
    for (int c = 0; c < tabla.columnas(); ++c) {
      auto& suya = salida[static_cast<size_t>(c)];
      const Candidatos campos = d.buscar(tabla.celda(fila, c), entero);
      if (suya || campos.size() > sentidos) continue;
      for (const Campo campo : campos)
        if (!suya && std::ranges::find(salida, campo) == salida.end()) suya = campo;
    }
  return salida;
}

}  // namespace

bool esDecimal(Campo c) {
  switch (c) {
    case Campo::Minimo:
    case Campo::Hasta1:
    case Campo::Hasta2:
    case Campo::Descto:
    case Campo::StkMax:
    case Campo::StkMin:
    case Campo::Coste:
      return true;
    default:
      return esPrecio(c);
  }
}

QString titulo(Campo campo, const Textos& textos) {
  return nombres(campo, textos).value(0);
}

Titulos emparejar(const Tabla& tabla, const Textos& textos) {
  const Diccionario d(textos);
  Titulos mejor{-1, Emparejado(static_cast<size_t>(tabla.columnas()))};
  qsizetype suyos = 0;
  for (int f = 0; f < std::min(tabla.filas(), kFilasConTitulos); ++f) {
    Emparejado e = columnasDe(tabla, f, d);
    const auto n = std::ranges::count_if(e, [](const auto& c) { return c.has_value(); });
    if (n <= suyos) continue;
    suyos = n;
    mejor = {f, std::move(e)};
  }
  return mejor;
}

}  // namespace tarvo::importar
