#include "core/ventanas/marco/EscogeFecha.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoMes = 340, kAltoMes = 240;
constexpr int kPrimerAno = 1990, kAnosPorVenir = 10;

}  // namespace

bool consienteFechas(Ventana& quien, const std::vector<Fecha>& fechas) {
  const int ahora = quien.contexto().reloj.ahora().qdate().year();
  QStringList lejanas;
  for (const Fecha& f : fechas)
    if (const int a = f.qdate().year(); a < kPrimerAno || a > ahora + kAnosPorVenir)
      lejanas << f.corta();
  return lejanas.isEmpty() || MyMsgBox::Decide(&quien, quien.contexto().textos,
                                               quien.t(kTxFechaLejana).arg(lejanas.join(u", "_s)),
                                               kAceptoCancelo | kExclamacion | kPrudente);
}

void vestirMes(QCalendarWidget& mes) {
  mes.setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
  mes.setFirstDayOfWeek(Qt::Monday);
  mes.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  for (const auto dia : {Qt::Saturday, Qt::Sunday}) mes.setWeekdayTextFormat(dia, {});
  if (auto* b = mes.findChild<QToolButton*>(u"qt_calendar_prevmonth"_s))
    b->setIcon(icono(u"atras"_s));
  if (auto* b = mes.findChild<QToolButton*>(u"qt_calendar_nextmonth"_s))
    b->setIcon(icono(u"adelante"_s));
}

EscogeFecha::EscogeFecha(QLineEdit& campo, Contexto& contexto)
    : QObject(&campo), campo_(campo), c_(contexto) {
  QAction* a = campo.addAction(icono(u"calendario"_s), QLineEdit::TrailingPosition);
  a->setText(c_.textos(kTxEscogerFecha));
  a->setToolTip(a->text());
  connect(a, &QAction::triggered, this, [this] { abrir(); });
  campo.installEventFilter(this);
}

// Opens a pop-up that closes after a choice, with Escape, or with a click outside it.
void EscogeFecha::abrir() {
  auto* mes = new QCalendarWidget(&campo_);
  mes->setObjectName(u"calendario"_s);
  mes->setWindowFlag(Qt::Popup);
  mes->setAttribute(Qt::WA_DeleteOnClose);
  mes->setAccessibleName(c_.textos(kTxEscogerFecha));
  vestirMes(*mes);
  mes->setFixedSize(escalar(kAnchoMes), escalar(kAltoMes));  // room for full names of days
  const auto escrita = Fecha::leer(campo_.text().trimmed());
  mes->setSelectedDate((escrita ? *escrita : c_.reloj.ahora()).qdate());
  // A click chooses; so does Return on a day, which also emits activated.
  for (const auto senal : {&QCalendarWidget::clicked, &QCalendarWidget::activated})
    connect(mes, senal, this, [this, mes](QDate dia) {
      if (!mes->isVisible()) return;
      mes->close();
      poner(dia);
    });
  mes->move(campo_.mapToGlobal(QPoint(0, campo_.height())));
  mes->show();
  mes->setFocus();
}

void EscogeFecha::poner(QDate dia) {
  const auto escrita = Fecha::leer(campo_.text().trimmed());
  const bool conHora = escrita && campo_.text().contains(u':');
  const Fecha f = Fecha::de(dia) + (conHora ? escrita->hora() : 0);
  campo_.setText(conHora ? f.general() : f.corta());
  campo_.setFocus();
  Q_EMIT campo_.textEdited(campo_.text());
}

bool EscogeFecha::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::KeyPress) return QObject::eventFilter(objeto, evento);
  const auto& tecla = static_cast<const QKeyEvent&>(*evento);
  const bool altAbajo = tecla.key() == Qt::Key_Down && tecla.modifiers().testFlag(Qt::AltModifier);
  if (tecla.key() == Qt::Key_F4 || altAbajo) {
    abrir();
    return true;
  }
  return false;
}

}  // namespace tarvo::ventanas
