// The life of a group in the books.
#pragma once

#include <map>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::totals {

class Sesion;

// Called in the transaction that deletes a group: what the books know of its machines, and their
// rows in the inbox, must not pass to a later group with its code. Periods keep what they have.
Resultado<> olvidarGrupo(dao::Database& db, int grupo);
// In the transaction that stores a group under another code, after the rows of tablasDeGrupo() have
// it: its grand totals have it too, and so have its rows in the periods. Where another group left
// rows there under that code, they are added.
Resultado<> cambiarCodigo(dao::Database& db, int antes, int ahora);
// Registers have another address, and what is known of each goes with it. By former address.
Resultado<> cambiarDirecciones(dao::Database& db, int grupo, const std::map<int, int>& nuevas);
// A register has left its group: nothing of it is in the machines that are read from now on.
// REQUIRES that all its sales that were read are in a period.
Resultado<> olvidarCaja(dao::Database& db, const Ajustes& ajustes, int grupo, int addr);
// At the start, before anything is read: registers that another program took out of their group are
// forgotten, and one that alone has another address keeps what is known of it. Not while sales of
// the group are in no period, nor where several came and went.
Resultado<> seguirCajas(dao::Database& db, const Ajustes& ajustes, Sesion& sesion);
// Where that is, for callers that can restore the group: tables with a column GRUPO, and what else
// marks the rows, ready to precede a condition on it.
struct TablaDeGrupo {
  QString tabla, donde;
};
std::vector<TablaDeGrupo> tablasDeGrupo();

}  // namespace tarvo::totals
