// A month of which some days in a row are chosen: a day by itself, or as far as a second one with
// the shift key.
#pragma once

#include <QCalendarWidget>

namespace tarvo::automation {

class MesRango final : public QCalendarWidget {
  Q_OBJECT
 public:
  explicit MesRango(QWidget* padre = nullptr);

  void irAlMes(QDate dia);    // its first day is the one chosen
  void ponerTodo(bool todo);  // the whole month that is shown is chosen
  QDate desde() const;
  QDate hasta() const;

 Q_SIGNALS:
  void rangoCambiado();
  void diaElegido();  // by the person

 protected:
  void paintCell(QPainter* pintor, const QRect& sitio, QDate dia) const override;

 private:
  void elegir();
  QDate primero() const { return QDate(yearShown(), monthShown(), 1); }

  QDate ancla_, otro_;
  bool todo_ = true, moviendo_ = false;
};

}  // namespace tarvo::automation
