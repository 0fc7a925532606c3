// Rows set aside before they are deleted, so that they can be put back as they were. They are kept
// in temporary tables of this connection.
#pragma once

#include <vector>

#include "core/dao/Database.h"

namespace tarvo::dao {

class Apartado {
 public:
  struct Parte {
    QString tabla;
    QString donde;                           // with one parameter
    QString columnas = QStringLiteral("*");  // those to restore, where a row gets a new number
  };
  // `nombre`: of its own among all that live on the connection. `partes`: in the order in which
  // they can be restored, referenced tables first. REQUIRES that the database outlives it.
  Apartado(Database& db, QString nombre, std::vector<Parte> partes)
      : db_(db), nombre_(std::move(nombre)), partes_(std::move(partes)) {}
  ~Apartado() { static_cast<void>(soltar()); }  // they go with the connection anyway
  Apartado(const Apartado&) = delete;

  // Inside the caller's transaction. What was set aside before is dropped.
  Resultado<> guardar(const Valor& parametro);
  // Puts all rows back, or none. Duplicado when the place of one is taken.
  Resultado<> reponer();

 private:
  Resultado<> soltar();
  QString enTabla(QStringView sentencia, const Parte& p) const;

  Database& db_;
  QString nombre_;
  std::vector<Parte> partes_;
};

}  // namespace tarvo::dao
