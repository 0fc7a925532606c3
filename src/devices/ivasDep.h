// The VAT rates by group and department, for the reports.
#pragma once

#include <array>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo::devices {

class ivasDep {
 public:
  static constexpr int kDepartamentos = 20;
  static Resultado<ivasDep> leer(dao::Database& db);
  // Percent; 0 for an unknown group and a department outside 1 to 20.
  float IVA(int grupo, int departamento) const;
  // The rate as a formula of the report engine, on {@Gpo} and {@Dpt}; lines separated by CR LF.
  QString FormulaRPT() const;

 private:
  struct Fila {
    int grupo = 0;
    std::array<float, kDepartamentos> tasas{};
  };
  std::vector<Fila> grupos_;
};

}  // namespace tarvo::devices
