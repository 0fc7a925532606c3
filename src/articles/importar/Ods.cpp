#include <QDate>
#include <QXmlStreamReader>

#include "articles/importar/Hoja.h"
#include "articles/importar/Zip.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

// Attributes by their local name: files differ in nothing else that matters here.
QString atributo(const QXmlStreamReader& xml, QStringView nombre) {
  for (const auto& a : xml.attributes())
    if (a.name() == nombre) return a.value().toString();
  return {};
}

int repetida(const QXmlStreamReader& xml, QStringView nombre) {
  return std::max(1, atributo(xml, nombre).toInt());
}

// The text of a cell, paragraphs separated by line ends, notes left out. Reads past the cell.
QString textoDeCelda(QXmlStreamReader& xml) {
  QString salida;
  int dentro = 0, parrafos = 0;  // elements open, texts begun
  while (!xml.atEnd()) {
    const auto que = xml.readNext();
    if (que == QXmlStreamReader::EndElement && dentro-- == 0) break;
    if (que == QXmlStreamReader::Characters && dentro > 0) salida += xml.text();
    if (que != QXmlStreamReader::StartElement) continue;
    const QStringView nombre = xml.name();
    if (nombre == u"annotation") {
      xml.skipCurrentElement();
      continue;
    }
    ++dentro;
    if (nombre == u"p" && parrafos++ > 0) salida += u'\n';
    if (nombre == u"s") salida += QString(std::min(repetida(xml, u"c"), 100), u' ');
    if (nombre == u"tab") salida += u'\t';
    if (nombre == u"line-break") salida += u'\n';
  }
  return salida;
}

QString valorDeCelda(QXmlStreamReader& xml) {
  const QString clase = atributo(xml, u"value-type"), valor = atributo(xml, u"value");
  const QString cadena = atributo(xml, u"string-value"), fecha = atributo(xml, u"date-value");
  const QString logico = atributo(xml, u"boolean-value");
  const QString texto = textoDeCelda(xml);
  if (clase == u"float" || clase == u"currency") return numeroDeHoja(valor.toDouble());
  if (clase == u"percentage") return numeroDeHoja(valor.toDouble() * 100) + u'%';
  if (clase == u"boolean") return logico == u"true" ? u"1"_s : u"0"_s;
  if (clase == u"date")
    return QDate::fromString(fecha.left(10), Qt::ISODate).toString(u"dd/MM/yyyy"_s);
  return cadena.isEmpty() ? texto : cadena;
}

class LectorOds {
 public:
  explicit LectorOds(QIODevice& f) : xml_(&f) {}

  // The first sheet with contents.
  std::optional<HojaLeida> leer() {
    HojaLeida h;
    while (!xml_.atEnd() && !h.tabla.llena()) {
      const auto que = xml_.readNext();
      if (que == QXmlStreamReader::EndElement && xml_.name() == u"table") {
        h.tabla.quitarFilasVacias();
        if (h.tabla.filas() > 0) return h;
      }
      if (que != QXmlStreamReader::StartElement) continue;
      if (xml_.name() == u"table")
        h = {{}, atributo(xml_, u"name")}, linea_ = 0;
      else if (xml_.name() == u"table-row")
        fila(h.tabla);
    }
    if (xml_.hasError()) return std::nullopt;
    h.tabla.quitarFilasVacias();
    return h;
  }

 private:
  void fila(Tabla& tabla) {
    const int veces = repetida(xml_, u"number-rows-repeated");
    const auto celdas = leerCeldas();
    for (int i = 1; !celdas.empty() && i <= veces && !tabla.llena(); ++i) {
      tabla.empezarFila(linea_ + i);
      for (const QString& c : celdas) tabla.anadir(c);
    }
    linea_ += veces;
  }
  // Without the empty ones at the end.
  std::vector<QString> leerCeldas() {
    std::vector<QString> celdas;
    size_t llenas = 0;
    while (!xml_.atEnd()) {
      const auto que = xml_.readNext();
      if (que == QXmlStreamReader::EndElement && xml_.name() == u"table-row") break;
      if (que != QXmlStreamReader::StartElement) continue;
      if (xml_.name() != u"table-cell" && xml_.name() != u"covered-table-cell") continue;
      const auto hueco = static_cast<size_t>(kColumnasHoja) - celdas.size();
      const auto veces = static_cast<size_t>(repetida(xml_, u"number-columns-repeated"));
      const QString valor = valorDeCelda(xml_);
      celdas.insert(celdas.end(), std::min(veces, hueco), valor);
      if (!valor.isEmpty()) llenas = celdas.size();
    }
    celdas.resize(llenas);
    return celdas;
  }

  QXmlStreamReader xml_;
  int linea_ = 0;
};

}  // namespace

std::optional<HojaLeida> leerOds(const QByteArray& bytes) {
  const auto zip = Zip::abrir(bytes);
  if (!zip) return std::nullopt;
  const auto f = zip->entrada(u"content.xml"_s);
  if (!f) return std::nullopt;
  return LectorOds(*f).leer();
}

}  // namespace tarvo::importar
