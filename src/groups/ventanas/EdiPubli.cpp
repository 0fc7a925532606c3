#include "groups/ventanas/EdiPubli.h"

#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kMensajeMayor = 200, kTiempoMayor = 99, kLetrasPantalla = 20;
constexpr int kMsBase = 40, kMsPorTiempo = 6;  // a step, by the time
enum Modo_ : int { kIzquierda = 0, kDerecha = 1, kPorLineas = 2 };

}  // namespace

// The display of a scale: one line of twenty letters.
class Pantalla final : public QWidget {
 public:
  explicit Pantalla(QWidget* padre) : QWidget(padre) {
    setFixedHeight(escalar(44));
    setFocusPolicy(Qt::NoFocus);
  }
  void poner(const QString& texto, int modo) {
    if (texto != texto_ || modo != modo_) paso_ = 0;
    texto_ = texto, modo_ = modo;
    update();
  }
  void avanzar() {
    ++paso_;
    update();
  }
  // What it shows now.
  QString visto() const {
    const int largo = static_cast<int>(texto_.size());
    if (largo == 0) return {};
    if (modo_ == kPorLineas) {
      const int trozos = (largo + kLetrasPantalla - 1) / kLetrasPantalla;
      return texto_.mid((paso_ / kLetrasPantalla) % trozos * kLetrasPantalla, kLetrasPantalla);
    }
    const QString tira = texto_ + QString(kLetrasPantalla, u' ');
    const int vuelta = static_cast<int>(tira.size());
    const int desde = modo_ == kDerecha ? (vuelta - paso_ % vuelta) % vuelta : paso_ % vuelta;
    return (tira + tira).mid(desde, kLetrasPantalla);
  }

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(colorDe(Tinte::Borde));
    p.setBrush(colorDe(Tinte::FondoBien));
    p.drawRoundedRect(rect().adjusted(1, 1, -2, -2), 4, 4);
    QFont letra(u"monospace"_s);
    letra.setStyleHint(QFont::Monospace);
    letra.setPointSizeF(kLetraTitulo * font().pointSizeF() / kLetra);
    p.setFont(letra);
    p.setPen(colorDe(Tinte::Texto));
    const int ancho = QFontMetrics(letra).horizontalAdvance(QString(kLetrasPantalla, u'M'));
    p.drawText(QRect((width() - ancho) / 2, 0, ancho, height()), Qt::AlignVCenter | Qt::AlignLeft,
               visto());
  }

  QString texto_;
  int modo_ = kIzquierda, paso_ = 0;
};

EdiPubli::EdiPubli(Contexto& contexto, const QString& nombre) : HojaDeMaquina(contexto, nombre) {
  auto f = formulario(kTxTituloPubli);
  mensaje_ = &f.parrafo(kTxMensajeTexto, u"txMensaje"_s, r.mensaje, 70);
  auto* caja = f.ancho(new QGroupBox(t(kTxComoPasa)), u"cajaModo"_s);
  auto* linea = new QHBoxLayout(caja);
  std::vector<std::pair<QRadioButton*, int>> radios;
  for (const auto& [nombreSuyo, modo] :
       {std::pair{u"OpIzq"_s, kIzquierda}, {u"OpDch"_s, kDerecha}, {u"OpLin"_s, kPorLineas}}) {
    auto* boton = new QRadioButton(t(kTxModosMensaje + int{modo}), caja);
    boton->setObjectName(nombreSuyo);
    linea->addWidget(boton);
    radios.emplace_back(boton, modo);
  }
  Campo& modo = anadir(
      &enlazarRadios(*caja, radios, [this] { return r.Modo; }, [this](int n) { r.Modo = n; }));
  velo_ = new QSlider(Qt::Horizontal, cuerpo());
  velo_->setRange(1, kTiempoMayor);
  velo_->setAccessibleName(t(kTxTiempo).remove(u'&'));
  velo_->setObjectName(u"Velo"_s);
  auto* rotulo = new QLabel(t(kTxTiempo), cuerpo());
  rotulo->setBuddy(velo_);
  cuanto_ = new QLabel(cuerpo());
  f.enLinea({rotulo, velo_, cuanto_});
  auto* tiempo = new CampoVivo(
      *velo_, nullptr,
      {.estado = [this] { return QString::number(velo_->value()); },
       .aControl = [this] { velo_->setValue(r.Tiempo == 0 ? kTiempoMayor : r.Tiempo); },
       .aMiembro = [this] { r.Tiempo = velo_->value(); }});
  connect(velo_, &QSlider::valueChanged, tiempo, &CampoVivo::haCambiado);
  tiempo->ponerNombre(t(kTxTiempo));
  anadir(tiempo);
  pantalla_ = f.ancho(new Pantalla(cuerpo()), u"pantalla"_s);
  pantalla_->setAccessibleName(t(kTxMuestra));
  acabarHoja(f, {520, 360});
  for (Campo* c : {mensaje_, &modo, static_cast<Campo*>(tiempo)})
    connect(c, &Campo::cambiado, this, &EdiPubli::ver);
  reloj_ = contexto.reloj.temporizador([this] { paso(); });
}

Resultado<> EdiPubli::entrar(const PuertaEdiPubli& puerta) {
  TARVO_INTENTAR(abrirHoja(puerta, kTxTituloPubli, maquinaDe(puerta.maquina).Publici, kTxMensaje));
  ver();
  paso();
  return {};
}

std::vector<Ficha::FaltaCampo> EdiPubli::comprobar() {
  if (r.mensaje.size() <= kMensajeMayor) return {};
  return {{mensaje_, contexto().textos(kTxSobranLetras, {kMensajeMayor, r.mensaje.size()})}};
}

void EdiPubli::ver() {
  cuanto_->setText(QString::number(velo_->value()));
  pantalla_->poner(cuerpo()->findChild<QPlainTextEdit*>(u"txMensaje"_s)->toPlainText().simplified(),
                   r.Modo);
}

void EdiPubli::paso() {
  pantalla_->avanzar();
  reloj_->unaVez(kMsBase + kMsPorTiempo * velo_->value());
}

}  // namespace tarvo::groups
