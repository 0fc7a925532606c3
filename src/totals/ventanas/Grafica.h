// A chart in the colours of the theme: bars by code or by hour, or a line over days. Its values are
// also available as text: to assistive tools, and in a tool tip under the pointer.
#pragma once

#include <QDate>
#include <QWidget>
#include <vector>

#include "core/ventanas/marco/Contexto.h"

class QChart;
class QChartView;
class QLabel;

namespace tarvo::totals {

class Grafica final : public QWidget {
  Q_OBJECT
 public:
  explicit Grafica(QWidget* padre = nullptr);
  // To be called first. Redraws the chart whenever the theme changes.
  void preparar(ventanas::Contexto& contexto);

  struct Barra {
    QString nombre;
    qint64 importe = 0;
  };
  struct Dia {
    QDate dia;
    qint64 importe = 0;
  };
  // `tumbadas`: horizontal bars, for long names.
  void barras(const QString& titulo, std::vector<Barra> barras, bool tumbadas, int moneda);
  // A line over days; a single day is drawn as a bar.
  void linea(const QString& titulo, std::vector<Dia> dias, int moneda);
  void vaciar(const QString& motivo);
  int puntos() const { return static_cast<int>(barras_.size() + dias_.size()); }
  bool esLinea() const { return !dias_.empty(); }
  QString titulo() const { return titulo_; }

 private:
  void pintar();
  void pintarBarras(QChart& chart);
  void pintarLinea(QChart& chart);
  double valorDe(qint64 importe) const;
  void decir(const QString& nombre, qint64 importe) const;

  ventanas::Contexto* c_ = nullptr;
  QLabel* rotulo_;
  QChartView* vista_;
  QLabel* nada_;
  QString titulo_;
  std::vector<Barra> barras_;
  std::vector<Dia> dias_;
  bool tumbadas_ = false;
  int moneda_ = 0;
};

}  // namespace tarvo::totals
