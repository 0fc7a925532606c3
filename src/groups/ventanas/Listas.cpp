#include "groups/ventanas/Listas.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Retenida.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using ventanas::escalar;

namespace {

constexpr int kAltoDibujo = 59, kLadoDibujo = 32, kLadoMayor = 88;
const QString kFormato = u"application/x-tarvo-maquina"_s;

void arrastrar(QWidget& desde, const Arrastre& que, const QString& ventana, const QIcon& dibujo) {
  auto* gesto = new QDrag(&desde);
  gesto->setMimeData(comoMime(que, ventana));
  gesto->setPixmap(dibujo.pixmap(escalar(kLadoDibujo)));
  const ventanas::Retenida mientras(&desde);
  gesto->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

}  // namespace

QMimeData* comoMime(const Arrastre& que, const QString& ventana) {
  auto* datos = new QMimeData;
  datos->setData(kFormato, u"%1|%2|%3"_s.arg(int{que.de}).arg(que.cual).arg(ventana).toUtf8());
  return datos;
}

std::optional<Arrastre> deMime(const QMimeData& datos, const QString& ventana) {
  const QString texto = QString::fromUtf8(datos.data(kFormato));
  if (texto.section(u'|', 2) != ventana || texto.isEmpty()) return std::nullopt;
  const int de = texto.section(u'|', 0, 0).toInt();
  return Arrastre{static_cast<Arrastre::De>(de), texto.section(u'|', 1, 1).toInt()};
}

ListaDibujos::ListaDibujos(QWidget* padre, const QString& ventana, Arrastre::De de, int columnas)
    : QListWidget(padre), ventana_(ventana), de_(de), columnas_(columnas) {
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setWordWrap(true);
  setIconSize({escalar(kLadoDibujo), escalar(kLadoDibujo)});
  setSelectionMode(QAbstractItemView::SingleSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabKeyNavigation(false);
  setDragEnabled(true);
  setAcceptDrops(de == Arrastre::Sitio);
  viewport()->setAcceptDrops(de == Arrastre::Sitio);
}

void ListaDibujos::resizeEvent(QResizeEvent* evento) {
  const int filas = (count() + columnas_ - 1) / std::max(columnas_, 1);
  const int alto = filas > 0 ? viewport()->height() / filas : 0;
  setGridSize(
      {(viewport()->width() - columnas_) / columnas_, std::max(escalar(kAltoDibujo), alto)});
  const int ancho = gridSize().width(), letras = fontMetrics().height() + escalar(ventanas::kHueco);
  const int lado = std::clamp(std::min(ancho - escalar(ventanas::kMargen),
                                       gridSize().height() - letras - escalar(ventanas::kPaso)),
                              escalar(kLadoDibujo), escalar(kLadoMayor));
  setIconSize({lado, lado});
  for (int n = 0; n < count(); ++n) item(n)->setSizeHint(gridSize());
  QListWidget::resizeEvent(evento);
}

void ListaDibujos::startDrag(Qt::DropActions) {
  const QListWidgetItem* item = currentItem();
  if (!item || item->data(Qt::UserRole).isNull()) return;
  arrastrar(*this, {de_, item->data(Qt::UserRole).toInt()}, ventana_, item->icon());
}

// The arrows walk; with Ctrl they take the machine along. Return is for the picture, not for the
// form's default button, which the list would leave it to.
void ListaDibujos::keyPressEvent(QKeyEvent* evento) {
  const int aqui = currentRow();
  if ((evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) && aqui >= 0)
    return Q_EMIT itemActivated(currentItem());
  const auto vecino = [&]() -> std::optional<int> {
    const int columna = aqui % columnas_;
    switch (evento->key()) {
      case Qt::Key_Left:
        return columna > 0 ? std::optional(aqui - 1) : std::nullopt;
      case Qt::Key_Right:
        return columna < columnas_ - 1 ? std::optional(aqui + 1) : std::nullopt;
      case Qt::Key_Up:
        return aqui - columnas_;
      case Qt::Key_Down:
        return aqui + columnas_;
      default:
        return std::nullopt;
    }
  };
  if (evento->modifiers() & Qt::ControlModifier && de_ == Arrastre::Sitio && aqui >= 0) {
    if (const auto a = vecino(); a && *a >= 0 && *a < count()) Q_EMIT empujado(aqui, *a);
    if (evento->key() >= Qt::Key_Left && evento->key() <= Qt::Key_Down) return;
  }
  QListWidget::keyPressEvent(evento);
}

void ListaDibujos::dragEnterEvent(QDragEnterEvent* evento) {
  if (deMime(*evento->mimeData(), ventana_)) evento->acceptProposedAction();
}

void ListaDibujos::dragMoveEvent(QDragMoveEvent* evento) {
  const bool sobre = itemAt(evento->position().toPoint()) != nullptr;
  evento->setAccepted(sobre && deMime(*evento->mimeData(), ventana_));
}

void ListaDibujos::dropEvent(QDropEvent* evento) {
  const auto que = deMime(*evento->mimeData(), ventana_);
  const QListWidgetItem* en = itemAt(evento->position().toPoint());
  if (!que || !en) return;
  const bool mueve = evento->modifiers() & Qt::ShiftModifier;
  evento->setDropAction(Qt::CopyAction);
  evento->accept();
  Q_EMIT soltado(*que, row(en), mueve);
}

Caja::Caja(QWidget* padre, const QString& ventana, std::optional<Arrastre> origen)
    : QToolButton(padre), ventana_(ventana), origen_(origen) {
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  setIconSize({escalar(kLadoDibujo), escalar(kLadoDibujo)});
  setFocusPolicy(Qt::StrongFocus);
  setAcceptDrops(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Caja::mousePressEvent(QMouseEvent* evento) {
  desde_ = evento->position().toPoint();
  QToolButton::mousePressEvent(evento);
}

void Caja::mouseMoveEvent(QMouseEvent* evento) {
  const int camino = (evento->position().toPoint() - desde_).manhattanLength();
  if (!origen_ || !(evento->buttons() & Qt::LeftButton) ||
      camino < QApplication::startDragDistance())
    return QToolButton::mouseMoveEvent(evento);
  setDown(false);
  arrastrar(*this, *origen_, ventana_, icon());
}

void Caja::dragEnterEvent(QDragEnterEvent* evento) {
  const auto que = deMime(*evento->mimeData(), ventana_);
  if (que && que->de == Arrastre::Sitio) evento->acceptProposedAction();
}

void Caja::dropEvent(QDropEvent* evento) {
  const auto que = deMime(*evento->mimeData(), ventana_);
  if (!que) return;
  evento->setDropAction(Qt::CopyAction);
  evento->accept();
  Q_EMIT soltado(*que);
}

}  // namespace tarvo::groups
