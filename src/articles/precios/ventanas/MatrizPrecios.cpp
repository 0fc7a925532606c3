#include "articles/precios/ventanas/MatrizPrecios.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "articles/precios/CambioRapido.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/Medidas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::escalar;

namespace {

constexpr int kCifrasVistas = 7;

std::size_t en(int n) {
  return static_cast<std::size_t>(n);
}

}  // namespace

MatrizPrecios::MatrizPrecios(QWidget* padre) : QWidget(padre) {}

void MatrizPrecios::preparar(ventanas::Contexto& contexto, int niveles, int tarifas) {
  c_ = &contexto;
  niveles_ = niveles;
  tarifas_ = tarifas;
  actual_ = {};
  puestos_ = {};
  for (auto& nivel : campos_) nivel.fill(nullptr);
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
  delete layout();
  ultimo_ = antesDe(*this);
  auto* rejilla = new QGridLayout(this);
  rejilla->setContentsMargins(0, 0, 0, 0);
  rejilla->setSpacing(escalar(ventanas::kPaso));
  for (int nivel = 0; nivel < niveles; ++nivel)
    rejilla->addWidget(new QLabel(contexto.textos(kTxNivel + nivel)), 0, nivel + 1, Qt::AlignRight);
  for (int tarifa = 0; tarifa < tarifas; ++tarifa) {
    rejilla->addWidget(new QLabel(contexto.textos(kTxTarifaN).arg(tarifa + 1)), tarifa + 1, 0);
    for (int nivel = 0; nivel < niveles; ++nivel) hacerCampo(*rejilla, {nivel, tarifa});
  }
  rejilla->setRowStretch(tarifas + 1, 1);
}

void MatrizPrecios::hacerCampo(QGridLayout& rejilla, Celda celda) {
  static const QRegularExpression kImporte(u"[0-9.,]*"_s);
  auto* campo = new QLineEdit;
  campo->setObjectName(u"precio%1%2"_s.arg(celda.nivel).arg(celda.tarifa));
  campo->setAlignment(Qt::AlignRight);
  campo->setMaxLength(12);
  estrechar(*campo, kCifrasVistas);
  campo->setValidator(new QRegularExpressionValidator(kImporte, campo));
  campo->setAccessibleName(c_->textos(kTxNivel + celda.nivel) + u", "_s +
                           c_->textos(kTxTarifaN).arg(celda.tarifa + 1));
  campo->installEventFilter(this);
  connect(campo, &QLineEdit::editingFinished, this, [this, celda] { terminar(celda); });
  campos_[en(celda.nivel)][en(celda.tarifa)] = campo;
  rejilla.addWidget(campo, celda.tarifa + 1, celda.nivel + 1);
  // Made later than the form, it stands where the matrix does among its keys.
  setTabOrder(std::exchange(ultimo_, campo), campo);
}

QLineEdit* MatrizPrecios::campo(Celda c) const {
  return campos_[en(c.nivel)][en(c.tarifa)];
}

void MatrizPrecios::poner(const articles::Precios& precios) {
  for (int nivel = 0; nivel < niveles_; ++nivel)
    for (int tarifa = 0; tarifa < tarifas_; ++tarifa)
      poner({nivel, tarifa}, precios[en(nivel)][en(tarifa)]);
}

void MatrizPrecios::poner(Celda celda, qint64 precio) {
  puestos_[en(celda.nivel)][en(celda.tarifa)] = precio;
  campo(celda)->setText(precioEnTexto(*c_, precio));
  marcarFalta(*campo(celda), false);
  if (campo(celda)->hasFocus()) campo(celda)->selectAll();
}

void MatrizPrecios::limpiar() {
  poner(articles::Precios{});
  for (int nivel = 0; nivel < niveles_; ++nivel)
    for (int tarifa = 0; tarifa < tarifas_; ++tarifa) campo({nivel, tarifa})->clear();
}

articles::Precios MatrizPrecios::precios() const {
  articles::Precios salida{};
  for (int nivel = 0; nivel < niveles_; ++nivel)
    for (int tarifa = 0; tarifa < tarifas_; ++tarifa)
      salida[en(nivel)][en(tarifa)] =
          comoPrecio(campo({nivel, tarifa})->text(), c_->ajustes).value_or(0);
  return salida;
}

bool MatrizPrecios::vale() const {
  for (int nivel = 0; nivel < niveles_; ++nivel)
    for (int tarifa = 0; tarifa < tarifas_; ++tarifa)
      if (!comoPrecio(campo({nivel, tarifa})->text(), c_->ajustes)) return false;
  return true;
}

void MatrizPrecios::irA(Celda celda) {
  if (celda.nivel >= niveles_ || celda.tarifa >= tarifas_) return;
  campo(celda)->setFocus(Qt::OtherFocusReason);
  campo(celda)->selectAll();
}

bool MatrizPrecios::tieneFoco() const {
  return isAncestorOf(QApplication::focusWidget());
}

// A text that is no price stays, marked, and changes nothing.
void MatrizPrecios::terminar(Celda celda) {
  const auto precio = comoPrecio(campo(celda)->text(), c_->ajustes);
  marcarFalta(*campo(celda), !precio);
  if (!precio || *precio == puestos_[en(celda.nivel)][en(celda.tarifa)]) return;
  poner(celda, *precio);
  Q_EMIT cambiada(celda);
}

bool MatrizPrecios::tecla(Celda celda, int tecla) {
  switch (tecla) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      terminar(celda);
      if (!campo(celda)->property("falta").toBool()) Q_EMIT intro(celda);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
      const int tarifa = celda.tarifa + (tecla == Qt::Key_Up ? -1 : 1);
      if (tarifa >= 0 && tarifa < tarifas_) irA({celda.nivel, tarifa});
      return true;
    }
    default:
      return false;
  }
}

bool MatrizPrecios::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::FocusIn && evento->type() != QEvent::KeyPress) return false;
  for (int nivel = 0; nivel < niveles_; ++nivel)
    for (int tarifa = 0; tarifa < tarifas_; ++tarifa) {
      const Celda celda{nivel, tarifa};
      if (campo(celda) != objeto) continue;
      if (evento->type() == QEvent::KeyPress)
        return tecla(celda, static_cast<QKeyEvent*>(evento)->key());
      campo(celda)->selectAll();
      if (celda != std::exchange(actual_, celda)) Q_EMIT entrada(celda);
      return false;
    }
  return false;
}

}  // namespace tarvo::precios
