// The schema, as scripts of statements in the store's dialect, one for each group of tables.
//
// To add a table write "create table if not exists NAME (...);" in the script of its group (or add
// a script to guiones()): a database that lacks the table or view gets it at its next start. The
// rules:
//   - every column may be Null or has a default, so that an INSERT may name only some columns;
//   - an index is called [TABLE.index], and a table recordset opens it as "index" of its table;
//   - a statement ends with ";" at the end of a line; a trigger stands in one line;
//   - @orden(COLUMN) is the key by which a name sorts; @lista{text nn first-last} repeats a text,
//   separated by commas,
//     for each two-digit number.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace tarvo::esquema {

struct Guion {
  QString sql;
  QStringList objetos;  // the tables and views that it makes
};

// All of them, tables before the views that stand on them.
std::vector<Guion> guiones();

// The raw texts, one a file of this folder.
QString guionArticulos();
QString guionGrupos();
QString guionEtiquetas();
QString guionTotales();
QString guionAlmacenes();
QString guionEnLinea();
QString guionFacturacion();
QString guionConsultas();

}  // namespace tarvo::esquema
