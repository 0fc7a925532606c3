// A kept statement in the hands of a caller.
#pragma once

#include "core/dao/sqlite/Conexion.h"

namespace tarvo::dao {

// Runs a statement to its end and returns the number of changed rows.
Resultado<qint64> ejecutarContando(Conexion& con, Preparada& p);

class SentenciaSqlite final : public Sentencia {
 public:
  SentenciaSqlite(std::shared_ptr<Conexion> con, Preparada p)
      : con_(std::move(con)), p_(std::move(p)) {}
  void ligar(int parametro, qint64 valor) override { p_.ligar(parametro, valor); }
  void ligar(int parametro, double valor) override { p_.ligar(parametro, valor); }
  void ligar(int parametro, const Valor& valor) override { p_.ligar(parametro, valor); }
  Resultado<qint64> ejecutar() override { return ejecutarContando(*con_, p_); }

 private:
  std::shared_ptr<Conexion> con_;
  Preparada p_;
};

}  // namespace tarvo::dao
