#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Delegado.h"
#include "core/ventanas/parrilla/ParrillaInterior.h"
#include "core/ventanas/parrilla/VistaParrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoBusca = 220;
constexpr int kAnchoElastica = 720, kAnchoMinimo = 120;
constexpr int kHolguraPorCien = 60;  // by which a column of figures may be wider than it needs

int anchoPorClase(const Columna& c) {
  switch (c.clase) {
    case Clase::Texto:
      return 180;
    case Clase::Codigo:
      return 90;
    case Clase::Momento:
      return 160;
    case Clase::Importe:
    case Clase::Cantidad:
    case Clase::Fecha:
      return 110;
    case Clase::SiNo:
      return 70;
    default:
      return 90;
  }
}

int enCien(int pixeles) {
  return pixeles * kAnchoBusca / std::max(1, escalar(kAnchoBusca));
}

}  // namespace

void Parrilla::Interior::montar() {
  auto* pila = new QVBoxLayout(&yo);
  pila->setContentsMargins(0, 0, 0, 0);
  pila->setSpacing(escalar(kPaso));

  arriba = new QWidget(&yo);
  auto* linea = new QHBoxLayout(arriba);
  linea->setContentsMargins(0, 0, 0, 0);
  filtros = new QHBoxLayout;
  busca = new QLineEdit(arriba);
  busca->setObjectName(u"busca"_s);
  busca->setClearButtonEnabled(true);
  busca->setMaximumWidth(escalar(kAnchoBusca));
  linea->addLayout(filtros);
  linea->addStretch();
  linea->addWidget(busca, 1);
  pila->addWidget(arriba);

  QTableView* v = yo.vista_;
  v->setObjectName(u"vista"_s);
  v->setAlternatingRowColors(true);
  v->setShowGrid(false);
  v->setSelectionBehavior(QAbstractItemView::SelectRows);
  v->setSelectionMode(QAbstractItemView::ExtendedSelection);
  v->setEditTriggers(QAbstractItemView::NoEditTriggers);
  v->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  v->setTabKeyNavigation(false);
  v->setWordWrap(false);
  v->setCornerButtonEnabled(false);
  delegado = new Delegado(v);
  v->setItemDelegate(delegado);
  v->verticalHeader()->hide();
  v->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  v->verticalHeader()->setMinimumSectionSize(1);
  v->verticalHeader()->setDefaultSectionSize(escalar(kAltoFila));
  QHeaderView* h = v->horizontalHeader();
  h->setSectionsMovable(true);
  h->setSectionsClickable(true);
  h->setHighlightSections(false);
  h->setMinimumHeight(escalar(kAltoFila));
  h->setContextMenuPolicy(Qt::CustomContextMenu);
  v->setContextMenuPolicy(Qt::CustomContextMenu);
  v->installEventFilter(&yo);
  v->viewport()->installEventFilter(&yo);
  busca->installEventFilter(&yo);
  pila->addWidget(v, 1);
  yo.setFocusProxy(v);
  yo.setFocusPolicy(v->focusPolicy());  // for the mnemonic of its label

  vacia = new QWidget(v->viewport());
  auto* centro = new QVBoxLayout(vacia);
  vaciaTexto = new QLabel(vacia);
  vaciaTexto->setObjectName(u"vacia"_s);
  vaciaTexto->setAlignment(Qt::AlignCenter);
  vaciaTexto->setWordWrap(true);
  vaciaBoton = new QToolButton(vacia);
  vaciaBoton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  vaciaBoton->setProperty("marco", true);
  vaciaBoton->hide();
  centro->addStretch();
  centro->addWidget(vaciaTexto);
  centro->addWidget(vaciaBoton, 0, Qt::AlignCenter);
  centro->addStretch();
  vacia->hide();

  rotulo = new QLabel(&yo);
  rotulo->setObjectName(u"tecleado"_s);
  rotulo->setTextFormat(Qt::PlainText);
  rotulo->hide();

  pie = new Pie(*h, &yo);
  pila->addWidget(pie);
  auto* abajo = new QHBoxLayout;
  cuenta = new QLabel(&yo);
  cuenta->setObjectName(u"cuenta"_s);
  aviso = new QLabel(&yo);
  aviso->setObjectName(u"aviso"_s);
  ponerLetra(*cuenta, Letra::Secundaria);
  ponerLetra(*aviso, Letra::Secundaria);
  // A message of any length leaves the grid its width; the tool tip shows it whole.
  aviso->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  aviso->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  abajo->addWidget(cuenta);
  abajo->addWidget(aviso, 1);
  pila->addLayout(abajo);

  connect(v, &QTableView::doubleClicked, &yo, [this](const QModelIndex& i) {
    if (!editar(i)) Q_EMIT yo.activada(i.row());
  });
  static_cast<VistaParrilla*>(v)->alPulsar([this] {
    if (std::exchange(actualPorDecir, false)) Q_EMIT yo.actualCambiada(yo.filaActual());
  });
  connect(delegado, &Delegado::acabada, &yo, [this](int pasos) { seguirEditando(pasos); });
  connect(delegado, &Delegado::closeEditor, &yo, [this](QWidget*, Delegado::EndEditHint como) {
    if (como == Delegado::RevertModelCache) resolver();
    Q_EMIT yo.dejada();
  });
  connect(v, &QWidget::customContextMenuRequested, &yo,
          [this](const QPoint& p) { menuContexto(yo.vista_->viewport()->mapToGlobal(p)); });
  connect(h, &QWidget::customContextMenuRequested, &yo,
          [this, h](const QPoint& p) { menuColumnas(h->mapToGlobal(p)); });
  connect(h, &QHeaderView::sortIndicatorChanged, &yo, [this](int columna, Qt::SortOrder sentido) {
    if (colocando) return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto hecho = yo.ordenar(columna, sentido);
    QGuiApplication::restoreOverrideCursor();
    if (!hecho) avisar(hecho.error());
  });
  connect(h, &QHeaderView::sectionResized, &yo, [this] {
    if (!colocando) elasticas = false;
  });
  connect(v->horizontalScrollBar(), &QScrollBar::valueChanged, pie, [this] { pie->update(); });
}

void Parrilla::Interior::hacerAcciones() {
  if (copiar) return;
  const auto accion = [this](const QString& nombre, int texto, const QKeySequence& teclas,
                             auto hacer) {
    auto* a = new QAction(icono(nombre), t(texto), &yo);
    a->setObjectName(nombre);
    a->setShortcut(teclas);
    a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(a, &QAction::triggered, &yo, hacer);
    yo.addAction(a);
    return a;
  };
  copiar = accion(u"copiar"_s, kTxCopiarFilas, QKeySequence::Copy, [this] { yo.copiar(); });
  todo = accion(u"elegirTodo"_s, kTxElegirTodo, QKeySequence::SelectAll, [this] {
    if (yo.vista_->selectionMode() == QAbstractItemView::SingleSelection)
      return decir(t(kTxUnaSolaFila));
    if (yo.sql_ && !yo.sql_->contarTodo()) return;
    yo.vista_->selectAll();
  });
  buscarSiguiente = accion(u"buscar"_s, kTxBuscarSiguiente, QKeySequence(Qt::Key_F3),
                           [this] { yo.buscar(busca->text()); });
  refrescar = accion(u"refrescar"_s, kTxRefrescar, QKeySequence(Qt::Key_F5), [this] {
    if (const auto hecho = yo.refrescar(); !hecho) avisar(hecho.error());
  });
  elegirColumnas =
      accion(u"columnas"_s, kTxColumnas, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
             [this] { yo.elegirColumnas(); });
  ordenar = accion(u"ordenar"_s, kTxOrdenar, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
                   [this] { ordenarPorLaActual(); });
  exportar = accion(u"exportar"_s, kTxExportar, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                    [this] { yo.exportar(); });
  busca->setPlaceholderText(t(kTxBuscar));
  busca->setAccessibleName(t(kTxBuscar));
  busca->addAction(icono(u"buscar"_s), QLineEdit::LeadingPosition);
  if (vaciaTexto->text().isEmpty()) vaciaTexto->setText(t(kTxVacia));
  trabajo = new TiraTrabajo(c->textos, c->reloj, &yo);
  qobject_cast<QVBoxLayout*>(yo.layout())->addWidget(trabajo);
  sumar = c->reloj.temporizador([this] { pintarPie(); });
  callar = c->reloj.temporizador([this] { decir({}); });
  ocultarRotulo = c->reloj.temporizador([this] { rotulo->hide(); });
}

// Registers with its window: refusals of cells are shown on the window's strip until they are
// settled, and Ctrl+F moves to this grid.
void Parrilla::Interior::presentarse() {
  auto* v = qobject_cast<Ventana*>(yo.window());
  if (!v || std::exchange(presentada, true)) return;
  v->acoger(yo);
  connect(&yo, &Parrilla::fallo, v, &Ventana::decirPendiente);
  connect(&yo, &Parrilla::resuelto, v, &Ventana::resuelto);
  connect(&yo, &Parrilla::editada, v, &Ventana::acierto);
  connect(&yo, &Parrilla::variasEscritas, v, &Ventana::acierto);
  connect(&yo, &Parrilla::pista, v, [v](const QString& texto) {
    if (texto.isEmpty()) return v->quitarPista();
    if (v->tira().estado() != Estado::Mal) v->decirPista(texto);
  });
}

void Parrilla::Interior::ponerModelo(ModeloParrilla* m) {
  if (moneda) m->formato().ponerMoneda(*moneda);
  yo.vista_->setModel(m);
  colocarColumnas();
  connect(m, &ModeloParrilla::vaARenovar, &yo, [this] {
    // Rows that change places meanwhile would be in the file twice, or not at all.
    if (exportando) trabajo->parar();
    guardar();
  });
  connect(m, &ModeloParrilla::renovado, &yo, [this] { reponer(); });
  connect(m, &ModeloParrilla::recuento, &yo, [this] { contar(); });
  if (auto* vivo = qobject_cast<ModeloVivo*>(m))
    connect(vivo, &ModeloVivo::vanAQuitarse, &yo, [this](const auto& seVa) { relevar(seVa); });
  // The neighbour of a removed row is highlighted as it becomes the current one.
  connect(m, &QAbstractItemModel::rowsRemoved, &yo, [this] {
    auto* s = yo.vista_->selectionModel();
    if (s->currentIndex().isValid() && !s->hasSelection())
      s->select(s->currentIndex(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  });
  connect(m, &ModeloParrilla::celdaEscrita, &yo, &Parrilla::celdaEscrita);
  connect(m, &ModeloParrilla::editada, &yo, [this](const QModelIndex& celda) {
    resolver();
    ++escritas;
    Q_EMIT yo.editada(celda.row(), celda.column());
  });
  connect(m, &ModeloParrilla::rechazada, &yo,
          [this](const QModelIndex& celda, const QString& texto, const Error& error) {
            rechazar(celda, texto, error);
          });
  // Rows are read during painting: the failure is reported after that.
  connect(m, &ModeloParrilla::fallido, &yo, [this](const Error& error) {
    QMetaObject::invokeMethod(&yo, [this, error] { avisar(error); }, Qt::QueuedConnection);
  });
  auto* s = yo.vista_->selectionModel();
  connect(s, &QItemSelectionModel::currentRowChanged, &yo, [this](const QModelIndex& i) {
    actualPorDecir = static_cast<VistaParrilla*>(yo.vista_)->pulsando();
    if (!actualPorDecir) Q_EMIT yo.actualCambiada(i.row());
  });
  connect(s, &QItemSelectionModel::currentChanged, &yo, [this] {
    if (tecleo == Tecleo::Perdido) tecleo = Tecleo::Nada;
  });
  connect(s, &QItemSelectionModel::selectionChanged, &yo, [this] {
    contar();
    Q_EMIT yo.seleccionCambiada();
  });
  contar();
}

// A key used by the window belongs to the window: Qt triggers neither of two actions with the same
// key.
void Parrilla::Interior::ceder() {
  const auto suya = [this](const QAction* a) {
    return std::ranges::any_of(yo.window()->findChildren<QAction*>(), [&](const QAction* otra) {
      return otra->shortcutContext() != Qt::WidgetWithChildrenShortcut &&
             otra->shortcuts().contains(a->shortcut());
    });
  };
  for (QAction* a : {copiar, todo, refrescar, elegirColumnas, ordenar, exportar, buscarSiguiente})
    if (a && !a->shortcut().isEmpty() && suya(a))
      a->setShortcut(a == buscarSiguiente ? Qt::SHIFT | Qt::Key_F3 : QKeySequence());
}

// The initial width of a column; it fits its whole title with the sort indicator.
int Parrilla::Interior::anchoInicial(int columna) const {
  const Columna& col = columnas[static_cast<size_t>(columna)];
  return std::max(yo.vista_->horizontalHeader()->sectionSizeHint(columna) + escalar(kPaso),
                  escalar(col.ancho > 0 ? col.ancho : anchoPorClase(col)));
}

void Parrilla::Interior::colocarColumnas() {
  colocando = true;
  QHeaderView* h = yo.vista_->horizontalHeader();
  h->setSortIndicator(-1, Qt::AscendingOrder);
  h->setSortIndicatorShown(true);
  h->ensurePolished();
  for (int i = 0; i < static_cast<int>(columnas.size()); ++i) {
    const Columna& col = columnas[static_cast<size_t>(i)];
    h->resizeSection(i, anchoInicial(i));
    h->setSectionHidden(i, col.oculta || col.soloDato);
  }
  elasticas = true;
  leerColumnas();
  colocando = false;
}

bool Parrilla::Interior::crece(int columna) const {
  const Columna& col = columnas[static_cast<size_t>(columna)];
  return col.clase == Clase::Texto && !col.estado;
}

// Below which it isn't squeezed.
int Parrilla::Interior::anchoMenor(int columna) const {
  const int suyo = columnas[static_cast<size_t>(columna)].minimo;
  return std::min(anchoInicial(columna), escalar(std::max(suyo, kAnchoMinimo)));
}

// Hides columns with a rank, the highest first, until the others fit with the text at its minimum.
// The current column stays.
void Parrilla::Interior::hacerSitio() {
  QHeaderView* h = yo.vista_->horizontalHeader();
  const QScopedValueRollback en(colocando, true);
  for (const int i : std::exchange(sinSitio, {})) h->setSectionHidden(i, false);
  bool elastica = true;
  int ancho = 0;
  for (const int i : columnasVistas()) {
    const bool esta = elastica && crece(i);
    ancho += esta ? anchoMenor(i) : crece(i) ? anchoInicial(i) : h->sectionSize(i);
    if (esta) elastica = false;
  }
  while (ancho > yo.vista_->viewport()->width()) {
    auto vistas = columnasVistas();
    std::erase(vistas, yo.vista_->currentIndex().column());
    const auto peor = std::ranges::max_element(
        vistas, {}, [this](int i) { return columnas[static_cast<size_t>(i)].rango; });
    if (peor == vistas.end() || columnas[static_cast<size_t>(*peor)].rango == 0) return;
    ancho -= h->sectionSize(*peor);
    sinSitio.push_back(*peor);
    h->setSectionHidden(*peor, true);
  }
}

// Until the user sets widths, the wide text columns share the remaining width in proportion to
// their own, each up to a limit if other columns follow it; columns of a word or two stay narrow.
// If there is too little, the first one shrinks.
void Parrilla::Interior::estirar() {
  if (!elasticas || !yo.modelo()) return;
  QHeaderView* h = yo.vista_->horizontalHeader();
  {
    const QScopedValueRollback en(colocando, true);
    for (const int i : columnasVistas()) h->resizeSection(i, anchoInicial(i));
  }
  hacerSitio();
  const auto vistas = columnasVistas();
  std::vector<int> textos;
  int sobra = yo.vista_->viewport()->width(), peso = 0;
  for (const int i : vistas) {
    sobra -= crece(i) ? anchoInicial(i) : h->sectionSize(i);
    const bool ancha = anchoInicial(i) >= escalar(kAnchoMinimo) || i == vistas.back();
    if (!crece(i) || !(ancha || textos.empty())) continue;
    textos.push_back(i);
    peso += anchoInicial(i);
  }
  const bool aprieta =
      std::ranges::any_of(columnas, [](const Columna& otra) { return otra.rango > 0; });
  if (sobra < 0 && !aprieta) sobra = 0;
  const QScopedValueRollback en(colocando, true);
  for (const int i : textos) {
    const int suyo = anchoInicial(i);
    const int tope = i == vistas.back() ? suyo + std::max(sobra, 0)
                                        : std::max(escalar(kAnchoElastica), 2 * suyo);
    const int ancho = sobra < 0 ? std::max(suyo + sobra, anchoMenor(i))
                                : std::min(suyo + sobra * suyo / peso, tope);
    h->resizeSection(i, ancho);
    sobra = std::max(sobra - (ancho - suyo), 0);
    peso -= suyo;
  }
  if (sobra > 0 && !textos.empty()) holgar(sobra);
}

// What the texts leave over is shared by the other columns, up to a limit.
void Parrilla::Interior::holgar(int sobra) {
  QHeaderView* h = yo.vista_->horizontalHeader();
  const auto vistas = columnasVistas();
  int peso = 0;
  for (const int i : vistas) peso += crece(i) ? 0 : h->sectionSize(i);
  for (const int i : vistas) {
    if (crece(i)) continue;
    const int suyo = h->sectionSize(i);
    const int mas = std::min(sobra * suyo / peso, suyo * kHolguraPorCien / 100);
    h->resizeSection(i, suyo + mas);
    sobra -= mas;
    peso -= suyo;
  }
}

QString Parrilla::Interior::nombreMemoria() const {
  const QString propio = yo.objectName();
  return u"columnas"_s + (propio.isEmpty() ? QString() : u'.' + propio);
}

// Stores widths at 100 %: "9;3:120:0,..." in the order shown: the number of columns; then number,
// width and hidden flag of each.
void Parrilla::recordar() {
  if (!modelo() || !d->c) return;
  if (d->elasticas) return;
  // A hidden section doesn't report its width, so it is shown for a moment.
  QHeaderView* h = vista_->horizontalHeader();
  const QScopedValueRollback en(d->colocando, true);
  QStringList partes;
  for (int v = 0; v < h->count(); ++v) {
    const int i = h->logicalIndex(v);
    const bool oculta = h->isSectionHidden(i);
    h->showSection(i);
    partes << u"%1:%2:%3"_s.arg(i).arg(enCien(h->sectionSize(i))).arg(oculta ? 1 : 0);
    h->setSectionHidden(i, oculta);
  }
  d->c->recuerdos.poner(d->ventana.section(u'#', 0, 0), d->nombreMemoria(),
                        QString::number(h->count()) + u';' + partes.join(u','));
}

void Parrilla::Interior::leerColumnas() {
  const QString texto = c->recuerdos.leer(ventana.section(u'#', 0, 0), nombreMemoria());
  const QStringList mitades = texto.split(u';');
  QHeaderView* h = yo.vista_->horizontalHeader();
  if (mitades.size() != 2 || mitades[0].toInt() != h->count()) return;
  elasticas = false;
  int sitio = 0;
  for (const QString& parte : mitades[1].split(u',')) {
    const QStringList n = parte.split(u':');
    const int i = n.value(0).toInt(), ancho = n.value(1).toInt();
    if (n.size() != 3 || i < 0 || i >= h->count() || columnas[static_cast<size_t>(i)].soloDato)
      continue;
    h->moveSection(h->visualIndex(i), sitio++);
    if (escalar(ancho) >= h->minimumSectionSize()) h->resizeSection(i, escalar(ancho));
    h->setSectionHidden(i, n[2] == u"1");
  }
}

// The current row is to be removed: a selected one that stays becomes the current one, else the one
// that takes its place, else the last that stays.
void Parrilla::Interior::relevar(const std::function<bool(int)>& seVa) {
  const int actual = yo.filaActual();
  if (actual < 0 || !seVa(actual)) return;
  const auto elegidas = yo.filasElegidas();
  const auto elegida = std::ranges::find_if_not(elegidas, seVa);
  int otra = elegida != elegidas.end() ? *elegida : actual;
  while (otra < yo.filas() && seVa(otra)) ++otra;
  if (otra == yo.filas())
    while (otra >= 0 && (otra == yo.filas() || seVa(otra))) --otra;
  if (otra < 0) return;
  const QModelIndex i = yo.modelo()->index(otra, yo.vista_->currentIndex().column());
  yo.vista_->selectionModel()->setCurrentIndex(i, QItemSelectionModel::NoUpdate);
  yo.vista_->scrollTo(i);
}

void Parrilla::Interior::guardar() {
  guardado = {};
  guardado.habia = yo.filas() > 0;
  guardado.columna = std::max(0, yo.vista_->currentIndex().column());
  guardado.desplazada = yo.vista_->verticalScrollBar()->value();
  if (!yo.sql_ || !guardado.habia) return;
  guardado.elegidas = yo.sql_->identidades(yo.filasElegidas());
  if (const int f = yo.filaActual(); f >= 0)
    guardado.actual =
        yo.sql_->identidades({f}).empty() ? dao::Valor() : yo.sql_->identidades({f})[0];
}

void Parrilla::Interior::reponer() {
  if (!yo.sql_ || !guardado.habia) return;
  QItemSelection seleccion;
  const auto filas = yo.sql_->filasDe(guardado.elegidas);
  for (size_t i = 0; i < filas.size();) {
    size_t j = i;
    while (j + 1 < filas.size() && filas[j + 1] == filas[j] + 1) ++j;
    seleccion.select(yo.sql_->index(filas[i], 0),
                     yo.sql_->index(filas[j], yo.sql_->columnCount() - 1));
    i = j + 1;
  }
  yo.vista_->selectionModel()->select(seleccion, QItemSelectionModel::ClearAndSelect);
  if (!guardado.actual.nulo()) {
    const auto actual = yo.sql_->filasDe({guardado.actual});
    if (!actual.empty())
      yo.vista_->selectionModel()->setCurrentIndex(yo.sql_->index(actual.front(), guardado.columna),
                                                   QItemSelectionModel::NoUpdate);
  }
  yo.vista_->verticalScrollBar()->setValue(guardado.desplazada);
  if (yo.filaActual() >= 0) yo.vista_->scrollTo(yo.vista_->currentIndex());
  guardado = {};
}

}  // namespace tarvo::ventanas
