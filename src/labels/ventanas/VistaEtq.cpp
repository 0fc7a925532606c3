#include "labels/ventanas/VistaEtq.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include "articles/Listas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/DibujoImpresion.h"
#include "labels/ventanas/NombresCampos.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kAncho = 1040, kAlto = 680, kAnchoArticulos = 380;

}  // namespace

VistaEtq::VistaEtq(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      juegos_(catalogo, contexto.ajustes),
      muestras_(catalogo, contexto.ajustes) {
  montar();
  fuente_ =
      buscarFuente(contexto.ajustes.carpeta, QApplication::applicationDirPath(), contexto.textos)
          .fuente;
}

void VistaEtq::montar() {
  cuerpo()->resize(kAncho, kAlto);
  cuerpo()->setWindowTitle(t(kTxVistaEtq));
  auto* todo = new QVBoxLayout(cuerpo());
  auto* barra = new QToolBar(cuerpo());
  barra->setObjectName(u"barra"_s);
  auto* ordenes = new Ordenes(*this, barra);
  ordenes->anadir({u"PeorCaso"_s, kTxPeorCaso, u"duda"_s, {}, [this] { peorCaso(); }});
  ordenes->anadir(
      {u"Guardar"_s, kTxGuardarImagen, u"guardar"_s, Qt::CTRL | Qt::Key_S, [this] { guardar(); }});
  auto* division = new QSplitter(Qt::Horizontal, cuerpo());
  division->setObjectName(u"division"_s);
  division->setChildrenCollapsible(false);
  auto* derecha = new QWidget(cuerpo());
  auto* v = new QVBoxLayout(derecha);
  v->setContentsMargins(0, 0, 0, 0);
  titulo_ = new QLabel(derecha);
  titulo_->setObjectName(u"Ejemplo"_s);
  ponerLetra(*titulo_, Letra::Titulo);
  dibujo_ = new DibujoImpresion(derecha);
  dibujo_->setObjectName(u"Dibujo"_s);
  dibujo_->setAccessibleName(t(kTxVistaEtq));
  v->addWidget(titulo_);
  auto* sitio = new QScrollArea(derecha);
  sitio->setObjectName(u"SitioDibujo"_s);
  sitio->setAccessibleName(t(kTxVistaEtq));
  sitio->setWidgetResizable(true);
  sitio->setWidget(dibujo_);
  v->addWidget(sitio, 1);
  division->addWidget(panelArticulos());
  division->addWidget(derecha);
  division->setStretchFactor(1, 1);
  division->setSizes({escalar(kAnchoArticulos), escalar(kAncho - kAnchoArticulos)});
  todo->addWidget(barra);
  todo->addWidget(division, 1);
  enlazar();
}

QWidget* VistaEtq::panelArticulos() {
  auto* panel = new QWidget(cuerpo());
  auto* v = new QVBoxLayout(panel);
  v->setContentsMargins(0, 0, 0, 0);
  const auto rotulada = [&](int texto, QWidget* control, const QString& como) {
    control->setObjectName(como);
    auto* rotulo = new QLabel(t(texto), panel);
    rotulo->setBuddy(control);
    v->addWidget(rotulo);
    v->addWidget(control);
  };
  rotulada(kTxSeccionConLetra, secciones_ = new QComboBox(panel), u"Seccion"_s);
  rotulada(kTxBuscarArticulo, busca_ = new QLineEdit(panel), u"Busca"_s);
  busca_->setClearButtonEnabled(true);
  articulos_ = new Parrilla(panel);
  articulos_->setObjectName(u"Articulos"_s);
  articulos_->preparar(
      contexto(), nombre(),
      {{.titulo = kTxCodigo, .campo = u"CODPLU"_s, .clase = Clase::Codigo, .cifras = 7},
       {.titulo = kTxNombre, .campo = u"NOMPLU"_s, .ancho = 220}});
  articulos_->ponerUnaSola(true);
  articulos_->ponerBusca(false);
  articulos_->ponerVacia(t(kTxSinArticulos));
  tropiezos_ = new Parrilla(panel);
  tropiezos_->setObjectName(u"Tropiezos"_s);
  tropiezos_->preparar(contexto(), nombre() + u"Tropiezos"_s,
                       {{.titulo = kTxTropiezos, .campo = u"que"_s, .ancho = 340}});
  tropiezos_->ponerUnaSola(true);
  tropiezos_->ponerBusca(false);
  tropiezos_->ponerPie(false);
  tropiezos_->vivas();
  tropiezos_->ponerVacia(t(kTxSaleBien));
  v->addWidget(articulos_, 3);
  v->addWidget(tropiezos_, 2);
  connect(secciones_, &QComboBox::currentIndexChanged, this, [this] { listar(); });
  connect(busca_, &QLineEdit::textChanged, this, [this] { listar(); });
  connect(articulos_, &Parrilla::actualCambiada, this, [this] { articuloCambiado(); });
  connect(tropiezos_, &Parrilla::actualCambiada, this, [this](int fila) {
    dibujo_->senalar(fila < 0 ? -1 : static_cast<int>(tropiezos_->clave(fila)));
  });
  return panel;
}

Resultado<> VistaEtq::entrar(const PuertaVistaEtq& puerta) {
  puerta_ = puerta;
  lineas_ = {};
  if (puerta.juego) {
    TARVO_TOMAR(lineas_, juegos_.lineas(*puerta.juego));
  }
  if (!puerta.nombre.isEmpty()) setWindowTitle(puerta.nombre + u" - "_s + t(kTxVistaEtq));
  // Opened again after changes in the editor, it shows the same article.
  if (ultimo_) {
    mostrar(ultimo_);
    return {};
  }
  {
    const QSignalBlocker callado(secciones_);
    TARVO_INTENTAR(llenar(*secciones_, contexto().nombres.secciones(), 3));
  }
  listar();
  articuloCambiado();
  busca_->setFocus();
  return {};
}

LectorTextos VistaEtq::lector() const {
  return [this](int n) { return LeerTexto(n, lineas_, contexto().ajustes); };
}

void VistaEtq::listar() {
  haIdoBien(articulos_->abrir(articles::listaArticulos(
      {.seccion = static_cast<int>(elegido(*secciones_)), .texto = busca_->text()})));
  // The first one that isn't the system's.
  int fila = 0;
  while (fila + 1 < articulos_->filas() &&
         articulos_->valor(fila, u"CODPLU").entero() < articles::kPrimerCodigo)
    ++fila;
  if (articulos_->filas() > 0) articulos_->irA(fila);
}

void VistaEtq::articuloCambiado() {
  const int fila = articulos_->filaActual();
  if (fila < 0) return;
  const articles::ClaveArticulo clave{static_cast<int>(elegido(*secciones_)),
                                      articulos_->valor(fila, u"CODPLU").entero()};
  mostrar([this, clave] { return muestras_.deArticulo(clave); });
}

void VistaEtq::peorCaso() {
  mostrar([this, seccion = static_cast<int>(elegido(*secciones_))] {
    return muestras_.peorCaso(seccion);
  });
}

void VistaEtq::mostrar(std::function<Resultado<Ejemplo>()> cual) {
  const auto ejemplo = cual();
  if (!haIdoBien(ejemplo)) return;
  ultimo_ = std::move(cual);
  titulo_->setText(ejemplo->nombre);
  dibujo_->poner(imprimir(puerta_.formato, *ejemplo, lector(), fuente_));
  mostrarTropiezos();
}

void VistaEtq::mostrarTropiezos() {
  std::vector<FilaViva> filas;
  const auto& todos = dibujo_->impresion().tropiezos;
  filas.reserve(todos.size());
  for (size_t i = 0; i < todos.size(); ++i)
    filas.push_back({static_cast<qint64>(i),
                     {decirTropiezo(contexto().textos, puerta_.formato, todos[i], lector())}});
  tropiezos_->vivas().poner(std::move(filas));
}

void VistaEtq::guardar() {
  const Retenida mientras(this);
  QFileDialog caja(this, t(kTxGuardarImagen).remove(u'&'), contexto().ajustes.carpeta,
                   t(kTxTiposImagen));
  caja.setAcceptMode(QFileDialog::AcceptSave);
  QString nombre = windowTitle().remove(QRegularExpression(uR"([/\\:*?"<>|])"_s));
  caja.selectFile(nombre.simplified() + u".png"_s);
  caja.setDefaultSuffix(u"png"_s);
  connect(&caja, &QFileDialog::filterSelected, &caja, [&caja](const QString& tipo) {
    caja.setDefaultSuffix(tipo.contains(u".pdf"_s) ? u"pdf"_s : u"png"_s);
  });
  if (caja.exec() != QDialog::Accepted) return;
  const QString ruta = caja.selectedFiles().value(0);
  if (haIdoBien(guardarImpresion(dibujo_->impresion(), ruta, t(kTxNoSeDibuja))))
    decirBien(contexto().textos(kTxImagenGuardada, {ruta}));
}

}  // namespace tarvo::labels
