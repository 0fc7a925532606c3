// A dynaset: the rows of a query as they were when it was opened, walked forward.
#pragma once

#include "core/dao/sqlite/Filas.h"

namespace tarvo::dao {

class Consulta final : public Filas {
 public:
  // Reads every row; the statement is free afterwards.
  static Resultado<std::unique_ptr<Consulta>> abrir(Preparada& p);

  Resultado<> MoveFirst() override;
  Resultado<> MoveNext() override;
  Resultado<> MoveLast() override;
  Resultado<> Index(QStringView) override;
  Resultado<bool> Seek(Busca, std::span<const Valor>) override;
  bool NoMatch() const override { return true; }
  void AddNew() override {}
  void Edit() override {}
  void poner(int, const Valor&) override {}
  Resultado<> Update() override;
  Resultado<> Delete() override;
};

}  // namespace tarvo::dao
