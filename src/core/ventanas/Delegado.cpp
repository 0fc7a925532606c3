#include "core/ventanas/Delegado.h"

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

}  // namespace tarvo::ventanas
