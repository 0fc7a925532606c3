// The statements by which a batch is put back. Internal to the room.
#pragma once

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles::lotesql {

// What happens to an article of a batch: LoteAntes.QUE.
enum class Que {
  Nada = 0,        // it stands as before
  Reponer = 1,     // it is there and takes its former values
  Quitar = 2,      // it had not been there
  Dejar = 3,       // somebody else changed it since, or it can't stand as before
  Reinsertar = 4,  // it was deleted
};

QStringList tablas();      // all tables of batches
QStringList contadores();  // the columns of MovsAlm that are kept

// Moves the first articles of a batch, about so many, into an empty one, with whatever must be put
// back together with them: articles that have each other's bar codes. How many went.
Resultado<qint64> apartarTramo(dao::Database& db, qint64 lote, qint64 aqui, int cuantos);

// Sets QUE of all articles of a batch.
Resultado<> clasificar(dao::Database& db, qint64 lote);
Resultado<std::vector<ClaveArticulo>> claves(dao::Database& db, qint64 lote, Que que);

struct Firma {
  Fecha cuando;
  QString quien, ventana;
};
// The prices that reponer() will change. REQUIRES that it didn't run yet. An article that comes
// back comes with its prices: nobody set them.
Resultado<> anotarPrecios(dao::Database& db, qint64 lote, const Firma& firma);
// The history of an article that was moved goes back with it.
Resultado<> devolverHistoria(dao::Database& db, qint64 lote);
// Takes the predefined bar codes off the articles that reponer() will write, so that two of them
// can give each other theirs back.
Resultado<> soltarCodigos(dao::Database& db, qint64 lote);
// Writes the articles of Reponer and Reinsertar, the latter with their stock counters.
Resultado<> reponer(dao::Database& db, qint64 lote);

}  // namespace tarvo::articles::lotesql
