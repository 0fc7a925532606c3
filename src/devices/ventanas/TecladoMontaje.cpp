// The keyboard of a scale: its form.
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "devices/ventanas/ArrastreArticulo.h"
#include "devices/ventanas/TecladoVentana.h"
#include "devices/ventanas/TextosDevicesVentanas.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr QSize kTamanoFicha{1280, 700};
constexpr int kAnchoLado = 380, kAltoFichas = 200;
constexpr int kLargoArticulo = 9, kLargoTara = 5;  // beyond the limit, so that more is refused

}  // namespace

TecladoVentana::TecladoVentana(ventanas::Contexto& contexto, const QString& nombre,
                               articles::Catalogo& catalogo)
    : FichaDe(contexto, nombre),
      catalogo_(catalogo),
      codigos_(contexto.ajustes.idioma, contexto.textos) {
  auto f = formulario(kTxTituloTeclado);
  auto* barra = f.ancho(new QToolBar(cuerpo()), u"barra"_s);
  auto* divisor = f.ancho(new QSplitter(Qt::Horizontal, cuerpo()), u"divisor"_s, 0, 1);
  divisor->addWidget(montarTeclado());
  divisor->addWidget(montarLado());
  divisor->setStretchFactor(0, 1);
  divisor->setStretchFactor(1, 0);
  divisor->setChildrenCollapsible(false);
  montarOrdenes(*barra);
  conectarLienzo();
  acabar(kTamanoFicha);
}

QWidget* TecladoVentana::montarTeclado() {
  auto* sitio = new QWidget(cuerpo());
  auto* pila = new QVBoxLayout(sitio);
  pila->setContentsMargins(0, 0, 0, 0);
  lienzo_ = new LienzoTeclado(sitio);
  lienzo_->setObjectName(u"lienzo"_s);
  lienzo_->setAccessibleName(t(kTxLienzo));
  pila->addWidget(lienzo_, 1);
  auto* linea = new QHBoxLayout;
  pila->addLayout(linea);
  basura_ = new QToolButton(sitio);
  basura_->setObjectName(u"basura"_s);
  basura_->setIcon(ventanas::icono(u"borrar"_s));
  const int lado = ventanas::escalar(ventanas::kIconoGrande);
  basura_->setIconSize({lado, lado});
  basura_->setToolTip(t(kTxBasuraTip));
  linea->addWidget(basura_);
  auto* PanShow = new QVBoxLayout;
  NmT_ = new QLabel(sitio);
  NmT_->setObjectName(u"NmT"_s);
  NFu_ = new QLabel(sitio);
  NFu_->setObjectName(u"NFu"_s);
  NFu_->setTextFormat(Qt::PlainText);
  NFu_->setMinimumWidth(1);  // it may be cut: the tool tip has all of it
  NFu_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  PanShow->addWidget(NmT_);
  PanShow->addWidget(NFu_);
  linea->addLayout(PanShow, 1);
  EtqDibujo_ = new QLabel(t(kTxDibujo), sitio);
  Option1_ = new QComboBox(sitio);
  Option1_->setObjectName(u"Option1"_s);
  ventanas::llenar(*Option1_, ventanas::deTextos(contexto().textos, kTxArregloBirch, 3));
  EtqDibujo_->setBuddy(Option1_);
  linea->addWidget(EtqDibujo_);
  linea->addWidget(Option1_);
  connect(Option1_, &QComboBox::activated, this, [this](int cual) {
    contexto().recuerdos.poner(this->nombre(), u"dibujo"_s, QString::number(cual));
    dibujo();
  });
  return sitio;
}

QWidget* TecladoVentana::montarLado() {
  auto* lado = new QSplitter(Qt::Vertical, cuerpo());
  lado->setObjectName(u"divisorLado"_s);
  lado->setChildrenCollapsible(false);
  lado->setMinimumWidth(ventanas::escalar(kAnchoLado));
  auto* arriba = new QWidget(lado);
  arriba->setObjectName(u"sitioArticulos"_s);
  montarArticulos(*arriba);
  montarFichas(*lado);
  lado->setStretchFactor(0, 1);
  return lado;
}

void TecladoVentana::montarArticulos(QWidget& padre) {
  auto* pila = new QVBoxLayout(&padre);
  pila->setContentsMargins(0, 0, 0, 0);
  auto* linea = new QHBoxLayout;
  pila->addLayout(linea);
  Busca_ = new QLineEdit(&padre);
  Busca_->setObjectName(u"Busca"_s);
  Busca_->setPlaceholderText(t(kTxNumeroONombre));
  Busca_->setClearButtonEnabled(true);
  Busca_->installEventFilter(this);
  auto* rotulo = new QLabel(t(kTxArticuloParaTecla), &padre);
  rotulo->setBuddy(Busca_);
  linea->addWidget(rotulo);
  linea->addWidget(Busca_, 1);
  articulos_ = new ventanas::Parrilla(&padre);
  articulos_->setObjectName(u"articulos"_s);
  articulos_->setAccessibleName(t(ventanas::kTxArticulos));
  pila->addWidget(articulos_, 1);
  articulos_->preparar(
      contexto(), nombre(),
      {{.titulo = ventanas::kTxCodigo, .campo = u"CODPLU"_s, .clase = Clase::Codigo, .cifras = 7},
       {.titulo = ventanas::kTxNombre, .campo = u"NOMPLU"_s},
       {.titulo = ventanas::kTxDepartamento,
        .campo = u"DEPTO"_s,
        .clase = Clase::Entero,
        .ancho = 60,
        .rango = 1}});
  articulos_->ponerBusca(false);
  articulos_->ponerUnaSola(true);
  auto* arrastre = new ArrastreArticulo(*articulos_, u"NOMPLU"_s);
  connect(arrastre, &ArrastreArticulo::sobre, this,
          [this](const QPoint& p) { lienzo_->apuntar(lienzo_->teclaEnGlobal(p)); });
  connect(arrastre, &ArrastreArticulo::dejada, this, [this] { lienzo_->apuntar(0); });
  connect(arrastre, &ArrastreArticulo::soltada, this, [this](int fila, const QPoint& p) {
    lienzo_->apuntar(0);
    soltarArticulo(articulos_->valor(fila, u"CODPLU").entero(), p);
  });
  connect(articulos_, &ventanas::Parrilla::activada, this, [this](int fila) {
    vender(lienzo_->actual(), articulos_->valor(fila, u"CODPLU").entero());
  });
  connect(Busca_, &QLineEdit::textChanged, this, &TecladoVentana::listarArticulos);
}

void TecladoVentana::montarFichas(QWidget& padre) {
  fichas_ = new QTabWidget(&padre);
  fichas_->setObjectName(u"fichas"_s);
  fichas_->setMinimumHeight(ventanas::escalar(kAltoFichas));
  auto* hoja = new QWidget(fichas_);
  auto* pila = new QVBoxLayout(hoja);
  PanEdi_ = new PanelTecla(contexto().textos, codigos_, hoja);
  PanelEdi_ = new PanelEbony(contexto().textos, hoja);
  pila->addWidget(PanEdi_);
  pila->addWidget(PanelEdi_);
  fichas_->addTab(hoja, t(kTxFichaTecla));
  LisHplu_ = montarLista(
      u"LisHplu"_s,
      {{.titulo = kTxFichaPlus, .campo = u"n"_s, .clase = Clase::Codigo, .cifras = 3, .ancho = 50},
       {.titulo = ventanas::kTxArticulo,
        .campo = u"articulo"_s,
        .clase = Clase::Codigo,
        .cifras = 7,
        .ancho = 80,
        .editar = [this](qint64 n, const QString& s) { return ponerPlu(static_cast<int>(n), s); },
        .largo = kLargoArticulo},
       {.titulo = ventanas::kTxNombre, .campo = u"nombre"_s},
       {.titulo = kTxColumnaTeclas, .campo = u"teclas"_s, .ancho = 70}},
      kTxFichaPlus);
  LisTara_ = montarLista(
      u"LisTara"_s,
      {{.titulo = kTxTara, .campo = u"n"_s, .clase = Clase::Codigo, .cifras = 2, .ancho = 60},
       {.titulo = kTxColumnaGramos,
        .campo = u"tara"_s,
        .clase = Clase::Codigo,
        .cifras = 4,
        .ancho = 90,
        .editar = [this](qint64 n, const QString& s) { return ponerTara(static_cast<int>(n), s); },
        .largo = kLargoTara},
       {.titulo = kTxColumnaTeclas, .campo = u"teclas"_s}},
      kTxFichaTaras);
  montarRelleno();
  avisos_ = montarLista(
      u"avisos"_s,
      {{.titulo = kTxFichaTecla, .campo = u"tecla"_s, .clase = Clase::Entero, .ancho = 60},
       {.titulo = kTxQueLePasa, .campo = u"que"_s}},
      kTxFichaAvisos);
  avisos_->ponerVacia(t(kTxSinAvisos));
  connect(avisos_, &ventanas::Parrilla::activada, this, [this](int fila) {
    if (avisos_->clave(fila) > 0) lienzo_->irA(static_cast<int>(avisos_->clave(fila)));
    lienzo_->setFocus();
  });
}

ventanas::Parrilla* TecladoVentana::montarLista(const QString& suyo,
                                                std::vector<ventanas::Columna> columnas,
                                                int ficha) {
  auto* lista = new ventanas::Parrilla(fichas_);
  lista->setObjectName(suyo);
  lista->setAccessibleName(t(ficha));
  lista->preparar(contexto(), nombre(), std::move(columnas));
  lista->ponerBusca(false);
  lista->ponerPie(false);
  lista->ponerEscribeAlTeclear(true);
  lista->vivas();
  fichas_->addTab(lista, t(ficha));
  connect(lista, &ventanas::Parrilla::fallo, this, [this](const Error& e) { decirPendiente(e); });
  connect(lista, &ventanas::Parrilla::resuelto, this, [this] { resuelto(); });
  connect(lista, &ventanas::Parrilla::pista, this, [this](const QString& p) { decirPista(p); });
  connect(lista, &ventanas::Parrilla::vanVarias, this, [this] { antesDeTanda_ = r; });
  connect(lista, &ventanas::Parrilla::variasDejadas, this, [this] {
    if (antesDeTanda_) poner(*antesDeTanda_);
    antesDeTanda_.reset();
  });
  connect(lista, &ventanas::Parrilla::variasEscritas, this, [this] {
    if (antesDeTanda_ && !(*antesDeTanda_ == r)) apuntar(t(kTxCambioVarias), *antesDeTanda_);
    antesDeTanda_.reset();
  });
  return lista;
}

void TecladoVentana::montarRelleno() {
  auto* hoja = new QWidget(fichas_);
  auto* reja = new QGridLayout(hoja);
  const auto lista = [&](int rotulo, const QString& suyo, int fila) {
    auto* control = new QComboBox(hoja);
    control->setObjectName(suyo);
    auto* etiqueta = new QLabel(t(rotulo), hoja);
    etiqueta->setBuddy(control);
    reja->addWidget(etiqueta, fila, 0);
    reja->addWidget(control, fila, 1);
    return control;
  };
  departamento_ = lista(ventanas::kTxDepartamentoConLetra, u"departamento"_s, 0);
  orden_ = lista(kTxOrdenRelleno, u"orden"_s, 1);
  ventanas::llenar(*orden_, ventanas::deTextos(contexto().textos, kTxPorCodigo, 2));
  auto* boton = new QPushButton(t(kTxRellenar), hoja);
  boton->setObjectName(u"rellenar"_s);
  reja->addWidget(boton, 2, 0, 1, 2);
  auto* nota = new QLabel(t(kTxQueEsRellenar), hoja);
  nota->setWordWrap(true);
  reja->addWidget(nota, 3, 0, 1, 2);
  reja->setColumnStretch(1, 1);
  reja->setRowStretch(4, 1);
  connect(boton, &QPushButton::clicked, this, &TecladoVentana::rellenar);
  fichas_->addTab(hoja, t(kTxFichaRellenar));
}

void TecladoVentana::montarOrdenes(QToolBar& barra) {
  ordenes_ = new ventanas::Ordenes(*this, &barra);
  deshacer_ = new ventanas::Deshacer(*this);
  ordenes_->anadir(deshacer_->accion());
  ordenes_->anadir(deshacer_->accionRehacer());
  ordenes_->separar();
  const auto deTecla = [this](QAction* a) {
    a->setShortcutContext(Qt::WidgetWithChildrenShortcut);  // the lists have these keys as well
    removeAction(a);
    lienzo_->addAction(a);
    return a;
  };
  deTecla(ordenes_->anadir({u"editar"_s,
                            kTxEditarTecla,
                            u"modificar"_s,
                            Qt::Key_F2,
                            [this] { editarTecla(); },
                            {},
                            0,
                            false}));
  deTecla(ordenes_->anadir({u"Muevo"_s,
                            kTxMoverTecla,
                            u"mover"_s,
                            Qt::Key_F7,
                            [this] { levantar(); },
                            {},
                            kTxMoverTeclaTip}));
  deTecla(ordenes_->anadir({u"BorrTecla"_s, kTxBorrarTecla, u"borrar"_s, Qt::Key_Delete,
                            [this] { borrar(lienzo_->actual()); }}));
  ordenes_->anadir(
      {u"Varios"_s, kTxFichaRellenar, u"elegirTodo"_s, Qt::Key_F12, [this] { irARelleno(); }});
  ordenes_->separar();
  accionCopiar_ = ordenes_->anadir(
      {u"Copiar"_s, kTxCopiar, u"copiar"_s, QKeySequence::Copy, [this] { copiar(); }});
  accionPegar_ = ordenes_->anadir(
      {u"Pegar"_s, kTxPegar, u"pegar"_s, QKeySequence::Paste, [this] { pegar(); }});
  accionLeer_ = ordenes_->anadir(
      {u"Import"_s, kTxLeerTeclado, u"abrir"_s, Qt::CTRL | Qt::Key_O, [this] { leerFichero(); }});
  accionGuardar_ = ordenes_->anadir(
      {u"Guardar"_s, kTxGuardarTeclado, u"guardar"_s, QKeySequence::Save, [this] { guardar(); }});
  deTecla(accionCopiar_)->setToolTip(t(kTxCopiarTip));
  deTecla(accionPegar_)->setToolTip(t(kTxPegarTip));
  accionLeer_->setToolTip(t(kTxLeerTip));
  accionGuardar_->setToolTip(t(kTxGuardarTip));
  // Their drawings are known to everybody, and the bar fits on small screens.
  for (QAction* a : {deshacer_->accion(), deshacer_->accionRehacer()})
    if (auto* boton = qobject_cast<QToolButton*>(barra.widgetForAction(a)))
      boton->setToolButtonStyle(Qt::ToolButtonIconOnly);
  connect(basura_, &QToolButton::clicked, this, [this] { borrar(lienzo_->actual()); });
}

void TecladoVentana::conectarLienzo() {
  connect(lienzo_, &LienzoTeclado::actualCambiada, this, &TecladoVentana::mostrarTecla);
  connect(lienzo_, &LienzoTeclado::mover, this, &TecladoVentana::mover);
  connect(lienzo_, &LienzoTeclado::editar, this, &TecladoVentana::editarTecla);
  connect(lienzo_, &LienzoTeclado::menuPedido, this, &TecladoVentana::menu);
  connect(lienzo_, &LienzoTeclado::arrastrada, this, [this](const QPoint& p) {
    basura_->setDown(!p.isNull() && basura_->rect().contains(basura_->mapFromGlobal(p)));
  });
  connect(lienzo_, &LienzoTeclado::soltadaFuera, this, [this](int tecla, const QPoint& p) {
    if (basura_->rect().contains(basura_->mapFromGlobal(p))) borrar(tecla);
  });
  connect(lienzo_, &LienzoTeclado::tecleado, this, [this](const QString& texto) {
    Busca_->setFocus();
    Busca_->selectAll();
    Busca_->insert(texto);  // which Ctrl+Z takes back, unlike a text that is set
  });
  const auto volver = [this] { lienzo_->setFocus(); };
  connect(PanEdi_, &PanelTecla::elegido, this, [this](int codigo) {
    const int tecla = lienzo_->actual();
    cambiar(t(kTxTecla).arg(cual(tecla)), [=](TecladoEditado& k) -> Resultado<> {
      k.comun().codigo(tecla, codigo);
      return {};
    });
  });
  connect(PanEdi_, &Panel::acabado, this, volver);
  for (Panel* p : {static_cast<Panel*>(PanEdi_), static_cast<Panel*>(PanelEdi_)})
    connect(p, &Panel::dejado, this, [this] {
      mostrarTecla(lienzo_->actual());
      lienzo_->setFocus();
    });
  connect(PanelEdi_, &PanelEbony::elegida, this, [this](const TecladoEbony::Tecla& que) {
    const int tecla = lienzo_->actual();
    cambiar(t(kTxTecla).arg(cual(tecla)), [=](TecladoEditado& k) -> Resultado<> {
      k.ebony().tecla(tecla, que);
      return {};
    });
  });
  // Stored, the next key follows; after the last one the first.
  connect(PanelEdi_, &Panel::acabado, this, [this] {
    lienzo_->irA(lienzo_->actual() % lienzo_->teclas() + 1);
    PanelEdi_->enfocar();
  });
}

}  // namespace tarvo::devices
