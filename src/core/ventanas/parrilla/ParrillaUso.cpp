#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QRegularExpression>
#include <QTreeView>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/parrilla/Exportar.h"
#include "core/ventanas/parrilla/ParrillaInterior.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasCopia = 20000;  // more belong in a file
constexpr int kAvisoMs = 5000;      // ms that a message stays
constexpr int kReposoSumas = 60;    // ms without a change before sums are computed

QString conPuntos(qint64 n) {
  return QLocale(QLocale::Spanish).toString(n);
}

}  // namespace

std::vector<int> Parrilla::Interior::columnasVistas() const {
  std::vector<int> vistas;
  const QHeaderView* h = yo.vista_->horizontalHeader();
  for (int v = 0; v < h->count(); ++v)
    if (!h->isSectionHidden(h->logicalIndex(v))) vistas.push_back(h->logicalIndex(v));
  return vistas;
}

void Parrilla::Interior::decir(const QString& texto) {
  dichoDeTanda = false;
  aviso->setToolTip(texto);
  aviso->setAccessibleName(texto);
  aviso->setText(aviso->fontMetrics().elidedText(texto, Qt::ElideMiddle, yo.width() / 2));
  if (!callar) return;
  if (!conPie && !texto.isEmpty()) rotular(texto);
  if (texto.isEmpty())
    callar->parar();
  else
    callar->unaVez(kAvisoMs);
}

// The window reports it.
void Parrilla::Interior::avisar(Error error) {
  decir({});
  Q_EMIT yo.fallo(error);
}

void Parrilla::Interior::contar() {
  if (!c) return;
  QString texto = yo.filas() == 0 ? t(kTxNingunaFila) : Plural(t(kTxFilas), yo.filas());
  texto.replace(QString::number(yo.filas()), conPuntos(yo.filas()));
  if (yo.contando()) texto += u' ' + t(kTxContando);
  qint64 elegidas = 0;
  if (yo.modelo())
    for (const QItemSelectionRange& r : yo.vista_->selectionModel()->selection())
      elegidas += r.height();
  if (elegidas > 1) texto += u"  ·  "_s + Plural(t(kTxElegidas), static_cast<int>(elegidas));
  cuenta->setText(texto);
  pintarVacia();
  if (sumar && !yo.contando()) sumar->unaVez(kReposoSumas);
}

void Parrilla::Interior::pintarPie() {
  if (!conPie || !yo.modelo() || yo.contando()) return pie->poner({}, c ? t(kTxSuma) : QString());
  yo.modelo()->pedirSumas([this](const Resultado<ModeloParrilla::Sumas>& sumas) {
    QStringList textos;
    if (!sumas) avisar(sumas.error());
    for (size_t i = 0; sumas && i < columnas.size(); ++i)
      textos << (columnas[i].suma
                     ? yo.modelo()->formato().ver(columnas[i],
                                                  (*sumas)[i].nulo() ? dao::Valor(0) : (*sumas)[i],
                                                  columnas[i].cada)
                     : QString());
    pie->poner(textos, t(kTxSuma));
  });
}

void Parrilla::Interior::pintarVacia() {
  vacia->setVisible(c && yo.modelo() && yo.filas() == 0);
  vacia->setGeometry(yo.vista_->viewport()->rect());
}

void Parrilla::Interior::menuContexto(const QPoint& donde) {
  const Retenida mientras(&yo);
  QMenu menu(&yo);
  menu.addActions(acciones);
  if (!acciones.isEmpty()) menu.addSeparator();
  menu.addActions({copiar, todo, refrescar, exportar});
  menu.addSeparator();
  menu.addActions({ordenar, elegirColumnas});
  menu.exec(donde);
}

// One entry per column; the last visible one can't be hidden.
void Parrilla::Interior::menuColumnas(const QPoint& donde) {
  const Retenida mientras(&yo);
  QMenu menu(&yo);
  menu.setObjectName(u"menuColumnas"_s);
  QHeaderView* h = yo.vista_->horizontalHeader();
  const size_t vistas = columnasVistas().size();
  for (int v = 0; v < h->count(); ++v) {
    const int i = h->logicalIndex(v);
    if (columnas[static_cast<size_t>(i)].soloDato) continue;
    QAction* a = menu.addAction(t(columnas[static_cast<size_t>(i)].titulo).trimmed());
    a->setCheckable(true);
    a->setChecked(!h->isSectionHidden(i));
    a->setEnabled(vistas > 1 || h->isSectionHidden(i));
    connect(a, &QAction::toggled, &yo, [this, i](bool si) { alternarColumna(i, si); });
  }
  menu.exec(donde);
}

void Parrilla::Interior::alternarColumna(int columna, bool visible) {
  elasticas = false;
  yo.vista_->horizontalHeader()->setSectionHidden(columna, !visible);
  pie->update();
}

void Parrilla::elegirColumnas() {
  if (modelo()) d->menuColumnas(vista_->horizontalHeader()->mapToGlobal(QPoint(0, 0)));
}

void Parrilla::Interior::moverColumna(int pasos) {
  QHeaderView* h = yo.vista_->horizontalHeader();
  const auto vistas = columnasVistas();
  const auto donde = std::ranges::find(vistas, yo.vista_->currentIndex().column());
  if (donde == vistas.end()) return;
  const auto otra = (donde - vistas.begin()) + pasos;
  if (otra < 0 || otra >= static_cast<ptrdiff_t>(vistas.size())) return;
  elasticas = false;
  h->moveSection(h->visualIndex(*donde), h->visualIndex(vistas[static_cast<size_t>(otra)]));
}

// As a click on the heading of the current column does: the second time the other way round.
void Parrilla::Interior::ordenarPorLaActual() {
  const auto vistas = columnasVistas();
  if (!yo.modelo() || vistas.empty()) return;
  const int actual = yo.vista_->currentIndex().column();
  const bool seVe = std::ranges::find(vistas, actual) != vistas.end();
  const int columna = seVe ? actual : vistas.front();
  if (!columnas[static_cast<size_t>(columna)].ordenable)
    return decir(c->textos(kTxNoSeOrdena, {titulo(columna)}));
  QHeaderView* h = yo.vista_->horizontalHeader();
  const bool otraVez =
      h->sortIndicatorSection() == columna && h->sortIndicatorOrder() == Qt::AscendingOrder;
  decir(c->textos(otraVez ? kTxOrdenadaAlReves : kTxOrdenada, {titulo(columna)}));
  h->setSortIndicator(columna, otraVez ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void Parrilla::irABuscar() {
  d->busca->setFocus();
  d->busca->selectAll();
}

void Parrilla::buscar(const QString& texto) {
  if (!modelo() || texto.isEmpty()) return;
  d->buscarDesde(texto, ModeloParrilla::Busca::Contiene, d->columnasVistas(), filaActual() + 1);
}

// Searches forward to the end, and from the beginning back to the starting row. `alAcabar` receives
// the row, -1 if there is none, unless the search was stopped.
void Parrilla::Interior::buscarDesde(const QString& texto, ModeloParrilla::Busca como,
                                     const std::vector<int>& cuales, int desde,
                                     std::function<void(int)> alAcabar) {
  trabajo->parar();
  if (yo.sql_ && !yo.sql_->contarTodo()) return;
  decir({});
  const int cuantas = yo.filas();
  auto hallada = std::make_shared<int>(-1);
  auto vistas = std::make_shared<int>(0);
  const auto paso = [=, this](Trabajo::Avance& a) -> Resultado<bool> {
    a.total = cuantas;
    if (yo.filas() != cuantas || *vistas >= cuantas) return false;
    const int fila = (desde + *vistas) % cuantas;
    const auto h = yo.modelo()->buscar(texto, como, cuales, fila);
    // Past the starting row again: all rows have been examined.
    *vistas += std::max(1, (h.fila >= 0 ? h.fila + 1 : h.siguiente) - fila);
    a.hechos = std::min(*vistas, cuantas);
    if (h.fila >= 0) *hallada = h.fila;
    return h.fila < 0 && *vistas < cuantas;
  };
  trabajo->empezar(t(kTxBuscando).arg(texto), paso,
                   [=, this, luego = std::move(alAcabar)](const Resultado<Trabajo::Fin>& fin) {
                     const bool acabada = fin && *fin == Trabajo::Fin::Acabado;
                     if (*hallada >= 0)
                       yo.irA(*hallada);
                     else if (acabada)
                       decir(t(kTxNoHallado).arg(texto));
                     if (luego && (*hallada >= 0 || acabada)) luego(*hallada);
                   });
}

void Parrilla::copiar() {
  const auto filas = filasParaActuar();
  if (filas.empty()) return;
  if (static_cast<int>(filas.size()) > kFilasCopia)
    return d->avisar({Fallo::Restriccion, 0, d->t(kTxDemasiadasFilas).arg(conPuntos(kFilasCopia))});
  const auto columnas = d->columnasVistas();
  QString texto;
  for (const int fila : filas) {
    QStringList celdas;
    for (const int columna : columnas)
      celdas << modelo()->texto(fila, columna).replace(u'\t', u' ').replace(u'\n', u' ');
    texto += celdas.join(u'\t') + u'\n';
  }
  QApplication::clipboard()->setText(texto);
}

void Parrilla::exportar() {
  if (!modelo()) return;
  const Retenida mientras(this);
  // The file is named after the window, without the characters not allowed in file names.
  QString nombre = tituloSinMarca(*this).remove(QRegularExpression(uR"([/\\:*?"<>|])"_s));
  nombre = nombre.simplified();
  if (nombre.isEmpty()) nombre = d->ventana.section(u'#', 0, 0);
  QFileDialog caja(window(), d->t(kTxExportar).remove(u'&'), d->c->ajustes.carpeta,
                   d->t(kTxTiposExportar));
  caja.setAcceptMode(QFileDialog::AcceptSave);
  caja.selectFile(nombre + u".xlsx"_s);
  // A name without an ending gets that of its kind.
  const auto deTipo = [&caja](const QString& tipo) {
    caja.setDefaultSuffix(tipo.contains(u".csv"_s) ? u"csv"_s : u"xlsx"_s);
  };
  connect(&caja, &QFileDialog::filterSelected, &caja, deTipo);
  deTipo(caja.selectedNameFilter());
  if (auto* lista = caja.findChild<QTreeView*>(u"treeView"_s))
    lista->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  if (caja.exec() == QDialog::Accepted) exportarEn(caja.selectedFiles().value(0));
}

void Parrilla::exportarEn(const QString& ruta) {
  if (!modelo()) return;
  const QFileInfo fichero(ruta);
  if (fichero.completeBaseName().isEmpty() || fichero.isDir())
    return d->avisar({Fallo::Formato, 0, d->t(kTxFaltaNombreFichero)});
  d->trabajo->parar();
  if (sql_)
    if (const auto hecho = sql_->contarTodo(); !hecho) return d->avisar(hecho.error());
  auto paso = ventanas::exportar({modelo(), d->columnasVistas(), ruta, tituloSinMarca(*this)});
  if (!paso) return d->avisar(paso.error());
  d->exportando = true;
  d->trabajo->empezar(d->t(kTxExportando), std::move(*paso),
                      [this, ruta](const Resultado<Trabajo::Fin>& fin) {
                        d->exportando = false;
                        if (!fin) return d->avisar(fin.error());
                        if (*fin == Trabajo::Fin::Parado) return d->decir(d->t(kTxParado));
                        d->decir(d->t(kTxExportado).arg(ruta));
                        Q_EMIT exportado(ruta);
                      });
}

bool Parrilla::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == vista_->viewport() && evento->type() == QEvent::Resize) {
    d->pintarVacia();
    d->estirar();
    d->colocarRotulo();
  }
  if (evento->type() != QEvent::KeyPress || !d->c) return QWidget::eventFilter(objeto, evento);
  auto& tecla = static_cast<QKeyEvent&>(*evento);
  if (objeto == vista_) return d->tecla(tecla);
  if (objeto != d->busca) return false;
  // Return belongs to this field: it must not reach the window's default button.
  if (tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter) {
    buscar(d->busca->text());
    return true;
  }
  // Escape leaves the field before it closes the window; the down arrow moves to the list.
  const bool deja = tecla.key() == Qt::Key_Escape || tecla.key() == Qt::Key_Down;
  if (!deja) return false;
  if (tecla.key() == Qt::Key_Escape) d->busca->clear();
  vista_->setFocus();
  return true;
}

}  // namespace tarvo::ventanas
