#include "totals/ventanas/NombresBarras.h"

#include <QAbstractSeries>
#include <QChart>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::totals {

using ventanas::kHueco;
using ventanas::kPaso;

namespace {

constexpr double kParteNombres = 0.66;  // at most, of the chart's width

}  // namespace

NombresBarras::NombresBarras(QChart& chart, QAbstractSeries& serie, QStringList nombres,
                             bool tumbadas, const QFont& letra)
    : QObject(&chart),
      chart_(chart),
      serie_(serie),
      nombres_(std::move(nombres)),
      tumbadas_(tumbadas),
      letra_(letra) {
  for (const QString& n : nombres_) {
    auto* texto = new QGraphicsSimpleTextItem(n, &chart);
    texto->setFont(letra);
    texto->setBrush(ventanas::colorDe(ventanas::Tinte::Texto));
    textos_.push_back(texto);
  }
  connect(&chart, &QChart::plotAreaChanged, this, [this] { colocar(); });
  colocar();
}

QPointF NombresBarras::sitio(size_t i) const {
  const auto n = static_cast<double>(i);
  return chart_.mapToPosition(tumbadas_ ? QPointF(0, n) : QPointF(n, 0), &serie_);
}

// Changing a margin moves the plot area, which calls this function again.
void NombresBarras::colocar() {
  const QFontMetricsF m(letra_);
  double ancho = 0;
  for (const QString& n : nombres_) ancho = std::max(ancho, m.horizontalAdvance(n));
  ancho = std::min(std::ceil(ancho), std::floor(chart_.size().width() * kParteNombres));
  QMargins margenes(kPaso, kPaso, kPaso, kPaso);
  if (tumbadas_)
    margenes.setLeft(kPaso + kHueco + static_cast<int>(ancho));
  else
    margenes.setBottom(kPaso + kHueco + static_cast<int>(std::ceil(m.height())));
  if (chart_.margins() != margenes) chart_.setMargins(margenes);
  tumbadas_ ? alLado(ancho) : debajo(ancho);
}

void NombresBarras::alLado(double ancho) {
  const QFontMetricsF m(letra_);
  const double borde = chart_.plotArea().left() - kHueco;
  for (size_t i = 0; i < textos_.size(); ++i) {
    textos_[i]->setText(m.elidedText(nombres_[static_cast<qsizetype>(i)], Qt::ElideRight, ancho));
    const QRectF r = textos_[i]->boundingRect();
    textos_[i]->setPos(borde - r.width(), sitio(i).y() - r.height() / 2);
  }
}

void NombresBarras::debajo(double ancho) {
  if (textos_.empty()) return;
  const double paso = chart_.plotArea().width() / static_cast<double>(textos_.size());
  const auto cada =
      static_cast<size_t>(std::max(1.0, std::ceil((ancho + kHueco) / std::max(paso, 1.0))));
  for (size_t i = 0; i < textos_.size(); ++i) {
    const QRectF r = textos_[i]->boundingRect();
    textos_[i]->setVisible(i % cada == 0);
    textos_[i]->setPos(sitio(i).x() - r.width() / 2, chart_.plotArea().bottom() + kPaso);
  }
}

}  // namespace tarvo::totals
