// How a room creates its tables, views and columns: in numbered steps, each run once in a database,
// new or old.
//
// A step that a shop may have run is never changed: changes come as further steps. A step may find
// its work done, since it runs again in a database that lost a table of its room, and in one older
// than the record of steps. So it leaves alone what is already right: "create table if not exists",
// columna(), vista(), an UPDATE whose WHERE finds only what is still undone.
//
// How the database records its steps: docs/formatos.md.
#pragma once

#include <functional>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo::dao {

struct Paso {
  int numero = 0;  // from 1, ascending within a room
  QString guion;   // statements as for Database::ejecutarGuion; may be empty
  std::function<Resultado<>(Database&)> hacer = {};  // for what a script can't do; runs after it
};

// A step that adds a column; `tipo` is its type, with its default.
Paso columna(int numero, const QString& tabla, const QString& nombre, const QString& tipo);
// A step that creates or replaces a view of a query.
Paso vista(int numero, const QString& nombre, const QString& consulta);

// A table that keeps rows of another: `copia` has every column of `origen`, besides its own.
struct Copia {
  QString copia, origen;
};

// The tables of one room in the database.
struct TablasDeSala {
  QString sala;  // its name in the database
  std::vector<Paso> pasos;
  std::vector<Copia> copias;
  // What its tables held can't be made anew, or would be counted again: a database that had one and
  // lost it is damaged.
  bool insustituible = false;
};

// Whether all steps have run, what they created exists, and the copies have all their columns.
Resultado<bool> alDia(Database& db, const std::vector<TablasDeSala>& salas);

// Runs the steps that a database lacks, room by room in the order given, and then updates the
// copies; one transaction. Interno for numbers that don't ascend; NoEsBaseDatos, with nothing
// changed, when a table that can't be replaced is lost.
Resultado<> darPasos(Database& db, const std::vector<TablasDeSala>& salas);

}  // namespace tarvo::dao
