#include "automation/ventanas/ModeloTraza.h"

#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::automation {

ModeloTraza::ModeloTraza(const QString& ruta, const Textos& textos, QObject* padre)
    : QAbstractTableModel(padre), fichero_(ruta, textos) {}

bool ModeloTraza::leer(qint64 bytes) {
  const auto cambio = fichero_.leer(bytes);
  if (cambio == FicheroTraza::Cambio::Ninguno) return false;
  if (cambio == FicheroTraza::Cambio::OtroFichero) {
    beginResetModel();
    lineas_ = fichero_.lineas();
    endResetModel();
    return true;
  }
  // The last line may have been incomplete.
  if (lineas_ > 0) Q_EMIT dataChanged(index(lineas_ - 1, 0), index(lineas_ - 1, 0));
  if (fichero_.lineas() > lineas_) {
    beginInsertRows({}, lineas_, fichero_.lineas() - 1);
    lineas_ = fichero_.lineas();
    endInsertRows();
  }
  return true;
}

int ModeloTraza::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : lineas_;
}
int ModeloTraza::columnCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : 1;
}

QVariant ModeloTraza::data(const QModelIndex& indice, int papel) const {
  if (papel == Qt::DisplayRole) return fichero_.linea(indice.row());
  if (papel == ventanas::kPapelEstado && fichero_.esProblema(indice.row()))
    return static_cast<int>(ventanas::Estado::Mal);
  return {};
}

}  // namespace tarvo::automation
