// What each machine of a group has accepted of its configuration, and when; so that the shop sees
// which machines work with other settings than those stored here.
#pragma once

#include <optional>
#include <set>
#include <vector>

#include "comm/configuracion/Envio.h"
#include "core/dao/Pasos.h"
#include "core/valores/Fecha.h"

namespace tarvo::configuracion {

dao::TablasDeSala tablasConfiguracion();
// Where a group's notes are, for callers that delete, move or restore it: tables with a column
// GRUPO, which follow the group's row.
std::vector<QString> tablasDeGrupo();

// Machines of the group, by number, have left it, or others have taken their place.
Resultado<> olvidarMaquinas(dao::Database& db, int grupo, const std::set<int>& maquinas);
// Called before the first frame of a machine (kTodoElGrupo: of all) is sent: until it has accepted
// all of them, what it holds is unknown. Inside the caller's transaction, if there is one.
Resultado<> anunciar(dao::Database& db, int grupo, TipoTarea clase, int maquina);
// It has accepted every frame.
Resultado<> anotarAceptado(dao::Database& db, int grupo, TipoTarea clase, const Envio& envio,
                           Fecha cuando);

enum class Situacion : int { NuncaEnviada, Cambio, Igual };
struct Estado {
  TipoTarea clase = TipoTarea::TxCnfig;
  Situacion situacion = Situacion::NuncaEnviada;  // of the machine that differs most
  std::optional<Fecha> cuando = {};               // its last whole sending
  std::set<int> maquinas = {};                    // those that don't hold what is stored here
  int cuantas = 0;                                // those that take this kind
};
// For each kind that the group takes, in the order of kClases. Reads only.
Resultado<std::vector<Estado>> estadoDe(dao::Database& db, const Ajustes& ajustes,
                                        const Destino& destino);

}  // namespace tarvo::configuracion
