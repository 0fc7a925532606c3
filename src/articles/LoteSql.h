// The statements that undo a batch. Internal to the room.
#pragma once

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles::lotesql {

// What happens to an article of a batch: LoteAntes.QUE.
enum class Que {
  Nada = 0,        // it is as before
  Reponer = 1,     // it exists and takes its former values
  Quitar = 2,      // it did not exist before
  Dejar = 3,       // changed by others since, or it can't be as before
  Reinsertar = 4,  // it was deleted
};

QStringList tablasDeFilas();  // those with what a batch keeps
QStringList tablas();         // with the batches themselves
QStringList contadores();     // the columns of MovsAlm kept

// Moves roughly the first so many articles of a batch into an empty one, with those that must be
// restored together with them: articles that have each other's bar codes. Returns how many.
Resultado<qint64> apartarTramo(dao::Database& db, qint64 lote, qint64 aqui, int cuantos);

// Sets QUE of all articles of a batch.
Resultado<> clasificar(dao::Database& db, qint64 lote);
Resultado<std::vector<ClaveArticulo>> claves(dao::Database& db, qint64 lote, Que que);

struct Firma {
  Fecha cuando;
  QString quien, ventana;
};
// The prices that reponer() will change. REQUIRES that it has not run yet. A restored article
// brings its prices with it: they were not set.
Resultado<> anotarPrecios(dao::Database& db, qint64 lote, const Firma& firma);
// The history of a moved article goes back with it.
Resultado<> devolverHistoria(dao::Database& db, qint64 lote);
// Takes the predefined bar codes off the articles that reponer() will write, so that two of them
// can swap theirs back.
Resultado<> soltarCodigos(dao::Database& db, qint64 lote);
// Writes the articles of Reponer and Reinsertar, the latter with their stock counters.
Resultado<> reponer(dao::Database& db, qint64 lote);

}  // namespace tarvo::articles::lotesql
