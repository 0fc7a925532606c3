#include "totals/libros/Dudas.h"

#include "core/dinero/Dinero.h"
#include "totals/TextosTotals.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

// Numbers of the kinds that the open session received of the group.
Resultado<QString> clasesRecibidas(Database& db, const Ajustes& ajustes, int grupo) {
  QStringList clases;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(const auto n,
                db.uno(QString(u"SELECT count(*) FROM Sesiones WHERE CODGPO=? AND "_s +
                               QString::fromUtf16(c.sesion)),
                       grupo));
    if (n.entero() > 0) clases << QString::number(c.numero);
  }
  return clases.join(u',');
}

QString importe(const Ajustes& a, qint64 n) {
  return VerImporte(a, n, a.MonedaNativa ? 1 : 0);
}

}  // namespace

Resultado<std::vector<DudaAbierta>> dudasAbiertas(Database& db) {
  TARVO_TOMAR(auto rs,
              db.consultar(u"SELECT GRUPO, ADDR FROM Dudas WHERE RESPUESTA IS NULL ORDER "_s
                           u"BY GRUPO, ADDR"_s));
  std::vector<DudaAbierta> lista;
  for (; !rs->Eof();) {
    lista.push_back({static_cast<int>(rs->entero(0)), static_cast<int>(rs->entero(1))});
    TARVO_INTENTAR(rs->MoveNext());
  }
  return lista;
}

Resultado<> dejarFuera(Database& db, const Ajustes& ajustes, int grupo) {
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(db.ejecutar(QString(u"UPDATE Sesiones SET "_s + QString::fromUtf16(c.sesion) +
                                       u"=FALSE WHERE CODGPO=?"_s),
                               grupo));
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET ESTADO=4 WHERE GRUPO=? AND ESTADO=2"_s, grupo));
  return {};
}

Resultado<> abrirDudas(Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                       const std::map<int, Testimonios>& maquinas, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto clases, clasesRecibidas(db, ajustes, grupo));
  TARVO_INTENTAR(cerrarDudas(db, grupo));
  TARVO_TOMAR(const auto desde,
              db.uno(u"SELECT MAX(BASE_HASTA) FROM Lecturas WHERE GRUPO=?"_s, grupo));
  for (const auto& [addr, t] : maquinas) {
    TARVO_INTENTAR(db.ejecutar(u"INSERT INTO Dudas (GRUPO, ADDR, CLASES) VALUES (?, ?, ?)"_s, grupo,
                               addr, clases));
    const auto gran = t.find(kGranTotal);
    const Testimonio g = gran != t.end() ? gran->second
                         : t.empty()     ? Testimonio{}
                                         : t.begin()->second;
    const QString cual = addr == 0 ? QString::number(grupo) : u"%1:%2"_s.arg(grupo).arg(addr);
    avisos.push_back(
        {grupo,
         textos(kTxDudaDeCero, {grupo, desde.fecha().general(), importe(ajustes, g.impAhora),
                                importe(ajustes, g.impAhora - g.impAntes), cual}),
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

Resultado<> cerrarDudas(Database& db, int grupo) {
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Dudas WHERE GRUPO=?"_s, grupo));
  return {};
}

Resultado<> cerrarDudasSinBase(Database& db) {
  TARVO_INTENTAR(db.ejecutar(
      u"DELETE FROM Dudas WHERE NOT EXISTS (SELECT 1 FROM Lecturas l WHERE l.GRUPO=Dudas.GRUPO AND "_s
      u"l.LINK IS NOT NULL)"_s));
  return {};
}

Resultado<bool> hayDudas(Database& db, int grupo) {
  TARVO_TOMAR(const auto n, db.uno(u"SELECT count(*) FROM Dudas WHERE GRUPO=?"_s, grupo));
  return n.entero() > 0;
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
  for (const QString& c : clases) {
    TARVO_INTENTAR(db.ejecutar(
        QString(u"UPDATE Sesiones SET "_s + CampoSesion(c.toInt()) + u"=TRUE WHERE CODGPO=?"_s),
        cual.grupo));
    TARVO_INTENTAR(
        db.ejecutar(u"UPDATE Lecturas SET ESTADO=2 WHERE GRUPO=? AND CLASE=? AND ESTADO=4"_s,
                    cual.grupo, c.toInt()));
  }
  return true;
}

}  // namespace tarvo::totals
