// The database's description of its own tables: columns in order, and the key of each index.
#pragma once

#include <QByteArrayList>
#include <QHash>
#include <QSet>
#include <QString>
#include <memory>
#include <vector>

#include "core/dao/sqlite/Conexion.h"

namespace tarvo::dao {

// A part of an index key.
struct ParteClave {
  int columna = -1;      // of the table; -1 when the part is an expression
  QString sql;           // the column's name in quotes, or the expression
  QString conParametro;  // the same for a sought value, with "%1" as its parameter
};

struct InfoTabla {
  QString nombre;
  std::vector<QString> columnas;
  std::vector<bool> enteras;    // columns of a whole-number type
  QHash<QString, int> numeros;  // by name in lower case
};

QString entreComillasSql(const QString& nombre);

class Catalogo {
 public:
  explicit Catalogo(Conexion& con) : con_(con) {}

  // NoExiste if there is no such table.
  Resultado<std::shared_ptr<const InfoTabla>> tabla(QStringView nombre);
  // The index is called "TABLE.index" in the file, where all index names share one namespace.
  // NoExiste.
  Resultado<std::vector<ParteClave>> indice(const InfoTabla& tabla, QStringView nombre,
                                            QString& enFichero);
  bool existe(QStringView tablaOVista);
  // Whether a table, or else a view, has a column of that name with texts.
  bool columnaDeTexto(const QString& enMinusculas);
  // Drops its knowledge after a statement has changed the schema.
  void olvidar();

 private:
  QSet<QString> leerNombres();
  QByteArrayList leerTablas();
  bool enVistas(const QString& columna);

  Conexion& con_;
  QHash<QString, std::shared_ptr<const InfoTabla>> tablas_;
  QSet<QString> nombres_;
  QByteArrayList tablasUtf8_;
  QHash<QString, bool> deTexto_;  // by name in lower case
};

}  // namespace tarvo::dao
