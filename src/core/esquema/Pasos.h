// The steps of the tables and views used by several rooms; the first ones create a new database,
// one group of tables each.
//
// To change the schema add a step at the end of pasos(): "create table if not exists NAME (...);",
// dao::columna(), dao::vista(). A database without it gets it at its next start; the earlier steps
// stay as they are, since existing databases were made by them. The rules:
// - every column may be Null or has a default, so that an INSERT may name only some columns; - an
//   index is called [TABLE.index], and a table recordset opens it as "index" of its table; - a
//   statement ends with ";" at the end of a line; a trigger is on one line; - @orden(COLUMN) is the
//   key by which a name sorts; @lista{text nn first-last} repeats a text, separated by commas, for
//   each two-digit number.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::esquema {

std::vector<dao::Paso> pasos();

// The raw texts, one for each file of this folder.
QString guionArticulos();
QString guionGrupos();
QString guionEtiquetas();
QString guionTotales();
QString guionAlmacenes();
QString guionEnLinea();
QString guionFacturacion();
QString guionConsultas();

}  // namespace tarvo::esquema
