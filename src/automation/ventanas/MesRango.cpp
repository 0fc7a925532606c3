#include "automation/ventanas/MesRango.h"

#include <QGuiApplication>
#include <QPainter>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/EscogeFecha.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using ventanas::colorDe;
using ventanas::Tinte;

MesRango::MesRango(QWidget* padre) : QCalendarWidget(padre) {
  ventanas::vestirMes(*this);
  connect(this, &QCalendarWidget::selectionChanged, this, [this] { elegir(); });
  connect(this, &QCalendarWidget::currentPageChanged, this, [this] {
    if (!moviendo_) irAlMes(primero());
  });
}

void MesRango::irAlMes(QDate dia) {
  moviendo_ = true;
  setCurrentPage(dia.year(), dia.month());
  ancla_ = otro_ = primero();
  setSelectedDate(ancla_);
  moviendo_ = false;
  updateCells();
  Q_EMIT rangoCambiado();
}

void MesRango::ponerTodo(bool todo) {
  todo_ = todo;
  updateCells();
  Q_EMIT rangoCambiado();
}

// A day of another month switches to that month, and starts a new range there.
void MesRango::elegir() {
  if (moviendo_) return;
  otro_ = selectedDate();
  const bool sigue = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
  const bool mismoMes = ancla_.year() == otro_.year() && ancla_.month() == otro_.month();
  if (!sigue || !mismoMes) ancla_ = otro_;
  Q_EMIT diaElegido();
  updateCells();
  Q_EMIT rangoCambiado();
}

QDate MesRango::desde() const {
  return todo_ ? primero() : std::min(ancla_, otro_);
}
QDate MesRango::hasta() const {
  return todo_ ? primero().addMonths(1).addDays(-1) : std::max(ancla_, otro_);
}

void MesRango::paintCell(QPainter* pintor, const QRect& sitio, QDate dia) const {
  const bool dentro = dia >= desde() && dia <= hasta();
  const bool ajeno = dia.month() != monthShown();
  pintor->fillRect(sitio, colorDe(dentro ? Tinte::Seleccion : Tinte::Base));
  pintor->setPen(colorDe(dentro  ? Tinte::TextoSeleccion
                         : ajeno ? Tinte::TextoPalido
                                 : Tinte::Texto));
  pintor->drawText(sitio, Qt::AlignCenter, QString::number(dia.day()));
}

}  // namespace tarvo::automation
