#include "app/ventanas/ElemPerso.h"

#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "app/ventanas/TextosPrincipal.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

QListWidgetItem* renglon(QListWidget& lista, const QString& texto) {
  auto* linea = new QListWidgetItem(texto, &lista);
  linea->setSizeHint({0, ventanas::escalar(ventanas::kAltoFila)});
  return linea;
}

void llenarFicheros(QListWidget& lista, const QString& carpeta, const QString& patron,
                    const QString& ninguno) {
  lista.clear();
  for (const QFileInfo& f : QDir(carpeta).entryInfoList({patron}, QDir::Files, QDir::Name))
    renglon(lista, f.completeBaseName());
  if (lista.count() > 0) return;
  lista.setWordWrap(true);
  (new QListWidgetItem(ninguno, &lista))->setFlags(Qt::NoItemFlags);
}

QListWidgetItem* unico(const QListWidget& lista) {
  const bool hay = lista.count() == 1 && (lista.item(0)->flags() & Qt::ItemIsSelectable);
  return hay ? lista.item(0) : nullptr;
}

bool vacia(const QListWidget& lista) {
  return lista.count() == 1 && !unico(lista);
}

void elegirFichero(QListWidget& lista, const QString& nombre) {
  for (int i = 0; i < lista.count(); ++i)
    if (lista.item(i)->text().compare(nombre, Qt::CaseInsensitive) == 0)
      return lista.setCurrentRow(i);
}

}  // namespace

ElemPerso::ElemPerso(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  auto f = formulario(kTxElementoPersonal);
  titulo_ = &f.fila(kTxTituloElemento, u"Titulo"_s, texto(r.este.titulo, 40));
  auto columnas = f.columnas(3);
  lista_ = columnas[0].ancho(new QListWidget, u"Lista"_s, kTxLugarEnLista, 1);
  procesos_ = columnas[1].ancho(new QListWidget, u"Procesos"_s, ventanas::kTxProceso, 1);
  diferidos_ = columnas[2].ancho(new QListWidget, u"Diferidos"_s, kTxElementoDiferido, 1);
  subir_ = f.boton(kTxSubirElemento, u"Subir"_s, [this] { mover(-1); });
  bajar_ = f.boton(kTxBajarElemento, u"Bajar"_s, [this] { mover(1); });
  f.enLinea({subir_, bajar_, nullptr});
  ponerFrase(0, false);
  acabar({640, 420});
  lista_->setSelectionMode(QAbstractItemView::NoSelection);
  lista_->setFocusPolicy(Qt::NoFocus);
  connect(qobject_cast<QLineEdit*>(&titulo_->control()), &QLineEdit::textChanged, this,
          &ElemPerso::mostrarLista);
  // Only one of the two lists has a selection.
  for (const auto& [este, otro] : {std::pair{procesos_, diferidos_}, {diferidos_, procesos_}}) {
    este->installEventFilter(this);
    connect(este, &QListWidget::itemDoubleClicked, this, &ElemPerso::confirmar);
    connect(este, &QListWidget::itemSelectionChanged, this, [this, este, otro] {
      if (!este->selectedItems().isEmpty()) otro->clearSelection();
      r.este.proceso = elegido();
    });
  }
}

Resultado<> ElemPerso::entrar(const PuertaElemPerso& puerta) {
  const Ajustes& a = contexto().ajustes;
  otros_ = a.de<AjustesPersonal>().personal;
  Elemento e{.este = {}, .sitio = otros_.size()};
  llenarFicheros(*procesos_, a.HomeDir, u"*.aut"_s, t(kTxSinFicheros));
  llenarFicheros(*diferidos_, a.HomeDir, u"*.cro"_s, t(kTxSinFicheros));
  if (puerta.cual && *puerta.cual < otros_.size()) {
    e = {otros_[*puerta.cual], *puerta.cual};
    otros_.erase(otros_.begin() + static_cast<std::ptrdiff_t>(*puerta.cual));
  }
  elegirFichero(*procesos_, e.este.proceso);
  if (procesos_->selectedItems().isEmpty()) elegirFichero(*diferidos_, e.este.proceso);
  // With one file in all there is nothing to choose.
  for (auto [este, otro] : {std::pair{procesos_, diferidos_}, {diferidos_, procesos_}})
    if (QListWidgetItem* u = unico(*este); u && vacia(*otro) && elegido().isEmpty())
      este->setCurrentItem(u);
  e.este.proceso = elegido();
  TARVO_INTENTAR(editar(e));
  mostrarLista();
  return {};
}

// A list with a single file chooses it as soon as the focus comes, unless something is chosen
// already; an arrow chooses the current one, which otherwise would need a Space.
bool ElemPerso::eventFilter(QObject* objeto, QEvent* evento) {
  auto* lista = qobject_cast<QListWidget*>(objeto);
  const auto flecha = [&] {
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    return tecla == Qt::Key_Up || tecla == Qt::Key_Down;
  };
  if (!lista || !lista->selectedItems().isEmpty()) return FichaDe::eventFilter(objeto, evento);
  QListWidgetItem* una = unico(*lista);
  const bool llega = evento->type() == QEvent::FocusIn && elegido().isEmpty();
  if (una && (llega || (evento->type() == QEvent::KeyPress && flecha())))
    lista->setCurrentItem(una, QItemSelectionModel::ClearAndSelect);
  return FichaDe::eventFilter(objeto, evento);
}

void ElemPerso::mostrarLista() {
  lista_->clear();
  const QString titulo = qobject_cast<QLineEdit*>(&titulo_->control())->text().trimmed();
  for (size_t i = 0; i <= otros_.size(); ++i) {
    const bool nuevo = i == r.sitio;
    auto* linea = renglon(*lista_, nuevo ? titulo : otros_[i - (i > r.sitio ? 1 : 0)].titulo);
    if (!nuevo) continue;
    linea->setIcon(ventanas::icono(u"adelante"_s));
    QFont f = linea->font();
    f.setBold(true);
    linea->setFont(f);
    lista_->scrollToItem(linea);
  }
  subir_->setEnabled(r.sitio > 0);
  bajar_->setEnabled(r.sitio < otros_.size());
}

void ElemPerso::mover(int pasos) {
  pasos < 0 ? --r.sitio : ++r.sitio;
  mostrarLista();
}

QString ElemPerso::elegido() const {
  for (const QListWidget* lista : {procesos_, diferidos_})
    if (const auto elegidos = lista->selectedItems(); !elegidos.isEmpty())
      return elegidos.first()->text();
  return {};
}

std::vector<ElemPerso::FaltaCampo> ElemPerso::comprobar() {
  const QString titulo = r.este.titulo.trimmed();
  if (titulo.isEmpty()) return {{titulo_, t(kTxFaltaTitulo)}};
  // It separates title and process in the file.
  if (titulo.contains(u'|')) return {{titulo_, t(kTxTituloConBarra)}};
  if (std::ranges::find(otros_, titulo, &Personal::titulo) != otros_.end())
    return {{titulo_, t(kTxTituloRepetido)}};
  if (!r.este.proceso.isEmpty()) return {};
  procesos_->setFocus();
  return {{nullptr, t(kTxFaltaEleccion)}};
}

Resultado<> ElemPerso::aplicar() {
  otros_.insert(otros_.begin() + static_cast<std::ptrdiff_t>(r.sitio),
                {r.este.titulo.trimmed(), r.este.proceso});
  contexto().ajustes.de<AjustesPersonal>().personal = otros_;
  return {};
}

}  // namespace tarvo::app
