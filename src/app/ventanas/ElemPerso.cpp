#include "app/ventanas/ElemPerso.h"

#include <QDir>

#include "app/ventanas/TextosPrincipal.h"
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

void elegirFichero(QListWidget& lista, const QString& nombre) {
  for (int i = 0; i < lista.count(); ++i)
    if (lista.item(i)->text().compare(nombre, Qt::CaseInsensitive) == 0)
      return lista.setCurrentRow(i);
}

}  // namespace

ElemPerso::ElemPerso(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.Lista->setSelectionMode(QAbstractItemView::NoSelection);
  ui_.Lista->setFocusPolicy(Qt::NoFocus);
  connect(ui_.Titulo, &QLineEdit::textChanged, this, [this] { mostrarLista(); });
  connect(ui_.Subir, &QPushButton::clicked, this, [this] { mover(-1); });
  connect(ui_.Bajar, &QPushButton::clicked, this, [this] { mover(1); });
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { confirmar(); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
  for (const QListWidget* lista : {ui_.Procesos, ui_.Diferidos})
    connect(lista, &QListWidget::itemDoubleClicked, this, [this] { confirmar(); });
  // One of the two.
  const auto excluir = [](QListWidget* este, QListWidget* otro) {
    connect(este, &QListWidget::itemSelectionChanged, otro, [este, otro] {
      if (!este->selectedItems().isEmpty()) otro->clearSelection();
    });
  };
  excluir(ui_.Procesos, ui_.Diferidos);
  excluir(ui_.Diferidos, ui_.Procesos);
}

Resultado<> ElemPerso::preparar(const ventanas::Argumentos& argumentos) {
  const Ajustes& a = contexto().ajustes;
  otros_ = a.personal;
  sitio_ = otros_.size();
  llenarFicheros(*ui_.Procesos, a.HomeDir, u"*.aut"_s, t(kTxSinFicheros));
  llenarFicheros(*ui_.Diferidos, a.HomeDir, u"*.cro"_s, t(kTxSinFicheros));
  Ajustes::Personal este;
  const auto cual = static_cast<size_t>(argumentos.value(u"elemento"_s, -1).toInt());
  if (cual < otros_.size()) {
    este = otros_[cual];
    otros_.erase(otros_.begin() + static_cast<std::ptrdiff_t>(cual));
    sitio_ = cual;
  }
  elegirFichero(*ui_.Procesos, este.proceso);
  if (ui_.Procesos->selectedItems().isEmpty()) elegirFichero(*ui_.Diferidos, este.proceso);
  ui_.Titulo->setText(este.titulo);
  mostrarLista();
  ui_.Titulo->setFocus();
  return {};
}

void ElemPerso::mostrarLista() {
  ui_.Lista->clear();
  for (size_t i = 0; i <= otros_.size(); ++i) {
    const bool nuevo = i == sitio_;
    auto* linea = renglon(
        *ui_.Lista, nuevo ? ui_.Titulo->text().trimmed() : otros_[i - (i > sitio_ ? 1 : 0)].titulo);
    if (!nuevo) continue;
    linea->setIcon(ventanas::icono(u"adelante"_s));
    QFont f = linea->font();
    f.setBold(true);
    linea->setFont(f);
    ui_.Lista->scrollToItem(linea);
  }
  ui_.Subir->setEnabled(sitio_ > 0);
  ui_.Bajar->setEnabled(sitio_ < otros_.size());
}

void ElemPerso::mover(int pasos) {
  pasos < 0 ? --sitio_ : ++sitio_;
  mostrarLista();
}

QString ElemPerso::elegido() const {
  for (const QListWidget* lista : {ui_.Procesos, ui_.Diferidos})
    if (const auto elegidos = lista->selectedItems(); !elegidos.isEmpty())
      return elegidos.first()->text();
  return {};
}

int ElemPerso::falta() const {
  const QString titulo = ui_.Titulo->text().trimmed();
  if (titulo.isEmpty()) return kTxFaltaTitulo;
  if (titulo.contains(u'|')) return kTxTituloConBarra;  // parts title and process in the file
  for (const auto& otro : otros_)
    if (otro.titulo == titulo) return kTxTituloRepetido;
  return elegido().isEmpty() ? kTxFaltaEleccion : 0;
}

void ElemPerso::confirmar() {
  if (const int frase = falta(); frase != 0) {
    decirDuda(t(frase));
    const bool delTitulo = frase != kTxFaltaEleccion;
    return delTitulo ? ui_.Titulo->setFocus() : ui_.Procesos->setFocus();
  }
  otros_.insert(otros_.begin() + static_cast<std::ptrdiff_t>(sitio_),
                {ui_.Titulo->text().trimmed(), elegido()});
  contexto().ajustes.personal = otros_;
  aceptar();
}

}  // namespace tarvo::app
