// A chart in the colours of the theme: bars by code or by hour, or a line along the days. It reads
// as text too, for assistive tools and on the pointer.
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
  // Before anything else; follows the face of the theme from then on.
  void preparar(ventanas::Contexto& contexto);

  struct Barra {
    QString nombre;
    qint64 importe = 0;
  };
  struct Dia {
    QDate dia;
    qint64 importe = 0;
  };
  // `tumbadas`: side by side from top to bottom, for long names.
  void barras(const QString& titulo, std::vector<Barra> barras, bool tumbadas, int moneda);
  // Through time; of one day, a bar.
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
