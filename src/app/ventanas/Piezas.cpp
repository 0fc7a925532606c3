#include "app/ventanas/Piezas.h"

#include <QBoxLayout>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;
using ventanas::colorDe;
using ventanas::escalar;
using ventanas::Estado;
using ventanas::Letra;
using ventanas::Tinte;

namespace {

constexpr int kLetrasTitulo = 36;  // of a group's line: its code and 30 letters

QLabel* rotulo(QWidget* padre, const QString& nombre, Letra letra, bool pliega = false) {
  auto* l = new QLabel(padre);
  l->setObjectName(nombre);
  l->setTextFormat(Qt::PlainText);
  l->setWordWrap(pliega);
  l->setAttribute(Qt::WA_TransparentForMouseEvents);
  l->setForegroundRole(QPalette::WindowText);  // a button's child would inherit the role of buttons
  ventanas::ponerLetra(*l, letra);
  return l;
}

QLabel* hueco(QWidget* padre) {
  auto* l = new QLabel(padre);
  l->setAttribute(Qt::WA_TransparentForMouseEvents);
  return l;
}

Tinte tinteDe(Estado estado) {
  return estado == Estado::Bien   ? Tinte::Bien
         : estado == Estado::Duda ? Tinte::Duda
         : estado == Estado::Mal  ? Tinte::Mal
                                  : Tinte::TextoPalido;
}

void tenir(QLabel& l, Tinte tinte, bool fuerte) {
  QPalette p = l.palette();
  p.setColor(QPalette::WindowText, colorDe(tinte));
  l.setPalette(p);
  QFont f = l.font();
  f.setWeight(fuerte ? QFont::DemiBold : QFont::Normal);
  l.setFont(f);
}

}  // namespace

// --- bars ---------------------------------------------------------------------------------------

Barras::Barras(QWidget* padre) : QWidget(padre) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Barras::poner(std::vector<double> alturas) {
  alturas_ = std::move(alturas);
  setVisible(!alturas_.empty());
  updateGeometry();
  update();
}

QSize Barras::sizeHint() const {
  const int n = std::max(1, static_cast<int>(alturas_.size()));
  return {escalar(n * (ventanas::kIcono + ventanas::kPaso)), escalar(ventanas::kAltoFila * 2)};
}

void Barras::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const int ancho = escalar(ventanas::kIcono), paso = ancho + escalar(ventanas::kPaso);
  for (size_t i = 0; i < alturas_.size(); ++i) {
    const bool deHoy = i + 1 == alturas_.size();
    const int alto = std::max(2, qRound(std::max(0.0, alturas_[i]) * height()));
    const QRect barra(static_cast<int>(i) * paso, height() - alto, ancho, alto);
    p.fillRect(barra, colorDe(alturas_[i] < 0 ? Tinte::Linea
                              : deHoy         ? Tinte::Acento
                                              : Tinte::Borde));
  }
}

// --- all pieces ---------------------------------------------------------------------------------

Pieza::Pieza(QWidget* padre) : QAbstractButton(padre) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  QSizePolicy politica(QSizePolicy::Expanding, QSizePolicy::Preferred);
  politica.setHeightForWidth(true);
  setSizePolicy(politica);
}

void Pieza::poner(const Renglon& renglon) {
  renglon_ = renglon;
  QStringList todo{renglon.palabra, renglon.titulo, renglon.valor, renglon.texto};
  todo.removeAll(QString());
  setAccessibleName(todo.join(u". "_s));
  setAccessibleDescription(renglon.detalle);
  setCursor(ventanaDe(renglon.lleva).isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
  setFocusPolicy(ventanaDe(renglon.lleva).isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
  mostrar();
  updateGeometry();
  update();
}

void Pieza::ponerSinVentana(const QString& tip) {
  setToolTip(tip.isEmpty() ? renglon_.detalle : tip);
  if (!tip.isEmpty()) setCursor(Qt::ArrowCursor);
}

void Pieza::ponerEstado(QLabel& imagen, int lado) const {
  const int lados = escalar(lado);
  const bool neutro = renglon_.estado == Estado::Ninguno;
  const QIcon icono =
      neutro ? ventanas::icono(u"quitar"_s) : ventanas::iconoEstado(renglon_.estado);
  imagen.setPixmap(icono.pixmap({lados, lados}, neutro ? QIcon::Disabled : QIcon::Normal));
  imagen.setVisible(renglon_.estado != Estado::Ninguno);
}

QSize Pieza::sizeHint() const {
  const int ancho = layout()->sizeHint().width();
  return {ancho, heightForWidth(ancho)};
}

// The minimum height depends on the width alone.
QSize Pieza::minimumSizeHint() const {
  return {layout()->minimumSize().width(), escalar(ventanas::kAltoFila)};
}

int Pieza::heightForWidth(int ancho) const {
  return layout()->hasHeightForWidth() ? layout()->heightForWidth(ancho)
                                       : layout()->sizeHint().height();
}

bool Pieza::event(QEvent* evento) {
  // The icons and colours were set for the previous theme.
  if (evento->type() == QEvent::PaletteChange) mostrar();
  return QAbstractButton::event(evento);
}

void Pieza::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter)
    return QAbstractButton::keyPressEvent(evento);
  click();
}

QColor Pieza::fondo() const {
  return conBorde() ? colorDe(Tinte::Base) : QColor(Qt::transparent);
}

void Pieza::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const bool encima = underMouse() && !ventanaDe(renglon_.lleva).isEmpty();
  p.setPen(conBorde() ? QPen(colorDe(encima ? Tinte::Acento : Tinte::Linea), 1) : QPen(Qt::NoPen));
  p.setBrush(encima && !conBorde() && fondo().alpha() == 0 ? colorDe(Tinte::BaseAlterna) : fondo());
  p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), ventanas::kRedondo,
                    ventanas::kRedondo);
}

// --- the night ----------------------------------------------------------------------------------

Titular::Titular(QWidget* padre)
    : Pieza(padre),
      imagen_(hueco(this)),
      titulo_(rotulo(this, u"titulo"_s, Letra::Titulo, true)),
      texto_(rotulo(this, u"texto"_s, Letra::Normal, true)),
      valor_(rotulo(this, u"valor"_s, Letra::Normal)) {
  auto* caja = new QHBoxLayout(this);
  const int m = escalar(ventanas::kMargen);
  caja->setContentsMargins(m, m, m, m);
  caja->setSpacing(m);
  auto* textos = new QVBoxLayout;
  textos->setSpacing(escalar(ventanas::kPaso));
  textos->addWidget(titulo_);
  textos->addWidget(texto_);
  caja->addWidget(imagen_);
  caja->addLayout(textos, 1);
  caja->addWidget(valor_);
}

void Titular::mostrar() {
  ponerEstado(*imagen_, ventanas::kIconoGrande);
  titulo_->setText(renglon_.titulo);
  texto_->setText(renglon_.texto);
  texto_->setVisible(!renglon_.texto.isEmpty());
  valor_->setText(renglon_.valor);
  valor_->setVisible(!renglon_.valor.isEmpty());
  tenir(*valor_, Tinte::Acento, false);
  tenir(*titulo_, renglon_.estado == Estado::Ninguno ? Tinte::Texto : tinteDe(renglon_.estado),
        true);
}

QColor Titular::fondo() const {
  switch (renglon_.estado) {
    case Estado::Bien:
      return colorDe(Tinte::FondoBien);
    case Estado::Duda:
      return colorDe(Tinte::FondoDuda);
    case Estado::Mal:
      return colorDe(Tinte::FondoMal);
    case Estado::Ninguno:
      break;
  }
  return colorDe(Tinte::Base);
}

// --- cards --------------------------------------------------------------------------------------

Tarjeta::Tarjeta(QWidget* padre)
    : Pieza(padre),
      imagen_(hueco(this)),
      titulo_(rotulo(this, u"titulo"_s, Letra::Secundaria, true)),
      valor_(rotulo(this, u"valor"_s, Letra::Cifra)),
      texto_(rotulo(this, u"texto"_s, Letra::Normal, true)),
      barras_(new Barras(this)) {
  auto* caja = new QVBoxLayout(this);
  const int m = escalar(ventanas::kMargen);
  caja->setContentsMargins(m, m, m, m);
  caja->setSpacing(escalar(ventanas::kPaso));
  auto* cifra = new QHBoxLayout;
  cifra->setSpacing(escalar(ventanas::kHueco));
  cifra->addWidget(imagen_);
  cifra->addWidget(valor_);
  cifra->addStretch(1);
  auto* abajo = new QHBoxLayout;
  abajo->setSpacing(m);
  abajo->addWidget(texto_, 1, Qt::AlignTop);
  abajo->addWidget(barras_, 0, Qt::AlignBottom);
  caja->addWidget(titulo_);
  caja->addLayout(cifra);
  caja->addLayout(abajo);
  caja->addStretch(1);
}

void Tarjeta::mostrar() {
  ponerEstado(*imagen_, ventanas::kIconoGrande);
  titulo_->setText(renglon_.titulo);
  valor_->setText(renglon_.valor);
  texto_->setText(renglon_.texto);
  barras_->poner(renglon_.barras);
}

// --- lines --------------------------------------------------------------------------------------

LineaGrupo::LineaGrupo(QWidget* padre)
    : Pieza(padre),
      imagen_(hueco(this)),
      palabra_(rotulo(this, u"palabra"_s, Letra::Normal)),
      titulo_(rotulo(this, u"titulo"_s, Letra::Normal)),
      texto_(rotulo(this, u"texto"_s, Letra::Normal, true)),
      valor_(rotulo(this, u"valor"_s, Letra::Normal)) {
  auto* caja = new QHBoxLayout(this);
  const int v = escalar(ventanas::kPaso), h = escalar(ventanas::kHueco);
  caja->setContentsMargins(h, v, h, v);
  caja->setSpacing(h);
  imagen_->setFixedWidth(escalar(ventanas::kIcono));
  valor_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  caja->addWidget(imagen_, 0, Qt::AlignTop);
  caja->addWidget(palabra_, 0, Qt::AlignTop);
  caja->addWidget(titulo_, 0, Qt::AlignTop);
  caja->addWidget(valor_, 0, Qt::AlignTop);
  caja->addSpacing(h);
  caja->addWidget(texto_, 1, Qt::AlignTop);
}

// A longer title is cut with an ellipsis: it would leave no room for the reason, and the line would
// grow.
QSize LineaGrupo::anchosQuePide() const {
  const QFontMetrics letra = titulo_->fontMetrics();
  const int titulo = letra.horizontalAdvance(renglon_.titulo) + escalar(ventanas::kPaso);
  return {palabra_->sizeHint().width(), std::min(titulo, kLetrasTitulo * letra.averageCharWidth())};
}

int LineaGrupo::valorQuePide() const {
  return valor_->sizeHint().width();
}

void LineaGrupo::ponerAnchos(int palabra, int titulo, int valor) {
  palabra_->setFixedWidth(palabra);
  titulo_->setFixedWidth(titulo);
  titulo_->setText(titulo_->fontMetrics().elidedText(renglon_.titulo, Qt::ElideRight, titulo));
  valor_->setFixedWidth(valor);
}

void LineaGrupo::mostrar() {
  ponerEstado(*imagen_, ventanas::kIcono);
  imagen_->setVisible(true);
  palabra_->setText(renglon_.palabra);
  titulo_->setText(renglon_.titulo);
  texto_->setText(renglon_.texto);
  valor_->setText(renglon_.valor);
  tenir(*palabra_, tinteDe(renglon_.estado), true);
}

}  // namespace tarvo::app
