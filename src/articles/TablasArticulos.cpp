#include "articles/TablasArticulos.h"

namespace tarvo::articles {

namespace {

// HistoriaPrecios: one row per price change. VENTANA names the window or file that made it.
//
// LoteArticulos: an undoable operation; ACABADO 1 once it has noted how it left things. LoteAntes
// and LoteDespues hold its articles before and after it: the columns of PLUSES, and HABIA 0 for one
// that did not exist. LoteMovs holds their rows of MovsAlm, ANTES 1 or 0. LoteAntes.QUE is used
// only while undoing.
constexpr QStringView kGuion =
    uR"(
CREATE TABLE IF NOT EXISTS HistoriaPrecios (
  ID INTEGER PRIMARY KEY, SECCION INTEGER, CODPLU INTEGER, NIVEL INTEGER, TARIFA INTEGER,
  ANTES INTEGER, AHORA INTEGER, CUANDO DOUBLE PRECISION, QUIEN TEXT, VENTANA TEXT);
CREATE INDEX IF NOT EXISTS HistoriaPrecios_Articulo ON HistoriaPrecios (SECCION, CODPLU, ID);
CREATE TABLE IF NOT EXISTS LoteArticulos (
  LOTE INTEGER PRIMARY KEY, CUANDO DOUBLE PRECISION, VENTANA TEXT, ACABADO INTEGER DEFAULT 0);
CREATE TABLE IF NOT EXISTS LoteAntes AS
  SELECT 0 AS LOTE, 0 AS HABIA, 0 AS QUE, PLUSES.* FROM PLUSES WHERE 0;
CREATE UNIQUE INDEX IF NOT EXISTS LoteAntes_Clave ON LoteAntes (LOTE, SECCION, CODPLU);
CREATE TABLE IF NOT EXISTS LoteDespues AS
  SELECT 0 AS LOTE, 0 AS HABIA, PLUSES.* FROM PLUSES WHERE 0;
CREATE UNIQUE INDEX IF NOT EXISTS LoteDespues_Clave ON LoteDespues (LOTE, SECCION, CODPLU);
CREATE TABLE IF NOT EXISTS LoteMovs AS SELECT 0 AS LOTE, 0 AS ANTES, MovsAlm.* FROM MovsAlm WHERE 0;
CREATE UNIQUE INDEX IF NOT EXISTS LoteMovs_Clave ON LoteMovs (LOTE, ANTES, SECCION, CODIGO, CODALM);
)";

// What a batch does, and the articles still to be changed, so that an interrupted one can be
// finished.
constexpr QStringView kGuionPorHacer =
    uR"(
CREATE TABLE IF NOT EXISTS LoteOrden (LOTE INTEGER PRIMARY KEY, ORDEN TEXT);
CREATE TABLE IF NOT EXISTS LotePorHacer (LOTE INTEGER, SECCION INTEGER, CODPLU INTEGER);
CREATE UNIQUE INDEX IF NOT EXISTS LotePorHacer_Clave ON LotePorHacer (LOTE, SECCION, CODPLU);
)";

// The list of articles can be sorted by these columns, however many there are.
constexpr QStringView kGuionOrdenes =
    uR"(
CREATE INDEX IF NOT EXISTS [PLUSES.PRECIO] ON PLUSES (SECCION, PRECIO_00);
CREATE INDEX IF NOT EXISTS [PLUSES.DEPTO] ON PLUSES (SECCION, DEPTO);
CREATE INDEX IF NOT EXISTS [PLUSES.FORMATO] ON PLUSES (SECCION, FORMATO);
CREATE INDEX IF NOT EXISTS [PLUSES.CADA] ON PLUSES (SECCION, CADA);
)";

}  // namespace

dao::TablasDeSala tablasArticulos() {
  return {.sala = QStringLiteral("articles"),
          .pasos = {{1, kGuion.toString()},
                    {2, kGuionPorHacer.toString()},
                    {3, kGuionOrdenes.toString()}},
          .copias = {{QStringLiteral("LoteAntes"), QStringLiteral("PLUSES")},
                     {QStringLiteral("LoteDespues"), QStringLiteral("PLUSES")},
                     {QStringLiteral("LoteMovs"), QStringLiteral("MovsAlm")}}};
}

Resultado<> asegurarTablasArticulos(dao::Database& db) {
  return dao::darPasos(db, {tablasArticulos()});
}

}  // namespace tarvo::articles
