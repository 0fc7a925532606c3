#include "core/ventanas/marco/Tira.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCaducaBien = 8000;  // ms
constexpr int kAltoDetalle = 140;
constexpr int kColumnaBoton = 5;  // after icon, word, text, detail and copy

// Removes the mnemonic, since another control of the window may have the same letter, and Qt then
// activates neither.
QString sinLetra(QString texto) {
  return texto.remove(u'&');
}

QToolButton* botonTira(const QString& nombre, const QString& texto, QWidget* padre) {
  auto* b = new QToolButton(padre);
  b->setObjectName(nombre);
  b->setText(sinLetra(texto));
  return b;
}

QString palabraDe(Estado estado, const Textos& t) {
  switch (estado) {
    case Estado::Bien:
      return t(kTxBien);
    case Estado::Duda:
      return t(kTxDuda);
    case Estado::Mal:
      return t(kTxMal);
    case Estado::Ninguno:
      break;
  }
  return {};
}

}  // namespace

Tira::Tira(const Textos& textos, Reloj& reloj, QWidget* padre)
    : QFrame(padre),
      t_(textos),
      imagen_(new QLabel(this)),
      palabra_(new QLabel(this)),
      texto_(new QLabel(this)),
      detalle_(new QLabel(this)),
      sitioDetalle_(new QScrollArea(this)),
      verDetalle_(botonTira(u"verDetalle"_s, t_(kTxVerDetalle), this)),
      copiar_(botonTira(u"copiar"_s, t_(kTxCopiar), this)),
      cerrar_(botonTira(u"cerrar"_s, {}, this)),
      caduca_(reloj.temporizador([this] { quitar(); })) {
  setObjectName(u"Tira"_s);
  palabra_->setObjectName(u"palabra"_s);
  texto_->setObjectName(u"texto"_s);
  detalle_->setObjectName(u"detalle"_s);
  for (QLabel* l : {texto_, detalle_}) {
    l->setWordWrap(true);
    l->setTextFormat(Qt::PlainText);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  cerrar_->setIcon(icono(u"cerrar"_s));
  cerrar_->setToolTip(t_(kTxCerrarAviso));
  cerrar_->setAccessibleName(t_(kTxCerrarAviso));
  auto* cuadricula = new QGridLayout(this);
  cuadricula->setContentsMargins(escalar(kMargen), escalar(kPaso), escalar(kPaso), escalar(kPaso));
  int columna = 0;
  for (QWidget* w : {static_cast<QWidget*>(imagen_), static_cast<QWidget*>(palabra_),
                     static_cast<QWidget*>(texto_), static_cast<QWidget*>(verDetalle_),
                     static_cast<QWidget*>(copiar_)})
    cuadricula->addWidget(w, 0, columna++, w == texto_ ? Qt::Alignment() : Qt::AlignTop);
  cuadricula->addWidget(cerrar_, 0, kColumnaBoton + 1, Qt::AlignTop);
  for (QLabel* l : {imagen_, palabra_, texto_}) l->setMinimumHeight(escalar(kAltoControl));
  sitioDetalle_->setObjectName(u"sitioDetalle"_s);
  sitioDetalle_->setWidget(detalle_);
  sitioDetalle_->setWidgetResizable(true);
  sitioDetalle_->setFrameShape(QFrame::NoFrame);
  detalle_->setAutoFillBackground(false);
  sitioDetalle_->viewport()->setAutoFillBackground(false);
  cuadricula->addWidget(sitioDetalle_, 1, 2, 1, kColumnaBoton);
  cuadricula->setColumnStretch(2, 1);
  connect(cerrar_, &QToolButton::clicked, this, &Tira::quitar);
  connect(verDetalle_, &QToolButton::clicked, this,
          [this] { mostrarDetalle(!sitioDetalle_->isVisible()); });
  connect(copiar_, &QToolButton::clicked, this, [this] {
    QApplication::clipboard()->setText(texto_->text() + u'\n' + detalle_->text());
  });
  hide();
}

QString Tira::texto() const {
  return isHidden() ? QString() : texto_->text();
}

void Tira::decir(Estado estado, const QString& texto, const QString& detalle) {
  estado_ = estado;
  ++veces_;
  texto_->setText(texto);
  detalle_->setText(detalle);
  mostrarDetalle(false);
  verDetalle_->setVisible(!detalle.isEmpty());
  copiar_->setVisible(estado != Estado::Bien);
  pintar();
  QSizePolicy conSitio = sizePolicy();
  conSitio.setRetainSizeWhenHidden(true);
  setSizePolicy(conSitio);
  show();
  estado == Estado::Bien ? caduca_->unaVez(kCaducaBien) : caduca_->parar();
}

// As high as the text asks for, up to a limit, beyond which it is scrolled.
void Tira::mostrarDetalle(bool si) {
  if (si) {
    const int ancho = layout()->contentsRect().width() - imagen_->width() - palabra_->width();
    const int pide = detalle_->heightForWidth(std::max(ancho, escalar(kAltoDetalle)));
    sitioDetalle_->setFixedHeight(std::clamp(pide, 0, escalar(kAltoDetalle)));
  }
  sitioDetalle_->setVisible(si);
  verDetalle_->setText(sinLetra(t_(si ? kTxOcultarDetalle : kTxVerDetalle)));
}

void Tira::ponerBoton(QWidget* boton) {
  boton->setParent(this);
  static_cast<QGridLayout*>(layout())->addWidget(boton, 0, kColumnaBoton, Qt::AlignTop);
}

void Tira::quitar() {
  caduca_->parar();
  mostrarDetalle(false);
  estado_ = Estado::Ninguno;
  ++veces_;
  hide();
}

void Tira::pintar() {
  const int lado = escalar(kIcono);
  imagen_->setPixmap(iconoEstado(estado_).pixmap(lado, lado));
  palabra_->setText(palabraDe(estado_, t_));
  setAccessibleName(palabra_->text() + u": "_s + texto_->text());
  setProperty("estado", static_cast<int>(estado_));
  for (QWidget* w : {static_cast<QWidget*>(this), static_cast<QWidget*>(palabra_)}) {
    w->style()->unpolish(w);
    w->style()->polish(w);
  }
}

}  // namespace tarvo::ventanas
