#include "app/ventanas/Manana.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>

#include "app/Aplicacion.h"
#include "app/ventanas/TextosPrincipal.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;
using ventanas::escalar;
using ventanas::Letra;

namespace {

constexpr int kTrasPintar = 30;      // ms
constexpr int kMirar = 2'000;        // ms between two checks for changes
constexpr qint64 kVejez = 60'000;    // ms until it is read in any case: "yesterday" moves on
constexpr qint64 kDescanso = 5'000;  // ms at least between two readings during a run

QLabel* texto(QWidget* padre, Letra letra, const QString& nombre) {
  auto* l = new QLabel(padre);
  l->setObjectName(nombre);
  l->setTextFormat(Qt::PlainText);
  ventanas::ponerLetra(*l, letra);
  return l;
}

}  // namespace

Manana::Manana(ventanas::Contexto& contexto, Aplicacion& aplicacion, QWidget* padre)
    : QScrollArea(padre), c_(contexto), app_(aplicacion), aparte_(contexto, *this) {
  setObjectName(u"Manana"_s);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  auto* dentro = new QWidget;
  auto* todo = new QVBoxLayout(dentro);
  const int m = escalar(ventanas::kSeparacion);
  todo->setContentsMargins(m, m, m, m);
  todo->setSpacing(escalar(ventanas::kMargen));

  auto* cabeza = new QHBoxLayout;
  auto* titulo = texto(dentro, Letra::Titulo, u"TituloManana"_s);
  titulo->setText(c_.textos(kTxManana));
  dia_ = texto(dentro, Letra::Secundaria, u"DiaManana"_s);
  cabeza->addWidget(titulo, 1);
  cabeza->addWidget(dia_, 0, Qt::AlignBottom);
  todo->addLayout(cabeza);

  noche_ = new Titular(dentro);
  noche_->setObjectName(u"Noche"_s);
  todo->addWidget(noche_);
  cajaAvisos_ = new QVBoxLayout;
  cajaAvisos_->setSpacing(0);
  todo->addLayout(cajaAvisos_);

  enlazar(*noche_);
  noche_->poner({.palabra = {}, .titulo = c_.textos(kTxLeyendo), .texto = {}, .valor = {}});
  todo->addStretch(1);
  setWidget(dentro);
  setProperty("ocupada", true);  // screenshots wait until it is false
  mirada_ = c_.reloj.temporizador([this] { mirar(); });
  // Changes made in another window (a timetable, say) are shown at once.
  connect(&c_.ventanas, &ventanas::Ventanas::descargada, this, [this] {
    vieja_ = true;
    if (leida_) mirada_->unaVez(kTrasPintar);
  });
}

// Creates the parts that have nothing to show before the first reading.
void Manana::completar() {
  auto* dentro = widget();
  auto* todo = static_cast<QVBoxLayout*>(dentro->layout());
  auto* tarjetas = new QHBoxLayout;
  tarjetas->setSpacing(escalar(ventanas::kMargen));
  const auto tarjeta = [&](const QString& nombre) {
    auto* t = new Tarjeta(dentro);
    t->setObjectName(nombre);
    tarjetas->addWidget(t, 1);
    enlazar(*t);
    t->show();
    return t;
  };
  ventas_ = tarjeta(u"Ventas"_s);
  bandeja_ = tarjeta(u"Bandeja"_s);
  proxima_ = tarjeta(u"Proxima"_s);
  todo->insertLayout(todo->count() - 1, tarjetas);

  auto* cabezaGrupos = new QHBoxLayout;
  rotuloGrupos_ = texto(dentro, Letra::Titulo, u"TituloGrupos"_s);
  rotuloGrupos_->setText(c_.textos(ventanas::kTxGrupos));
  cuenta_ = texto(dentro, Letra::Secundaria, u"CuentaGrupos"_s);
  cabezaGrupos->addWidget(rotuloGrupos_);
  cabezaGrupos->addStretch(1);
  cabezaGrupos->addWidget(cuenta_, 0, Qt::AlignBottom);
  todo->insertLayout(todo->count() - 1, cabezaGrupos);
  cajaGrupos_ = new QVBoxLayout;
  cajaGrupos_->setSpacing(0);
  todo->insertLayout(todo->count() - 1, cajaGrupos_);
  for (QWidget* w : {rotuloGrupos_, cuenta_}) w->show();
}

Manana::~Manana() = default;

// --- reading ------------------------------------------------------------------------------------

// The part already on the screen is painted first.
void Manana::showEvent(QShowEvent* evento) {
  QScrollArea::showEvent(evento);
  if (!mirada_->activo()) mirada_->unaVez(kTrasPintar);
}

void Manana::mirar() {
  mirada_->unaVez(kMirar);
  if (trabajo_ && trabajo_->enMarcha()) return;
  const auto ejecucion = app_.automat().ejecucion();
  const qint64 hace = c_.reloj.monotono() - cuando_;
  const bool cambiado = c_.base.cambios() != cambios_ && (!ejecucion || hace >= kDescanso);
  if (!leida_ || ejecucion != ejecucion_ || cambiado || vieja_ || hace >= kVejez) renovar();
}

void Manana::renovar() {
  vieja_ = false;
  ejecucion_ = app_.automat().ejecucion();
  cambios_ = c_.base.cambios();
  cuando_ = c_.reloj.monotono();
  lector_ = app_.resumen();
  trabajo_ = std::make_unique<Trabajo>(
      c_.reloj, [lector = lector_](Trabajo::Avance&) { return lector->paso(); },
      [](const Trabajo::Avance&) {}, [this](const Resultado<Trabajo::Fin>& fin) { acabar(fin); });
  trabajo_->empezar();
  // Counting the articles due reads whole sections; the board shows the count once it is available.
  aparte_.preguntar<std::vector<envios::Debe>>(
      [ahora = c_.reloj.ahora()](dao::Database& db) { return envios::loQueSeDebe(db, ahora); },
      [this](Resultado<std::vector<envios::Debe>> debe) {
        if (!debe) return Q_EMIT fallo(debe.error());
        if (std::exchange(debe_, std::move(*debe)) == debe_) return;
        if (leida_ && !trabajo_->enMarcha()) acabar(Trabajo::Fin::Acabado);
      });
  if (!mirada_->activo()) mirada_->unaVez(kMirar);
}

void Manana::acabar(const Resultado<Trabajo::Fin>& fin) {
  leida_ = true;
  setProperty("ocupada", false);
  if (!fin) {
    Q_EMIT fallo(fin.error());
  } else if (*fin == Trabajo::Fin::Acabado) {
    VistaManana vista = vistaDe(lector_->resumen(), c_.textos, c_.ajustes);
    anadirDebe(vista, debe_, c_.textos);
    if (const auto lotes = app_.lotesAMedias())
      anteponerLotes(vista, *lotes, c_.textos);
    else
      Q_EMIT fallo(lotes.error());
    const auto nueva = app_.porEstrenar();
    if (nueva && *nueva && c_.ventanas.conoce<exploracion::PuertaWizInicio>())
      ofrecerAsistente(vista, c_.textos);
    mostrar(vista);
  }
  Q_EMIT renovada();
}

// --- display ------------------------------------------------------------------------------------

void Manana::enlazar(Pieza& pieza) {
  connect(&pieza, &QAbstractButton::clicked, this, [this, &pieza] {
    if (!ventanaDe(pieza.renglon().lleva).isEmpty()) Q_EMIT elegida(pieza.renglon().lleva);
  });
}

void Manana::poner(Pieza& pieza, const Renglon& renglon) {
  pieza.poner(renglon);
  const QString ventana = ventanaDe(renglon.lleva);
  const bool falta = !ventana.isEmpty() && !c_.ventanas.conoce(ventana);
  pieza.ponerSinVentana(falta ? c_.textos(kTxSinEstaVentana) : QString());
}

// Unchanged parts are left alone, so that nothing flickers and the focus stays where it is.
void Manana::mostrar(const VistaManana& vista) {
  dia_->setText(c_.reloj.ahora().corta());
  if (vista_ == vista) return;
  if (!ventas_) completar();
  poner(*noche_, vista.noche);
  poner(*ventas_, vista.ventas);
  poner(*bandeja_, vista.bandeja);
  poner(*proxima_, vista.proxima);
  ajustar(avisos_, vista.avisos, *cajaAvisos_);
  ajustar(grupos_, vista.grupos, *cajaGrupos_);
  cuenta_->setText(vista.cuenta);
  vista_ = vista;
  alinear();
  encadenar();
}

template <class P>
void Manana::ajustar(std::vector<P*>& piezas, const std::vector<Renglon>& renglones,
                     QVBoxLayout& caja) {
  while (piezas.size() > renglones.size()) {
    delete piezas.back();
    piezas.pop_back();
  }
  while (piezas.size() < renglones.size()) {
    auto* pieza = new P(widget());
    pieza->setObjectName(u"Linea%1"_s.arg(piezas.size()));
    enlazar(*pieza);
    caja.addWidget(pieza);
    pieza->show();
    piezas.push_back(pieza);
  }
  for (size_t i = 0; i < renglones.size(); ++i)
    if (piezas[i]->renglon() != renglones[i]) poner(*piezas[i], renglones[i]);
}

// Tab follows the eye: lines are created as they are needed.
void Manana::encadenar() {
  QWidgetList orden{noche_};
  for (auto* l : avisos_) orden << l;
  orden << ventas_ << bandeja_ << proxima_;
  for (auto* l : grupos_) orden << l;
  for (qsizetype i = 1; i < orden.size(); ++i) setTabOrder(orden[i - 1], orden[i]);
}

void Manana::alinear() {
  QSize anchos;
  int valor = 0;
  for (const auto* l : grupos_) {
    l->ensurePolished();
    anchos = anchos.expandedTo(l->anchosQuePide());
    valor = std::max(valor, l->valorQuePide());
  }
  for (auto* l : grupos_) l->ponerAnchos(anchos.width(), anchos.height(), valor);
}

bool Manana::event(QEvent* evento) {
  if (evento->type() == QEvent::FontChange && vista_) alinear();
  return QScrollArea::event(evento);
}

}  // namespace tarvo::app
