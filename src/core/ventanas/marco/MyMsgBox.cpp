#include "core/ventanas/marco/MyMsgBox.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Retenida.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoTexto = 400;
constexpr int kAltoDetalle = 120;

QIcon imagenDe(int estilo) {
  switch (estilo & 0xF0) {
    case kCritico:
      return iconoEstado(Estado::Mal);
    case kExclamacion:
      return iconoEstado(Estado::Duda);
    default:
      return icono(u"informacion"_s);
  }
}

// Not every desktop gives the keyboard back to the window that asked.
int preguntarSobre(QWidget* dueno, MyMsgBox& caja) {
  const QPointer<QWidget> ventana(dueno ? dueno->window() : nullptr);
  const int dicho = caja.exec();
  if (ventana && ventana->isVisible() && !QApplication::activeWindow()) ventana->activateWindow();
  return dicho;
}

// A letter that the asking window doesn't use: the one that asked, pressed twice, would answer too.
// Where all of its letters are in use, one that only goes to a field.
QString conOtraLetra(const QString& acepto, const QString& cancelo,
                     std::initializer_list<QSet<QChar>> deQuien) {
  QString hecho = acepto;
  for (QSet<QChar> usadas : deQuien) {
    conLetra(cancelo, usadas);
    hecho = conLetra(acepto, usadas);
    if (hecho.contains(u'&')) break;
  }
  return hecho;
}

QLabel* parrafo(const QString& texto, QWidget* padre) {
  auto* l = new QLabel(texto, padre);
  l->setTextFormat(Qt::PlainText);
  l->setWordWrap(true);
  l->setTextInteractionFlags(Qt::TextSelectableByMouse);
  l->setMinimumWidth(escalar(kAnchoTexto));
  return l;
}

}  // namespace

MyMsgBox::MyMsgBox(QWidget* dueno, const Textos& textos, const QString& texto, int estilo)
    : QDialog(dueno), todo_(texto) {
  const QSet<QChar> deQuien = dueno ? letrasUsadas(*dueno->window()) : QSet<QChar>();
  const QSet<QChar> deBotones = dueno ? letrasDeBotones(*dueno->window()) : QSet<QChar>();
  setObjectName(u"MyMsgBox"_s);
  setWindowTitle(textos(kTxTitulo));
  auto* imagen = new QLabel(this);
  const int lado = escalar(2 * kIcono);
  imagen->setPixmap(imagenDe(estilo).pixmap(lado, lado));
  auto* mensaje = parrafo(texto, this);
  mensaje->setObjectName(u"Mensaje"_s);
  auto* arriba = new QHBoxLayout;
  arriba->setSpacing(escalar(kSeparacion));
  arriba->addWidget(imagen, 0, Qt::AlignTop);
  auto* textosCaja = new QVBoxLayout;
  textosCaja->setObjectName(u"textosCaja"_s);
  textosCaja->addWidget(mensaje);
  arriba->addLayout(textosCaja, 1);

  auto* acepto = new QPushButton(textos(kTxAceptar), this);
  acepto->setObjectName(u"Acepto"_s);
  QPushButton* intro = acepto;
  connect(acepto, &QPushButton::clicked, this, &QDialog::accept);
  auto* botones = new QHBoxLayout;
  botones->setObjectName(u"botones"_s);
  botones->addStretch();
  botones->addWidget(acepto);
  if ((estilo & 0x0F) == kAceptoCancelo) {
    auto* cancelo = new QPushButton(textos(kTxCancelar), this);
    const bool prudente = estilo & (kPrudente | kExclamacion);
    if (prudente)
      acepto->setText(conOtraLetra(acepto->text(), cancelo->text(), {deQuien, deBotones}));
    cancelo->setObjectName(u"Cancelo"_s);
    cancelo->setAutoDefault(false);
    connect(cancelo, &QPushButton::clicked, this, &QDialog::reject);
    botones->addWidget(cancelo);
    if (prudente) intro = cancelo;
  } else {
    botones->addStretch();
  }
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(escalar(kSeparacion), escalar(kSeparacion), escalar(kSeparacion),
                           escalar(kSeparacion));
  todo->setSpacing(escalar(kSeparacion));
  todo->addLayout(arriba);
  todo->addLayout(botones);
  todo->setSizeConstraint(QLayout::SetFixedSize);
  intro->setDefault(true);
  intro->setFocus();
}

void MyMsgBox::ponerDetalle(const Textos& textos, const QString& remedio, const QString& detalle) {
  todo_ = QStringList{todo_, remedio, detalle}.join(u'\n').trimmed();
  auto* caja = findChild<QVBoxLayout*>(u"textosCaja"_s);
  if (!remedio.isEmpty()) caja->addWidget(parrafo(remedio, this));
  auto* botones = findChild<QHBoxLayout*>(u"botones"_s);
  auto* copiar = new QPushButton(textos(kTxCopiar), this);
  copiar->setObjectName(u"Copiar"_s);
  copiar->setAutoDefault(false);
  connect(copiar, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(todo_); });
  botones->insertWidget(0, copiar);
  if (detalle.isEmpty()) return;
  auto* texto = new QPlainTextEdit(detalle, this);
  texto->setObjectName(u"Detalle"_s);
  texto->setReadOnly(true);
  texto->setAccessibleName(textos(kTxVerDetalle));
  texto->setMinimumHeight(escalar(kAltoDetalle));
  texto->hide();
  caja->addWidget(texto);
  auto* ver = new QPushButton(textos(kTxVerDetalle), this);
  ver->setObjectName(u"VerDetalle"_s);
  ver->setAutoDefault(false);
  connect(ver, &QPushButton::clicked, this, [=, &textos] {
    texto->setVisible(!texto->isVisible());
    ver->setText(textos(texto->isVisible() ? kTxOcultarDetalle : kTxVerDetalle));
  });
  botones->insertWidget(0, ver);
}

bool MyMsgBox::Decide(QWidget* dueno, const Textos& textos, const QString& texto, int estilo) {
  const Retenida mientras(dueno);
  MyMsgBox caja(dueno, textos, texto, estilo);
  return preguntarSobre(dueno, caja) == QDialog::Accepted;
}

void MyMsgBox::mostrarFallo(QWidget* dueno, const Textos& textos, const QString& que,
                            const QString& remedio, const QString& detalle) {
  const Retenida mientras(dueno);
  MyMsgBox caja(dueno, textos, que, kCritico);
  caja.ponerDetalle(textos, remedio, detalle);
  preguntarSobre(dueno, caja);
}

}  // namespace tarvo::ventanas
