// The names of a chart's bars, beside or below them. The axis of the chart itself cuts every name
// to its share of the room; these take what they need, up to a part of the width, and where they
// would touch one another only every second, third... stands.
#pragma once

#include <QGraphicsSimpleTextItem>
#include <QObject>

class QAbstractSeries;
class QChart;

namespace tarvo::totals {

class NombresBarras final : public QObject {
 public:
  // One name a bar, in the order of the series. It lives as long as the chart, whose margins it
  // sets.
  NombresBarras(QChart& chart, QAbstractSeries& serie, QStringList nombres, bool tumbadas,
                const QFont& letra);

 private:
  void colocar();
  void alLado(double ancho);
  void debajo(double ancho);
  QPointF sitio(size_t i) const;

  QChart& chart_;
  QAbstractSeries& serie_;
  QStringList nombres_;
  bool tumbadas_;
  QFont letra_;
  std::vector<QGraphicsSimpleTextItem*> textos_;
};

}  // namespace tarvo::totals
