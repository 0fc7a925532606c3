// Editing cells: the keys that open an editor, the moves of Enter and Tab, and the handling of
// refused texts.
#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <ranges>
#include <utility>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/ParrillaInterior.h"

namespace tarvo::ventanas {

// Closed editors are still waiting for deferred deletion.
QLineEdit* Parrilla::Interior::campoAbierto() const {
  const auto campos = yo.vista_->viewport()->findChildren<QLineEdit*>(QStringLiteral("celda"));
  const auto abierto =
      std::ranges::find_if(campos, [](const QLineEdit* campo) { return !campo->isHidden(); });
  return abierto == campos.end() ? nullptr : *abierto;
}

bool Parrilla::Interior::editar(const QModelIndex& celda, std::optional<QString> texto) {
  if (!celda.isValid() || !(celda.flags() & Qt::ItemIsEditable)) return false;
  if (texto) delegado->empezarCon(*texto);
  yo.vista_->setCurrentIndex(celda);
  yo.vista_->edit(celda);
  QLineEdit* campo = campoAbierto();
  if (campo && texto) campo->end(false);  // the view has selected all of it
  if (campo) dejarTecleo();
  return campo != nullptr;
}

bool Parrilla::editarCelda() {
  const QModelIndex actual = vista_->currentIndex();
  if (d->editar(actual)) return true;
  for (const int columna : d->columnasVistas())
    if (actual.isValid() && d->editar(actual.siblingAtColumn(columna))) return true;
  return false;
}

void Parrilla::irALoEditable() {
  const QModelIndex actual = vista_->currentIndex();
  for (const int columna : d->columnasVistas()) {
    const QModelIndex celda = actual.siblingAtColumn(columna);
    if (!celda.isValid() || !(celda.flags() & Qt::ItemIsEditable)) continue;
    return vista_->selectionModel()->setCurrentIndex(celda, QItemSelectionModel::NoUpdate);
  }
}

bool Parrilla::editando() const {
  return d->campoAbierto() != nullptr;
}

bool Parrilla::acabarCelda() {
  QLineEdit* campo = d->campoAbierto();
  return !campo || d->delegado->acabar(*campo);
}

void Parrilla::ponerEscribeAlTeclear(bool si) {
  d->escribeAlTeclear = si;
}

void Parrilla::bajarTrasIntro() {
  const auto bajar = [this] {
    const QModelIndex aqui = vista_->currentIndex();
    if (const QModelIndex abajo = aqui.siblingAtRow(aqui.row() + 1); abajo.isValid())
      vista_->setCurrentIndex(abajo);
  };
  connect(this, &Parrilla::escrita, this, bajar, Qt::QueuedConnection);
}

bool Parrilla::Interior::teclaEdicion(const QKeyEvent& e) {
  const QModelIndex celda = yo.vista_->currentIndex();
  if (!celda.isValid() || !(celda.flags() & Qt::ItemIsEditable)) return false;
  const bool intro = e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter;
  if (e.key() == Qt::Key_F2 || (intro && !escribeAlTeclear)) return editar(celda);
  const Columna& columna = columnas[static_cast<size_t>(celda.column())];
  if (columna.nombraLaFila) return false;
  const bool letra = !(e.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) &&
                     !e.text().isEmpty() && e.text()[0].isPrint();
  if (!letra) return false;
  if (empiezaCelda(columna, e.text()[0])) return editar(celda, e.text());
  if (e.text()[0].isSpace()) return false;
  noVale(celda.column(), e.text());
  return true;
}

// Moves on to the next editable cell, in its row and then in the next one.
void Parrilla::Interior::seguirEditando(int pasos) {
  const QModelIndex actual = yo.vista_->currentIndex();
  if (pasos == 0) {
    Q_EMIT yo.escrita(actual.row());
    return;
  }
  const auto vistas = columnasVistas();
  const auto aqui = std::ranges::find(vistas, actual.column());
  if (aqui == vistas.end()) return;
  const auto cuantas = static_cast<int>(vistas.size());
  int sitio = actual.row() * cuantas + static_cast<int>(aqui - vistas.begin());
  for (int i = 0; i < cuantas; ++i) {
    sitio += pasos;
    if (sitio < 0 || sitio / cuantas >= yo.filas()) return;
    if (editar(yo.modelo()->index(sitio / cuantas, vistas[static_cast<size_t>(sitio % cuantas)])))
      return;
  }
}

// Cells of one column that are written together.
struct Parrilla::Interior::Tanda {
  struct Celda {
    ModeloParrilla::Clave clave;
    QString antes, texto;
  };
  int columna = 0;
  std::vector<Celda> celdas;
  std::vector<Celda> escritas;
};

void Parrilla::ponerTodoONada(TodoONada como) {
  d->todoONada = std::move(como);
}

// All are tried, so that all bad ones can be named.
Resultado<> Parrilla::Interior::escribirTanda(Tanda& tanda) {
  constexpr qsizetype kNombradas = 5;
  QStringList malas;
  int cuantas = 0;
  for (size_t i = 0; i < tanda.celdas.size(); ++i) {
    const Tanda::Celda& celda = tanda.celdas[i];
    if (celda.antes == celda.texto) continue;
    if (const auto hecho = yo.modelo()->escribir(tanda.columna, celda.clave, celda.texto); !hecho) {
      if (++cuantas <= kNombradas)
        malas << c->textos(kTxLineaPegada, {static_cast<int>(i) + 1, hecho.error().texto});
      continue;
    }
    tanda.escritas.push_back(celda);
    Q_EMIT yo.celdaEscrita(celda.clave, tanda.columna, celda.antes);
  }
  if (cuantas == 0) return {};
  if (cuantas > kNombradas) malas << QStringLiteral("…");
  return tarvo::fallo(Fallo::Formato, Plural(t(kTxNadaPegado), cuantas) + u' ' + malas.join(u' '));
}

void Parrilla::Interior::devolver(const Tanda& tanda) {
  const Columna& col = columnas[static_cast<size_t>(tanda.columna)];
  for (const Tanda::Celda& celda : tanda.escritas | std::views::reverse)
    if (const auto vuelta = col.editar(celda.clave, celda.antes); !vuelta) avisar(vuelta.error());
}

// A free text takes any line pasted, prices too, and a name tells what the others in its row are
// of: those that would be overwritten are counted, and the first is shown, before it happens.
bool Parrilla::Interior::conformeConTanda(const Tanda& tanda) {
  const Columna& columna = columnas[static_cast<size_t>(tanda.columna)];
  if (columna.clase != Clase::Texto && !columna.nombraLaFila) return true;
  const auto pisa = [](const Tanda::Celda& celda) {
    return !celda.antes.isEmpty() && celda.antes != celda.texto;
  };
  const auto primera = std::ranges::find_if(tanda.celdas, pisa);
  if (primera == tanda.celdas.end()) return true;
  const auto cuantas = static_cast<int>(std::ranges::count_if(tanda.celdas, pisa));
  const QString pregunta = Plural(t(kTxPisaTextos), cuantas)
                               .arg(t(columna.titulo).trimmed(), primera->antes, primera->texto);
  return MyMsgBox::Decide(yo.window(), c->textos, pregunta, kAceptoCancelo | kExclamacion);
}

void Parrilla::Interior::escribirVarias(const std::vector<int>& filas, const QStringList& textos) {
  Tanda tanda{yo.vista_->currentIndex().column(), {}, {}};
  tanda.celdas.reserve(filas.size());
  tanda.escritas.reserve(filas.size());
  for (size_t i = 0; i < filas.size(); ++i)
    tanda.celdas.push_back({yo.clave(filas[i]), yo.modelo()->texto(filas[i], tanda.columna),
                            textos[static_cast<qsizetype>(i)]});
  if (!conformeConTanda(tanda)) return;
  Q_EMIT yo.vanVarias();
  const auto escribir = [&] { return escribirTanda(tanda); };
  auto hecho = todoONada ? todoONada(escribir) : escribir();
  if (!hecho && !todoONada) devolver(tanda);
  const int cuantas = hecho ? static_cast<int>(tanda.escritas.size()) : 0;
  if (const auto leido = yo.refrescar(); hecho && !leido) hecho = leido;
  if (hecho) resolver();
  if (cuantas > 0) {
    Q_EMIT yo.variasEscritas(cuantas);
    decir(Plural(t(kTxCeldasEscritas), cuantas));
    dichoDeTanda = true;
  } else {
    Q_EMIT yo.variasDejadas();
  }
  if (hecho) return;
  rechazado = true;
  Q_EMIT yo.fallo(hecho.error());
}

void Parrilla::pegar() {
  const QModelIndex celda = vista_->currentIndex();
  if (!celda.isValid() || !(celda.flags() & Qt::ItemIsEditable)) return;
  QStringList textos;
  for (const QString& linea : QApplication::clipboard()->text().split(u'\n'))
    textos << linea.section(u'\t', 0, 0).trimmed();
  while (!textos.isEmpty() && textos.back().isEmpty()) textos.removeLast();
  std::vector<int> donde;
  for (int i = celda.row(); i < filas() && i - celda.row() < textos.size(); ++i) donde.push_back(i);
  if (!donde.empty()) d->escribirVarias(donde, textos);
}

void Parrilla::rellenar() {
  const QModelIndex celda = vista_->currentIndex();
  if (!celda.isValid() || !(celda.flags() & Qt::ItemIsEditable)) return;
  auto donde = filasElegidas();
  if (donde.size() < 2) return;
  const QString texto = modelo()->texto(donde.front(), celda.column());
  donde.erase(donde.begin());
  d->escribirVarias(donde, QStringList(static_cast<qsizetype>(donde.size()), texto));
}

// The editor stays open, or opens again with the text typed if the focus has already moved.
void Parrilla::Interior::rechazar(const QModelIndex& celda, const QString& texto,
                                  const Error& error) {
  rechazado = true;
  avisar(error);
  QMetaObject::invokeMethod(
      &yo,
      [this, sitio = QPersistentModelIndex(celda), texto, de = escritas] {
        const bool pendiente = de == escritas && !yo.editando();
        if (pendiente && yo.isVisible() && sitio.isValid()) editar(sitio, texto);
      },
      Qt::QueuedConnection);
}

void Parrilla::Interior::resolver() {
  decir({});
  if (std::exchange(rechazado, false)) Q_EMIT yo.resuelto();
}

}  // namespace tarvo::ventanas
