// The send state as rows of a temporary table, so that a list can sort, search and filter it.
#pragma once

#include "comm/envios/Estado.h"
#include "core/tiempo/Trabajo.h"

namespace tarvo::envios {

// Columns: CODPLU, NOMPLU, SITUACION (a number), DESDE, MOTIVO. It is dropped with the connection.
inline constexpr char16_t kTablaDeEstado[] = u"EstadoDeEnvio";

class TablaDeEstado {
 public:
  TablaDeEstado(dao::Database& db, std::vector<EstadoArticulo> articulos)
      : db_(db), articulos_(std::move(articulos)) {}
  // One step of a Trabajo; the first creates the table anew.
  Resultado<bool> paso(Trabajo::Avance& avance);

 private:
  dao::Database& db_;
  std::vector<EstadoArticulo> articulos_;
  size_t hechos_ = 0;
  bool hecha_ = false;
};

}  // namespace tarvo::envios
