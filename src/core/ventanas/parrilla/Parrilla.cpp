#include "core/ventanas/parrilla/Parrilla.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>

#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/parrilla/ParrillaInterior.h"
#include "core/ventanas/parrilla/VistaParrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Parrilla::Parrilla(QWidget* padre)
    : QWidget(padre), d(std::make_unique<Interior>(*this)), vista_(new VistaParrilla(this, [this] {
        if (!sql_) return;
        if (const auto hecho = sql_->contarTodo(); !hecho) d->avisar(hecho.error());
      })) {
  d->montar();
}

void Parrilla::showEvent(QShowEvent* evento) {
  d->ceder();
  // Named by its buddy label, else by the window's title.
  const QString suyo = accessibleName();
  if (d->c) vista_->setAccessibleName(suyo.isEmpty() ? tituloSinMarca(*this) : suyo);
  QWidget::showEvent(evento);
}

Parrilla::~Parrilla() {
  // The model releases its rows while its listeners are still whole.
  if (d->c) recordar();
  vista_->setModel(nullptr);
  delete sql_;
  delete vivo_;
}

void Parrilla::preparar(Contexto& contexto, const QString& nombre, std::vector<Columna> columnas) {
  if (d->c) recordar();
  if (d->trabajo) d->trabajo->parar();  // it uses the rows about to be replaced
  // The view lays out its columns once more as the old model goes: they are still the old ones
  // then.
  vista_->setModel(nullptr);
  delete std::exchange(sql_, nullptr);
  delete std::exchange(vivo_, nullptr);
  d->c = &contexto;
  d->ventana = nombre;
  d->columnas = std::move(columnas);
  d->hacerAcciones();
  d->presentarse();
}

void Parrilla::ponerMoneda(int moneda) {
  d->moneda = moneda;
  if (!modelo()) return;
  modelo()->formato().ponerMoneda(moneda);
  vista_->viewport()->update();
  d->pintarPie();
}

ModeloParrilla* Parrilla::modelo() const {
  if (sql_) return sql_;
  return vivo_;
}

Resultado<> Parrilla::abrir(dao::Origen origen) {
  if (!sql_) {
    sql_ = new ModeloSql(d->columnas, *d->c, this);
    d->ponerModelo(sql_);
  }
  const auto hecho = sql_->abrir(std::move(origen));
  if (hecho && filas() > 0 && filaActual() < 0) irA(0);
  d->pintarVacia();
  return hecho;
}

Resultado<> Parrilla::filtrar(const QString& filtro, std::vector<dao::Valor> parametros) {
  if (!sql_) return {};
  dao::Origen otro = sql_->origen();
  otro.filtro = filtro;
  otro.parametros = std::move(parametros);
  return abrir(std::move(otro));
}

Resultado<> Parrilla::refrescar() {
  if (d->dichoDeTanda) d->decir({});  // other things have been done since
  if (!sql_) {
    vista_->viewport()->update();
    return {};
  }
  const int antes = std::max(0, filaActual());
  const auto hecho = sql_->refrescar();
  // The neighbour of a row that isn't there any more.
  if (hecho && filas() > 0 && filaActual() < 0) irA(std::min(antes, filas() - 1));
  return hecho;
}

ModeloVivo& Parrilla::vivas() {
  if (!vivo_) {
    vivo_ = new ModeloVivo(d->columnas, d->c->textos, Formato(d->c->ajustes), this);
    d->ponerModelo(vivo_);
  }
  return *vivo_;
}

int Parrilla::filas() const {
  return modelo() ? modelo()->rowCount() : 0;
}

bool Parrilla::contando() const {
  return modelo() && modelo()->contando();
}

int Parrilla::filaActual() const {
  return modelo() ? vista_->currentIndex().row() : -1;
}

std::vector<int> Parrilla::filasElegidas() const {
  std::vector<int> filas;
  if (!modelo()) return filas;
  for (const QItemSelectionRange& r : vista_->selectionModel()->selection())
    for (int f = r.top(); f <= r.bottom(); ++f) filas.push_back(f);
  std::ranges::sort(filas);
  filas.erase(std::ranges::unique(filas).begin(), filas.end());
  return filas;
}

std::vector<int> Parrilla::filasParaActuar() {
  auto filas = filasElegidas();
  if (!filas.empty() || filaActual() < 0) return filas;
  elegir({clave(filaActual())});
  return filasElegidas();
}

ModeloParrilla::Clave Parrilla::clave(int fila) const {
  return modelo()->clave(fila);
}

dao::Valor Parrilla::valor(int fila, QStringView campo) const {
  const int columna = modelo() ? modelo()->columna(campo) : -1;
  return columna < 0 || fila < 0 || fila >= filas() ? dao::Valor() : modelo()->valor(fila, columna);
}

QString Parrilla::texto(int fila, QStringView campo) const {
  const int columna = modelo() ? modelo()->columna(campo) : -1;
  return columna < 0 || fila < 0 || fila >= filas() ? QString() : modelo()->texto(fila, columna);
}

int Parrilla::filaDe(ModeloParrilla::Clave clave) const {
  if (!modelo()) return -1;
  const int fila = modelo()->filaDe(clave);
  if (fila >= 0 || !sql_ || !sql_->contando()) return fila;
  return sql_->contarTodo() ? sql_->filaDe(clave) : -1;
}

void Parrilla::irA(int fila) {
  if (fila < 0 || fila >= filas()) return;
  const auto vistas = d->columnasVistas();
  const int columna = vista_->currentIndex().isValid() ? vista_->currentIndex().column()
                      : vistas.empty()                 ? 0
                                                       : vistas.front();
  const QModelIndex i = modelo()->index(fila, columna);
  // Independent of the keys held down, which the view itself would take into account.
  vista_->selectionModel()->setCurrentIndex(
      i, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  vista_->scrollTo(i);
}

void Parrilla::elegir(const std::vector<ModeloParrilla::Clave>& claves, bool anadir) {
  std::vector<int> filas;
  for (const auto clave : claves)
    if (const int f = filaDe(clave); f >= 0) filas.push_back(f);
  QItemSelection seleccion;
  for (const int f : filas) seleccion.select(modelo()->index(f, 0), modelo()->index(f, 0));
  if (!modelo()) return;
  vista_->selectionModel()->select(
      seleccion, QItemSelectionModel::Rows |
                     (anadir ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect));
  // The highlighted row is the one that the keys act on.
  if (anadir || filas.empty() || std::ranges::find(filas, filaActual()) != filas.end()) return;
  const int primera = *std::ranges::min_element(filas);
  const QModelIndex i = modelo()->index(primera, std::max(0, vista_->currentIndex().column()));
  vista_->selectionModel()->setCurrentIndex(i, QItemSelectionModel::NoUpdate);
  vista_->scrollTo(i);
}

void Parrilla::limpiarSeleccion() {
  vista_->clearSelection();
}

void Parrilla::ponerUnaSola(bool unaSola) {
  vista_->setSelectionMode(unaSola ? QAbstractItemView::SingleSelection
                                   : QAbstractItemView::ExtendedSelection);
}

void Parrilla::ponerVacia(const QString& texto, QAction* remedio) {
  d->vaciaTexto->setText(texto);
  d->vaciaBoton->setVisible(remedio != nullptr);
  if (d->remedio) {
    d->remedio->disconnect(d->vaciaBoton);
    d->vaciaBoton->disconnect(d->remedio);
  }
  d->remedio = remedio;
  if (remedio) seguirAccion(*d->vaciaBoton, *remedio);
  d->pintarVacia();
}

void Parrilla::ponerPie(bool conPie) {
  d->conPie = conPie;
  d->cuenta->setVisible(conPie);
  d->aviso->setVisible(conPie);
  d->pintarPie();
}

void Parrilla::ponerBusca(bool conBusca) {
  d->conBusca = conBusca;
  d->busca->setVisible(conBusca);
}

QHBoxLayout* Parrilla::filtros() const {
  return d->filtros;
}

void Parrilla::ponerAcciones(const QList<QAction*>& acciones) {
  d->acciones = acciones;
}

Resultado<> Parrilla::ordenar(int columna, Qt::SortOrder sentido) {
  {
    const QSignalBlocker callada(vista_->horizontalHeader());
    vista_->horizontalHeader()->setSortIndicator(columna, sentido);
  }
  if (sql_) return sql_->ordenar(columna, sentido);
  if (vivo_) vivo_->ordenar(columna, sentido);
  return {};
}

QLineEdit* Parrilla::campoBusca() const {
  return d->busca;
}

bool Parrilla::seBusca() const {
  return d->busca->isVisible();
}

QLabel* Parrilla::pie() const {
  return d->cuenta;
}

QStringList Parrilla::sumas() const {
  return d->pie->textos();
}

bool Parrilla::trabajando() const {
  return d->trabajo && d->trabajo->enMarcha();
}

}  // namespace tarvo::ventanas
