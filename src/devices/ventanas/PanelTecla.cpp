#include "devices/ventanas/PanelTecla.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QToolButton>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/edicion/Opciones.h"
#include "devices/TextosDevices.h"
#include "devices/ventanas/TextosDevicesVentanas.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLetrasNumero = 9;
constexpr qint64 kArticuloMayorEbony = 999'999, kTaraMayorEbony = 999'999;
enum Hoja : int { kNumero, kNumericas, kFunciones };

}  // namespace

// --- what both panels have

Panel::Panel(const Textos& textos, QWidget* padre) : QWidget(padre), t_(textos) {}

void Panel::montarNumero(QGridLayout& reja, int fila, const QString& suyo) {
  EntNum_ = new QLineEdit(this);
  EntNum_->setObjectName(suyo);
  EntNum_->setMaxLength(kLetrasNumero);
  EntNum_->installEventFilter(this);
  rotulo_ = new QLabel(t(kTxNumeroDeTecla), this);
  rotulo_->setBuddy(EntNum_);
  falta_ = new QLabel(this);
  falta_->setObjectName(u"falta"_s + suyo);
  falta_->setWordWrap(true);
  reja.addWidget(rotulo_, fila, 0);
  reja.addWidget(EntNum_, fila, 1);
  reja.addWidget(falta_, fila + 1, 1);
  falta_->hide();
}

void Panel::decir(const QString& falta) {
  falta_->setText(falta);
  falta_->setVisible(!falta.isEmpty());
  ventanas::marcarFalta(*EntNum_, !falta.isEmpty());
}

QString Panel::falta() const {
  return falta_->isHidden() ? QString() : falta_->text();
}

bool Panel::tocado() const {
  return EntNum_->isModified() && !EntNum_->isHidden();
}

bool Panel::acabar() {
  if (!tocado()) return true;
  decir(guardar());
  return falta().isEmpty();
}

bool Panel::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == EntNum_ && evento->type() == QEvent::KeyPress) {
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
      decir(guardar());
      if (falta().isEmpty()) Q_EMIT acabado();
      return true;
    }
  }
  if (objeto == EntNum_ && evento->type() == QEvent::FocusOut) acabar();
  return QWidget::eventFilter(objeto, evento);
}

void Panel::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Escape) return QWidget::keyPressEvent(evento);
  EntNum_->setModified(false);
  Q_EMIT dejado();
}

// --- of the scales

PanelTecla::PanelTecla(const Textos& textos, const CodigosDeTecla& codigos, QWidget* padre)
    : Panel(textos, padre), codigos_(codigos) {
  setObjectName(u"PanEdi"_s);
  auto* reja = new QGridLayout(this);
  reja->setColumnStretch(1, 1);
  OpTpo_ = new QComboBox(this);
  OpTpo_->setObjectName(u"OpTpo"_s);
  ventanas::Opciones tipos;
  for (int n = 0; n <= static_cast<int>(TipoTecla::Funcion); ++n) {
    const auto tipo = static_cast<TipoTecla>(n);
    if (tipo == TipoTecla::Funcion || codigos_.maximo(tipo) > 0)
      tipos.push_back({n, t(kTxOpcionTecla + n)});
  }
  ventanas::llenar(*OpTpo_, tipos);
  auto* haceDe = new QLabel(t(kTxHaceDe), this);
  haceDe->setBuddy(OpTpo_);
  reja->addWidget(haceDe, 0, 0);
  reja->addWidget(OpTpo_, 0, 1);
  auto* hoja = new QWidget(this);
  auto* suya = new QGridLayout(hoja);
  suya->setContentsMargins(0, 0, 0, 0);
  montarNumero(*suya, 0, u"EntPan"_s);
  suya->setRowStretch(2, 1);
  funciones_ = new QListWidget(this);
  funciones_->setObjectName(u"funciones"_s);
  funciones_->setAccessibleName(t(kTxFunciones));
  pila_ = new QStackedWidget(this);
  pila_->addWidget(hoja);
  pila_->addWidget(montarNumeros());
  pila_->addWidget(funciones_);
  reja->addWidget(pila_, 1, 0, 1, 2);
  reja->setRowStretch(1, 1);
  connect(OpTpo_, &QComboBox::activated, this, [this] {
    cambiarTipo();
    enfocar();
  });
  const auto elegir = [this](const QListWidgetItem* f) {
    Q_EMIT elegido(f->data(Qt::UserRole).toInt());
    Q_EMIT acabado();
  };
  connect(funciones_, &QListWidget::itemActivated, this, elegir);
}

// The numeric keys as they are on a scale.
QWidget* PanelTecla::montarNumeros() {
  numeros_ = new QWidget(this);
  auto* reja = new QGridLayout(numeros_);
  reja->setContentsMargins(0, 0, 0, 0);
  constexpr int kOrden[] = {7, 8, 9, 4, 5, 6, 1, 2, 3, 0, 10, 11};
  for (int i = 0; i < 12; ++i) {
    const int n = kOrden[i];
    auto* b = new QToolButton(numeros_);
    b->setObjectName(u"numerica%1"_s.arg(n));
    b->setText(QString::number(n));
    b->setCheckable(true);
    b->setFocusPolicy(Qt::StrongFocus);
    b->setMinimumSize(ventanas::escalar(44), ventanas::escalar(32));
    reja->addWidget(b, i / 3, i % 3);
    connect(b, &QToolButton::clicked, this, [this, n] {
      if (const auto c = codigos_.codigo(TipoTecla::Numerica, n)) Q_EMIT elegido(*c);
      Q_EMIT acabado();
    });
  }
  reja->setRowStretch(4, 1);
  reja->setColumnStretch(3, 1);
  return numeros_;
}

void PanelTecla::preparar(bool birch) {
  funciones_->clear();
  for (const auto& f : codigos_.funciones(birch)) {
    auto* fila = new QListWidgetItem(f.nombre, funciones_);
    fila->setData(Qt::UserRole, f.codigo);
  }
}

TipoTecla PanelTecla::tipo() const {
  return static_cast<TipoTecla>(ventanas::elegido(*OpTpo_));
}

void PanelTecla::cambiarTipo() {
  const TipoTecla que = tipo();
  pila_->setCurrentIndex(que == TipoTecla::Funcion    ? kFunciones
                         : que == TipoTecla::Numerica ? kNumericas
                                                      : kNumero);
  EntNum_->clear();
  EntNum_->setModified(false);
  EntNum_->setToolTip(t(kTxRangoValores).arg(codigos_.maximo(que)));
  decir({});
}

void PanelTecla::mostrar(int codigo) {
  ventanas::elegir(*OpTpo_, static_cast<int>(codigos_.tipo(codigo)));
  cambiarTipo();
  const int numero = codigos_.numero(codigo);
  if (pila_->currentIndex() == kNumero) EntNum_->setText(QString::number(numero));
  for (auto* b : numeros_->findChildren<QToolButton*>())
    b->setChecked(tipo() == TipoTecla::Numerica && b->text() == QString::number(numero));
  funciones_->setCurrentRow(-1);
  for (int i = 0; i < funciones_->count(); ++i)
    if (funciones_->item(i)->data(Qt::UserRole).toInt() == codigo) funciones_->setCurrentRow(i);
}

void PanelTecla::enfocar() {
  if (pila_->currentIndex() == kFunciones) {
    if (funciones_->currentRow() < 0) funciones_->setCurrentRow(0);
    return funciones_->setFocus();
  }
  if (pila_->currentIndex() == kNumero) {
    EntNum_->selectAll();
    return EntNum_->setFocus();
  }
  for (auto* b : numeros_->findChildren<QToolButton*>())
    if (b->isChecked() || b->text() == u"7") b->setFocus();
}

QString PanelTecla::guardar() {
  bool bien = false;
  const int n = EntNum_->text().trimmed().toInt(&bien);
  const auto codigo = bien ? codigos_.codigo(tipo(), n) : std::nullopt;
  if (!codigo)
    return t(kTxValorIncorrecto) + u'\n' + t(kTxRangoValores).arg(codigos_.maximo(tipo()));
  EntNum_->setModified(false);
  Q_EMIT elegido(*codigo);
  return {};
}

// --- of an Ebony machine

PanelEbony::PanelEbony(const Textos& textos, QWidget* padre) : Panel(textos, padre) {
  setObjectName(u"PanelEdi"_s);
  auto* reja = new QGridLayout(this);
  reja->setColumnStretch(1, 1);
  tpotec_ = new QComboBox(this);
  tpotec_->setObjectName(u"tpotec"_s);
  ventanas::llenar(*tpotec_, ventanas::deTextos(textos, kTxTipoEbony, 3));
  auto* haceDe = new QLabel(t(kTxHaceDe), this);
  haceDe->setBuddy(tpotec_);
  reja->addWidget(haceDe, 0, 0);
  reja->addWidget(tpotec_, 0, 1);
  montarNumero(*reja, 1, u"EntNum"_s);
  reja->setRowStretch(3, 1);
  connect(tpotec_, &QComboBox::activated, this, [this] {
    cambiarTipo();
    if (ventanas::elegido(*tpotec_) == static_cast<int>(TecladoEbony::Tipo::Nulo))
      Q_EMIT elegida({});
    else
      enfocar();
  });
}

void PanelEbony::cambiarTipo() {
  const auto tipo = static_cast<TecladoEbony::Tipo>(ventanas::elegido(*tpotec_));
  const bool conNumero = tipo != TecladoEbony::Tipo::Nulo;
  rotulo_->setText(t(tipo == TecladoEbony::Tipo::Tara ? kTxTaraEbony : kTxPluNumero));
  rotulo_->setVisible(conNumero);
  EntNum_->setVisible(conNumero);
  EntNum_->clear();
  EntNum_->setModified(false);
  decir({});
}

void PanelEbony::mostrar(const TecladoEbony::Tecla& tecla) {
  ventanas::elegir(*tpotec_, static_cast<int>(tecla.tipo));
  cambiarTipo();
  if (tecla.tipo != TecladoEbony::Tipo::Nulo) EntNum_->setText(QString::number(tecla.valor));
}

void PanelEbony::enfocar() {
  if (EntNum_->isHidden()) return tpotec_->setFocus();
  EntNum_->selectAll();
  EntNum_->setFocus();
}

QString PanelEbony::guardar() {
  const auto tipo = static_cast<TecladoEbony::Tipo>(ventanas::elegido(*tpotec_));
  const bool plu = tipo == TecladoEbony::Tipo::PluDirecto;
  const qint64 mayor = plu ? kArticuloMayorEbony : kTaraMayorEbony;
  bool bien = false;
  const qint64 n = EntNum_->text().trimmed().toLongLong(&bien);
  if (tipo == TecladoEbony::Tipo::Nulo) {
    Q_EMIT elegida({});
    return {};
  }
  if (!bien || n < (plu ? kPrimerArticuloDeTecla : 1) || n > mayor)
    return plu && bien && n > 0 && n <= mayor
               ? t(kTxNoVaEnTecla)
               : t(kTxValorIncorrecto) + u'\n' + t(kTxRangoValores).arg(mayor);
  EntNum_->setModified(false);
  Q_EMIT elegida({tipo, n});
  return {};
}

}  // namespace tarvo::devices
