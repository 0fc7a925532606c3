// The tree itself: its contents, and names edited in it. The operations on its nodes are in
// BrowGruposAcciones.cpp.
#include "articles/ventanas/BrowGrupos.h"
#include "articles/ventanas/Puertas.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/EnviarCambios.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

// The last two are the machines and the access in the tree of groups.
enum ColumnaArbol { kNombre, kNumero, kArticulos, kIva, kColumnas };
constexpr int kSeccion = Qt::UserRole, kDepartamento = Qt::UserRole + 1, kGrupo = Qt::UserRole + 2;
constexpr int kNombrePropio = Qt::UserRole + 3;

// The name alone is edited, without the code that a group shows before it.
class NombreSolo final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 private:
  void setEditorData(QWidget* editor, const QModelIndex& indice) const override {
    if (auto* linea = qobject_cast<QLineEdit*>(editor))
      linea->setText(indice.data(kNombrePropio).toString());
  }
  // As many letters as the sheets take; a longer name that exists already isn't cut by opening it.
  QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& como,
                        const QModelIndex& indice) const override {
    QWidget* editor = QStyledItemDelegate::createEditor(padre, como, indice);
    if (auto* linea = qobject_cast<QLineEdit*>(editor))
      linea->setMaxLength(
          std::max<int>(groups::kLargoDeNombre, indice.data(kNombrePropio).toString().size()));
    return editor;
  }
};

QString textoIva(const Ivas& ivas, int tipo) {
  if (tipo < 1 || tipo > kTiposIva) return {};
  return u"%1 · %2 %"_s.arg(tipo).arg(
      QString::number(ivas[static_cast<size_t>(tipo - 1)] / 100.0).replace(u'.', u','));
}

}  // namespace

BrowGrupos::BrowGrupos(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo,
                       motor::gestcomm& motor)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      motor_(motor),
      deGrupos_(nombre == ventanas::nombreDe(PuertaBrowGrupos{.grupos = true})),
      secciones_(catalogo),
      grupos_(catalogo, contexto.ajustes),
      cuentas_(contexto, *this) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void BrowGrupos::montar() {
  unir(ui_.NuevaSecc, u"anadir"_s, Qt::CTRL | Qt::Key_Insert, [this] { nuevaSeccion(); });
  unir(ui_.Renombrar, u"modificar"_s, Qt::Key_F2, [this] {
    if (ui_.Arbol->currentItem()) ui_.Arbol->editItem(ui_.Arbol->currentItem(), kNombre);
  });
  unir(ui_.Copia, u"copiar"_s, Qt::Key_F6, [this] { copiar(); });
  unir(ui_.Borro, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); });
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  connect(deshacer_, &ventanas::Deshacer::deshecho, this, [this] { actualCambiado(); });
  deGrupos_ ? montarGrupos() : montarDepartamentos();
  ui_.Arbol->addActions({ui_.Renombrar, ui_.Copia, ui_.Borro});
  if (!deGrupos_) ui_.Arbol->addActions({ui_.Iva, ui_.VerPrecios, ui_.VerXtrac});
  ui_.Arbol->addAction(ui_.Deshacer);
  montarArbol();
}

void BrowGrupos::montarDepartamentos() {
  unir(ui_.VerArticulos, u"articulo"_s, Qt::Key_F4, [this] { verArticulos(); });
  unir(ui_.NuevoDep, u"anadir"_s, Qt::Key_Insert, [this] { nuevoDepartamento(); });
  unir(ui_.Iva, u"sumar"_s, Qt::Key_F7, [this] {
    if (const auto en = actual()) abrir(PuertaEdIvaSeccs{en->seccion});
  });
  unir(ui_.VerPrecios, u"reloj"_s, Qt::Key_F9, [this] {
    if (const auto en = actual()) abrir(PuertaVerPrecios{en->seccion});
  });
  unir(ui_.VerXtrac, u"totales"_s, Qt::Key_F8, [this] {
    if (const auto en = actual())
      abrir(totals::PuertaVerFils{
          .clase = TipoTotal::Departamentos, .seccion = en->seccion, .codigo = en->departamento});
  });
  ui_.Arbol->addActions({ui_.VerArticulos, ui_.NuevaSecc, ui_.NuevoDep});
  ui_.Arbol->setHeaderLabels(
      {t(ventanas::kTxNombre), t(kTxNumero), t(ventanas::kTxArticulos), t(kTxIva)});
}

void BrowGrupos::montarArbol() {
  ui_.Arbol->setAccessibleName(windowTitle());
  ui_.Arbol->setItemDelegateForColumn(kNombre, new NombreSolo(ui_.Arbol));
  ui_.Arbol->setEditTriggers(QAbstractItemView::NoEditTriggers);
  ui_.Arbol->setExpandsOnDoubleClick(false);
  ui_.Arbol->setUniformRowHeights(true);
  ui_.Arbol->setContextMenuPolicy(Qt::ActionsContextMenu);
  ui_.Arbol->header()->setSectionResizeMode(kNombre, QHeaderView::Stretch);
  ui_.Arbol->header()->setStretchLastSection(false);
  for (int c = kNumero; c < kColumnas; ++c)
    ui_.Arbol->header()->resizeSection(c, ventanas::escalar(110));
  for (int c = kNumero; c < kColumnas; ++c)
    ui_.Arbol->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
  ui_.Arbol->header()->setMinimumHeight(ventanas::escalar(ventanas::kAltoFila));
  connect(ui_.Arbol, &QTreeWidget::currentItemChanged, this, [this] { actualCambiado(); });
  connect(ui_.Arbol, &QTreeWidget::itemActivated, this, [this] { abrirNodo(); });
  connect(ui_.Arbol, &QTreeWidget::itemChanged, this, &BrowGrupos::rotulado);
  // Queued, so that the tree stores the edited name first.
  connect(
      ui_.Arbol->itemDelegateForColumn(kNombre), &QAbstractItemDelegate::closeEditor, this,
      [this](QWidget*, QAbstractItemDelegate::EndEditHint como) {
        nombreDejado(como == QAbstractItemDelegate::RevertModelCache);
      },
      Qt::QueuedConnection);
}

Resultado<> BrowGrupos::entrar(const PuertaBrowGrupos&) {
  const bool primera = ui_.Arbol->topLevelItemCount() == 0;
  TARVO_INTENTAR(llenar());
  if (primera) ui_.Arbol->setCurrentItem(ui_.Arbol->topLevelItem(0));
  ui_.Arbol->setFocus();
  return {};
}

void BrowGrupos::RefrescoArbol() {
  haIdoBien(llenar());
}

QTreeWidgetItem* BrowGrupos::anadir(QTreeWidgetItem* padre, Nodo nodo, const QString& nombre,
                                    const QString& ultima) {
  auto* item = padre ? new QTreeWidgetItem(padre) : new QTreeWidgetItem(ui_.Arbol);
  item->setText(kNombre, nodo.grupo > 0 ? u"(%1) "_s.arg(nodo.grupo) + nombre : nombre);
  item->setText(kNumero, nodo.esSeccion() ? Ceros(nodo.seccion, 3)
                         : nodo.grupo > 0 ? Ceros(nodo.grupo, 4)
                                          : Ceros(nodo.departamento, 2));
  item->setText(kIva, ultima);
  for (int c = kNumero; c < kColumnas; ++c)
    item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
  item->setData(kNombre, kSeccion, nodo.seccion);
  item->setData(kNombre, kDepartamento, nodo.departamento);
  item->setData(kNombre, kGrupo, nodo.grupo);
  item->setData(kNombre, kNombrePropio, nombre);
  item->setIcon(kNombre, ventanas::icono(padre ? u"etiqueta"_s : u"almacen"_s));
  item->setSizeHint(kNombre, QSize(0, ventanas::escalar(ventanas::kAltoFila)));
  item->setFlags(item->flags() | Qt::ItemIsEditable);
  return item;
}

// Expanded nodes and the current node are kept.
Resultado<> BrowGrupos::llenar() {
  const auto en = actual();
  std::set<int> cerradas;
  for (int i = 0; i < ui_.Arbol->topLevelItemCount(); ++i)
    if (const auto* s = ui_.Arbol->topLevelItem(i); !s->isExpanded())
      cerradas.insert(s->data(kNombre, kSeccion).toInt());
  const QScopedValueRollback llenando(llenando_, true);
  TARVO_INTENTAR(deGrupos_ ? llenarGrupos() : llenarDepartamentos());
  for (int i = 0; i < ui_.Arbol->topLevelItemCount(); ++i) {
    auto* s = ui_.Arbol->topLevelItem(i);
    s->setExpanded(!cerradas.contains(s->data(kNombre, kSeccion).toInt()));
  }
  cambios_ = contexto().base.cambios();
  if (en) irA(*en);
  if (!deGrupos_) contar();
  actualCambiado();
  return {};
}

Resultado<> BrowGrupos::llenarDepartamentos() {
  TARVO_TOMAR(const auto secciones, secciones_.arbol());
  ui_.Arbol->clear();
  for (const Secciones::Rama& s : secciones) {
    auto* rama = anadir(nullptr, {s.numero, 0}, s.nombre, {});
    for (const auto& dep : s.ivas.departamentos)
      anadir(rama, {s.numero, dep.numero}, dep.nombre, textoIva(s.ivas.tasas, dep.tipo));
  }
  ui_.cuenta->setText(t(kTxSecciones, static_cast<int>(secciones.size())));
  return {};
}

// Articles are counted in the background: there may be many.
void BrowGrupos::contar() {
  cuentas_.preguntar<Secciones::CuentaArticulos>(
      &Secciones::contarArticulos, [this](Resultado<Secciones::CuentaArticulos> cuenta) {
        if (!haIdoBien(cuenta)) return;
        const QScopedValueRollback llenando(llenando_, true);
        for (QTreeWidgetItemIterator i(ui_.Arbol); *i; ++i) {
          const std::pair clave{(*i)->data(kNombre, kSeccion).toInt(),
                                (*i)->data(kNombre, kDepartamento).toInt()};
          (*i)->setText(kArticulos, QLocale(QLocale::Spanish).toString((*cuenta)[clave]));
        }
      });
}

BrowGrupos::Nodo BrowGrupos::nodoDe(const QTreeWidgetItem& item) {
  return {item.data(kNombre, kSeccion).toInt(), item.data(kNombre, kDepartamento).toInt(),
          item.data(kNombre, kGrupo).toInt()};
}

std::optional<BrowGrupos::Nodo> BrowGrupos::actual() const {
  const QTreeWidgetItem* item = ui_.Arbol->currentItem();
  if (!item) return std::nullopt;
  return nodoDe(*item);
}

QTreeWidgetItem* BrowGrupos::buscar(Nodo nodo) const {
  for (QTreeWidgetItemIterator i(ui_.Arbol); *i; ++i)
    if (nodoDe(**i) == nodo) return *i;
  return nullptr;
}

// Moves to the node, or else to its section, or else to the first node.
void BrowGrupos::irA(Nodo nodo) {
  QTreeWidgetItem* item = buscar(nodo);
  if (!item) item = buscar({nodo.seccion, 0});
  if (!item) item = ui_.Arbol->topLevelItem(0);
  if (!item) return;
  ui_.Arbol->setCurrentItem(item);
  ui_.Arbol->scrollToItem(item);
}

void BrowGrupos::actualCambiado() {
  const auto en = actual();
  for (QAction* a :
       {ui_.VerArticulos, ui_.NuevoDep, ui_.Renombrar, ui_.Borro, ui_.Iva, ui_.VerPrecios})
    a->setEnabled(en.has_value() && !copia_);
  ui_.NuevaSecc->setEnabled(!copia_);
  ui_.Copia->setEnabled(en && en->departamento == 0 && !copia_);
  ui_.VerXtrac->setEnabled(en && en->departamento > 0 && !copia_ &&
                           contexto().ventanas.conoce<totals::PuertaVerFils>());
  ui_.Copia->setProperty(ventanas::kPorQueNo, copia_ ? QString() : t(kTxSoloSecciones));
  ui_.VerXtrac->setProperty(ventanas::kPorQueNo, copia_ ? QString() : t(kTxSoloDepartamentos));
  ui_.Deshacer->setEnabled(!deshacer_->vacia() && !copia_);
  if (deGrupos_) permitirGrupos(en);
  nombreAntes_ = en ? ui_.Arbol->currentItem()->data(kNombre, kNombrePropio).toString() : QString();
}

Resultado<> BrowGrupos::renombrar(Nodo nodo, const QString& nombre) {
  if (nodo.grupo > 0) return grupos_.renombrar(nodo.grupo, nombre);
  return nodo.departamento == 0
             ? secciones_.renombrar(nodo.seccion, nombre)
             : secciones_.renombrarDepartamento(nodo.seccion, nodo.departamento, nombre);
}

// Slot for a name edited in the tree.
void BrowGrupos::rotulado(QTreeWidgetItem* item, int columna) {
  if (llenando_ || columna != kNombre) return;
  const Nodo nodo = nodoDe(*item);
  const QString nombre = item->text(kNombre), antes = nombreAntes_;
  const bool hecho = haIdoBien(renombrar(nodo, nombre));
  if (hecho) acierto();
  if (hecho && nombre.trimmed() != antes) tira().quitar();  // what it says is of the former name
  if (hecho && nombre.trimmed() != antes && nuevo_ != nodo)
    deshacer_->apuntar(t(kTxNombreDe).arg(decirNodo(nodo), antes),
                       [=, this]() -> Resultado<Vuelto> {
                         TARVO_INTENTAR(renombrar(nodo, antes));
                         RefrescoArbol();
                         irA(nodo);
                         return Vuelto();
                       });
  // Queued, so that the tree finishes its own handling of the edit first; by then a quick person
  // may be writing the next name, whose editor the new reading would take away.
  QMetaObject::invokeMethod(
      this,
      [this] {
        porLeer_ = ui_.Arbol->isPersistentEditorOpen(ui_.Arbol->currentItem());
        if (!porLeer_) RefrescoArbol();
      },
      Qt::QueuedConnection);
}

QString BrowGrupos::decirNodo(Nodo nodo) const {
  if (nodo.grupo > 0) return t(kTxGrupoNumero).arg(nodo.grupo);
  return nodo.departamento == 0
             ? t(kTxSeccionNumero).arg(Ceros(nodo.seccion, 3))
             : t(kTxDepartamentoNumero).arg(Ceros(nodo.departamento, 2), Ceros(nodo.seccion, 3));
}

// Opens the name of a new node for editing; if that is cancelled, the node is deleted again.
void BrowGrupos::nombrarNuevo(Nodo nodo) {
  RefrescoArbol();
  irA(nodo);
  nuevo_ = nodo;
  ui_.Renombrar->trigger();
}

void BrowGrupos::nombreDejado(bool renunciado) {
  const auto nuevo = std::exchange(nuevo_, std::nullopt);
  if (std::exchange(porLeer_, false) && !nuevo) RefrescoArbol();
  if (!nuevo) return;
  if (!renunciado) return apuntarNuevo(*nuevo);
  const bool seccion = nuevo->departamento == 0;
  const auto hecho = seccion ? secciones_.borrar(nuevo->seccion)
                             : secciones_.borrarDepartamento(nuevo->seccion, nuevo->departamento);
  RefrescoArbol();
  ui_.Arbol->setFocus();
  if (haIdoBien(hecho)) decirDuda(t(seccion ? kTxSeccionSinCrear : kTxDepartamentoSinCrear));
}

// Its name goes with it.
void BrowGrupos::apuntarNuevo(Nodo nodo) {
  const QString cual = decirNodo(nodo);
  const int que = nodo.departamento == 0 ? kTxSeccionNueva : kTxDepartamentoNuevo;
  deshacer_->apuntar(t(que).arg(cual), [=, this]() -> Resultado<Vuelto> {
    const bool seccion = nodo.departamento == 0;
    if (seccion && !contexto().ventanas.descargar<PuertaBrowPLUs>()) return Vuelto{.queda = true};
    const Nodo vecino = seccion ? Nodo{} : vecinoDe(nodo);
    TARVO_INTENTAR(secciones_.quitarNuevo(nodo.seccion, nodo.departamento));
    RefrescoArbol();
    irA(vecino);
    return Vuelto{t(kTxNuevoQuitado).arg(cual)};
  });
  actualCambiado();
}

// Shows the changes made by other windows when this one is activated.
bool BrowGrupos::event(QEvent* evento) {
  const bool hecho = Ventana::event(evento);
  if (evento->type() == QEvent::WindowActivate && !copia_ && ui_.Arbol->topLevelItemCount() > 0 &&
      contexto().base.cambios() != cambios_)
    RefrescoArbol();
  return hecho;
}

bool BrowGrupos::QueryUnload() {
  trabajo().parar();
  if (!deGrupos_ && !contexto().ventanas.cargada<PuertaBrowPLUs>() &&
      !enviarAlSalir(*this, catalogo_, motor_))
    return true;
  deshacer_->olvidar();
  return false;
}

}  // namespace tarvo::articles
