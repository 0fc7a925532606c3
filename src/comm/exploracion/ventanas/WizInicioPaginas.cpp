// The assistant of explorations: its pages.
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "comm/exploracion/ventanas/TextosExploracionVentanas.h"
#include "comm/exploracion/ventanas/WizInicio.h"
#include "comm/ventanas/Puertas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::exploracion {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr QSize kTamanoWiz{1120, 620};
constexpr int kAltoPuertos = 130, kAltoOtros = 90, kLatidoMs = 100;

QLabel* parrafo(const QString& nombre, const QString& texto, QWidget* padre) {
  auto* etiqueta = new QLabel(texto, padre);
  etiqueta->setObjectName(nombre);
  etiqueta->setWordWrap(true);
  etiqueta->setTextFormat(Qt::PlainText);
  return etiqueta;
}

ventanas::Parrilla* lista(const QString& nombre, QWidget* padre) {
  auto* p = new ventanas::Parrilla(padre);
  p->setObjectName(nombre);
  return p;
}

ventanas::Estado estadoDe(const dao::Valor& v) {
  return v.entero() == WizInicio::kAlgo ? ventanas::Estado::Bien : ventanas::Estado::Ninguno;
}

}  // namespace

WizInicio::WizInicio(ventanas::Contexto& contexto, const QString& nombre,
                     const Servicios& servicios)
    : Ventana(contexto, nombre),
      s_(servicios),
      grupos_(servicios.catalogo, contexto.ajustes),
      aplicador_(grupos_, servicios.catalogo, contexto.ajustes),
      azar_(servicios.semilla),
      exploracion_(std::make_unique<Exploracion>(contexto.reloj, azar_, servicios.fabrica,
                                                 contexto.ajustes.WhoAmI)),
      dispatch_(contexto.reloj.temporizador([this] { latir(); })) {
  cuerpo()->setWindowTitle(t(kTxWizInicio));
  auto* todo = new QVBoxLayout(cuerpo());
  paginas_ = new QStackedWidget(cuerpo());
  paginas_->setObjectName(u"paginas"_s);
  for (QWidget* pagina : {montarPre(), montarPoll(), montarRes()}) paginas_->addWidget(pagina);
  todo->addWidget(paginas_, 1);
  todo->addWidget(montarBotones());
  cuerpo()->resize(ventanas::escalar(kTamanoWiz.width()), ventanas::escalar(kTamanoWiz.height()));
  enlazar();
  exploracion_->alHallar = [this](const Hallazgo& h) { hallado(h); };
  exploracion_->alAcabar = [this] { acabada(); };
  dispatch_->cada(kLatidoMs);
}

QWidget* WizInicio::montarPre() {
  auto* pagina = new QWidget(paginas_);
  pagina->setObjectName(u"frmfasePre"_s);
  auto* pila = new QVBoxLayout(pagina);
  pila->addWidget(parrafo(u"introduccion"_s, t(kTxIntroduccion), pagina));
  ocupadas_ = parrafo(u"ocupadas"_s, t(kTxComunicacionesOcupadas), pagina);
  pila->addWidget(ocupadas_);
  auto* rotulo = new QLabel(t(kTxPuertosDelEquipo), pagina);
  listaPuertos_ = new QListWidget(pagina);
  listaPuertos_->setObjectName(u"puertos"_s);
  listaPuertos_->setSpacing(ventanas::escalar(ventanas::kPaso / 2));
  listaPuertos_->setMinimumHeight(ventanas::escalar(kAltoPuertos));
  rotulo->setBuddy(listaPuertos_);
  pila->addWidget(rotulo);
  pila->addWidget(listaPuertos_, 1);
  auto* rotuloOtros = new QLabel(t(kTxOtrosAccesos), pagina);
  otros_ = new QPlainTextEdit(pagina);
  otros_->setObjectName(u"otros"_s);
  otros_->setTabChangesFocus(true);
  otros_->setPlaceholderText(t(kTxEjemploAccesos));
  otros_->setMinimumHeight(ventanas::escalar(kAltoOtros));
  rotuloOtros->setBuddy(otros_);
  faltaOtros_ = parrafo(u"faltaotros"_s, {}, pagina);
  faltaOtros_->hide();
  pila->addWidget(rotuloOtros);
  pila->addWidget(otros_, 1);
  pila->addWidget(faltaOtros_);
  connect(otros_, &QPlainTextEdit::textChanged, faltaOtros_, &QWidget::hide);
  return pagina;
}

QWidget* WizInicio::montarPoll() {
  auto* pagina = new QWidget(paginas_);
  pagina->setObjectName(u"frmFasePoll"_s);
  auto* pila = new QVBoxLayout(pagina);
  fase_ = parrafo(u"fase"_s, {}, pagina);
  ventanas::ponerLetra(*fase_, ventanas::Letra::Titulo);
  pila->addWidget(fase_);
  auto* imagenes = new QHBoxLayout;
  const int lado = ventanas::escalar(2 * ventanas::kIconoGrande);
  const auto imagen = [&](const QString& dibujo, int nombre) {
    auto* i = new QLabel(pagina);
    i->setObjectName(u"img"_s + dibujo);
    i->setPixmap(ventanas::icono(dibujo).pixmap(lado, lado));
    i->setFixedSize(lado, lado);
    imagenes->addWidget(i);
    imagenes->addWidget(new QLabel(t(nombre), pagina));
    imagenes->addStretch();
    return i;
  };
  imgModem_ = imagen(u"modem"_s, kTxUnModem);
  imgVek_ = imagen(u"balanza"_s, kTxBalanzasVek);
  imgNodal_ = imagen(u"linea"_s, kTxBalanzasNodal);
  pila->addLayout(imagenes);
  avance_ = new QProgressBar(pagina);
  avance_->setObjectName(u"avance"_s);
  avance_->setAccessibleName(t(kTxAvance));
  pila->addWidget(avance_);
  lineas_ = lista(u"lineas"_s, pagina);
  lineas_->preparar(contexto(), nombre(),
                    {{.titulo = kTxAcceso, .campo = u"acceso"_s, .ancho = 140},
                     {.titulo = ventanas::kTxEstado,
                      .campo = u"estado"_s,
                      .ancho = 120,
                      .ver =
                          [this](const dao::Valor& v) {
                            return t(kTxEstadoLinea + static_cast<int>(v.entero()));
                          },
                      .estado = estadoDe},
                     {.titulo = ventanas::kTxResultado, .campo = u"que"_s, .ancho = 480}});
  lineas_->vivas();
  lineas_->ponerBusca(false);
  pila->addWidget(lineas_, 1);
  detalle_ = parrafo(u"detalle"_s, {}, pagina);
  pila->addWidget(detalle_);
  connect(lineas_, &ventanas::Parrilla::actualCambiada, this, &WizInicio::verDetalle);
  Resumen_ = parrafo(u"Resumen"_s, {}, pagina);
  Consecuencia_ = parrafo(u"Consecuencia"_s, {}, pagina);
  pila->addWidget(Resumen_);
  pila->addWidget(Consecuencia_);
  return pagina;
}

QWidget* WizInicio::montarRes() {
  auto* pagina = new QWidget(paginas_);
  pagina->setObjectName(u"frmfaseRes"_s);
  auto* pila = new QVBoxLayout(pagina);
  queHara_ = parrafo(u"queHara"_s, {}, pagina);
  pila->addWidget(queHara_);
  hallados_ = lista(u"hallados"_s, pagina);
  hallados_->preparar(contexto(), nombre(),
                      {{.titulo = kTxAcceso, .campo = u"acceso"_s, .ancho = 190},
                       {.titulo = kTxQueEs, .campo = u"que"_s, .ancho = 140},
                       {.titulo = kTxDireccion, .campo = u"n"_s, .clase = Clase::Entero},
                       {.titulo = kTxSusBalanzas, .campo = u"balanzas"_s, .ancho = 130},
                       {.titulo = ventanas::kTxGrupo, .campo = u"grupo"_s, .ancho = 330}});
  hallados_->vivas();
  hallados_->ponerVacia(t(kTxNadaHallado));
  hallados_->ponerBusca(false);
  pila->addWidget(hallados_, 2);
  anadir_ = new QRadioButton(t(kTxAnadirGrupos), pagina);
  anadir_->setObjectName(u"anadir"_s);
  sustituir_ = new QRadioButton(t(kTxSustituirGrupos), pagina);
  sustituir_->setObjectName(u"sustituir"_s);
  pila->addWidget(anadir_);
  pila->addWidget(sustituir_);
  rotuloSeVan_ = parrafo(u"rotuloSeVan"_s, t(kTxSeBorraran), pagina);
  pila->addWidget(rotuloSeVan_);
  seVan_ = lista(u"seVan"_s, pagina);
  seVan_->preparar(
      contexto(), nombre(),
      {{.titulo = ventanas::kTxGrupo, .campo = u"codigo"_s, .clase = Clase::Codigo, .cifras = 4},
       {.titulo = ventanas::kTxNombre, .campo = u"nombre"_s},
       {.titulo = ventanas::kTxSeccion, .campo = u"seccion"_s, .clase = Clase::Entero},
       {.titulo = kTxMaquinas, .campo = u"maquinas"_s, .clase = Clase::Entero},
       {.titulo = kTxNoContestan, .campo = u"callan"_s, .ancho = 170},
       {.titulo = kTxOfertas, .campo = u"ofertas"_s, .clase = Clase::Entero},
       {.titulo = kTxTareas, .campo = u"tareas"_s, .clase = Clase::Entero},
       {.titulo = kTxVentasSinPeriodo, .campo = u"ventas"_s, .clase = Clase::Importe}});
  seVan_->vivas();
  seVan_->ponerBusca(false);
  pila->addWidget(seVan_, 2);
  hecho_ = new QPlainTextEdit(pagina);
  hecho_->setObjectName(u"hecho"_s);
  hecho_->setReadOnly(true);
  hecho_->setTabChangesFocus(true);
  hecho_->setAccessibleName(t(ventanas::kTxResultado));
  pila->addWidget(hecho_, 2);
  connect(sustituir_, &QRadioButton::toggled, this, [this] { listarLoQueSeVa(); });
  return pagina;
}

QWidget* WizInicio::montarBotones() {
  auto* fila = new QWidget(cuerpo());
  auto* linea = new QHBoxLayout(fila);
  linea->setContentsMargins(0, 0, 0, 0);
  const auto boton = [&](const QString& nombre, int texto) {
    auto* b = new QPushButton(t(texto), fila);
    b->setObjectName(nombre);
    linea->addWidget(b);
    return b;
  };
  Configurar_ = boton(u"Configurar"_s, kTxAvanzado);
  Parar_ = boton(u"Parar"_s, ventanas::kTxParar);
  linea->addStretch();
  Atras_ = boton(u"Atras"_s, kTxAtras);
  StartPoll_ = boton(u"StartPoll"_s, kTxSiguiente);
  Cancelar_ = boton(u"Cancelar"_s, ventanas::kTxCancelar);
  StartPoll_->setDefault(true);
  connect(Configurar_, &QPushButton::clicked, this, &WizInicio::configurar);
  connect(Parar_, &QPushButton::clicked, this, &WizInicio::parar);
  connect(StartPoll_, &QPushButton::clicked, this, &WizInicio::StartPoll);
  connect(Cancelar_, &QPushButton::clicked, this, &WizInicio::Cancelar);
  connect(Atras_, &QPushButton::clicked, this, &WizInicio::atras);
  return fila;
}

void WizInicio::configurar() {
  preguntar(comm::PuertaCfgComm());
}

}  // namespace tarvo::exploracion
