#include "totals/periodos/TablasTotales.h"

namespace tarvo::totals {

namespace {

const QString kTablas = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS Sustituidos (
  ID INTEGER PRIMARY KEY, TIPO INTEGER, FECHA1 DOUBLE PRECISION, FECHAF DOUBLE PRECISION,
  ACUM2 INTEGER DEFAULT 0, ACUM3 INTEGER DEFAULT 0, ACUM4 INTEGER DEFAULT 0,
  stkADO INTEGER DEFAULT 0);
CREATE TABLE IF NOT EXISTS TotSusti (
  ID INTEGER, CLASE INTEGER, GRUPO INTEGER, CODI INTEGER, HORA INTEGER DEFAULT 0,
  CON INTEGER, PES INTEGER, [IMP] INTEGER, SCO INTEGER);
CREATE INDEX IF NOT EXISTS TotSusti_ID ON TotSusti (ID, CLASE);
CREATE TABLE IF NOT EXISTS Exportes (
  MARCA TEXT PRIMARY KEY, RUTA TEXT, ANTES INTEGER, DESPUES INTEGER, HUELLA TEXT,
  HECHO INTEGER DEFAULT 0);
CREATE TABLE IF NOT EXISTS PapeleraPer (
  LOTE INTEGER, SOLOFILAS INTEGER DEFAULT 0, LINK INTEGER, TIPO INTEGER, FECHA1 DOUBLE PRECISION,
  FECHAF DOUBLE PRECISION, DESCR TEXT, ACUM2 INTEGER, ACUM3 INTEGER, ACUM4 INTEGER,
  stkABLE INTEGER, stkADO INTEGER);
CREATE TABLE IF NOT EXISTS PapeleraFilas (
  LOTE INTEGER, LINK INTEGER, CLASE INTEGER, GRUPO INTEGER, CODI INTEGER, HORA INTEGER,
  CON INTEGER, PES INTEGER, [IMP] INTEGER, SCO INTEGER);
CREATE INDEX IF NOT EXISTS PapeleraFilas_Lote ON PapeleraFilas (LOTE, LINK, CLASE);
CREATE TABLE IF NOT EXISTS PapeleraOrig (
  LOTE INTEGER, LINK INTEGER, GRUPO INTEGER, CLASE INTEGER, EJECUCION INTEGER,
  LEIDO DOUBLE PRECISION, DESDE DOUBLE PRECISION, HASTA DOUBLE PRECISION, MODO TEXT,
  FILAS INTEGER, CON INTEGER, [IMP] INTEGER);
CREATE TABLE IF NOT EXISTS PapeleraSusti (
  LOTE INTEGER, LINK INTEGER, ID INTEGER, TIPO INTEGER, FECHA1 DOUBLE PRECISION,
  FECHAF DOUBLE PRECISION);
CREATE TABLE IF NOT EXISTS PapeleraTotSusti (
  LOTE INTEGER, ID INTEGER, CLASE INTEGER, GRUPO INTEGER, CODI INTEGER, HORA INTEGER,
  CON INTEGER, PES INTEGER, [IMP] INTEGER, SCO INTEGER);
)");

const QString kExportesAbiertos = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS ExportesAbiertos (
  RUTA TEXT PRIMARY KEY, ANTES INTEGER, TOPE INTEGER, VECINDAD TEXT, CABEZA TEXT);
)");

const QString kExportesFinales = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS ExportesFinales (
  RUTA TEXT PRIMARY KEY, DESDE INTEGER, HASTA INTEGER, CABEZA TEXT);
)");

const QString kSumas = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS Sumados (
  LINK INTEGER, LOTE INTEGER DEFAULT 0, TIPO INTEGER, FECHA1 DOUBLE PRECISION,
  FECHAF DOUBLE PRECISION, SOLAPA INTEGER DEFAULT 0);
CREATE INDEX IF NOT EXISTS Sumados_Link ON Sumados (LINK);
CREATE TABLE IF NOT EXISTS PapeleraSuma (
  LOTE INTEGER, CLASE INTEGER, GRUPO INTEGER, CODI INTEGER, HORA INTEGER,
  CON INTEGER, PES INTEGER, [IMP] INTEGER, SCO INTEGER);
)");

const QString kMarcasTiradas = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS PapeleraMarcas (LOTE INTEGER, LINK INTEGER, DENTRO INTEGER, SUMAS TEXT);
)");

const QString kBorradosPendientes = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS BorradosPendientes (
  LINK INTEGER PRIMARY KEY, FECHA1 DOUBLE PRECISION, FECHAF DOUBLE PRECISION, VENTAS TEXT);
)");

// SUMA: the batch of the sum, as in Sumados.LOTE.
const QString kSumasTiradas = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS PapeleraSumados (
  LOTE INTEGER, LINK INTEGER, SUMA INTEGER, TIPO INTEGER, FECHA1 DOUBLE PRECISION,
  FECHAF DOUBLE PRECISION, SOLAPA INTEGER);
)");

// Periods deleted after their export: what is made anew with their dates is other sales.
const QString kIdosConSuBloque = QStringLiteral(R"(
CREATE TABLE IF NOT EXISTS IdosConSuBloque (
  TIPO INTEGER NOT NULL, FECHA1 DOUBLE PRECISION NOT NULL, FECHAF DOUBLE PRECISION NOT NULL,
  RUTA TEXT NOT NULL, PRIMARY KEY (TIPO, FECHA1, FECHAF, RUTA));
)");

}  // namespace

dao::TablasDeSala tablasTotales() {
  return {.sala = QStringLiteral("periodos"),
          .pasos = {{1, kTablas},
                    {2, kExportesAbiertos},
                    {3, kSumas},
                    {4, kExportesFinales},
                    {5, kMarcasTiradas},
                    dao::columna(6, QStringLiteral("ExportesAbiertos"), QStringLiteral("CARPETA"),
                                 QStringLiteral("TEXT DEFAULT ''")),
                    {7, kBorradosPendientes},
                    dao::columna(8, QStringLiteral("BorradosPendientes"), QStringLiteral("RUTAS"),
                                 QStringLiteral("TEXT DEFAULT ''")),
                    {9, kSumasTiradas},
                    {10, kIdosConSuBloque}},
          .copias = {},
          .insustituible = true};
}

Resultado<> asegurarTablasTotales(dao::Database& db) {
  return dao::darPasos(db, {tablasTotales()});
}

}  // namespace tarvo::totals
