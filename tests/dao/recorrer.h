#pragma once

#include <stdexcept>

#include "core/dao/Database.h"

// Moves to the next row; a failure ends the test, which would otherwise never leave its loop.
inline void avanzar(tarvo::dao::Recordset& rs) {
  if (const auto r = rs.MoveNext(); !r) throw std::runtime_error(r.error().texto.toStdString());
}

// The row under the cursor, columns separated by "|", Null as "~".
inline QString filaComoTexto(const tarvo::dao::Recordset& rs) {
  QStringList celdas;
  for (int i = 0; i < rs.numColumnas(); ++i)
    celdas += rs.nulo(i) ? QStringLiteral("~") : rs.texto(i);
  return celdas.join(u'|');
}

// All rows of a query, separated by blanks, or its error message.
inline std::string filasComoTexto(tarvo::dao::Database& db, const QString& sql) {
  const auto rs = db.consultar(sql);
  if (!rs) return rs.error().texto.toStdString();
  QStringList filas;
  for (; !(*rs)->Eof(); avanzar(**rs)) filas += filaComoTexto(**rs);
  return filas.join(u' ').toStdString();
}
