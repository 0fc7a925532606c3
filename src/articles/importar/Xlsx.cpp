#include <QDir>
#include <QHash>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>

#include "articles/importar/Hoja.h"
#include "articles/importar/Zip.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

const QString kLibro = u"xl/workbook.xml"_s;

struct Relacion {
  QString clase, destino;
};
using Relaciones = QHash<QString, Relacion>;

// The targets of a part: relative to its folder, or to the top.
Relaciones relaciones(Zip& zip, const QString& parte) {
  const QString carpeta = parte.section(u'/', 0, -2);
  Relaciones r;
  const auto f = zip.entrada(carpeta + u"/_rels/"_s + parte.section(u'/', -1) + u".rels"_s);
  if (!f) return r;
  QXmlStreamReader xml(f.get());
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"Relationship") continue;
    const auto a = xml.attributes();
    const QString destino = a.value(u"Target"_s).toString();
    r.insert(
        a.value(u"Id"_s).toString(),
        {a.value(u"Type"_s).toString().section(u'/', -1),
         destino.startsWith(u'/') ? destino.mid(1) : QDir::cleanPath(carpeta + u'/' + destino)});
  }
  return r;
}

struct Hoja {
  QString nombre, relacion;
};
std::optional<std::vector<Hoja>> hojas(Zip& zip) {
  const auto f = zip.entrada(kLibro);
  if (!f) return std::nullopt;
  std::vector<Hoja> salida;
  QXmlStreamReader xml(f.get());
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"sheet") continue;
    QString relacion;
    for (const auto& a : xml.attributes())
      if (a.name() == u"id") relacion = a.value().toString();
    salida.push_back({xml.attributes().value(u"name"_s).toString(), relacion});
  }
  if (xml.hasError()) return std::nullopt;
  return salida;
}

// All texts within the element, phonetic readings left out. Reads past it.
QString textos(QXmlStreamReader& xml) {
  const QString fin = xml.name().toString();
  QString salida;
  while (!xml.atEnd()) {
    const auto que = xml.readNext();
    if (que == QXmlStreamReader::EndElement && xml.name() == fin) break;
    if (que != QXmlStreamReader::StartElement) continue;
    if (xml.name() == u"rPh")
      xml.skipCurrentElement();
    else if (xml.name() == u"t")
      salida += xml.readElementText();
  }
  return salida;
}

std::optional<std::vector<QString>> cadenas(Zip& zip, const QString& parte) {
  std::vector<QString> salida;
  const auto f = zip.entrada(parte);
  if (!f) return salida;
  QXmlStreamReader xml(f.get());
  while (!xml.atEnd() && static_cast<qint64>(salida.size()) <= Tabla::kCeldasMayor)
    if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"si")
      salida.push_back(textos(xml));
  if (xml.hasError()) return std::nullopt;
  return salida;
}

// The column of "AB12", from 0; -1 when there is none.
int columnaDe(QStringView referencia) {
  int n = 0;
  for (const QChar c : referencia) {
    if (c < u'A' || c > u'Z' || n > kColumnasHoja) break;
    n = n * 26 + (c.unicode() - u'A' + 1);
  }
  return n - 1;
}

class LectorHoja {
 public:
  LectorHoja(QIODevice& f, const std::vector<QString>& cadenas) : xml_(&f), cadenas_(cadenas) {}

  std::optional<Tabla> leer() {
    while (!xml_.atEnd() && !tabla_.llena()) {
      if (xml_.readNext() != QXmlStreamReader::StartElement) continue;
      if (xml_.name() == u"row")
        fila();
      else if (xml_.name() == u"c")
        celda();
    }
    if (xml_.hasError()) return std::nullopt;
    tabla_.quitarFilasVacias();
    return std::move(tabla_);
  }

 private:
  void fila() {
    const int suya = xml_.attributes().value(u"r"_s).toInt();
    linea_ = suya > linea_ ? suya : linea_ + 1;
    tabla_.empezarFila(linea_);
    columna_ = -1;
  }
  void celda() {
    const auto a = xml_.attributes();
    const int suya = columnaDe(a.value(u"r"_s));
    columna_ = suya >= 0 ? suya : columna_ + 1;
    const QString clase = a.value(u"t"_s).toString();
    const QString texto = valor(clase);
    if (linea_ == 0 || columna_ >= kColumnasHoja || texto.isEmpty()) return;
    tabla_.poner(columna_, texto);
  }
  // Up to the end of the cell.
  QString valor(const QString& clase) {
    QString salida;
    while (!xml_.atEnd()) {
      const auto que = xml_.readNext();
      if (que == QXmlStreamReader::EndElement && xml_.name() == u"c") break;
      if (que != QXmlStreamReader::StartElement) continue;
      if (xml_.name() == u"is")
        salida = textos(xml_);
      else if (xml_.name() == u"v")
        salida = interpretar(clase, xml_.readElementText());
    }
    return salida;
  }
  QString interpretar(const QString& clase, const QString& crudo) const {
    if (clase == u"s") {
      const size_t i = crudo.toUInt();
      return i < cadenas_.size() ? cadenas_[i] : QString();
    }
    if (!clase.isEmpty() && clase != u"n") return crudo;
    bool esNumero = false;
    const double x = crudo.toDouble(&esNumero);
    return esNumero ? numeroDeHoja(x) : crudo;
  }

  QXmlStreamReader xml_;
  const std::vector<QString>& cadenas_;
  Tabla tabla_;
  int linea_ = 0, columna_ = -1;
};

}  // namespace

QString numeroDeHoja(double x) {
  if (!std::isfinite(x) || std::abs(x) >= 1e15) return {};
  QString t = QString::number(x, 'f', std::abs(x) < 1e6 ? 9 : 3);
  while (t.endsWith(u'0')) t.chop(1);
  if (t.endsWith(u'.')) t.chop(1);
  return t.replace(u'.', u',');
}

std::optional<HojaLeida> leerXlsx(const QByteArray& bytes) {
  const auto zip = Zip::abrir(bytes);
  if (!zip) return std::nullopt;
  const auto todas = hojas(*zip);
  if (!todas) return std::nullopt;
  const Relaciones rel = relaciones(*zip, kLibro);
  const auto suyas = std::ranges::find(rel, u"sharedStrings"_s, &Relacion::clase);
  const auto textos = cadenas(*zip, suyas == rel.end() ? QString() : suyas->destino);
  if (!textos) return std::nullopt;
  HojaLeida salida;
  for (const Hoja& h : *todas) {
    const auto f = zip->entrada(rel.value(h.relacion).destino);
    if (!f) continue;
    auto tabla = LectorHoja(*f, *textos).leer();
    if (!tabla) return std::nullopt;
    salida = {std::move(*tabla), h.nombre};
    if (salida.tabla.filas() > 0) break;
  }
  return salida;
}

}  // namespace tarvo::importar
