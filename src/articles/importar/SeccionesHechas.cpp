#include "articles/importar/SeccionesHechas.h"

#include "articles/Secciones.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

dao::TablasDeSala tablasImportar() {
  return {.sala = QStringLiteral("importar"),
          .pasos = {{1, QStringLiteral("CREATE TABLE IF NOT EXISTS LoteSecciones (LOTE INTEGER, "
                                       "SECCION INTEGER);")}},
          .copias = {}};
}

// Batch numbers are reused once the batch is forgotten.
Resultado<> SeccionesHechas::empezar(qint64 lote) {
  TARVO_INTENTAR(dao::darPasos(db_, {tablasImportar()}));
  TARVO_INTENTAR(db_.ejecutar(
      u"DELETE FROM LoteSecciones WHERE LOTE=? OR LOTE NOT IN (SELECT LOTE FROM LoteArticulos)",
      lote));
  return {};
}

Resultado<> SeccionesHechas::asegurar(qint64 lote, int seccion) {
  TARVO_TOMAR(
      const auto hechas,
      db_.ejecutar(
          u"INSERT INTO SECCS (NMSECC, NOMSEC) VALUES (?, ?) ON CONFLICT (NMSECC) DO NOTHING",
          seccion, catalogo_.textos()(kTxSeccionNueva, {seccion})));
  if (hechas > 0)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT INTO LoteSecciones (LOTE, SECCION) VALUES (?, ?)", lote, seccion));
  return {};
}

Resultado<int> SeccionesHechas::quitar(qint64 lote) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(dao::darPasos(db_, {tablasImportar()}));
  TARVO_TOMAR(
      const auto suyas,
      dao::reunir(db_.consultar(u"SELECT SECCION FROM LoteSecciones WHERE LOTE=?", lote),
                  [](const dao::Recordset& fila) { return static_cast<int>(fila.entero(0)); }));
  int idas = 0;
  for (const int seccion : suyas) {
    TARVO_TOMAR(const auto ida, quitarSiVacia(seccion));
    idas += ida ? 1 : 0;
  }
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM LoteSecciones WHERE LOTE=?", lote));
  TARVO_INTENTAR(t.confirmar());
  return idas;
}

Resultado<bool> SeccionesHechas::quitarSiVacia(int seccion) {
  articles::Secciones secciones(catalogo_);
  TARVO_TOMAR(const auto hay, secciones.cuentas(seccion));
  if (hay.plus + hay.depts + hay.grupos > 0) return false;
  TARVO_INTENTAR(secciones.borrar(seccion));
  return true;
}

}  // namespace tarvo::importar
