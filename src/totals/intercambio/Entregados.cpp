#include "totals/intercambio/Entregados.h"

#include "core/dao/Recorrido.h"

namespace tarvo::totals {

namespace {

constexpr QChar kEntreRutas = u'\n';

}  // namespace

Resultado<> Entregados::anotar(qint64 link, const QString& ruta) {
  TARVO_TOMAR(const auto suyas, p_.sumasDe(link));
  TARVO_INTENTAR(olvidarNotasSinPeriodo(db_, QStringLiteral("BorradosPendientes")));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT OR IGNORE INTO BorradosPendientes (LINK, FECHA1, FECHAF, VENTAS) "
                   u"SELECT LINK, FECHA1, FECHAF, ? FROM COLUMNA WHERE LINK=?",
                   suyas, link));
  TARVO_TOMAR(const bool ya, tiene(ruta, link));
  if (ya) return {};
  TARVO_TOMAR(const auto rutas,
              db_.uno(u"SELECT RUTAS FROM BorradosPendientes WHERE LINK=?", link));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE BorradosPendientes SET RUTAS=? WHERE LINK=? AND VENTAS=?",
                              rutas.texto() + ruta + kEntreRutas, link, suyas));
  return {};
}

Resultado<bool> Entregados::tiene(const QString& ruta, qint64 link) {
  TARVO_TOMAR(const auto suyas, p_.sumasDe(link));
  TARVO_TOMAR(const auto rs,
              db_.consultar(u"SELECT b.RUTAS FROM BorradosPendientes b INNER JOIN COLUMNA c ON "
                            u"c.LINK=b.LINK AND c.FECHA1=b.FECHA1 AND c.FECHAF=b.FECHAF WHERE "
                            u"b.LINK=? AND b.VENTAS=?",
                            link, suyas));
  return !rs->Eof() && rs->texto(0).split(kEntreRutas).contains(ruta);
}

Resultado<bool> Entregados::espera(qint64 link) {
  TARVO_TOMAR(const auto n, db_.uno(u"SELECT count(*) FROM BorradosPendientes b INNER JOIN COLUMNA "
                                    u"c ON c.LINK=b.LINK AND c.FECHA1=b.FECHA1 AND "
                                    u"c.FECHAF=b.FECHAF WHERE b.LINK=?",
                                    link));
  return n.entero() > 0;
}

Resultado<> Entregados::borrar(const Columna& c, const QStringList& rutas) {
  for (const QString& ruta : rutas)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT OR IGNORE INTO IdosConSuBloque (TIPO, FECHA1, FECHAF, RUTA) VALUES "
                     u"(?, ?, ?, ?)",
                     c.periodo.tipo, c.periodo.desde, c.periodo.hasta, ruta));
  return p_.BorrarEntregado(c.LINK);
}

Resultado<bool> Entregados::hayOtroBloque(const Columna& c, const QString& ruta) {
  TARVO_TOMAR(const auto n, db_.uno(u"SELECT count(*) FROM IdosConSuBloque WHERE TIPO=? AND "
                                    u"FECHA1=? AND FECHAF=? AND RUTA=?",
                                    c.periodo.tipo, c.periodo.desde, c.periodo.hasta, ruta));
  return n.entero() > 0;
}

Resultado<std::vector<Entregados::Libre>> Entregados::borrarLibres() {
  struct Nota {
    qint64 link;
    QString ventas, rutas;
  };
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(
      const auto notas,
      dao::reunir(
          db_.consultar(u"SELECT b.LINK, b.VENTAS, b.RUTAS FROM BorradosPendientes b INNER "
                        u"JOIN COLUMNA c ON c.LINK=b.LINK AND c.FECHA1=b.FECHA1 "
                        u"AND c.FECHAF=b.FECHAF ORDER BY c.FECHA1, b.LINK"),
          [](const dao::Recordset& rs) { return Nota{rs.entero(0), rs.texto(1), rs.texto(2)}; }));
  std::vector<Libre> libres;
  for (const Nota& nota : notas) {
    TARVO_TOMAR(const auto debidos, p_.debidosDe(nota.link));
    if (!debidos.isEmpty()) continue;
    TARVO_TOMAR(const auto c, p_.columna(nota.link));
    TARVO_TOMAR(const auto suyas, p_.sumasDe(nota.link));
    const bool igual = suyas == nota.ventas;
    if (igual) TARVO_INTENTAR(borrar(*c, nota.rutas.split(kEntreRutas, Qt::SkipEmptyParts)));
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM BorradosPendientes WHERE LINK=?", nota.link));
    libres.push_back({c->periodo, igual});
  }
  TARVO_INTENTAR(t.confirmar());
  return libres;
}

}  // namespace tarvo::totals
