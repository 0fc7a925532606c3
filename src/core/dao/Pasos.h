// How a room brings its tables, views and columns: as numbered steps, each run once in a database,
// be it new or old.
//
// A step that a shop may have run is never changed: what changes comes as a further step. It may
// find its work done, for it runs again in a database that lost a table of its room, and in one
// that was written before steps were noted. So it leaves alone what is as it should be: "create
// table if not exists", columna(), vista(), an UPDATE whose WHERE finds only what is still undone.
//
// docs/formatos.md says how the database notes which steps it has.
#pragma once

#include <functional>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo::dao {

struct Paso {
  int numero = 0;  // from 1, ascending within a room
  QString guion;   // statements as for Database::ejecutarGuion; may be empty
  std::function<Resultado<>(Database&)> hacer = {};  // what a script can't say; runs after it
};

// A step that adds a column; `tipo` is its type, with its default.
Paso columna(int numero, const QString& tabla, const QString& nombre, const QString& tipo);
// A step that makes a view, or replaces the one that is there, by a query.
Paso vista(int numero, const QString& nombre, const QString& consulta);

// A table that keeps rows of another: each column of `origen` is in `copia` too, beside those that
// `copia` has of its own.
struct Copia {
  QString copia, origen;
};

// What one room keeps in the database.
struct TablasDeSala {
  QString sala;  // its name in the database
  std::vector<Paso> pasos;
  std::vector<Copia> copias;
};

// Whether all steps were run, what they made is there, and the copies have all their columns.
Resultado<bool> alDia(Database& db, const std::vector<TablasDeSala>& salas);

// Runs the steps that a database hasn't had, room by room in the order given, and lets the copies
// follow; one transaction. Interno for numbers that don't ascend.
Resultado<> darPasos(Database& db, const std::vector<TablasDeSala>& salas);

}  // namespace tarvo::dao
