#include "core/ventanas/parrilla/Delegado.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

namespace {

std::optional<Tinte> tinteDeEstado(Estado e) {
  switch (e) {
    case Estado::Bien:
      return Tinte::Bien;
    case Estado::Duda:
      return Tinte::Duda;
    case Estado::Mal:
      return Tinte::Mal;
    case Estado::Ninguno:
      break;
  }
  return std::nullopt;
}

}  // namespace

QWidget* Delegado::createEditor(QWidget* padre, const QStyleOptionViewItem&,
                                const QModelIndex& indice) const {
  const auto* modelo = qobject_cast<const ModeloParrilla*>(indice.model());
  if (!modelo) return nullptr;
  auto* campo = new QLineEdit(padre);
  campo->setObjectName(QStringLiteral("celda"));
  campo->setProperty("celda", true);
  campo->setFrame(false);
  campo->setAlignment(Qt::Alignment(indice.data(Qt::TextAlignmentRole).toInt()));
  campo->setAccessibleName(
      modelo->headerData(indice.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  return campo;
}

void Delegado::setEditorData(QWidget* editor, const QModelIndex& indice) const {
  auto* campo = qobject_cast<QLineEdit*>(editor);
  if (!campo) return;
  const bool propio = primero_.has_value();
  campo->setText(primero_.value_or(indice.data(Qt::EditRole).toString()));
  if (!propio) campo->selectAll();
  primero_.reset();
}

void Delegado::setModelData(QWidget* editor, QAbstractItemModel* modelo,
                            const QModelIndex& indice) const {
  const auto* campo = qobject_cast<const QLineEdit*>(editor);
  rechazada_ = campo && !modelo->setData(indice, campo->text(), Qt::EditRole);
}

bool Delegado::eventFilter(QObject* objeto, QEvent* evento) {
  auto* campo = qobject_cast<QLineEdit*>(objeto);
  // An open cell editor waits while another window is active.
  if (campo && evento->type() == QEvent::FocusOut && !campo->isActiveWindow()) return false;
  if (!campo || evento->type() != QEvent::KeyPress)
    return QStyledItemDelegate::eventFilter(objeto, evento);
  int pasos = 0;
  switch (static_cast<const QKeyEvent*>(evento)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      break;
    case Qt::Key_Tab:
      pasos = 1;
      break;
    case Qt::Key_Backtab:
      pasos = -1;
      break;
    default:
      return QStyledItemDelegate::eventFilter(objeto, evento);
  }
  if (acabar(*campo)) Q_EMIT acabada(pasos);
  return true;
}

bool Delegado::acabar(QLineEdit& campo) {
  Q_EMIT commitData(&campo);
  if (std::exchange(rechazada_, false)) return false;
  Q_EMIT closeEditor(&campo, NoHint);
  return true;
}

void Delegado::initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& indice) const {
  QStyledItemDelegate::initStyleOption(opcion, indice);
  const bool elegida = opcion->state & QStyle::State_Selected;
  auto tinte = tinteDeEstado(static_cast<Estado>(indice.data(kPapelEstado).toInt()));
  if (tinte) opcion->font.setWeight(QFont::DemiBold);
  if (!tinte && indice.data(kPapelCero).toBool()) tinte = Tinte::TextoPalido;
  if (tinte && !elegida) opcion->palette.setColor(QPalette::Text, colorDe(*tinte));
  opcion->textElideMode = Qt::ElideRight;
}

bool Delegado::helpEvent(QHelpEvent* evento, QAbstractItemView* vista,
                         const QStyleOptionViewItem& opcion, const QModelIndex& indice) {
  const QString texto = indice.data(Qt::DisplayRole).toString();
  const bool cortado = sizeHint(opcion, indice).width() > opcion.rect.width();
  if (evento->type() != QEvent::ToolTip || texto.isEmpty() || !cortado)
    return QStyledItemDelegate::helpEvent(evento, vista, opcion, indice);
  QToolTip::showText(evento->globalPos(), texto.toHtmlEscaped(), vista, opcion.rect);
  return true;
}

}  // namespace tarvo::ventanas
