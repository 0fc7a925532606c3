#include "core/ventanas/Delegado.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

#include "core/ventanas/ModeloParrilla.h"

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
