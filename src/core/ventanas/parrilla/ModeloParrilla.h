// The model under a grid: columns, values, and how to reach rows by key. Two kinds stand behind it,
// ModeloSql (rows of a query, fetched as one scrolls) and ModeloVivo (rows held in memory).
#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "core/textos/Textos.h"
#include "core/ventanas/parrilla/Columna.h"

namespace tarvo::ventanas {

enum PapelCelda : int {
  kPapelClase = Qt::UserRole + 1,
  kPapelEstado,  // int of Estado
  kPapelCero,    // true for a numeric zero
};

class ModeloParrilla : public QAbstractTableModel {
  Q_OBJECT
 public:
  using Clave = qint64;

  ModeloParrilla(std::vector<Columna> columnas, const Textos& textos, Formato formato,
                 QObject* padre);

  const std::vector<Columna>& columnas() const { return columnas_; }
  int columna(QStringView campo) const;  // -1 when there is none
  Formato& formato() { return formato_; }
  const Formato& formato() const { return formato_; }

  // --- rows; REQUIRE 0 <= fila < rowCount()
  virtual Clave clave(int fila) const = 0;
  virtual dao::Valor valor(int fila, int columna) const = 0;
  QString texto(int fila, int columna) const;  // as it is shown
  // The kind of quantity of this row, see Columna.
  int cadaDe(int fila, const Columna& columna) const;
  virtual int filaDe(Clave clave) const = 0;  // -1 when it isn't there
  void releer(int fila);                      // its values were written by somebody else
  int columnCount(const QModelIndex& padre = {}) const override;
  QVariant data(const QModelIndex& indice, int papel) const override;
  QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;
  Qt::ItemFlags flags(const QModelIndex& indice) const override;
  // Hands what was typed to the column (see Columna::editar). False when it was refused.
  bool setData(const QModelIndex& indice, const QVariant& texto, int papel) override;

  // --- searching in slices: looks at the rows from `desde` on, some at a time. What is shown is
  // compared, accents and case ignored.
  enum class Busca { Empieza, Contiene };
  struct Hallazgo {
    int fila = -1;      // the row found
    int siguiente = 0;  // where to go on when none was; rowCount() at the end
  };
  Hallazgo buscar(const QString& texto, Busca como, const std::vector<int>& columnas,
                  int desde) const;

  // --- the totals line: for each column its sum; nothing where there is none
  using Sumas = std::vector<dao::Valor>;
  // Answers at once or from the event loop; only the last one that was asked for is answered.
  virtual void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) = 0;
  virtual bool contando() const { return false; }  // rows are still being counted

 Q_SIGNALS:
  // Before and after a change of all rows: what is selected is kept by key in between.
  void vaARenovar();
  void renovado();
  void fallido(const tarvo::Error& error) const;  // rows that should show can't be read
  void recuento();                                // the number of rows known or the sums changed
  void editada(const QModelIndex& indice);        // a cell was written
  void celdaEscrita(qint64 clave, int columna, const QString& antes);
  void rechazada(const QModelIndex& indice, const QString& texto, const tarvo::Error& error);

 protected:
  virtual void releerFila(int /*fila*/) {}  // its values may be others now

  std::vector<Columna> columnas_;
  const Textos& t_;
  Formato formato_;
};

}  // namespace tarvo::ventanas
