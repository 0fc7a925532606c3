#include "core/esquema/Pasos.h"

#include <QRegularExpression>

#include "core/dao/Orden.h"

namespace tarvo::esquema {

namespace {

QString repetir(const QString& texto, int desde, int hasta) {
  QStringList partes;
  for (int i = desde; i <= hasta; ++i)
    partes += QString(texto).replace(QStringLiteral("nn"),
                                     QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
  return partes.join(QStringLiteral(", "));
}

// Replaces the marks of a script.
QString expandir(QString guion) {
  static const QRegularExpression lista(QStringLiteral("@lista\\{([^}]*?)\\s+(\\d+)-(\\d+)\\}"));
  static const QRegularExpression orden(QStringLiteral("@orden\\((\\w+)\\)"));
  for (auto m = lista.match(guion); m.hasMatch(); m = lista.match(guion))
    guion.replace(m.capturedStart(), m.capturedLength(),
                  repetir(m.captured(1), m.captured(2).toInt(), m.captured(3).toInt()));
  for (auto m = orden.match(guion); m.hasMatch(); m = orden.match(guion))
    guion.replace(m.capturedStart(), m.capturedLength(), dao::expresionOrden(m.captured(1)));
  return guion;
}

}  // namespace

std::vector<dao::Paso> pasos() {
  return {{1, expandir(guionArticulos())},   {2, expandir(guionGrupos())},
          {3, expandir(guionEtiquetas())},   {4, expandir(guionTotales())},
          {5, expandir(guionAlmacenes())},   {6, expandir(guionEnLinea())},
          {7, expandir(guionFacturacion())}, {8, expandir(guionConsultas())}};
}

}  // namespace tarvo::esquema
