#include "automation/historia/TablasHistoria.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kDiario =
    uR"(
CREATE TABLE IF NOT EXISTS Proceso (
  NOMBRE TEXT PRIMARY KEY, HUELLA TEXT DEFAULT '', EJECUCION INTEGER DEFAULT 0, PASO INTEGER DEFAULT 0,
  SELECCION TEXT DEFAULT '', ULTIMOS TEXT DEFAULT '', RESULTADO INTEGER DEFAULT 0, INICIO REAL, LATIDO REAL,
  PARAMETROS TEXT DEFAULT '', PASOS TEXT DEFAULT '', FALLIDOS TEXT DEFAULT '');
CREATE TABLE IF NOT EXISTS ProcesoTareas (
  EJECUCION INTEGER NOT NULL, PASO INTEGER NOT NULL, GRUPO INTEGER NOT NULL, HECHA INTEGER DEFAULT 0,
  PRIMARY KEY (EJECUCION, PASO, GRUPO));
)";

// A period's number may be reused: the dates tell whether it is the same period.
constexpr QStringView kPendientes =
    uR"(
CREATE TABLE IF NOT EXISTS PeriodosPendientes (
  LINK INTEGER NOT NULL, FECHA1 REAL, FECHAF REAL, VERBO INTEGER NOT NULL, TIPO INTEGER NOT NULL,
  PRIMARY KEY (LINK, VERBO, TIPO));
CREATE TABLE IF NOT EXISTS ExportesPendientes (
  NUMERO INTEGER PRIMARY KEY, PROCESO TEXT NOT NULL, ORDEN INTEGER NOT NULL, MARCA TEXT NOT NULL,
  LINK INTEGER NOT NULL, FECHA1 REAL, FECHAF REAL);
)";

constexpr QStringView kHistorial =
    uR"(
CREATE TABLE IF NOT EXISTS Ejecuciones (
  EJECUCION INTEGER PRIMARY KEY, NOMBRE TEXT DEFAULT '', INICIO REAL, FIN REAL, RESULTADO INTEGER,
  PERIODOS TEXT DEFAULT '', TRAZA TEXT DEFAULT '');
CREATE TABLE IF NOT EXISTS EjecucionAvisos (
  EJECUCION INTEGER NOT NULL, GRUPO INTEGER DEFAULT 0, TEXTO TEXT DEFAULT '', GRAVE INTEGER DEFAULT 1);
CREATE INDEX IF NOT EXISTS EjecucionAvisos_Ejecucion ON EjecucionAvisos (EJECUCION);
)";

// A debt belongs to a step and a period. Of several notes of the same debt one that reached the
// file is kept, else the first.
constexpr QStringView kDelFichero =
    uR"(
DELETE FROM ExportesPendientes WHERE MARCA NOT IN (SELECT MARCA FROM Exportes) AND EXISTS (
  SELECT 1 FROM ExportesPendientes o WHERE o.PROCESO=ExportesPendientes.PROCESO AND
  o.ORDEN=ExportesPendientes.ORDEN AND o.LINK=ExportesPendientes.LINK AND
  o.MARCA IN (SELECT MARCA FROM Exportes));
)";
constexpr QStringView kUnaVez =
    uR"(
DELETE FROM ExportesPendientes WHERE EXISTS (
  SELECT 1 FROM ExportesPendientes o WHERE o.PROCESO=ExportesPendientes.PROCESO AND
  o.ORDEN=ExportesPendientes.ORDEN AND o.LINK=ExportesPendientes.LINK AND
  o.NUMERO<ExportesPendientes.NUMERO);
CREATE UNIQUE INDEX IF NOT EXISTS ExportesPendientes_Una ON ExportesPendientes (PROCESO, ORDEN, LINK);
)";

Resultado<> debidosUnaVez(dao::Database& db) {
  if (db.existeTabla(u"Exportes")) TARVO_INTENTAR(db.ejecutarGuion(kDelFichero));
  return db.ejecutarGuion(kUnaVez);
}

// A debt belongs to a file and a period, whichever step noted it.
constexpr QStringView kDeUnFichero =
    uR"(
DROP INDEX IF EXISTS ExportesPendientes_Una;
DELETE FROM ExportesPendientes WHERE RUTA<>'' AND EXISTS (
  SELECT 1 FROM ExportesPendientes o WHERE o.RUTA=ExportesPendientes.RUTA AND
  o.LINK=ExportesPendientes.LINK AND o.NUMERO<ExportesPendientes.NUMERO);
CREATE INDEX IF NOT EXISTS ExportesPendientes_Fichero ON ExportesPendientes (LINK, RUTA);
)";

}  // namespace

dao::TablasDeSala tablasHistoria() {
  return {.sala = u"historia"_s,
          .pasos = {{1, kDiario.toString()},
                    {2, kPendientes.toString()},
                    {3, kHistorial.toString()},
                    dao::columna(4, u"ProcesoTareas"_s, u"CLASE"_s, u"INTEGER DEFAULT 0"_s),
                    dao::columna(5, u"ProcesoTareas"_s, u"FALLO"_s, u"TEXT"_s),
                    dao::columna(6, u"ExportesPendientes"_s, u"RUTA"_s, u"TEXT DEFAULT ''"_s),
                    {7, {}, debidosUnaVez},
                    {8, kDeUnFichero.toString()},
                    dao::columna(9, u"ExportesPendientes"_s, u"NOMBRE"_s, u"TEXT"_s),
                    dao::columna(10, u"ExportesPendientes"_s, u"BORRAR"_s, u"INTEGER"_s),
                    dao::columna(11, u"ExportesPendientes"_s, u"MOTIVO"_s, u"TEXT DEFAULT ''"_s)},
          .copias = {}};
}

Resultado<> asegurarTablasHistoria(dao::Database& db) {
  return dao::darPasos(db, {tablasHistoria()});
}

}  // namespace tarvo::automation
