#include "devices/Cabecera.h"

#include <QStringList>

namespace tarvo::devices {

using namespace Qt::StringLiterals;

Cabecera leerCabecera(const QString& texto, int cuantas) {
  Cabecera c;
  QStringList guardadas = texto.split(u"\r\n"_s);
  if (guardadas.last().isEmpty()) guardadas.removeLast();
  for (const QString& linea : guardadas.first(std::min<qsizetype>(cuantas, guardadas.size()))) {
    if (linea.startsWith(u'C')) ++c.arriba;
    const int fuente = linea.section(u':', 1, 1).toInt();
    c.lineas.push_back(
        {fuente > 0 && fuente < kFuentesTicket ? fuente : 0, linea.section(u':', 2)});
  }
  c.lineas.resize(static_cast<size_t>(cuantas));
  return c;
}

QString escribirCabecera(const Cabecera& c) {
  QString texto;
  int n = 0;
  for (const Cabecera::Linea& l : c.lineas)
    texto += (n++ < c.arriba ? u"C:"_s : u"P:"_s) + QString::number(l.fuente) + u':' + l.texto +
             u"\r\n"_s;
  return texto;
}

}  // namespace tarvo::devices
