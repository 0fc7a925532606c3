// The operators, and the slots of the groups in which their codes stand.
#pragma once

#include "core/dao/Database.h"
#include "core/textos/Textos.h"

namespace tarvo::articles {

class Operadores {
 public:
  static constexpr int kUltimo = 9999;
  using AlAvanzar = std::function<void(int hechos, int total)>;

  // REQUIRES that both outlive it.
  Operadores(dao::Database& db, const Textos& textos) : db_(db), textos_(textos) {}

  // Errors: Restriccion for a code outside 1 to kUltimo, Duplicado for one that is taken.
  Resultado<> anadir(int codigo, const QString& nombre);
  Resultado<> renombrar(int codigo, const QString& nombre);
  // The code changes in every slot that holds it too, all or nothing.
  Resultado<> cambiarCodigo(int codigo, int nuevo, const AlAvanzar& alAvanzar = {});
  // Every slot that holds it is emptied, all or nothing.
  Resultado<> borrar(std::span<const int> codigos, const AlAvanzar& alAvanzar = {});
  Resultado<int> primeroLibre();

 private:
  Resultado<> codigoBueno(int codigo) const;
  Resultado<> enHuecos(QStringView cambio, std::span<const dao::Valor> valores,
                       const std::function<void()>& alAvanzar);

  dao::Database& db_;
  const Textos& textos_;
};

}  // namespace tarvo::articles
