#include "articles/Secciones.h"
#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

namespace {

constexpr int kPorPaso = 1000;

}  // namespace

Resultado<bool> CopiaSeccion::empezar(qint64& total) {
  TARVO_TOMAR(const auto nombre, db_.uno(u"SELECT NOMSEC FROM SECCS WHERE NMSECC=?", origen_));
  nombre_ = nombre.texto();
  TARVO_TOMAR(const auto cuentas, secciones_.cuentas(origen_));
  total = cuentas.plus;
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto numero, secciones_.nueva());
  TARVO_INTENTAR(secciones_.renombrar(numero, textos_(kTxCopiaSinAcabar, {nombre_})));
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE SECCS SET IVAs=(SELECT s.IVAs FROM SECCS AS s WHERE s.NMSECC=?) WHERE "
                   u"NMSECC=?",
                   origen_, numero));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO DEPTS (SECCION, NUMDEP, NomDep, IVA) SELECT ?, NUMDEP, NomDep, IVA "
      u"FROM DEPTS WHERE SECCION=?",
      numero, origen_));
  TARVO_INTENTAR(t.confirmar());
  destino_ = numero;
  return true;
}

Resultado<bool> CopiaSeccion::acabar() {
  QString nombre = textos_(kTxCopiaDe);
  CambiaTexto(u"#"_s, nombre_, nombre);
  TARVO_INTENTAR(secciones_.renombrar(destino_, nombre));
  return false;
}

Resultado<bool> CopiaSeccion::paso(qint64& hechos, qint64& total) {
  if (destino_ == 0) return empezar(total);
  TARVO_TOMAR(const auto hasta, db_.uno(u"SELECT max(CODPLU) FROM (SELECT CODPLU FROM PLUSES WHERE "
                                        u"SECCION=? AND CODPLU>? ORDER BY "
                                        u"CODPLU LIMIT ?)",
                                        origen_, ultimo_, kPorPaso));
  if (hasta.nulo()) return acabar();
  const QString demas = columnasArticulo().mid(1).join(u", "_s);
  TARVO_TOMAR(
      const auto copiados,
      db_.ejecutar(dao::conMarcas(u"INSERT INTO PLUSES (SECCION, {demas}) SELECT ?, {demas} FROM "
                                  u"PLUSES WHERE SECCION=? AND CODPLU>? AND CODPLU<=?",
                                  {{u"demas", demas}}),
                   destino_, origen_, ultimo_, hasta.entero()));
  ultimo_ = hasta.entero();
  hechos += copiados;
  return true;
}

Resultado<> CopiaSeccion::deshacer() {
  if (destino_ == 0) return {};
  TARVO_INTENTAR(secciones_.borrar(destino_));
  destino_ = 0;
  return {};
}

}  // namespace tarvo::articles
