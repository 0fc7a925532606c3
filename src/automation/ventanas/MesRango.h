// A calendar month in which a range of days is selected: a single day, or with Shift up to a second
// one.
#pragma once

#include <QCalendarWidget>

namespace tarvo::automation {

class MesRango final : public QCalendarWidget {
  Q_OBJECT
 public:
  explicit MesRango(QWidget* padre = nullptr);

  void irAlMes(QDate dia);    // selects its first day
  void ponerTodo(bool todo);  // `todo` selects the whole month shown
  QDate desde() const;
  QDate hasta() const;

 Q_SIGNALS:
  void rangoCambiado();
  void diaElegido();  // by the user

 protected:
  void paintCell(QPainter* pintor, const QRect& sitio, QDate dia) const override;

 private:
  void elegir();
  QDate primero() const { return QDate(yearShown(), monthShown(), 1); }

  QDate ancla_, otro_;
  bool todo_ = true, moviendo_ = false;
};

}  // namespace tarvo::automation
