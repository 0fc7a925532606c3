// A calendar for a date field, besides typing: opened by an icon in the field, F4 or Alt+Down. A
// field whose text has a time of day keeps it.
//
//   new ventanas::EscogeFecha(*ui_.Fecha1, contexto());
#pragma once

#include <QLineEdit>

#include "core/ventanas/marco/Contexto.h"

class QCalendarWidget;

namespace tarvo::ventanas {

// Gives the calendar its local look: Spanish, weeks from Monday on, the program's icons.
void vestirMes(QCalendarWidget& mes);

class Ventana;

// True if all of these days are near enough to be plausible, or if the user confirms them: a typing
// error gives the year 1500 or 9999. Cancelar is the default button.
bool consienteFechas(Ventana& quien, const std::vector<Fecha>& fechas);

class EscogeFecha final : public QObject {
  Q_OBJECT
 public:
  // `campo` owns it; a choice is reported by the field's textEdited.
  EscogeFecha(QLineEdit& campo, Contexto& contexto);

 private:
  void abrir();
  void poner(QDate dia);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QLineEdit& campo_;
  Contexto& c_;
};

}  // namespace tarvo::ventanas
