// The operators, and the slots of the groups that hold their codes.
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

  // Errors: Restriccion for a code outside 1 to kUltimo, Duplicado for a taken one.
  Resultado<> anadir(int codigo, const QString& nombre);
  Resultado<> renombrar(int codigo, const QString& nombre);
  // The code also changes in every slot that holds it, all or nothing.
  Resultado<> cambiarCodigo(int codigo, int nuevo, const AlAvanzar& alAvanzar = {});
  struct Hueco {
    int grupo = 0, numero = 0;
    bool turno = false;  // OPnn_T
  };
  struct Borrado {
    int codigo = 0;
    QString nombre;
    std::vector<Hueco> huecos;
  };
  // Empties every slot with their codes, all or nothing. Returns what was deleted, for reponer().
  Resultado<std::vector<Borrado>> borrar(std::span<const int> codigos,
                                         const AlAvanzar& alAvanzar = {});
  // All or nothing: Duplicado when a code has been taken. Returns the number of slots left as they
  // are because they are occupied or their group is gone.
  Resultado<int> reponer(std::span<const Borrado> borrados);
  Resultado<int> primeroLibre();
  // Several operations as one: all of them, or none when it fails.
  Resultado<> todoONada(const std::function<Resultado<>()>& hacer) {
    return dao::todoONada(db_, hacer);
  }

 private:
  Resultado<> codigoBueno(int codigo) const;
  Resultado<std::optional<Borrado>> leer(int codigo);
  Resultado<> enHuecos(QStringView orden, std::span<const dao::Valor> valores,
                       const std::function<void()>& alAvanzar);

  dao::Database& db_;
  const Textos& textos_;
};

}  // namespace tarvo::articles
