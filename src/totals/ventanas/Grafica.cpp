#include "totals/ventanas/Grafica.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QCursor>
#include <QDateTimeAxis>
#include <QHorizontalBarSeries>
#include <QLabel>
#include <QLineSeries>
#include <QLocale>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

#include "core/dinero/Dinero.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/NombresBarras.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::colorDe;
using ventanas::Tinte;

namespace {

constexpr int kAnchoMinimo = 240, kAltoMinimo = 160;
constexpr int kTicks = 5;
constexpr int kAnchoTicks = 330;  // below it, horizontal bars have room for two ticks

qint64 milisegundos(QDate dia) {
  return QDateTime(dia, QTime(12, 0), Qt::UTC).toMSecsSinceEpoch();
}

void vestirEje(QAbstractAxis& eje) {
  eje.setLabelsColor(colorDe(Tinte::Texto));
  eje.setGridLineColor(colorDe(Tinte::Linea));
  eje.setLinePenColor(colorDe(Tinte::Borde));
  QFont letra = eje.labelsFont();
  letra.setPointSizeF(ventanas::kLetraSecundaria * ventanas::escalar(100) / 100.0);
  eje.setLabelsFont(letra);
}

QValueAxis* ejeDeImportes(double desde, double hasta, int ticks = kTicks) {
  auto* eje = new QValueAxis;
  eje->setRange(std::min(0.0, desde), std::max(hasta, 1.0));
  eje->setTickCount(ticks);
  eje->applyNiceNumbers();
  eje->setLabelFormat(u"%.0f"_s);
  vestirEje(*eje);
  return eje;
}

}  // namespace

Grafica::Grafica(QWidget* padre)
    : QWidget(padre),
      rotulo_(new QLabel(this)),
      vista_(new QChartView(this)),
      nada_(new QLabel(this)) {
  rotulo_->setAlignment(Qt::AlignCenter);
  rotulo_->setWordWrap(true);
  QFont letra = rotulo_->font();
  letra.setBold(true);
  rotulo_->setFont(letra);
  nada_->setAlignment(Qt::AlignCenter);
  nada_->setWordWrap(true);
  vista_->setFocusPolicy(Qt::NoFocus);
  vista_->setFrameShape(QFrame::NoFrame);
  vista_->setRenderHint(QPainter::Antialiasing);
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(0, 0, 0, 0);
  todo->addWidget(rotulo_);
  todo->addWidget(vista_, 1);
  todo->addWidget(nada_, 1);
  rotulo_->hide();
  vista_->hide();
  setMinimumSize(ventanas::escalar(kAnchoMinimo), ventanas::escalar(kAltoMinimo));
}

void Grafica::preparar(ventanas::Contexto& contexto) {
  c_ = &contexto;
  connect(&contexto.tema, &ventanas::Tema::cambiado, this, &Grafica::pintar);
}

void Grafica::barras(const QString& titulo, std::vector<Barra> barras, bool tumbadas, int moneda) {
  titulo_ = titulo, barras_ = std::move(barras), tumbadas_ = tumbadas, moneda_ = moneda;
  // Bars without height make no chart.
  if (std::ranges::all_of(barras_, [](const Barra& b) { return b.importe == 0; })) barras_.clear();
  nada_->setText(c_->textos(kTxSinGrafica));
  dias_.clear();
  pintar();
}

void Grafica::linea(const QString& titulo, std::vector<Dia> dias, int moneda) {
  titulo_ = titulo, dias_ = std::move(dias), moneda_ = moneda;
  if (std::ranges::all_of(dias_, [](const Dia& d) { return d.importe == 0; })) dias_.clear();
  if (dias_.size() == 1)  // a line of a single point would be a dot
    return barras(titulo, {{Fecha::de(dias_.front().dia).corta(), dias_.front().importe}}, false,
                  moneda);
  nada_->setText(c_->textos(kTxSinGrafica));
  barras_.clear();
  pintar();
}

void Grafica::vaciar(const QString& motivo) {
  barras_.clear();
  dias_.clear();
  nada_->setText(motivo);
  pintar();
}

double Grafica::valorDe(qint64 importe) const {
  return static_cast<double>(importe) / FactorMoneda(c_->ajustes, moneda_);
}

void Grafica::decir(const QString& nombre, qint64 importe) const {
  QToolTip::showText(QCursor::pos(), nombre + u": "_s + conMoneda(*c_, importe, moneda_), vista_);
}

void Grafica::pintar() {
  const bool hay = puntos() > 0;
  rotulo_->setText(titulo_);
  rotulo_->setVisible(hay);
  vista_->setVisible(hay);
  nada_->setVisible(!hay);
  setAccessibleName(hay ? titulo_ : nada_->text());
  QStringList leido;
  for (const Barra& b : barras_) leido << b.nombre + u' ' + conMoneda(*c_, b.importe, moneda_);
  for (const Dia& d : dias_)
    leido << Fecha::de(d.dia).corta() + u' ' + conMoneda(*c_, d.importe, moneda_);
  setAccessibleDescription(leido.join(u"; "_s));
  if (!hay) return;
  auto* chart = new QChart;
  chart->setLocale(QLocale(QLocale::Spanish));
  chart->setLocalizeNumbers(true);
  chart->setBackgroundBrush(colorDe(Tinte::Base));
  chart->setBackgroundRoundness(0);
  chart->setMargins(QMargins(ventanas::kPaso, ventanas::kPaso, ventanas::kPaso, ventanas::kPaso));
  chart->legend()->hide();
  barras_.empty() ? pintarLinea(*chart) : pintarBarras(*chart);
  const std::unique_ptr<QChart> anterior(vista_->chart());
  vista_->setChart(chart);
  vista_->setBackgroundBrush(colorDe(Tinte::Base));
}

void Grafica::pintarBarras(QChart& chart) {
  auto* importes = new QBarSet(titulo_);
  importes->setColor(colorDe(Tinte::Acento));
  importes->setBorderColor(colorDe(Tinte::Acento));
  QStringList nombres, categorias;
  double desde = 0, hasta = 0;
  // Horizontal bars are drawn from the bottom up, so the first one comes last.
  std::vector<Barra> orden = barras_;
  if (tumbadas_) std::ranges::reverse(orden);
  for (const Barra& b : orden) {
    const double v = valorDe(b.importe);
    desde = std::min(desde, v), hasta = std::max(hasta, v);
    importes->append(v);
    nombres << b.nombre;
    categorias << QString::number(categorias.size());  // equal names would be merged
  }
  QAbstractBarSeries* serie = nullptr;
  if (tumbadas_)
    serie = new QHorizontalBarSeries;
  else
    serie = new QBarSeries;
  serie->setBarWidth(0.7);
  serie->append(importes);
  chart.addSeries(serie);
  auto* puestos = new QBarCategoryAxis;
  puestos->append(categorias);
  vestirEje(*puestos);
  puestos->setLabelsVisible(false);
  puestos->setGridLineVisible(false);
  auto* valores = ejeDeImportes(desde, hasta,
                                !tumbadas_                                 ? kTicks
                                : width() < ventanas::escalar(kAnchoTicks) ? 2
                                                                           : 3);
  chart.addAxis(puestos, tumbadas_ ? Qt::AlignLeft : Qt::AlignBottom);
  chart.addAxis(valores, tumbadas_ ? Qt::AlignBottom : Qt::AlignLeft);
  serie->attachAxis(puestos);
  serie->attachAxis(valores);
  new NombresBarras(chart, *serie, nombres, tumbadas_, puestos->labelsFont());
  connect(serie, &QAbstractBarSeries::hovered, this, [this, orden](bool dentro, int i) {
    if (dentro && i >= 0 && static_cast<size_t>(i) < orden.size())
      decir(orden[static_cast<size_t>(i)].nombre, orden[static_cast<size_t>(i)].importe);
  });
}

void Grafica::pintarLinea(QChart& chart) {
  auto* serie = new QLineSeries;
  serie->setPen(QPen(colorDe(Tinte::Acento), 2));
  serie->setPointsVisible(dias_.size() <= 62);
  double desde = 0, hasta = 0;
  for (const Dia& d : dias_) {
    const double v = valorDe(d.importe);
    desde = std::min(desde, v), hasta = std::max(hasta, v);
    serie->append(static_cast<double>(milisegundos(d.dia)), v);
  }
  chart.addSeries(serie);
  auto* tiempo = new QDateTimeAxis;
  tiempo->setFormat(u"dd/MM/yy"_s);
  const bool uno = dias_.size() == 1;
  tiempo->setRange(
      QDateTime::fromMSecsSinceEpoch(milisegundos(dias_.front().dia.addDays(uno ? -1 : 0))),
      QDateTime::fromMSecsSinceEpoch(milisegundos(dias_.back().dia.addDays(uno ? 1 : 0))));
  tiempo->setTickCount(3);
  vestirEje(*tiempo);
  auto* valores = ejeDeImportes(desde, hasta);
  chart.addAxis(tiempo, Qt::AlignBottom);
  chart.addAxis(valores, Qt::AlignLeft);
  serie->attachAxis(tiempo);
  serie->attachAxis(valores);
  connect(serie, &QLineSeries::hovered, this, [this](const QPointF& p, bool dentro) {
    if (!dentro || dias_.empty()) return;
    const auto cerca = std::ranges::min_element(dias_, {}, [&](const Dia& d) {
      return std::abs(static_cast<double>(milisegundos(d.dia)) - p.x());
    });
    decir(Fecha::de(cerca->dia).corta(), cerca->importe);
  });
}

}  // namespace tarvo::totals
