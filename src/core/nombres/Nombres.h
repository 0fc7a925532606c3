// Codes and names of sections, departments, groups and operators, as lists to choose from. All are
// in the order of their codes.
#pragma once

#include <optional>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo {

struct CodigoNombre {
  qint64 codigo = 0;
  QString nombre;
  bool operator==(const CodigoNombre&) const = default;
};

class Nombres {
 public:
  // REQUIRES that the database outlives it.
  explicit Nombres(dao::Database& db) : db_(db) {}

  using Lista = Resultado<std::vector<CodigoNombre>>;
  Lista secciones() const;
  Lista seccionesPorNombre() const;
  Lista departamentos(int seccion) const;
  Lista grupos() const;
  Lista gruposDe(int seccion) const;
  Lista operadores() const;

  // Empty if there is none with that code.
  Resultado<QString> seccion(int codigo) const;
  Resultado<QString> grupo(int codigo) const;
  Resultado<int> seccionDe(int grupo) const;  // 0 if there is no such group
  // Nothing if there is none.
  Resultado<std::optional<QString>> departamento(int seccion, int codigo) const;
  Resultado<std::optional<QString>> articulo(int seccion, qint64 codigo) const;

 private:
  Lista leer(QStringView sql, const std::vector<dao::Valor>& parametros = {}) const;

  dao::Database& db_;
};

}  // namespace tarvo
