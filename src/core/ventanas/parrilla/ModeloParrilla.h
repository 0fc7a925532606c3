// The model of a grid: columns, values, and access to rows by key. It has two implementations:
// ModeloSql (rows of a query, fetched while scrolling) and ModeloVivo (rows held in memory).
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
  int columna(QStringView campo) const;  // -1 if none
  Formato& formato() { return formato_; }
  const Formato& formato() const { return formato_; }

  // --- rows; REQUIRE 0 <= fila < rowCount()
  virtual Clave clave(int fila) const = 0;
  virtual dao::Valor valor(int fila, int columna) const = 0;
  QString texto(int fila, int columna) const;  // as shown
  // The kind of quantity of this row, see Columna.
  int cadaDe(int fila, const Columna& columna) const;
  virtual int filaDe(Clave clave) const = 0;  // -1 if none
  // Writes a text into an editable cell, or refuses it in words.
  Resultado<> escribir(int columna, Clave clave, const QString& texto) const;
  void releer(int fila);  // its values have been written by somebody else
  int columnCount(const QModelIndex& padre = {}) const override;
  QVariant data(const QModelIndex& indice, int papel) const override;
  QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;
  Qt::ItemFlags flags(const QModelIndex& indice) const override;
  // Passes the text typed to the column (see Columna::editar). False if it was refused.
  bool setData(const QModelIndex& indice, const QVariant& texto, int papel) override;

  // --- searching in slices
  // Examines the rows from `desde` on, some at a time. The texts shown are compared, ignoring
  // accents and case; the beginning of a code also without the zeros shown before it.
  enum class Busca { Empieza, Contiene };
  struct Hallazgo {
    int fila = -1;      // the row found, -1 if none
    int siguiente = 0;  // the next row to examine if none was found; rowCount() at the end
  };
  Hallazgo buscar(const QString& texto, Busca como, const std::vector<int>& columnas,
                  int desde) const;

  // --- the totals line: a sum per column, Null if there is none
  using Sumas = std::vector<dao::Valor>;
  // Answers at once or from the event loop; only the last request is answered.
  virtual void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) = 0;
  virtual bool contando() const { return false; }  // rows are still being counted

 Q_SIGNALS:
  // Emitted before and after all rows change; the selection is kept by key in between.
  void vaARenovar();
  void renovado();
  void fallido(const tarvo::Error& error) const;  // rows to be shown can't be read
  void recuento();                                // the number of known rows or the sums changed
  void editada(const QModelIndex& indice);        // a cell was written
  void celdaEscrita(qint64 clave, int columna, const QString& antes);
  void rechazada(const QModelIndex& indice, const QString& texto, const tarvo::Error& error);

 protected:
  virtual void releerFila(int /*fila*/) {}  // its values may have changed

  std::vector<Columna> columnas_;
  const Textos& t_;
  Formato formato_;
};

}  // namespace tarvo::ventanas
