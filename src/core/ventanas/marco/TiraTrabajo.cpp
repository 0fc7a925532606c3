#include "core/ventanas/marco/TiraTrabajo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSeEnsena = 250;  // ms
constexpr int kBarra = 1000;    // steps of the progress bar

QString conMillares(qint64 n) {
  return QLocale(QLocale::Spanish).toString(n);
}

}  // namespace

TiraTrabajo::TiraTrabajo(const Textos& textos, Reloj& reloj, QWidget* padre)
    : QFrame(padre),
      t_(textos),
      reloj_(reloj),
      que_(new QLabel(this)),
      cuanto_(new QLabel(this)),
      barra_(new QProgressBar(this)),
      parar_(new QPushButton(t_(kTxParar), this)) {
  setObjectName(u"TiraTrabajo"_s);
  parar_->setObjectName(u"parar"_s);
  barra_->setTextVisible(false);
  barra_->setFixedHeight(escalar(2 * kPaso));
  ponerLetra(*cuanto_, Letra::Secundaria);
  auto* linea = new QHBoxLayout(this);
  linea->setContentsMargins(escalar(kMargen), escalar(kPaso), escalar(kPaso), escalar(kPaso));
  linea->addWidget(que_);
  linea->addWidget(barra_, 1);
  linea->addWidget(cuanto_);
  linea->addWidget(parar_);
  connect(parar_, &QPushButton::clicked, this, &TiraTrabajo::parar);
  hide();
}

TiraTrabajo::~TiraTrabajo() = default;

bool TiraTrabajo::enMarcha() const {
  return trabajo_ && trabajo_->enMarcha();
}

bool TiraTrabajo::empezar(const QString& que, Trabajo::Paso paso, Trabajo::AlAcabar alAcabar) {
  if (enMarcha()) return false;
  que_->setText(que);
  barra_->setAccessibleName(que);
  cuanto_->clear();
  barra_->setRange(0, 0);
  desde_ = reloj_.monotono();
  trabajo_ = std::make_unique<Trabajo>(
      reloj_, std::move(paso), [this](const Trabajo::Avance& a) { avanzar(a); },
      [this, alAcabar = std::move(alAcabar)](const Resultado<Trabajo::Fin>& fin) {
        if (isVisible()) vistaHasta_ = reloj_.monotono();
        hide();
        if (alAcabar) alAcabar(fin);
      });
  if (pausas_ > 0) trabajo_->pausar();
  trabajo_->empezar();
  return true;
}

void TiraTrabajo::parar() {
  if (trabajo_) trabajo_->parar();
}

TiraTrabajo::Pausa::Pausa(TiraTrabajo& tira) : tira_(&tira) {
  if (++tira.pausas_ == 1 && tira.trabajo_) tira.trabajo_->pausar();
}

TiraTrabajo::Pausa::~Pausa() {
  if (tira_ && --tira_->pausas_ == 0 && tira_->trabajo_) tira_->trabajo_->seguir();
}

void TiraTrabajo::avanzar(const Trabajo::Avance& a) {
  if (isHidden() && reloj_.monotono() - desde_ >= kSeEnsena) show();
  if (isHidden()) return;
  const bool sabido = a.total > 0;
  barra_->setRange(0, sabido ? kBarra : 0);
  if (sabido) barra_->setValue(static_cast<int>(a.hechos * kBarra / a.total));
  const QString cuenta = sabido ? t_(kTxHechosDe).arg(conMillares(a.hechos), conMillares(a.total))
                                : t_(kTxHechos).arg(conMillares(a.hechos));
  cuanto_->setText(a.texto.isEmpty() ? cuenta : a.texto + u"  "_s + cuenta);
}

}  // namespace tarvo::ventanas
