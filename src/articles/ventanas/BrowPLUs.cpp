// The list: its articles, its order and its current row.
#include "articles/ventanas/BrowPLUs.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include "articles/Secciones.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kLargoCodigo = 7, kLargoNombre = 30;
constexpr int kAnchoLado = 430;
constexpr int kLargoNumero = 9;  // exceeds the limit, so that longer numbers are refused, not cut

}  // namespace

BrowPLUs::BrowPLUs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo,
                   motor::gestcomm& motor)
    : Ventana(contexto, nombre), catalogo_(catalogo), motor_(motor), lotes_(catalogo) {
  ui_.setupUi(cuerpo());
  enlazar();
  precios_ = std::make_unique<ParrillaPrecios>(
      *this, *ui_.GrdPre, [this](const Precios& p) { return CambioPrecios(p); },
      [this] { return ui_.Grid->texto(ui_.Grid->filaActual(), u"NOMPLU"); });
  montar();
}

void BrowPLUs::montar() {
  montarAcciones();
  montarMenus();
  montarCampos();
  prepararParrilla();
  ui_.divisor->setStretchFactor(0, 1);
  ui_.lado->setMinimumWidth(ventanas::escalar(kAnchoLado));
  connect(ui_.Grid, &ventanas::Parrilla::actualCambiada, this, &BrowPLUs::actualCambiada);
  connect(ui_.Grid, &ventanas::Parrilla::activada, this, [this] { editarCompleto(false); });
  connect(
      ui_.Grid, &ventanas::Parrilla::editada, this,
      [this](int, int columna) { celdaEscrita(columna); }, Qt::QueuedConnection);
  // Moves to the next row, unless the edited row may have moved itself.
  connect(
      ui_.Grid, &ventanas::Parrilla::escrita, this,
      [this](int fila) {
        if (!ordena(ui_.Grid->vista()->currentIndex().column())) ui_.Grid->irA(fila + 1);
      },
      Qt::QueuedConnection);
  connect(ui_.Grid, &ventanas::Parrilla::variasEscritas, this, &BrowPLUs::refrescar);
  for (ventanas::Parrilla* p : {ui_.Grid, ui_.GrdPre})
    connect(p, &ventanas::Parrilla::variasDejadas, this, &BrowPLUs::refrescar);
  for (ventanas::Parrilla* p : {ui_.Grid, ui_.GrdPre}) {
    deshacer_->seguirTandas(*p);
    p->ponerTodoONada([this](const auto& hacer) { return catalogo_.todoONada(hacer); });
  }
  connect(ui_.Grid->vista()->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          &BrowPLUs::ordenCambiado);
  for (ventanas::Parrilla* p : {ui_.Grid, ui_.GrdPre}) {
    p->vista()->installEventFilter(this);
    connect(p, &ventanas::Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
  }
  // Moves to the next article, in the same cell.
  connect(ui_.GrdPre, &ventanas::Parrilla::activada, this, [this] { saltar(1); });
  connect(
      ui_.GrdPre, &ventanas::Parrilla::escrita, this, [this] { saltar(1); }, Qt::QueuedConnection);
}

void BrowPLUs::montarCampos() {
  for (QLineEdit* campo : {ui_.EntBus, ui_.Filtro}) campo->installEventFilter(this);
  QSizePolicy ancho(QSizePolicy::Ignored, QSizePolicy::Preferred);
  ancho.setHeightForWidth(true);
  ui_.articulo->setSizePolicy(ancho);
  ui_.articulo->setTextFormat(Qt::PlainText);
  ui_.articulo->installEventFilter(this);
  ui_.Filtro->setClearButtonEnabled(true);
  ui_.Filtro->setPlaceholderText(t(kTxFiltroQue));
  ui_.Filtro->setMinimumWidth(ventanas::escalar(220));
  ui_.EntBus->setMaxLength(kLargoCodigo);
  ui_.EntBus->setMinimumWidth(ventanas::escalar(100));
  ui_.ModoCod->setChecked(true);
  connect(ui_.Filtro, &QLineEdit::textChanged, this, &BrowPLUs::listar);
  connect(ui_.ModoCod, &QRadioButton::clicked, this, [this] { ordenar(false); });
  connect(ui_.ModoNom, &QRadioButton::clicked, this, [this] { ordenar(true); });
  connect(ui_.LstSec, &QComboBox::activated, this,
          [this] { LetSeccion(ui_.LstSec->currentData().toInt()); });
  connect(ui_.LstDep, &QComboBox::activated, this,
          [this] { LetDept(ui_.LstDep->currentData().toInt()); });
}

void BrowPLUs::prepararParrilla() {
  const auto entero = [this](const QString& columna, int Articulo::* campo) {
    return [this, columna, campo](qint64 fila, const QString& texto) {
      return ponerEntero(fila, texto, columna, campo);
    };
  };
  std::vector<ventanas::Columna> columnas{
      {.titulo = ventanas::kTxCodigo,
       .campo = u"CODPLU"_s,
       .clase = Clase::Codigo,
       .cifras = 7,
       .editar = [this](qint64 f, const QString& s) { return ponerCodigo(f, s); },
       .nombraLaFila = true,
       .largo = kLargoNumero},
      {.titulo = ventanas::kTxNombre,
       .campo = u"NOMPLU"_s,
       .ancho = 240,
       .orden = ordenPorNombre(),
       .editar = [this](qint64 f, const QString& s) { return ponerNombre(f, s); }},
      {.titulo = kTxPrecio,
       .campo = u"PRECIO_00"_s,
       .clase = Clase::Importe,
       .ancho = kAnchoPrecio,
       .editar = ponerPrecio(0, 0)},
      {.titulo = kTxUnidad,
       .campo = columnaUnidad(),
       .ancho = 60,
       .orden = ordenPorUnidad(),
       .rango = 1},
      {.titulo = kTxDepto,
       .campo = u"DEPTO"_s,
       .clase = Clase::Codigo,
       .cifras = 2,
       .ancho = 60,
       .editar = entero(u"DEPTO"_s, &Articulo::depto),
       .largo = kLargoNumero,
       .rango = 2},
      {.titulo = ventanas::kTxFormato,
       .campo = u"FORMATO"_s,
       .clase = Clase::Codigo,
       .cifras = 2,
       .ancho = 70,
       .editar = entero(u"FORMATO"_s, &Articulo::formato),
       .largo = kLargoNumero,
       .rango = 3},
      {.titulo = kTxCoste,
       .campo = u"COSTE"_s,
       .clase = Clase::Importe,
       .ancho = kAnchoPrecio,
       .oculta = true},
      {.titulo = ventanas::kTxCodigoDeBarras,
       .campo = columnaCodigoBarras(),
       .ancho = 130,
       .oculta = true}};
  anadirPrecios(columnas);
  ui_.Grid->preparar(contexto(), this->nombre(), std::move(columnas));
  ui_.Grid->ponerMoneda(contexto().ajustes.MonedaNativa);
  ui_.Grid->ponerBusca(false);
  ui_.Grid->filtros()->addWidget(ui_.orden);
  ui_.Grid->ponerVacia(t(kTxListaVacia), ui_.Nuevo);
}

// The setter of a price cell in the list.
std::function<Resultado<>(qint64, const QString&)> BrowPLUs::ponerPrecio(size_t nivel,
                                                                         size_t tarifa) {
  return [this, nivel, tarifa](qint64 fila, const QString& texto) -> Resultado<> {
    std::optional<QString> aviso;
    const QString columna = columnaPrecio(static_cast<int>(nivel), static_cast<int>(tarifa));
    const auto poner = [&](Articulo& a) -> Resultado<> {
      TARVO_TOMAR(const auto precio, leerPrecio(*this, texto, contexto().ajustes.MonedaNativa));
      const Textos& textos = contexto().textos;
      const QString cual = nombrePrecio(static_cast<int>(nivel), static_cast<int>(tarifa), textos);
      aviso =
          avisoCambio(a.nombre, cual, a.precios[nivel][tarifa], precio, contexto().ajustes, textos);
      a.precios[nivel][tarifa] = precio;
      return {};
    };
    TARVO_INTENTAR(escribir(fila, columna, poner));
    if (aviso) decirDuda(*aviso);
    return {};
  };
}

// Adds the other prices, hidden until the user shows them.
void BrowPLUs::anadirPrecios(std::vector<ventanas::Columna>& columnas) {
  for (int i = 1; i < kNiveles * kTarifas; ++i) {
    const int nivel = i / kTarifas, tarifa = i % kTarifas;
    columnas.push_back(
        {.titulo = kTxOtrosPrecios + i - 1,
         .campo = columnaPrecio(nivel, tarifa),
         .clase = Clase::Importe,
         .ancho = kAnchoPrecio,
         .oculta = true,
         .editar = ponerPrecio(static_cast<size_t>(nivel), static_cast<size_t>(tarifa))});
  }
}

Resultado<> BrowPLUs::entrar(const PuertaBrowPLUs& puerta) {
  TARVO_INTENTAR(ventanas::llenar(*ui_.LstSec, contexto().nombres.secciones(), 3));
  if (ui_.LstSec->count() == 0) return fallo(Fallo::NoExiste, t(kTxSinSecciones));
  int seccion = puerta.seccion > 0 ? puerta.seccion : seccion_;
  if (ui_.LstSec->findData(seccion) < 0) seccion = ui_.LstSec->itemData(0).toInt();
  const bool nueva = seccion_ == 0;
  const bool otra = nueva || puerta.seccion > 0;
  LetSeccion(seccion);
  if (puerta.departamento > 0) LetDept(puerta.departamento);
  if (otra) irAlPrimero();
  if (nueva) ui_.Grid->setFocus();
  return {};
}

// Moves to the first editable article; the section may lack the system articles.
void BrowPLUs::irAlPrimero() {
  int fila = 0;
  while (fila + 1 < std::min<int>(ui_.Grid->filas(), kPrimerCodigo) &&
         ui_.Grid->valor(fila, u"CODPLU").entero() < kPrimerCodigo)
    ++fila;
  if (ui_.Grid->filas() > 0) ui_.Grid->irA(fila);
}

void BrowPLUs::LetSeccion(int seccion) {
  seccion_ = seccion;
  departamento_ = 0;
  ventanas::elegir(*ui_.LstSec, seccion);
  haIdoBien(ventanas::llenar(*ui_.LstDep, contexto().nombres.departamentos(seccion), 2));
  ui_.LstDep->insertItem(0, t(ventanas::kTxTodos), qint64{0});
  ui_.LstDep->setCurrentIndex(0);
  listar();
  mirarLotes();
}

void BrowPLUs::LetDept(int departamento) {
  departamento_ = ventanas::elegir(*ui_.LstDep, departamento) ? departamento : 0;
  if (departamento_ == 0) ui_.LstDep->setCurrentIndex(0);
  listar();
  if (ui_.Grid->filaActual() < 0) irAlPrimero();
}

FiltroArticulos BrowPLUs::filtro() const {
  return {seccion_, departamento_, ui_.Filtro->text()};
}

void BrowPLUs::listar() {
  if (seccion_ == 0) return;
  haIdoBien(ui_.Grid->abrir(listaArticulos(filtro())));
  cambios_ = contexto().base.cambios();
  ui_.Grid->ponerVacia(t(ui_.Filtro->text().trimmed().isEmpty() ? kTxListaVacia : kTxNadaFiltrado),
                       ui_.Nuevo);
  setWindowTitle(t(kTxArticulosDe).arg(ui_.LstSec->currentText()));
  actualCambiada();
}

void BrowPLUs::refrescar() {
  if (ui_.Grid->editando()) return;
  haIdoBien(ui_.Grid->refrescar());
  cambios_ = contexto().base.cambios();
  actualCambiada();
}

void BrowPLUs::refrescarEn(Clave c) {
  refrescar();
  if (c.seccion != seccion_ || c == clave()) return;
  const auto fila = filaDe(catalogo_, {c.seccion, c.codigo});
  if (haIdoBien(fila) && *fila) ui_.Grid->irA(ui_.Grid->filaDe(**fila));
}

// --- order and search ---------------------------------------------------------------------------

void BrowPLUs::ordenar(bool porNombre) {
  const int columna = ui_.Grid->modelo()->columna(porNombre ? u"NOMPLU" : u"CODPLU");
  haIdoBien(ui_.Grid->ordenar(columna, Qt::AscendingOrder));
  ordenCambiado();
}

// Also called after a click on a heading.
void BrowPLUs::ordenCambiado() {
  const auto* cabecera = ui_.Grid->vista()->horizontalHeader();
  const bool porNombre = cabecera->sortIndicatorSection() == ui_.Grid->modelo()->columna(u"NOMPLU");
  (porNombre ? ui_.ModoNom : ui_.ModoCod)->setChecked(true);
  ui_.EntBus->setMaxLength(porNombre ? kLargoNombre : kLargoCodigo);
  if (ui_.Grid->filaActual() >= 0) ui_.Grid->vista()->scrollTo(ui_.Grid->vista()->currentIndex());
}

// Moves to the first article at or after the text typed.
void BrowPLUs::buscar() {
  const QString texto = ui_.EntBus->text().trimmed();
  if (texto.isEmpty()) return ui_.Grid->setFocus();
  const auto fila = filaDesde(catalogo_, filtro(), ui_.ModoNom->isChecked(), texto);
  ui_.EntBus->clear();
  ui_.Grid->setFocus();
  if (!haIdoBien(fila)) return;
  if (!*fila) return decirDuda(t(kTxNadaDesde).arg(texto));
  ui_.Grid->irA(ui_.Grid->filaDe(**fila));
}

// --- current row --------------------------------------------------------------------------------

ClaveArticulo BrowPLUs::actual() const {
  return {seccion_, ui_.Grid->valor(ui_.Grid->filaActual(), u"CODPLU").entero()};
}

ventanas::Recorrido::Clave BrowPLUs::clave() const {
  const ClaveArticulo c = actual();
  return {c.seccion, c.codigo};
}

bool BrowPLUs::saltar(int pasos) {
  const int fila = ui_.Grid->filaActual() + pasos;
  if (fila < 0 || fila >= ui_.Grid->filas()) return false;
  ui_.Grid->irA(fila);
  return true;
}

void BrowPLUs::alMover(QObject* quien, std::function<void()> reposicionado) {
  siguen_.emplace_back(quien, std::move(reposicionado));
}

void BrowPLUs::actualCambiada() {
  habilitar();
  pintarLado();
  if (clave() == anterior_) return;
  anterior_ = clave();
  std::erase_if(siguen_, [](const auto& s) { return s.first.isNull(); });
  for (const auto& [quien, hacer] : std::vector(siguen_))
    if (quien) hacer();
}

void BrowPLUs::pintarLado() {
  const auto articulo = catalogo_.leer(actual());
  if (!haIdoBien(articulo) || !*articulo) {
    nombre_.clear();
    pintarNombre();
    ui_.detalle->clear();
    return precios_->vaciar();
  }
  const Articulo& a = **articulo;
  nombre_ = verCodigo(a.clave.codigo) + u"  "_s + a.nombre;
  pintarNombre();
  ui_.detalle->setText(
      t(kTxDetalle)
          .arg(a.codigoDeBarras(),
               VerImporte(contexto().ajustes, a.coste, contexto().ajustes.MonedaNativa),
               VerCantidad(contexto().ajustes.idioma, a.hasta1, a.cada),
               VerCantidad(contexto().ajustes.idioma, a.hasta2, a.cada)));
  precios_->poner(a.precios);
}

// A name wraps between words; a word that is too long is elided, and the tool tip shows it in full.
void BrowPLUs::pintarNombre() {
  ui_.articulo->ensurePolished();
  const QFontMetrics letra = ui_.articulo->fontMetrics();
  QStringList palabras = nombre_.split(u' ');
  for (QString& p : palabras)
    p = letra.elidedText(p, Qt::ElideRight, ui_.articulo->contentsRect().width());
  const QString cabe = palabras.join(u' ');
  ui_.articulo->setText(cabe);
  ui_.articulo->setToolTip(cabe == nombre_ ? QString() : nombre_.toHtmlEscaped());
}

// Shows the changes made by other windows when this one is activated.
bool BrowPLUs::event(QEvent* evento) {
  const bool hecho = Ventana::event(evento);
  if (evento->type() == QEvent::WindowActivate && seccion_ > 0 && !trabajando_ &&
      contexto().base.cambios() != cambios_)
    refrescar();
  return hecho;
}

bool BrowPLUs::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == ui_.articulo && evento->type() == QEvent::Resize) pintarNombre();
  if (evento->type() != QEvent::KeyPress) return Ventana::eventFilter(objeto, evento);
  const auto* tecla = static_cast<QKeyEvent*>(evento);
  const int k = tecla->key();
  const bool lista = objeto == ui_.Grid->vista() || objeto == ui_.GrdPre->vista();
  if (lista) {
    const bool pagina = k == Qt::Key_PageUp || k == Qt::Key_PageDown;
    if (!pagina || (tecla->modifiers() & Qt::ControlModifier)) return false;
    saltar(k == Qt::Key_PageUp ? -1 : 1);
    return true;
  }
  const bool intro = k == Qt::Key_Return || k == Qt::Key_Enter;
  if (objeto == ui_.EntBus && intro) {
    buscar();
    return true;
  }
  if (objeto == ui_.Filtro && k == Qt::Key_Escape && !ui_.Filtro->text().isEmpty()) {
    ui_.Filtro->clear();
    return true;
  }
  if (intro || k == Qt::Key_Up || k == Qt::Key_Down) {
    ui_.Grid->setFocus();
    return true;
  }
  return false;
}

void BrowPLUs::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_PageUp || evento->key() == Qt::Key_PageDown) {
    saltar(evento->key() == Qt::Key_PageUp ? -1 : 1);
    return;
  }
  Ventana::keyPressEvent(evento);
}

}  // namespace tarvo::articles
