// The send state as rows of a temporary table, so that a list can sort, search and filter it.
#pragma once

#include "comm/envios/Estado.h"
#include "core/dao/Origen.h"
#include "core/tiempo/Trabajo.h"

namespace tarvo::envios {

// The rows of the table in one state, in every state but that one, or all of them; by code.
// Columns: CODPLU, NOMPLU, SITUACION (a number), DESDE, MOTIVO.
dao::Origen listaEstados();
dao::Origen listaEstados(Situacion cual);
dao::Origen listaEstadosSalvo(Situacion cual);

// Fills the table, which is dropped with the connection.
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
