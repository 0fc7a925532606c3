// A calendar for a field that takes a date, beside typing it: a picture in the field, F4 or
// Alt+Down. A field whose text has a time of day keeps it.
//
//   new ventanas::EscogeFecha(*ui_.Fecha1, contexto());
#pragma once

#include <QLineEdit>

#include "core/ventanas/marco/Contexto.h"

class QCalendarWidget;

namespace tarvo::ventanas {

// The month as it is read here: Spanish, from Monday on, with the program's pictures.
void vestirMes(QCalendarWidget& mes);

class Ventana;

// True when all of these days are near enough to be meant, or when the person says that they are: a
// slip of the fingers gives the year 1500 or 9999. Cancelar is the default.
bool consienteFechas(Ventana& quien, const std::vector<Fecha>& fechas);

class EscogeFecha final : public QObject {
  Q_OBJECT
 public:
  // It goes with the field, and tells of a choice by the field's textEdited.
  EscogeFecha(QLineEdit& campo, Contexto& contexto);

 private:
  void abrir();
  void poner(QDate dia);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QLineEdit& campo_;
  Contexto& c_;
};

}  // namespace tarvo::ventanas
