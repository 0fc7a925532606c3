// The schema of the database, its empty template, and its opening at program start.
#pragma once

#include <QStringList>
#include <memory>

#include "core/dao/Pasos.h"

namespace tarvo::esquema {

inline constexpr QStringView kPlantilla = u"voidTarvo.mdb";

struct Version {
  int mayor = TARVO_VERSION_MAYOR;
  int menor = TARVO_VERSION_MENOR;
  bool operator==(const Version&) const = default;
};

// The tables and views used by several rooms. Those of a single room are declared in its own
// folder.
dao::TablasDeSala tablasComunes();

// Opens the database and brings it up to this version. A missing file becomes a copy of the empty
// template, which is looked for regardless of case in the folders given, in that order. `hoy` is
// the date of a first warehouse; `salas` are the tables of single rooms. Errors, all with a
// sentence for the user: those of OpenDatabase; NoExiste if there is neither database nor template;
// OtraVersion (then no table has been changed).
Resultado<std::unique_ptr<dao::Database>> abrirBase(
    const QString& ruta, const QStringList& carpetasPlantilla, Fecha hoy,
    const std::vector<dao::TablasDeSala>& salas = {}, Version version = {});

// The second half of the opening, on an open database: checks the version, runs the missing steps,
// those of the common tables first, and adds the rows that every database has. One transaction, or
// none if there is nothing to do.
Resultado<> ponerAlDia(dao::Database& db, Fecha hoy,
                       const std::vector<dao::TablasDeSala>& salas = {}, Version version = {});

// The common tables alone, without a row.
Resultado<> crearEsquema(dao::Database& db);

// Writes an empty database, whole or not at all; an existing file is replaced.
Resultado<> escribirPlantilla(const QString& ruta);

// Redefines the query QLINK as the article totals of one period, or of one article in all periods.
Resultado<> QLinkDePeriodo(dao::Database& db, qint64 link);
Resultado<> QLinkDeArticulo(dao::Database& db, qint64 codigo);

}  // namespace tarvo::esquema
