#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/EdiEtqu.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kAncho = 1280, kAlto = 700, kPasoZoom = 50;
constexpr int kAnchoEtiquetas = 230, kAnchoCampos = 380;

}  // namespace

template <class W>
W* EdiEtqu::con(W* control, const QString& nombre, int pista) const {
  control->setObjectName(nombre);
  if (pista > 0) {
    control->setToolTip(t(pista));
    control->setAccessibleName(t(pista));
  }
  return control;
}

void EdiEtqu::montar() {
  cuerpo()->resize(kAncho, kAlto);
  cuerpo()->setWindowTitle(t(kTxEdiEtqu));
  auto* todo = new QVBoxLayout(cuerpo());
  barra_ = con(new QToolBar(cuerpo()), u"barra"_s);
  auto* segunda = con(new QToolBar(cuerpo()), u"barra2"_s);
  lienzo_ = con(new Lienzo(cuerpo()), u"Lienzo"_s, kTxLienzo);
  auto* division = con(new QSplitter(Qt::Horizontal, cuerpo()), u"division"_s);
  division->setChildrenCollapsible(false);
  division->addWidget(panelEtiquetas());
  division->addWidget(lienzo_);
  division->addWidget(panelCampos());
  division->setStretchFactor(1, 1);
  division->setSizes({escalar(kAnchoEtiquetas), escalar(kAncho - kAnchoEtiquetas - kAnchoCampos),
                      escalar(kAnchoCampos)});
  montarOrdenes(barra_, segunda);
  todo->addWidget(barra_);
  todo->addWidget(segunda);
  todo->addWidget(division, 1);
  todo->addWidget(pie());
  enlazar();
  enlazarLienzo();
}

QWidget* EdiEtqu::panelEtiquetas() {
  auto* panel = new QWidget(cuerpo());
  auto* v = new QVBoxLayout(panel);
  v->setContentsMargins(0, 0, 0, 0);
  auto* rotulo = new QLabel(t(kTxNombreNueva), panel);
  nuevoNombre_ = con(new QLineEdit(panel), u"NuevoNombre"_s);
  rotulo->setBuddy(nuevoNombre_);
  auto* boton = con(new QPushButton(t(kTxCrear), panel), u"Crear"_s);
  connect(boton, &QPushButton::clicked, this, [this] { crear(); });
  connect(nuevoNombre_, &QLineEdit::returnPressed, this, [this] { crear(); });
  auto* linea = new QHBoxLayout;
  linea->addWidget(nuevoNombre_, 1);
  linea->addWidget(boton);
  lista_ = con(new Parrilla(panel), u"Grid"_s);
  lista_->preparar(contexto(), nombre(),
                   {{.titulo = kTxColumnaEtiqueta,
                     .campo = u"NUMETQ"_s,
                     .ancho = 180,
                     .editar = [this](qint64, const QString& s) { return renombrar(s); },
                     .nombraLaFila = true,
                     .largo = 50}});
  lista_->ponerUnaSola(true);
  lista_->ponerVacia(t(kTxSinEtiquetas));
  connect(lista_, &Parrilla::actualCambiada, this, [this] { actualCambiada(); });
  // A renamed one may get another place.
  connect(lista_, &Parrilla::editada, this, [this] { irAEtiqueta(actual_); }, Qt::QueuedConnection);
  juego_ = con(new QPushButton(panel), u"JueTxt"_s);
  juego_->setText(t(kTxSinJuego));
  juego_->setToolTip(t(kTxJuegoPista));
  connect(juego_, &QPushButton::clicked, this, [this] { elegirJuego(); });
  v->addWidget(rotulo);
  v->addLayout(linea);
  v->addWidget(lista_, 1);
  v->addWidget(juego_);
  return panel;
}

QWidget* EdiEtqu::panelCampos() {
  auto* panel = new QWidget(cuerpo());
  auto* v = new QVBoxLayout(panel);
  v->setContentsMargins(0, 0, 0, 0);
  v->addWidget(con(new QToolBar(panel), u"barraCampos"_s));
  campos_ = con(new Parrilla(panel), u"Campos"_s);
  campos_->preparar(
      contexto(), nombre() + u"Campos"_s,
      {{.titulo = kTxColumnaOrden, .campo = u"orden"_s, .clase = Clase::Entero, .ancho = 36},
       {.titulo = kTxColumnaCampo, .campo = u"campo"_s, .ancho = 120},
       {.titulo = kTxColumnaX, .campo = u"x"_s, .clase = Clase::Entero, .ancho = 42},
       {.titulo = kTxColumnaY, .campo = u"y"_s, .clase = Clase::Entero, .ancho = 42},
       {.titulo = kTxColumnaLetra, .campo = u"letra"_s, .ancho = 54, .rango = 1}});
  campos_->vivas();
  campos_->ponerBusca(false);
  connect(campos_, &Parrilla::activada, this, [this] { propiedades(); });
  connect(campos_, &Parrilla::seleccionCambiada, this, [this] {
    if (llenando_) return;
    std::vector<size_t> cuales;
    for (const int fila : campos_->filasElegidas())
      cuales.push_back(static_cast<size_t>(campos_->clave(fila)));
    const QScopedValueRollback en(llenando_, true);
    lienzo_->elegir(cuales);
    actualizarOrdenes();
  });
  const auto medida = [&](QSpinBox*& campo, const QString& como, int menor, int mayor) {
    campo = con(new QSpinBox(panel), como);
    campo->setRange(menor, mayor);
    campo->setKeyboardTracking(false);
    return campo;
  };
  auto* rejilla = new QGridLayout;
  const auto fila = [&](int texto, QSpinBox* campo, int n) {
    auto* rotulo = new QLabel(t(texto), panel);
    rotulo->setBuddy(campo);
    rejilla->addWidget(rotulo, n, 0);
    rejilla->addWidget(campo, n, 1);
  };
  fila(kTxX0, medida(x0_, u"x0"_s, 1, kAnchoCabezal - 1), 0);
  fila(kTxY0, medida(y0_, u"y0"_s, 0, kLargoEtiqueta - 1), 1);
  rejilla->setColumnStretch(2, 1);
  v->addWidget(campos_, 1);
  v->addLayout(rejilla);
  for (QSpinBox* campo : {x0_, y0_})
    connect(campo, &QSpinBox::valueChanged, this, [this] {
      if (llenando_) return;
      Formato f = borrador_.formato();
      f.x0 = x0_->value(), f.y0 = y0_->value();
      poner(t(kTxHizoArea), f);
    });
  return panel;
}

QWidget* EdiEtqu::pie() {
  auto* panel = new QWidget(cuerpo());
  auto* linea = new QHBoxLayout(panel);
  linea->setContentsMargins(0, 0, 0, 0);
  const auto rotulo = [&](const QString& como, int pista) {
    auto* l = con(new QLabel(panel), como, pista);
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance(u">>(000,000)"_s));
    linea->addWidget(l);
    return l;
  };
  lbPos_ = rotulo(u"lbPos"_s, kTxPosicion);
  lbMov_ = rotulo(u"LbMov"_s, kTxPosicionCampo);
  lbx0_ = rotulo(u"lbx0"_s, kTxX0);
  lby0_ = rotulo(u"lby0"_s, kTxY0);
  linea->addStretch(1);
  auto* iman = con(new QCheckBox(t(kTxIman), panel), u"Iman"_s);
  iman->setToolTip(t(kTxImanPista));
  iman->setChecked(true);
  connect(iman, &QCheckBox::toggled, lienzo_, &Lienzo::ponerIman);
  linea->addWidget(iman);
  auto* dice = new QLabel(t(kTxZoom), panel);
  zoom_ = con(new QSpinBox(panel), u"Zoom"_s);
  dice->setBuddy(zoom_);
  zoom_->setRange(kZoomMenor, kZoomMayor);
  zoom_->setSingleStep(kPasoZoom);
  zoom_->setSuffix(u" %"_s);
  zoom_->setKeyboardTracking(false);
  if (const int antes = contexto().recuerdos.leer(nombre(), u"Zoom"_s).toInt(); antes > 0)
    lienzo_->ponerZoom(antes);
  zoom_->setValue(lienzo_->zoom());
  linea->addWidget(dice);
  linea->addWidget(zoom_);
  return panel;
}

void EdiEtqu::enlazarLienzo() {
  connect(zoom_, &QSpinBox::valueChanged, lienzo_, &Lienzo::ponerZoom);
  connect(lienzo_, &Lienzo::zoomCambiado, this, [this](int porCiento) {
    zoom_->setValue(porCiento);
    contexto().recuerdos.poner(nombre(), u"Zoom"_s, QString::number(porCiento));
  });
  connect(lienzo_, &Lienzo::eleccion, this, [this](const std::vector<size_t>& cuales) {
    if (llenando_) return;
    const QScopedValueRollback en(llenando_, true);
    campos_->limpiarSeleccion();
    campos_->elegir({cuales.begin(), cuales.end()});
    actualizarOrdenes();
  });
  connect(lienzo_, &Lienzo::hecho, this, [this](const Formato& f, bool sigue) {
    const Formato& antes = borrador_.formato();
    const bool area = f.x0 != antes.x0 || f.y0 != antes.y0;
    poner(area ? t(kTxHizoArea) : t(kTxHizoMover).arg(queCampos()), f, sigue);
  });
  connect(lienzo_, &Lienzo::pidePropiedades, this, [this] { propiedades(); });
  const auto posicion = [](const QPoint& p, const QString& abre) {
    if (p.x() < 0 || p.x() >= kAnchoCabezal || p.y() < 0 || p.y() >= kLargoEtiqueta)
      return QString();
    return abre + Ceros(p.x(), 3) + u',' + Ceros(p.y(), 3) + u')';
  };
  connect(lienzo_, &Lienzo::apuntado, lbPos_,
          [this, posicion](const QPoint& p) { lbPos_->setText(posicion(p, u"("_s)); });
  connect(lienzo_, &Lienzo::movido, lbMov_,
          [this, posicion](const QPoint& p) { lbMov_->setText(posicion(p, u">>("_s)); });
}

void EdiEtqu::montarOrdenes(QToolBar* edicion, QToolBar* etiqueta) {
  montarCampos(edicion);
  ordenesEtiqueta_ = new Ordenes(*this, etiqueta);
  const auto hay = [this] { return !actual_.isEmpty(); };
  const auto seEdita = [this] { return editable(); };
  auto& s = *ordenesEtiqueta_;
  s.anadir({u"Guardar"_s, kTxGuardar, u"guardar"_s, Qt::CTRL | Qt::Key_S, [this] { guardar(); },
            seEdita});
  s.anadir({u"VerMuestra"_s, kTxVerMuestra, u"imprimir"_s, Qt::Key_F4, [this] { verMuestra(); },
            seEdita});
  etiqueta->addSeparator();
  s.anadir({u"CopiarEtiqueta"_s,
            kTxCopiarEtiqueta,
            u"copiar"_s,
            {},
            [this] { copiarEtiqueta(); },
            seEdita});
  s.anadir(
      {u"PegarEtiqueta"_s, kTxPegarEtiqueta, u"bajar"_s, {}, [this] { pegarEtiqueta(); }, hay});
  s.anadir(
      {u"BorrarEtiqueta"_s, kTxBorrarEtiqueta, u"borrar"_s, {}, [this] { borrarEtiqueta(); }, hay});
  for (QAction* a : etiqueta->actions()) a->setProperty(kPorQueNo, t(kTxEligeEtiqueta));
}

void EdiEtqu::montarCampos(QToolBar* barra) {
  ordenes_ = new Ordenes(*this, barra);
  auto& o = *ordenes_;
  const auto hay = [this] { return editable(); };
  const auto elegido = [this] { return !lienzo_->elegidos().empty(); };
  const auto elegidoAqui = [this, elegido] { return enEtiquetas() || elegido(); };
  nuevoCampo_ = o.anadir(
      {u"NvoCpo"_s, kTxNvoCpo, u"anadir"_s, Qt::Key_Insert, [this] { pedirNuevo(); }, hay});
  o.anadir({u"Propiedades"_s, kTxPropiedades, u"modificar"_s, Qt::Key_F2, [this] { propiedades(); },
            elegidoAqui});
  o.anadir(
      {u"Borro"_s, kTxBorrarCampo, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); }, elegidoAqui});
  deshacer_ = new Deshacer(*this);
  barra->addAction(deshacer_->accion());
  barra->addAction(deshacer_->accionRehacer());
  barra->addSeparator();
  o.anadir({u"copiar"_s, kTxCopiar, u"copiar"_s, Qt::CTRL | Qt::Key_C, [this] { copiar(); },
            elegidoAqui, 0, false});
  o.anadir({u"pegar"_s, kTxPegarCampos, u"bajar"_s, Qt::CTRL | Qt::Key_V, [this] { pegar(); }, hay,
            0, false});
  alinear_ = o.anadir({u"Alinear"_s,
                       kTxAlinear,
                       u"columnas"_s,
                       {},
                       [this] { pedirLado(); },
                       [this] { return lienzo_->elegidos().size() > 1; }});
  alinear_->setProperty(kPorQueNo, t(kTxAlinearDos));
  // Beside the list, whose order is that of the printing.
  ordenesLista_ = new Ordenes(*this, findChild<QToolBar*>(u"barraCampos"_s));
  ordenesLista_->anadir({u"Subir"_s, kTxAntes, u"subir"_s, Qt::ALT | Qt::Key_Up,
                         [this] { reordenarElegidos(-1); }, elegido});
  ordenesLista_->anadir({u"Bajar"_s, kTxDespues, u"bajar"_s, Qt::ALT | Qt::Key_Down,
                         [this] { reordenarElegidos(1); }, elegido});
  const auto sinBoton = [this](const QString& nombreOrden, int texto, int pasos) {
    auto* a = new QAction(t(texto), this);
    alDar(a, [this, pasos] { zoom_->stepBy(pasos); });
    a->setObjectName(nombreOrden);
    addAction(a);
    return a;
  };
  QAction* Acercar = sinBoton(u"Acercar"_s, kTxAcercar, 1);
  QAction* Alejar = sinBoton(u"Alejar"_s, kTxAlejar, -1);
  Acercar->setShortcut(Qt::CTRL | Qt::Key_Plus);
  Alejar->setShortcut(Qt::CTRL | Qt::Key_Minus);
  for (const auto& [nombreOrden, porQue] : {std::pair{u"Propiedades"_s, kTxEligeCampo},
                                            {u"Borro"_s, kTxEligeCampo},
                                            {u"copiar"_s, kTxEligeCampo},
                                            {u"Subir"_s, kTxEligeCampo},
                                            {u"Bajar"_s, kTxEligeCampo},
                                            {u"NvoCpo"_s, kTxEligeEtiqueta}})
    findChild<QAction*>(nombreOrden)->setProperty(kPorQueNo, t(porQue));
  const QList<QAction*> menu{nuevoCampo_,
                             findChild<QAction*>(u"Propiedades"_s),
                             findChild<QAction*>(u"Borro"_s),
                             findChild<QAction*>(u"copiar"_s),
                             findChild<QAction*>(u"pegar"_s),
                             alinear_,
                             findChild<QAction*>(u"Subir"_s),
                             findChild<QAction*>(u"Bajar"_s)};
  campos_->ponerAcciones(menu);
  lienzo_->setContextMenuPolicy(Qt::ActionsContextMenu);
  lienzo_->addActions(menu);
}

}  // namespace tarvo::labels
