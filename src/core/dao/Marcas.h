// A readable statement: a single literal, with named marks for what can't be bound.
//
//   db.ejecutar(conMarcas(u"UPDATE {tabla} SET LINK=? WHERE LINK=?", {{u"tabla", c.tabla}}), nuevo,
//   link)
//
// Marks stand for names of tables and columns, lists of them, and whole conditions of our own.
// Values from a person or a machine are bound to a "?", never put in.
#pragma once

#include <QString>
#include <initializer_list>

namespace tarvo::dao {

struct Marca {
  QStringView nombre;
  QString texto;
};

// Each {nombre} becomes its text, which is not searched for further marks. A mark without a text
// stays, and the statement is then refused with an error that shows it.
QString conMarcas(QStringView sentencia, std::initializer_list<Marca> marcas);

}  // namespace tarvo::dao
