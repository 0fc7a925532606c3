// The names of a chart's bars, beside or below them. The chart's own axis elides every name to an
// equal share of the room; these take the room they need, up to a part of the width, and if they
// would touch one another only every second, third... one is shown.
#pragma once

#include <QGraphicsSimpleTextItem>
#include <QObject>

class QAbstractSeries;
class QChart;

namespace tarvo::totals {

class NombresBarras final : public QObject {
 public:
  // One name per bar, in the order of the series. Owned by the chart, whose margins it sets.
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
