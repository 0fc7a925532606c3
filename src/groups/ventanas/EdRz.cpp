#include "groups/ventanas/EdRz.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QToolButton>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;
using devices::Cabecera;

namespace {

// How wide and high a letter of each font is printed, in points of the preview.
struct Fuente {
  double alto, ancho;
};
constexpr Fuente kFuentes[devices::kFuentesTicket] = {
    {7, 1.0}, {9.5, 0.85}, {12, 0.7}, {12, 0.95}, {15, 0.85}};

struct Familia {
  QStringView ventana;
  int lineas, largo;
};
constexpr Familia kFamilias[] = {{PuertaEdRzSoc::kNombre, 6, 27},
                                 {PuertaEdRzBirch::kNombre, 6, 37},
                                 {PuertaEdRzSEbony::kNombre, 5, 32}};

const Familia& familiaDe(const QString& ventana) {
  return *std::ranges::find_if(kFamilias, [&](const Familia& f) { return ventana == f.ventana; });
}

QFont letraDe(int fuente, double escala) {
  QFont letra(u"monospace"_s);
  letra.setStyleHint(QFont::Monospace);
  const Fuente& f = kFuentes[std::clamp(fuente, 0, devices::kFuentesTicket - 1)];
  letra.setPointSizeF(f.alto * escala);
  letra.setStretch(static_cast<int>(f.ancho * 100));
  return letra;
}

}  // namespace

// The ticket as it comes out: header, body, footer.
class Tique final : public QWidget {
 public:
  explicit Tique(QWidget* padre) : QWidget(padre) { setMinimumWidth(escalar(250)); }
  void poner(const Cabecera& c, const QStringList& cuerpo) {
    c_ = c, cuerpo_ = cuerpo;
    update();
  }

 private:
  // The ticket is paper in either theme.
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    p.setPen(colorDe(Tinte::Borde));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    p.setPen(Qt::black);
    int y = escalar(kMargen);
    const auto linea = [&](const QString& texto, int fuente) {
      p.setFont(letraDe(fuente, font().pointSizeF() / kLetra));
      const int alto = p.fontMetrics().height();
      p.drawText(QRect(escalar(kHueco), y, width() - 2 * escalar(kHueco), alto), Qt::AlignVCenter,
                 texto);
      y += alto + 1;
    };
    for (int n = 0; n < static_cast<int>(c_.lineas.size()); ++n) {
      if (n == c_.arriba) cuerpo(linea);
      linea(c_.lineas[static_cast<size_t>(n)].texto, c_.lineas[static_cast<size_t>(n)].fuente);
    }
    if (c_.arriba >= static_cast<int>(c_.lineas.size())) cuerpo(linea);
  }
  template <class F>
  void cuerpo(F linea) const {
    for (const QString& s : cuerpo_) linea(s, 0);
  }

  Cabecera c_;
  QStringList cuerpo_;
};

EdRz::EdRz(Contexto& contexto, const QString& nombre) : HojaDeMaquina(contexto, nombre) {
  const Familia& familia = familiaDe(nombre);
  auto f = formulario(kTxTituloRz);
  auto columnas = f.columnas({3, 2});
  auto* caja = columnas[0].ancho(new QGroupBox(t(kTxLineas)), u"LinTk"_s);
  sitio_ = new QVBoxLayout(caja);
  sitio_->setSpacing(escalar(kPaso));
  for (int n = 0; n < familia.lineas; ++n) montarLinea(n, familia.largo);
  cuerpoTique_ = new QWidget(caja);
  auto* barra = new QHBoxLayout(cuerpoTique_);
  barra->setContentsMargins(0, 0, 0, 0);
  auto* dibujo = new QLabel(t(kTxCuerpo), cuerpoTique_);
  dibujo->setObjectName(u"cuerpo"_s);
  dibujo->setFrameShape(QFrame::StyledPanel);
  dibujo->setAlignment(Qt::AlignCenter);
  barra->addWidget(dibujo, 1);
  const auto boton = [&](const QString& icono, int pista, const QString& suyo, int pasos) {
    auto* b = columnas[0].icono(icono, pista, suyo, [this, pasos] { moverCuerpo(pasos); });
    b->setParent(cuerpoTique_);
    barra->addWidget(b);
    return b;
  };
  arriba_ = boton(u"bajar"_s, kTxLinArba, u"LinArba"_s, 1);
  abajo_ = boton(u"subir"_s, kTxLinAbjo, u"LinAbjo"_s, -1);
  sitio_->addWidget(cuerpoTique_);
  Mues_ = columnas[0].ancho(new QListWidget(cuerpo()), u"Mues"_s, kTxFuentes, 1);
  for (int n = 0; n < devices::kFuentesTicket; ++n) {
    auto* item = new QListWidgetItem(t(kTxFuenteDe).arg(n), Mues_);
    item->setFont(letraDe(n, font().pointSizeF() / kLetra));
  }
  Mues_->setMinimumHeight(escalar(96));
  connect(Mues_, &QListWidget::itemClicked, this,
          [this] { ponerFuente(linea_, Mues_->currentRow()); });
  connect(Mues_, &QListWidget::itemActivated, this,
          [this] { ponerFuente(linea_, Mues_->currentRow()); });
  tique_ = columnas[1].ancho(new Tique(cuerpo()), u"tique"_s, 0, 1);
  tique_->setAccessibleName(t(kTxMuestra));
  acabarHoja(f, {760, 500});
}

void EdRz::montarLinea(int n, int largo) {
  auto* fila = new QWidget(cuerpo());
  auto* linea = new QHBoxLayout(fila);
  linea->setContentsMargins(0, 0, 0, 0);
  auto* fuente = new QToolButton(fila);
  fuente->setObjectName(u"fuente%1"_s.arg(n + 1));
  fuente->setFocusPolicy(Qt::StrongFocus);
  fuente->setToolTip(t(kTxFuenteTip).arg(n + 1));
  auto* texto_ = new QLineEdit(fila);
  texto_->setObjectName(u"linea%1"_s.arg(n + 1));
  texto_->setAccessibleName(t(kTxLineaDe).arg(n + 1));
  texto_->setMaxLength(largo);
  linea->addWidget(fuente);
  linea->addWidget(texto_, 1);
  sitio_->addWidget(fila);
  lineas_.push_back({fila, fuente, texto_});
  fuente->installEventFilter(this);
  texto_->installEventFilter(this);
  connect(fuente, &QToolButton::clicked, this, [this, n] {
    ponerFuente(n, (r.lineas[static_cast<size_t>(n)].fuente + 1) % devices::kFuentesTicket);
  });
  connect(texto_, &QLineEdit::textEdited, this, [this, n](const QString& s) {
    r.lineas[static_cast<size_t>(n)].texto = s;
    ver();
  });
}

Resultado<> EdRz::entrar(const PuertaDeMaquina& puerta) {
  const auto leida =
      devices::leerCabecera(maquinaDe(puerta.maquina).RazonSo, static_cast<int>(lineas_.size()));
  TARVO_INTENTAR(abrirHoja(puerta, kTxTituloRz, leida));
  for (size_t n = 0; n < lineas_.size(); ++n) lineas_[n].texto->setText(r.lineas[n].texto);
  colocarCuerpo();
  lineas_.front().texto->setFocus();
  return {};
}

// The picture of the body stands after the lines above it.
void EdRz::colocarCuerpo() {
  sitio_->removeWidget(cuerpoTique_);
  sitio_->insertWidget(r.arriba, cuerpoTique_);
  arriba_->setEnabled(r.arriba < static_cast<int>(lineas_.size()));
  abajo_->setEnabled(r.arriba > 0);
  ver();
}

void EdRz::moverCuerpo(int pasos) {
  r.arriba = std::clamp(r.arriba + pasos, 0, static_cast<int>(lineas_.size()));
  colocarCuerpo();
}

void EdRz::ponerFuente(int linea, int fuente) {
  if (fuente < 0) return;
  r.lineas[static_cast<size_t>(linea)].fuente = fuente;
  ver();
}

void EdRz::ver() {
  for (size_t n = 0; n < lineas_.size(); ++n) {
    lineas_[n].fuente->setText(QString::number(r.lineas[n].fuente));
    lineas_[n].fuente->setAccessibleName(
        contexto().textos(kTxFuenteDeLinea, {n + 1, r.lineas[n].fuente}));
  }
  Mues_->setCurrentRow(r.lineas[static_cast<size_t>(linea_)].fuente);
  const QStringList cuerpo{t(kTxMuestraFecha)};
  tique_->poner(r, cuerpo);
}

// F on the font of a line moves to the next one; the arrows go from line to line.
bool EdRz::eventFilter(QObject* objeto, QEvent* evento) {
  const auto suya = std::ranges::find_if(
      lineas_, [objeto](const Linea& l) { return l.fuente == objeto || l.texto == objeto; });
  if (suya == lineas_.end()) return HojaDeMaquina::eventFilter(objeto, evento);
  const int n = static_cast<int>(suya - lineas_.begin());
  if (evento->type() == QEvent::FocusIn) {
    linea_ = n;
    Mues_->setCurrentRow(r.lineas[static_cast<size_t>(n)].fuente);
  }
  if (evento->type() != QEvent::KeyPress) return HojaDeMaquina::eventFilter(objeto, evento);
  const auto* tecla = static_cast<QKeyEvent*>(evento);
  if (objeto == suya->fuente && tecla->key() == Qt::Key_F) {
    suya->fuente->click();
    return true;
  }
  const int paso = tecla->key() == Qt::Key_Up ? -1 : tecla->key() == Qt::Key_Down ? 1 : 0;
  const int hacia = n + paso;
  if (paso == 0 || hacia < 0 || hacia >= static_cast<int>(lineas_.size()))
    return HojaDeMaquina::eventFilter(objeto, evento);
  const Linea& otra = lineas_[static_cast<size_t>(hacia)];
  objeto == suya->fuente ? otra.fuente->setFocus() : otra.texto->setFocus();
  return true;
}

}  // namespace tarvo::groups
