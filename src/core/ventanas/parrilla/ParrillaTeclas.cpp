// Keys on a list at rest. What is typed is written, searched, or refused in words.
#include <QApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/parrilla/ParrillaInterior.h"

namespace tarvo::ventanas {

namespace {

constexpr int kPausaTeclas = 1000;  // ms after which letters begin a new word
constexpr int kRotuloMs = 4000;     // ms that the letters typed stay in view

}  // namespace

bool Parrilla::Interior::tecla(QKeyEvent& e) {
  // The view would only copy its current cell.
  if (e.matches(QKeySequence::Copy)) {
    yo.copiar();
    return true;
  }
  if (e.matches(QKeySequence::Paste)) {
    yo.pegar();
    return true;
  }
  if (e.key() == Qt::Key_D && e.modifiers() == Qt::ControlModifier) {
    yo.rellenar();
    return true;
  }
  if (e.key() == Qt::Key_Escape && trabajo->enMarcha()) {
    trabajo->parar();
    return true;
  }
  if (teclaEdicion(e)) return true;
  const auto mandos = e.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter) {
    intro();
    return true;
  }
  if (mandos == Qt::ControlModifier && (e.modifiers() & Qt::ShiftModifier) &&
      (e.key() == Qt::Key_Left || e.key() == Qt::Key_Right)) {
    moverColumna(e.key() == Qt::Key_Left ? -1 : 1);
    return true;
  }
  const bool letra = mandos == Qt::NoModifier && !e.text().isEmpty() && e.text()[0].isPrint();
  if (!letra || (e.text() == u" " && tecleado.isEmpty())) return false;
  const qint64 ahora = c->reloj.monotono();
  if (ahora - ultimaTecla > kPausaTeclas) tecleado.clear();
  ultimaTecla = ahora;
  tecleado += e.text();
  saltar(tecleado);
  return true;
}

// Return opens the row that is being searched, and none after letters that led nowhere: whoever
// typed them meant another.
void Parrilla::Interior::intro() {
  if (tecleo == Tecleo::Busca) {
    abreAlHallar = true;
  } else if (tecleo == Tecleo::Perdido) {
    tecleo = Tecleo::Nada;
    QApplication::beep();
  } else if (yo.filaActual() >= 0) {
    Q_EMIT yo.activada(yo.filaActual());
  }
}

bool Parrilla::Interior::escribible(int columna) const {
  return static_cast<bool>(columnas[static_cast<size_t>(columna)].editar);
}

QString Parrilla::Interior::titulo(int columna) const {
  return t(columnas[static_cast<size_t>(columna)].titulo).trimmed();
}

// Jumps to the letters typed on the list itself. The first letter is searched after the current
// row, so that the same letter again moves on; with more of them the current row may still match.
void Parrilla::Interior::saltar(const QString& texto) {
  if (!yo.modelo() || yo.filas() == 0) return;
  const auto vistas = columnasVistas();
  if (vistas.empty()) return;
  const int actual = yo.vista_->currentIndex().column();
  const int columna = std::ranges::find(vistas, actual) != vistas.end() ? actual : vistas.front();
  const int desde = yo.filaActual() + (texto.size() == 1 ? 1 : 0);
  trabajo->parar();
  tecleo = Tecleo::Busca;
  abreAlHallar = false;
  rotular(
      c->textos(escribible(columna) ? kTxTecleoCambiable : kTxTecleo, {titulo(columna), texto}));
  buscarDesde(texto, ModeloParrilla::Busca::Empieza, {columna}, std::max(0, desde),
              [=, this](int fila) { hallado(columna, texto, fila); });
}

void Parrilla::Interior::hallado(int columna, const QString& texto, int fila) {
  const bool abre = std::exchange(abreAlHallar, false);
  tecleo = fila < 0 ? Tecleo::Perdido : Tecleo::Nada;
  if (fila >= 0) {
    Q_EMIT yo.pista({});
    if (abre) Q_EMIT yo.activada(fila);
    return;
  }
  QApplication::beep();
  decir({});
  rotular(c->textos(kTxTecleoSinFila, {titulo(columna), texto}));
  const auto vistas = columnasVistas();
  const bool seEscribe = std::ranges::any_of(vistas, [this](int i) { return escribible(i); });
  if (seEscribe && !escribible(columna))
    Q_EMIT yo.pista(c->textos(kTxNoSeEscribe, {titulo(columna)}));
}

void Parrilla::Interior::noVale(int columna, const QString& tecla) {
  tecleo = Tecleo::Perdido;
  QApplication::beep();
  Q_EMIT yo.pista(c->textos(kTxTeclaNoVale, {tecla, titulo(columna)}));
}

// Something else has been begun.
void Parrilla::Interior::dejarTecleo() {
  tecleo = Tecleo::Nada;
  tecleado.clear();
  rotulo->hide();
  Q_EMIT yo.pista({});
}

void Parrilla::Interior::rotular(const QString& texto) {
  rotulo->setText(texto);
  rotulo->setAccessibleName(texto);
  colocarRotulo();
  rotulo->show();
  rotulo->raise();
  ocultarRotulo->unaVez(kRotuloMs);
}

// Over the foot, which is below the rows; without one at the end of the rows, over them. Not inside
// the viewport, which moves its children along when it scrolls.
void Parrilla::Interior::colocarRotulo() {
  if (conPie) {
    const QSize suyo = rotulo->sizeHint().boundedTo(yo.size());
    return rotulo->setGeometry(
        QRect(QPoint(yo.width(), yo.height()) - QPoint(suyo.width(), suyo.height()), suyo));
  }
  const QRect filas = yo.vista_->viewport()->geometry().translated(yo.vista_->pos());
  const QRect sitio = filas.marginsRemoved(
      QMargins(escalar(kPaso), escalar(kPaso), escalar(kPaso), escalar(kPaso)));
  const QSize suyo = rotulo->sizeHint().boundedTo(sitio.size());
  rotulo->setGeometry(QRect(sitio.bottomLeft() - QPoint(0, suyo.height()), suyo));
}

}  // namespace tarvo::ventanas
