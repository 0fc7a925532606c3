// The lines of a trace as the model of a list.
#pragma once

#include <QAbstractTableModel>

#include "automation/ventanas/FicheroTraza.h"

namespace tarvo::automation {

class ModeloTraza final : public QAbstractTableModel {
  Q_OBJECT
 public:
  ModeloTraza(const QString& ruta, const Textos& textos, QObject* padre);
  const FicheroTraza& fichero() const { return fichero_; }
  // True if the trace has changed.
  bool leer(qint64 bytes);

  int rowCount(const QModelIndex& padre = {}) const override;
  int columnCount(const QModelIndex& padre = {}) const override;
  QVariant data(const QModelIndex& indice, int papel) const override;

 private:
  FicheroTraza fichero_;
  int lineas_ = 0;
};

}  // namespace tarvo::automation
