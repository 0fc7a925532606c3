#include "totals/periodos/Papelera.h"
#include "totals/TextosTotals.h"
#include "totals/periodos/FilasTotales.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

constexpr const char16_t* kTablasPapelera[] = {
    u"PapeleraPer",      u"PapeleraFilas", u"PapeleraOrig",   u"PapeleraSusti",
    u"PapeleraTotSusti", u"PapeleraSuma",  u"PapeleraMarcas", u"PapeleraSumados"};
const QString kColumnasOrigen =
    u"LINK, GRUPO, CLASE, EJECUCION, LEIDO, DESDE, HASTA, MODO, FILAS, CON, IMP"_s;
const QString kColumnasFila = u"GRUPO, CODI, HORA, CON, PES, [IMP], SCO"_s;

struct Tirado {
  Columna columna;
  bool soloFilas;
};

Resultado<std::vector<Tirado>> leerLote(dao::Database& db, qint64 lote) {
  return dao::reunir(db.consultar(u"SELECT LINK, TIPO, FECHA1, FECHAF, DESCR, SOLOFILAS FROM "
                                  u"PapeleraPer WHERE LOTE=? ORDER BY LINK",
                                  lote),
                     [](const dao::Recordset& fila) {
                       Tirado t{{}, fila.logico(5)};
                       t.columna.LINK = fila.entero(0);
                       t.columna.periodo = {static_cast<int>(fila.entero(1)), fila.fecha(2),
                                            fila.fecha(3)};
                       t.columna.DESCR = fila.texto(4);
                       return t;
                     });
}

}  // namespace

// The rows of a sum are kept under its batch also while its period is deleted, or for good.
Resultado<qint64> Papelera::nuevoLote() {
  TARVO_TOMAR(const auto ultimo,
              db_.uno(u"SELECT max(LOTE) FROM (SELECT LOTE FROM PapeleraPer UNION ALL "
                      u"SELECT LOTE FROM Sumados UNION ALL SELECT LOTE FROM PapeleraSuma UNION "
                      u"ALL SELECT SUMA FROM PapeleraSumados) x"));
  return ultimo.entero() + 1;
}

Resultado<bool> Papelera::tirar(qint64 lote, qint64 link) {
  return mover(lote, link, false);
}

Resultado<bool> Papelera::vaciar(qint64 lote, qint64 link) {
  return mover(lote, link, true);
}

Resultado<bool> Papelera::mover(qint64 lote, qint64 link, bool soloFilas) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (!c) return false;
  TARVO_INTENTAR(guardar(lote, *c, soloFilas));
  TARVO_INTENTAR(p_.soltarAcumulados(c->periodo));
  TARVO_INTENTAR(soloFilas ? p_.VaciarPeriodo(link) : p_.BorrarPeriodo(link));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

Resultado<> Papelera::guardar(qint64 lote, const Columna& c, bool soloFilas) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO PapeleraPer (LOTE, SOLOFILAS, LINK, TIPO, FECHA1, FECHAF, DESCR, ACUM2, ACUM3, "
      u"ACUM4, stkABLE, stkADO) SELECT ?, ?, LINK, TIPO, FECHA1, FECHAF, DESCR, ACUM2, ACUM3, "
      u"ACUM4, stkABLE, stkADO FROM COLUMNA WHERE LINK=?",
      lote, soloFilas, c.LINK));
  for (const ClaseTotal& k : enVigor(a_))
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(
            u"INSERT INTO PapeleraFilas (LOTE, LINK, CLASE, {fila}) SELECT ?, LINK, ?, "
            u"GRUPO, CODI, {hora}, CON, PES, [IMP], SCO FROM {tabla} WHERE LINK=?",
            {{u"fila", kColumnasFila}, {u"hora", horaDe(k)}, {u"tabla", NombreTabla(k.tipo)}}),
        lote, numeroDe(k.tipo), c.LINK));
  if (db_.existeTabla(u"Origenes"))
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"INSERT INTO PapeleraOrig (LOTE, {origen}) SELECT ?, {origen} FROM Origenes "
                  u"WHERE LINK=?",
                  {{u"origen", kColumnasOrigen}}),
        lote, c.LINK));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO PapeleraSumados (LOTE, LINK, SUMA, TIPO, FECHA1, FECHAF, SOLAPA) "
                   u"SELECT ?, LINK, LOTE, TIPO, FECHA1, FECHAF, SOLAPA FROM Sumados WHERE LINK=?",
                   lote, c.LINK));
  TARVO_INTENTAR(guardarAcumulados(lote, c));
  return guardarSustituidos(lote, c);
}

// What the larger period holds loses its mark with it, and gets it back with it: as long as its
// sales are the same.
Resultado<> Papelera::guardarAcumulados(qint64 lote, const Columna& c) {
  const Periodo& p = c.periodo;
  if (p.tipo < kSemanal || p.tipo > kAnual) return {};
  TARVO_TOMAR(
      const auto dentro,
      dao::reunir(
          db_.consultar(
              conMarcas(u"SELECT LINK FROM COLUMNA WHERE FECHA1>=? AND FECHAF<=? AND TIPO<>? AND "
                        u"{marca}<>0 UNION SELECT LINK FROM PapeleraPer WHERE FECHA1>=? AND "
                        u"FECHAF<=? AND TIPO<>? AND {marca}<>0",
                        {{u"marca", marcaDe(p.tipo)}}),
              p.desde, p.hasta, p.tipo, p.desde, p.hasta, p.tipo),
          [](const dao::Recordset& fila) { return fila.entero(0); }));
  for (const qint64 link : dentro) {
    TARVO_TOMAR(const auto sumas, p_.sumasDe(link));
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT INTO PapeleraMarcas (LOTE, LINK, DENTRO, SUMAS) VALUES (?, ?, ?, ?)",
                     lote, c.LINK, link, sumas));
  }
  return {};
}

// The record of replaced periods goes with the larger period that holds them.
Resultado<> Papelera::guardarSustituidos(qint64 lote, const Columna& c) {
  const Periodo& p = c.periodo;
  if (p.tipo < kSemanal || p.tipo > kAnual) return {};
  const QString marca = marcaDe(p.tipo);
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT INTO PapeleraSusti (LOTE, LINK, ID, TIPO, FECHA1, FECHAF) SELECT ?, ?, "
                u"ID, TIPO, FECHA1, FECHAF FROM Sustituidos WHERE FECHA1>=? AND FECHAF<=? AND "
                u"{marca}<>0",
                {{u"marca", marca}}),
      lote, c.LINK, p.desde, p.hasta));
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT INTO PapeleraTotSusti (LOTE, ID, CLASE, {fila}) SELECT ?, ID, CLASE, "
                u"{fila} FROM TotSusti WHERE ID IN (SELECT ID FROM Sustituidos WHERE FECHA1>=? AND "
                u"FECHAF<=? AND {marca}<>0) AND ID NOT IN (SELECT ID FROM PapeleraTotSusti WHERE "
                u"LOTE=?)",
                {{u"fila", kColumnasFila}, {u"marca", marca}}),
      lote, p.desde, p.hasta, lote));
  return {};
}

Resultado<int> Papelera::restaurar(qint64 lote) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto tirados, leerLote(db_, lote));
  for (const Tirado& x : tirados) {
    TARVO_INTENTAR(comprobarSitio(x.columna, x.soloFilas));
    TARVO_INTENTAR(reponer(lote, x.columna, x.soloFilas));
  }
  for (const Tirado& x : tirados) TARVO_INTENTAR(reponerAcumulados(lote, x.columna));
  TARVO_INTENTAR(olvidar(lote));
  TARVO_INTENTAR(t.confirmar());
  return static_cast<int>(tirados.size());
}

// A period goes back to a free place, rows alone to an existing empty period.
Resultado<> Papelera::comprobarSitio(const Columna& c, bool soloFilas) {
  const Periodo& p = c.periodo;
  TARVO_TOMAR(
      const auto hay,
      db_.uno(u"SELECT count(*) FROM COLUMNA WHERE LINK=? OR (TIPO=? AND FECHA1=? AND FECHAF=?)",
              c.LINK, p.tipo, p.desde, p.hasta));
  bool libre = (hay.entero() > 0) == soloFilas;
  for (const ClaseTotal& k : enVigor(a_)) {
    TARVO_TOMAR(const auto filas, db_.uno(conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=?",
                                                    {{u"tabla", NombreTabla(k.tipo)}}),
                                          c.LINK));
    libre = libre && filas.entero() == 0;
  }
  if (libre) return {};
  return fallo(Fallo::Duplicado, p_.textos()(kTxRecuperarOcupado, {TextoPeriodo(p)}));
}

Resultado<> Papelera::reponer(qint64 lote, const Columna& c, bool soloFilas) {
  if (!soloFilas)
    TARVO_INTENTAR(db_.ejecutar(
        u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR, ACUM2, ACUM3, ACUM4, stkABLE, "
        u"stkADO) SELECT LINK, TIPO, FECHA1, FECHAF, DESCR, ACUM2, ACUM3, ACUM4, stkABLE, stkADO "
        u"FROM PapeleraPer WHERE LOTE=? AND LINK=?",
        lote, c.LINK));
  for (const ClaseTotal& k : enVigor(a_))
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, [IMP], SCO) SELECT LINK, "
                  u"{claves}, CON, PES, [IMP], SCO FROM PapeleraFilas WHERE LOTE=? AND LINK=? AND "
                  u"CLASE=?",
                  {{u"tabla", NombreTabla(k.tipo)}, {u"claves", clavesDe(k)}}),
        lote, c.LINK, numeroDe(k.tipo)));
  if (db_.existeTabla(u"Origenes"))
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"INSERT INTO Origenes ({origen}) SELECT {origen} FROM PapeleraOrig WHERE "
                  u"LOTE=? AND LINK=?",
                  {{u"origen", kColumnasOrigen}}),
        lote, c.LINK));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO Sumados (LINK, LOTE, TIPO, FECHA1, FECHAF, SOLAPA) SELECT LINK, "
                   u"SUMA, TIPO, FECHA1, FECHAF, SOLAPA FROM PapeleraSumados WHERE LOTE=? AND "
                   u"LINK=?",
                   lote, c.LINK));
  return reponerSustituidos(lote, c);
}

Resultado<> Papelera::reponerSustituidos(qint64 lote, const Columna& c) {
  if (c.periodo.tipo < kSemanal || c.periodo.tipo > kAnual) return {};
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO TotSusti (ID, CLASE, GRUPO, CODI, HORA, CON, PES, [IMP], SCO) SELECT ID, "
      u"CLASE, "
      u"GRUPO, CODI, HORA, CON, PES, [IMP], SCO FROM PapeleraTotSusti WHERE LOTE=? AND ID IN "
      u"(SELECT ID FROM PapeleraSusti WHERE LOTE=? AND LINK=?) AND ID NOT IN (SELECT ID FROM "
      u"Sustituidos)",
      lote, lote, c.LINK));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Sustituidos (ID, TIPO, FECHA1, FECHAF) SELECT ID, TIPO, FECHA1, FECHAF FROM "
      u"PapeleraSusti WHERE LOTE=? AND LINK=? AND ID NOT IN (SELECT ID FROM Sustituidos)",
      lote, c.LINK));
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"UPDATE Sustituidos SET {marca}=1 WHERE ID IN (SELECT ID FROM PapeleraSusti "
                u"WHERE LOTE=? AND LINK=?)",
                {{u"marca", marcaDe(c.periodo.tipo)}}),
      lote, c.LINK));
  return {};
}

Resultado<> Papelera::reponerAcumulados(qint64 lote, const Columna& c) {
  TARVO_TOMAR(
      const auto dentro,
      dao::reunir(
          db_.consultar(u"SELECT DENTRO, SUMAS FROM PapeleraMarcas WHERE LOTE=? AND LINK=?", lote,
                        c.LINK),
          [](const dao::Recordset& fila) { return std::pair(fila.entero(0), fila.texto(1)); }));
  for (const auto& [link, sumas] : dentro) {
    TARVO_TOMAR(const auto suyo, p_.columna(link));
    TARVO_TOMAR(const auto ahora, p_.sumasDe(link));
    if (suyo && !sumas.isEmpty() && ahora != sumas)
      return fallo(Fallo::Duplicado,
                   p_.textos()(kTxRecuperarCambiado,
                               {TextoPeriodo(c.periodo), TextoPeriodo(suyo->periodo)}));
    for (const char16_t* tabla : {u"COLUMNA", u"PapeleraPer"})
      TARVO_INTENTAR(db_.ejecutar(
          conMarcas(u"UPDATE {tabla} SET {marca}=1 WHERE LINK=?",
                    {{u"tabla", QString::fromUtf16(tabla)}, {u"marca", marcaDe(c.periodo.tipo)}}),
          link));
  }
  return {};
}

Resultado<> Papelera::olvidar(qint64 lote) {
  for (const char16_t* tabla : kTablasPapelera)
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"DELETE FROM {tabla} WHERE LOTE=?", {{u"tabla", QString::fromUtf16(tabla)}}),
        lote));
  return {};
}

Resultado<> Papelera::vaciarla() {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  for (const char16_t* tabla : kTablasPapelera)
    TARVO_INTENTAR(
        db_.ejecutar(conMarcas(u"DELETE FROM {tabla}", {{u"tabla", QString::fromUtf16(tabla)}})));
  return t.confirmar();
}

}  // namespace tarvo::totals
