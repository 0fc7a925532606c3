#include "totals/libros/Dudas.h"

#include "core/dao/Recorrido.h"
#include "core/dinero/Dinero.h"
#include "totals/TextosTotals.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// Numbers of the kinds that the open session received from the group.
Resultado<QString> clasesRecibidas(Database& db, const Ajustes& ajustes, int grupo) {
  QStringList clases;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(const auto n,
                db.uno(conMarcas(u"SELECT count(*) FROM Sesiones WHERE CODGPO=? AND {enSesion}",
                                 {{u"enSesion", CampoSesion(c.tipo)}}),
                       grupo));
    if (n.entero() > 0) clases << QString::number(numeroDe(c.tipo));
  }
  return clases.join(u',');
}

QString importe(const Ajustes& a, qint64 n) {
  return VerImporte(a, n, a.MonedaNativa ? 1 : 0);
}

// What was sold, or that more came back.
QString vendido(const Ajustes& a, const Textos& textos, qint64 n) {
  return n < 0 ? textos(kTxSeDevolvioMas, {importe(a, -n)}) : importe(a, n);
}

}  // namespace

Resultado<std::vector<DudaAbierta>> dudasAbiertas(Database& db) {
  return dao::reunir(
      db.consultar(
          u"SELECT d.GRUPO, d.ADDR, g.NOMGPO, d.DESDE, d.IMP_SI, d.IMP_NO FROM Dudas d LEFT "_s
          u"JOIN GRUPOS g ON g.CODGPO=d.GRUPO WHERE d.RESPUESTA IS NULL ORDER BY d.GRUPO, "_s
          u"d.ADDR"_s),
      [](const dao::Recordset& f) {
        return DudaAbierta{.grupo = static_cast<int>(f.entero(0)),
                           .addr = static_cast<int>(f.entero(1)),
                           .nombre = f.texto(2),
                           .desde = f.fecha(3),
                           .siOlvido = f.entero(4),
                           .siNo = f.entero(5)};
      });
}

Resultado<> dejarFuera(Database& db, const Ajustes& ajustes, int grupo) {
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(db.ejecutar(conMarcas(u"UPDATE Sesiones SET {enSesion}=FALSE WHERE CODGPO=?",
                                         {{u"enSesion", CampoSesion(c.tipo)}}),
                               grupo));
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET ESTADO=4 WHERE GRUPO=? AND ESTADO=2"_s, grupo));
  return {};
}

Resultado<> abrirDudas(Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                       const std::map<int, Testimonios>& maquinas, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto clases, clasesRecibidas(db, ajustes, grupo));
  // An answer about another machine holds as long as the same reading waits.
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Dudas WHERE GRUPO=? AND RESPUESTA IS NULL"_s, grupo));
  TARVO_TOMAR(const auto desde,
              db.uno(u"SELECT COALESCE(MAX(COALESCE(BASE_ANTIGUA, BASE_HASTA)), (SELECT PZERO "
                     u"FROM Sesiones WHERE CODGPO=GRUPO)) FROM Lecturas WHERE GRUPO=?",
                     grupo));
  for (const auto& [addr, t] : maquinas) {
    const auto gran = t.find(TipoTotal::GranTotal);
    const Testimonio g = gran != t.end() ? gran->second
                         : t.empty()     ? Testimonio{}
                                         : t.begin()->second;
    TARVO_INTENTAR(db.ejecutar(
        u"INSERT OR REPLACE INTO Dudas (GRUPO, ADDR, CLASES, DESDE, IMP_SI, IMP_NO) VALUES (?, ?, ?, ?, ?, ?)"_s,
        grupo, addr, clases, desde.fecha(), g.impAhora, g.impAhora - g.impAntes));
    const QString cual = addr == 0 ? QString::number(grupo) : u"%1:%2"_s.arg(grupo).arg(addr);
    avisos.push_back(
        {grupo,
         textos(kTxDudaDeCero, {grupo, desde.fecha().general(), importe(ajustes, g.impAhora),
                                vendido(ajustes, textos, g.impAhora - g.impAntes), cual}),
         true});
  }
  return dejarFuera(db, ajustes, grupo);
}

Resultado<std::optional<bool>> respuestaDe(Database& db, int grupo, int addr) {
  TARVO_TOMAR(auto rs,
              db.consultar(u"SELECT RESPUESTA FROM Dudas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  if (rs->Eof() || rs->nulo(0)) return std::nullopt;
  return std::optional(rs->logico(0));
}

Resultado<bool> preguntada(Database& db, int grupo, int addr) {
  TARVO_TOMAR(const auto n, db.uno(u"SELECT count(*) FROM Dudas WHERE GRUPO=? AND ADDR=? AND "
                                   u"RESPUESTA IS NULL",
                                   grupo, addr));
  return n.entero() > 0;
}

Resultado<bool> dudaDeMaquinas(Database& db, int grupo) {
  TARVO_TOMAR(const auto n,
              db.uno(u"SELECT count(*) FROM Dudas WHERE GRUPO=? AND DE IS NOT NULL", grupo));
  return n.entero() > 0;
}

Resultado<> cerrarDudas(Database& db, int grupo) {
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Dudas WHERE GRUPO=?"_s, grupo));
  return {};
}

Resultado<> cerrarDuda(Database& db, int grupo, int addr) {
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Dudas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  return {};
}

Resultado<> cerrarDudasSinBase(Database& db) {
  TARVO_INTENTAR(db.ejecutar(
      u"DELETE FROM Dudas WHERE (DE IS NULL OR RESPUESTA IS NOT NULL) AND NOT EXISTS (SELECT 1 FROM Lecturas l WHERE l.GRUPO=Dudas.GRUPO AND "_s
      u"l.LINK IS NOT NULL) AND (RESPUESTA IS NOT NULL OR NOT EXISTS (SELECT 1 FROM CeroFilas f WHERE "_s
      u"f.GRUPO=Dudas.GRUPO AND f.ADDR=Dudas.ADDR))"_s));
  return {};
}

Resultado<bool> hayDudas(Database& db, int grupo) {
  TARVO_TOMAR(const auto n, db.uno(u"SELECT count(*) FROM Dudas WHERE GRUPO=?"_s, grupo));
  return n.entero() > 0;
}

Resultado<std::set<TipoTotal>> clasesEnDuda(Database& db, int grupo) {
  std::set<TipoTotal> clases;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT CLASES FROM Dudas WHERE GRUPO=?", grupo), [&](const dao::Recordset& f) {
        for (const QString& numero : f.texto(0).split(u',', Qt::SkipEmptyParts))
          if (const auto clase = deNumero<TipoTotal>(numero.toInt())) clases.insert(*clase);
      }));
  return clases;
}

Resultado<bool> anotarRespuesta(Database& db, const Textos& textos, DudaAbierta cual, bool olvido) {
  TARVO_TOMAR(auto rs, db.consultar(u"SELECT CLASES FROM Dudas WHERE GRUPO=? AND ADDR=?"_s,
                                    cual.grupo, cual.addr));
  if (rs->Eof()) return fallo(Fallo::NoExiste, textos(kTxSinDuda, {cual.grupo}));
  const QStringList clases = rs->texto(0).split(u',', Qt::SkipEmptyParts);
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Dudas SET RESPUESTA=? WHERE GRUPO=? AND ADDR=?"_s, olvido,
                             cual.grupo, cual.addr));
  TARVO_TOMAR(
      const auto quedan,
      db.uno(u"SELECT count(*) FROM Dudas WHERE GRUPO=? AND RESPUESTA IS NULL"_s, cual.grupo));
  if (quedan.entero() > 0) return false;
  for (const QString& numero : clases) {
    const auto clase = deNumero<TipoTotal>(numero.toInt());
    if (!clase) return fallo(Fallo::Interno, textos(kTxSinClaseDeTotal, {numero}));
    TARVO_INTENTAR(db.ejecutar(conMarcas(u"UPDATE Sesiones SET {enSesion}=TRUE WHERE CODGPO=?",
                                         {{u"enSesion", CampoSesion(*clase)}}),
                               cual.grupo));
    TARVO_INTENTAR(
        db.ejecutar(u"UPDATE Lecturas SET ESTADO=2 WHERE GRUPO=? AND CLASE=? AND ESTADO=4"_s,
                    cual.grupo, numeroDe(*clase)));
  }
  return true;
}

}  // namespace tarvo::totals
