#include "articles/precios/ventanas/MatrizPrecios.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "articles/precios/CambioRapido.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::escalar;

namespace {

constexpr int kCifrasVistas = 7;

}  // namespace

MatrizPrecios::MatrizPrecios(QWidget* padre) : QWidget(padre) {}

void MatrizPrecios::preparar(ventanas::Contexto& contexto, int niveles, int tarifas) {
  c_ = &contexto;
  niveles_ = niveles;
  tarifas_ = tarifas;
  actual_ = {};
  casillas_ = {};
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
  delete layout();
  ultimo_ = antesDe(*this);
  auto* cuadricula = new QGridLayout(this);
  cuadricula->setContentsMargins(0, 0, 0, 0);
  cuadricula->setSpacing(escalar(ventanas::kPaso));
  for (int nivel = 0; nivel < niveles; ++nivel)
    cuadricula->addWidget(new QLabel(contexto.textos(kTxNivel + nivel)), 0, nivel + 1,
                          Qt::AlignRight);
  for (int tarifa = 0; tarifa < tarifas; ++tarifa) {
    cuadricula->addWidget(new QLabel(contexto.textos(kTxTarifaN).arg(tarifa + 1)), tarifa + 1, 0);
    for (int nivel = 0; nivel < niveles; ++nivel) hacerCampo(*cuadricula, {nivel, tarifa});
  }
  cuadricula->setRowStretch(tarifas + 1, 1);
}

void MatrizPrecios::hacerCampo(QGridLayout& cuadricula, Celda celda) {
  auto* campo = new QLineEdit;
  campo->setObjectName(u"precio%1%2"_s.arg(celda.nivel).arg(celda.tarifa));
  campo->setAlignment(Qt::AlignRight);
  estrechar(*campo, kCifrasVistas);
  campo->setAccessibleName(c_->textos(kTxNivel + celda.nivel) + u", "_s +
                           c_->textos(kTxTarifaN).arg(celda.tarifa + 1));
  campo->installEventFilter(this);
  connect(campo, &QLineEdit::editingFinished, this, [this, celda] { terminar(celda); });
  connect(campo, &QLineEdit::textEdited, this, [campo] { ventanas::marcarFalta(*campo, false); });
  casilla(celda).campo = campo;
  cuadricula.addWidget(campo, celda.tarifa + 1, celda.nivel + 1);
  // Created after the form, so it is inserted in the tab order at the position of the matrix.
  setTabOrder(std::exchange(ultimo_, campo), campo);
}

void MatrizPrecios::mostrar(Celda celda, qint64 precio, const QString& texto) {
  Casilla& c = casilla(celda);
  c.precio = precio;
  c.texto = texto;
  c.campo->setText(texto);
  ventanas::marcarFalta(*c.campo, false);
  if (c.campo->hasFocus()) c.campo->selectAll();
}

void MatrizPrecios::poner(const articles::Precios& precios) {
  cadaCelda([&](Celda c) {
    poner(c, precios[static_cast<size_t>(c.nivel)][static_cast<size_t>(c.tarifa)]);
  });
}

void MatrizPrecios::poner(Celda celda, qint64 precio) {
  mostrar(celda, precio, precioEnTexto(*c_, precio));
}

void MatrizPrecios::limpiar() {
  cadaCelda([this](Celda c) { mostrar(c, 0, {}); });
}

// An empty cell means no price, unless every cell is stored when it is left.
std::expected<qint64, FaltaPrecio> MatrizPrecios::leer(const QString& texto) const {
  if (!escribir_ && texto.trimmed().isEmpty()) return 0;
  return comoPrecio(texto, c_->ajustes);
}

articles::Precios MatrizPrecios::precios() const {
  articles::Precios salida{};
  cadaCelda([&](Celda c) {
    salida[static_cast<size_t>(c.nivel)][static_cast<size_t>(c.tarifa)] =
        leer(casilla(c).campo->text()).value_or(0);
  });
  return salida;
}

bool MatrizPrecios::vale() const {
  bool todas = true;
  cadaCelda([&](Celda c) { todas = todas && leer(casilla(c).campo->text()).has_value(); });
  return todas;
}

bool MatrizPrecios::vacia() const {
  bool todas = true;
  cadaCelda([&](Celda c) { todas = todas && casilla(c).campo->text().trimmed().isEmpty(); });
  return todas;
}

std::optional<Celda> MatrizPrecios::pendiente() const {
  std::optional<Celda> cual;
  cadaCelda([&](Celda c) {
    if (casilla(c).campo->isModified()) cual = c;
  });
  return cual;
}

void MatrizPrecios::irA(Celda celda) {
  if (celda.nivel >= niveles_ || celda.tarifa >= tarifas_) return;
  casilla(celda).campo->setFocus(Qt::OtherFocusReason);
  casilla(celda).campo->selectAll();
}

void MatrizPrecios::ponerActual(Celda celda) {
  if (celda.nivel >= niveles_ || celda.tarifa >= tarifas_) return;
  actual_ = celda;
  pintarActual();
}

void MatrizPrecios::ponerMarcada(bool marcada) {
  marcada_ = marcada;
  pintarActual();
}

void MatrizPrecios::pintarActual() {
  cadaCelda([this](Celda c) { marcarFijo(*casilla(c).campo, marcada_ && c == actual_); });
}

bool MatrizPrecios::tieneFoco() const {
  return isAncestorOf(QApplication::focusWidget());
}

bool MatrizPrecios::terminar() {
  const auto cual = pendiente();
  return !cual || terminar(*cual);
}

bool MatrizPrecios::terminar(Celda celda) {
  Casilla& c = casilla(celda);
  if (!c.campo->isModified()) return true;
  const QString dicho = c.campo->text();
  const auto precio = leer(dicho);
  if (!precio) return queda(celda, dicho, errorDe(precio.error(), dicho, c_->ajustes, c_->textos));
  const Casilla antes = c;
  poner(celda, *precio);
  const bool escribe = escribir_ && *precio != antes.precio;
  if (const auto hecho = escribe ? escribir_(celda, *precio) : Resultado<>(); !hecho) {
    c = antes;
    return queda(celda, dicho, hecho.error());
  }
  resolver();
  return true;
}

void MatrizPrecios::resolver() {
  if (std::exchange(rechazado_, false)) Q_EMIT resuelto();
}

bool MatrizPrecios::queda(Celda celda, const QString& dicho, const Error& error) {
  QLineEdit& campo = *casilla(celda).campo;
  campo.setText(dicho);
  campo.setModified(true);
  ventanas::marcarFalta(campo, true);
  rechazado_ = true;
  Q_EMIT fallo(celda, error);
  return false;
}

bool MatrizPrecios::renunciar(Celda celda) {
  const Casilla c = casilla(celda);
  if (!c.campo->isModified()) return false;
  mostrar(celda, c.precio, c.texto);
  resolver();
  return true;
}

// --- keys

bool MatrizPrecios::subirOBajar(Celda celda, int pasos) {
  const int tarifa = celda.tarifa + pasos;
  if (terminar(celda) && tarifa >= 0 && tarifa < tarifas_) irA({celda.nivel, tarifa});
  return true;
}

// True if the key is consumed. A price that is refused can be given up with Escape.
bool MatrizPrecios::tecla(Celda celda, int tecla) {
  switch (tecla) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (terminar(celda)) Q_EMIT intro(celda);
      return true;
    case Qt::Key_Up:
      return subirOBajar(celda, -1);
    case Qt::Key_Down:
      return subirOBajar(celda, 1);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return !terminar(celda);
    case Qt::Key_Escape:
      return renunciar(celda);
    default:
      return false;
  }
}

bool MatrizPrecios::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::FocusIn && evento->type() != QEvent::KeyPress) return false;
  std::optional<Celda> cual;
  cadaCelda([&](Celda c) {
    if (casilla(c).campo == objeto) cual = c;
  });
  if (!cual) return false;
  if (evento->type() == QEvent::KeyPress)
    return tecla(*cual, static_cast<QKeyEvent*>(evento)->key());
  casilla(*cual).campo->selectAll();
  if (*cual != std::exchange(actual_, *cual)) {
    pintarActual();
    Q_EMIT entrada(*cual);
  }
  return false;
}

void decirLoDe(MatrizPrecios& matriz, ventanas::Ventana& ventana) {
  QObject::connect(&matriz, &MatrizPrecios::fallo, &ventana,
                   [&ventana](Celda, const Error& e) { ventana.decirFallo(e); });
  QObject::connect(&matriz, &MatrizPrecios::resuelto, &ventana, [&ventana] {
    if (ventana.tira().estado() == ventanas::Estado::Mal) ventana.tira().quitar();
  });
}

}  // namespace tarvo::precios
