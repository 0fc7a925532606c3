// The schema of the database, its empty template, and the opening at the start of the program.
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

// The tables and views that several rooms work with. Those of one room alone are declared in its
// own folder.
dao::TablasDeSala tablasComunes();

// Opens the database and leaves it as this version needs it. A missing file becomes a copy of the
// empty template, which is looked for without regard to case in the folders given, in that order.
// `hoy` is what a first warehouse takes for its dates; `salas` is what rooms keep of their own.
// Errors, all with a sentence for the user: those of OpenDatabase; NoExiste when there is neither
// database nor template; OtraVersion (then no table has been changed).
Resultado<std::unique_ptr<dao::Database>> abrirBase(
    const QString& ruta, const QStringList& carpetasPlantilla, Fecha hoy,
    const std::vector<dao::TablasDeSala>& salas = {}, Version version = {});

// The second half of the opening, on a database that is open: checks the version, runs the steps
// that it hasn't had, those of the common tables first, and brings the rows that every database
// has. One transaction, and none when nothing is to be done.
Resultado<> ponerAlDia(dao::Database& db, Fecha hoy,
                       const std::vector<dao::TablasDeSala>& salas = {}, Version version = {});

// The common tables alone, without a row.
Resultado<> crearEsquema(dao::Database& db);

// Writes an empty database, whole or not at all; what stood there is replaced.
Resultado<> escribirPlantilla(const QString& ruta);

// Changes the query QLINK to the articles' totals of one period, or of one article in all periods.
Resultado<> QLinkDePeriodo(dao::Database& db, qint64 link);
Resultado<> QLinkDeArticulo(dao::Database& db, qint64 codigo);

}  // namespace tarvo::esquema
