#include "articles/TablasArticulos.h"

namespace tarvo::articles {

// HistoriaPrecios: one row a price that changed. VENTANA is the name of the window or file by
// which.
//
// LoteArticulos: an operation that can be taken back. LoteAntes holds how the articles stood before
// it: the columns of PLUSES, and HABIA 0 for one that was not there.
Resultado<> asegurarTablasArticulos(dao::Database& db) {
  return db.ejecutarGuion(
      uR"(
CREATE TABLE IF NOT EXISTS HistoriaPrecios (
  ID INTEGER PRIMARY KEY, SECCION INTEGER, CODPLU INTEGER, NIVEL INTEGER, TARIFA INTEGER,
  ANTES INTEGER, AHORA INTEGER, CUANDO DOUBLE PRECISION, QUIEN TEXT, VENTANA TEXT);
CREATE INDEX IF NOT EXISTS HistoriaPrecios_Articulo ON HistoriaPrecios (SECCION, CODPLU, ID);
CREATE TABLE IF NOT EXISTS LoteArticulos (
  LOTE INTEGER PRIMARY KEY, CUANDO DOUBLE PRECISION, VENTANA TEXT);
CREATE TABLE IF NOT EXISTS LoteAntes AS SELECT 0 AS LOTE, 0 AS HABIA, PLUSES.* FROM PLUSES WHERE 0;
CREATE UNIQUE INDEX IF NOT EXISTS LoteAntes_Clave ON LoteAntes (LOTE, SECCION, CODPLU);
)");
}

}  // namespace tarvo::articles
