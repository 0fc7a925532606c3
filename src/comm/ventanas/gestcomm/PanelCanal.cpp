#include "comm/ventanas/gestcomm/PanelCanal.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kAnchoPanel = 264;
constexpr int kTxEstadosCanal[] = {kTxEstadoCanal0, kTxEstadoCanal1, kTxEstadoCanal2,
                                   kTxEstadoCanal3, kTxEstadoCanal4, kTxEstadoCanal5,
                                   kTxEstadoCanal6, kTxEstadoCanal7, kTxEstadoCanal8,
                                   kTxEstadoCanal9, kTxEstadoCanal10};

QLabel* rotuloPanel(const QString& nombre, QWidget* padre, Letra letra = Letra::Normal) {
  auto* l = new QLabel(padre);
  l->setObjectName(nombre);
  l->setTextFormat(Qt::PlainText);
  l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  ponerLetra(*l, letra);
  return l;
}

}  // namespace

int PanelCanal::anchoPreferido() {
  return escalar(kAnchoPanel);
}

PanelCanal::PanelCanal(int canal, const Textos& textos, QWidget* padre)
    : QFrame(padre), t_(textos), canal_(canal) {
  setObjectName(u"PanelCanal%1"_s.arg(canal + 1));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  CanSemf_ = new Semaforo(this);
  CanSemf_->setObjectName(u"CanSemf"_s);
  titulo_ = rotuloPanel(u"titulo"_s, this);
  QFont fuerte = titulo_->font();
  fuerte.setBold(true);
  titulo_->setFont(fuerte);
  telef_ = rotuloPanel(u"telef"_s, this);
  lbtar_ = rotuloPanel(u"lbtar"_s, this);
  palabra_ = rotuloPanel(u"palabra"_s, this, Letra::Secundaria);
  CanSts_ = new QLabel(this);
  CanSts_->setObjectName(u"CanSts"_s);
  auto* enlace = new QLabel(t_(kTxEnlace), this);
  auto* proc = new QLabel(t_(kTxProc), this);
  ponerLetra(*enlace, Letra::Secundaria);
  ponerLetra(*proc, Letra::Secundaria);
  auto* reja = new QGridLayout(this);
  const int m = escalar(kHueco);
  reja->setContentsMargins(m, m, m, m);
  reja->setHorizontalSpacing(m);
  reja->setVerticalSpacing(escalar(kPaso) / 2);
  reja->addWidget(CanSemf_, 0, 0, 4, 1, Qt::AlignVCenter);
  reja->addWidget(titulo_, 0, 1, 1, 2);
  reja->addWidget(CanSts_, 0, 3, Qt::AlignRight);
  reja->addWidget(palabra_, 1, 1, 1, 3);
  reja->addWidget(enlace, 2, 1);
  reja->addWidget(telef_, 2, 2, 1, 2);
  reja->addWidget(proc, 3, 1);
  reja->addWidget(lbtar_, 3, 2, 1, 2);
  reja->setColumnStretch(2, 1);
}

void PanelCanal::poner(QLabel& rotulo, const QString& texto) {
  if (rotulo.text() == texto) return;
  rotulo.setText(texto);
  rotulo.setToolTip(texto);
}

// The line's icon: not used, closed or open. A modem with its carrier up has the first one.
void PanelCanal::ponerLinea() {
  const bool sinUso = vista_.EstadoCanal == 0;
  const bool modem = vista_.EstadoCanal == 2 && vista_.portadora;
  const QString nombre = sinUso || modem           ? u"linea"_s
                         : vista_.EstadoCanal == 3 ? u"desconectado"_s
                                                   : u"conectado"_s;
  const int lado = escalar(kIcono);
  CanSts_->setPixmap(
      icono(nombre).pixmap(QSize(lado, lado), sinUso ? QIcon::Disabled : QIcon::Normal));
}

void PanelCanal::mostrar(const motor::VistaCanal& v, bool encendido) {
  CanSemf_->ponerCara(Semaforo::caraDe(v.EstadoCanal, encendido));
  if (puesto_ && v == vista_) return;
  const bool otraLinea =
      !puesto_ || v.EstadoCanal != vista_.EstadoCanal || v.portadora != vista_.portadora;
  puesto_ = true;
  vista_ = v;
  const QString estado = v.EstadoCanal >= 0 && v.EstadoCanal < std::ssize(kTxEstadosCanal)
                             ? t_(kTxEstadosCanal[v.EstadoCanal])
                             : QString();
  const QString nombre = v.NombreEnlace.isEmpty() ? t_(kTxCanal).arg(canal_ + 1) : v.NombreEnlace;
  const QString proc = v.TareaCanal < 0 ? QString() : Ceros(v.TareaCanal, 3);
  poner(*titulo_, nombre);
  poner(*palabra_, estado);
  poner(*telef_, v.etiqueta);
  poner(*lbtar_, proc);
  if (otraLinea) ponerLinea();
  setAccessibleName(t_(kTxNombrePanel).arg(nombre, estado, v.etiqueta, proc));
}

// Icons are painted in the colours of the theme.
void PanelCanal::changeEvent(QEvent* evento) {
  QFrame::changeEvent(evento);
  if (puesto_ && evento->type() == QEvent::StyleChange) ponerLinea();
}

void PanelCanal::ponerElegido(bool elegido) {
  const QColor fondo = colorDe(elegido ? Tinte::FondoBien : Tinte::Base);
  if (palette().color(QPalette::Base) == fondo) return;
  QPalette p = palette();
  p.setColor(QPalette::Base, fondo);
  setPalette(p);
}

}  // namespace tarvo::comm
