#include "core/ventanas/edicion/Campo.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTabWidget>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::ventanas {

Campo::Campo(QWidget& control, QLabel* falta)
    : QObject(&control), control_(control), falta_(falta) {
  if (!falta_) return;
  falta_->setWordWrap(true);
  ponerLetra(*falta_, Letra::Secundaria);
}

void Campo::ponerNombre(const QString& nombre) {
  nombre_ = nombre;
  nombre_.remove(u'&');
  while (nombre_.endsWith(u':') || nombre_.endsWith(u' ')) nombre_.chop(1);
  if (control_.accessibleName().isEmpty()) control_.setAccessibleName(nombre_);
}

void Campo::ponerPista(const QString& pista) {
  control_.setToolTip(pista);
  control_.setAccessibleDescription(pista);
}

void Campo::mostrar() {
  aControl();
  visto_ = estado();
  marcar({});
}

Resultado<> Campo::leer() {
  if (!control_.isEnabled()) {
    marcar({});
    return {};
  }
  if (!tocado() && !conFalta()) return {};
  const auto hecho = aMiembro();
  if (hecho) visto_ = estado();  // so that a return to the value shown before counts as a change
  marcar(hecho ? QString() : hecho.error().texto);
  return hecho;
}

void marcarFalta(QWidget& control, bool falta) {
  if (control.property("falta").toBool() == falta) return;
  control.setProperty("falta", falta);
  // Its frame depends on the property: painted by the style, or by the style sheet.
  if (!qobject_cast<QLineEdit*>(&control)) {
    control.style()->unpolish(&control);
    control.style()->polish(&control);
  }
  control.update();
}

void Campo::marcar(const QString& falta) {
  if (falta_) {
    falta_->setText(falta);
    falta_->setVisible(!falta.isEmpty());
  }
  control_.setAccessibleDescription(falta.isEmpty() ? control_.toolTip() : falta);
  marcarFalta(control_, !falta.isEmpty());
}

bool Campo::conFalta() const {
  return control_.property("falta").toBool();
}

void Campo::enfocar() {
  for (QWidget* w = &control_; QWidget* padre = w->parentWidget(); w = padre)
    if (auto* fichas = qobject_cast<QTabWidget*>(padre->parentWidget());
        fichas && fichas->indexOf(w) >= 0)
      fichas->setCurrentWidget(w);
  control_.setFocus();
  if (auto* linea = qobject_cast<QLineEdit*>(&control_)) linea->selectAll();
}

void Campo::tocar() {
  marcar({});
  Q_EMIT cambiado();
}

namespace {

class Empujon final : public QObject {
 public:
  explicit Empujon(QLineEdit& linea) : QObject(&linea), linea_(linea) {
    linea.installEventFilter(this);
  }

 private:
  bool eventFilter(QObject*, QEvent* evento) override {
    if (evento->type() != QEvent::KeyPress) return false;
    const QString tecla = static_cast<QKeyEvent*>(evento)->text();
    const bool cabe = linea_.text().size() < linea_.maxLength() || linea_.hasSelectedText() ||
                      linea_.cursorPosition() < linea_.text().size();
    if (cabe || tecla.size() != 1 || tecla[0] < u'0' || tecla[0] > u'9') return false;
    linea_.setText(linea_.text().mid(1) + tecla);
    return true;
  }

  QLineEdit& linea_;
};

}  // namespace

void empujarCifras(QLineEdit& linea) {
  new Empujon(linea);
}

CampoLinea::CampoLinea(QLineEdit& linea, QLabel* falta, Modo modo)
    : Campo(linea, falta), linea_(linea), modo_(std::move(modo)) {
  ponerPista(modo_.limites);
  if (modo_.letras > 0)
    linea.setMaximumWidth(linea.fontMetrics().horizontalAdvance(QString(modo_.letras + 3, u'0')) +
                          escalar(2 * kHueco));
  connect(&linea, &QLineEdit::textEdited, this, &CampoLinea::tocar);
  connect(&linea, &QLineEdit::editingFinished, this, &Campo::dejado);
}

QString CampoLinea::estado() const {
  return linea_.text();
}

void CampoLinea::aControl() {
  linea_.setText(modo_.ver());
}

Resultado<> CampoLinea::aMiembro() {
  return modo_.poner(linea_.text());
}

CampoVivo::CampoVivo(QWidget& control, QLabel* falta, Enlace enlace)
    : Campo(control, falta), enlace_(std::move(enlace)) {
  enlace_.aControl = [this, poner = std::move(enlace_.aControl)] {
    const QScopedValueRollback en(poniendo_, true);
    poner();
  };
}

void CampoVivo::haCambiado() {
  if (poniendo_) return;
  enlace_.aMiembro();
  tocar();
}

}  // namespace tarvo::ventanas
