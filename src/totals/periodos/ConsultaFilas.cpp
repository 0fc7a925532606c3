#include "totals/periodos/ConsultaFilas.h"

#include <map>
#include <set>

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHoras = 24;

// The column on the axis of this kind's chart. A grand total is a group's, whatever its code.
QString ejeDe(TipoTotal clase) {
  return clase == TipoTotal::OperHora    ? u"t.HORA"_s
         : clase == TipoTotal::GranTotal ? u"t.GRUPO"_s
                                         : u"t.CODI"_s;
}

bool porHoras(TipoTotal clase) {
  return clase == TipoTotal::Horario || clase == TipoTotal::OperHora;
}

Resultado<QString> nombreDePunto(dao::Database& db, TipoTotal clase, qint64 seccion,
                                 qint64 codigo) {
  const auto leer = [&](const auto& r) -> Resultado<QString> {
    if (!r) return std::unexpected(r.error());
    return r->texto();
  };
  switch (clase) {
    case TipoTotal::PLUs:
      return leer(
          db.uno(u"SELECT NOMPLU FROM PLUSES WHERE SECCION=? AND CODPLU=?", seccion, codigo));
    case TipoTotal::Departamentos:
      return leer(
          db.uno(u"SELECT NomDep FROM DEPTS WHERE SECCION=? AND NUMDEP=?", seccion, codigo));
    case TipoTotal::Operadores:
      return leer(db.uno(u"SELECT NOMOPE FROM OPERS WHERE CODOPE=?", codigo));
    case TipoTotal::GranTotal:
      return leer(db.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", codigo));
    case TipoTotal::Horario:
    case TipoTotal::OperHora:
      return QString();
  }
  std::unreachable();
}

Resultado<std::pair<qint64, qint64>> cuenta(dao::Database& db, const ClaseTotal& c, qint64 link,
                                            std::set<qint64>& grupos) {
  std::pair<qint64, qint64> suma{0, 0};
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          dao::conMarcas(
              u"SELECT GRUPO, count(*), sum([IMP]) FROM {tabla} WHERE LINK=? GROUP BY GRUPO",
              {{u"tabla", QString::fromUtf16(c.tabla)}}),
          link),
      [&](const dao::Recordset& fila) {
        grupos.insert(fila.entero(0));
        suma.first += fila.entero(1);
        suma.second += fila.entero(2);
      }));
  return suma;
}

}  // namespace

void Condicion::y(const QString& parte, std::vector<dao::Valor> suyos) {
  sql += (sql.isEmpty() ? QString() : u" AND "_s) + parte;
  valores.insert(valores.end(), suyos.begin(), suyos.end());
}

Condicion FiltroFilas::condicion() const {
  Condicion c;
  c.y(u"t.LINK=?"_s, {link});
  if (grupo) c.y(u"t.GRUPO=?"_s, {*grupo});
  if (seccion) c.y(u"t.GRUPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)"_s, {*seccion});
  if (desde) c.y(u"t.CODI>=?"_s, {*desde});
  if (hasta) c.y(u"t.CODI<=?"_s, {*hasta});
  return c;
}

Condicion FiltroCodigo::condicion() const {
  Condicion c;
  c.y(u"COLUMNA.TIPO=? AND t.CODI=?"_s, {tipo, codigo});
  if (grupo) c.y(u"t.GRUPO=?"_s, {*grupo});
  if (seccion) c.y(u"t.GRUPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)"_s, {*seccion});
  if (desde) c.y(u"COLUMNA.FECHA1>=?"_s, {*desde});
  if (hasta) c.y(u"COLUMNA.FECHA1<?"_s, {hasta->dia() + 1.0});
  return c;
}

bool conSeccion(TipoTotal clase) {
  return clase == TipoTotal::PLUs || clase == TipoTotal::Departamentos;
}

QString fuenteFilas(TipoTotal clase, bool conPeriodo) {
  QString f = NombreTabla(clase) + u" AS t"_s;
  if (conPeriodo) f += u" INNER JOIN COLUMNA ON t.LINK=COLUMNA.LINK"_s;
  f += u" LEFT JOIN GRUPOS ON t.GRUPO=GRUPOS.CODGPO"_s;
  if (clase == TipoTotal::PLUs)
    f += u" LEFT JOIN PLUSES ON GRUPOS.SECCION=PLUSES.SECCION AND t.CODI=PLUSES.CODPLU"_s;
  if (clase == TipoTotal::Departamentos)
    f += u" LEFT JOIN DEPTS ON GRUPOS.SECCION=DEPTS.SECCION AND t.CODI=DEPTS.NUMDEP"_s;
  if (clase == TipoTotal::Operadores || clase == TipoTotal::OperHora)
    f += u" LEFT JOIN OPERS ON t.CODI=OPERS.CODOPE"_s;
  return f;
}

QString nombreFilas(TipoTotal clase) {
  switch (clase) {
    case TipoTotal::PLUs:
      return u"PLUSES.NOMPLU"_s;
    case TipoTotal::Departamentos:
      return u"DEPTS.NomDep"_s;
    case TipoTotal::Operadores:
    case TipoTotal::OperHora:
      return u"OPERS.NOMOPE"_s;
    case TipoTotal::GranTotal:
    case TipoTotal::Horario:
      return u"GRUPOS.NOMGPO"_s;
  }
  std::unreachable();
}

QString importeDePeriodo() {
  return u"coalesce((SELECT sum(g.IMP) FROM TOTGRT AS g WHERE g.LINK=COLUMNA.LINK), "
         u"(SELECT sum(a.IMP) FROM TOTPLU AS a WHERE a.LINK=COLUMNA.LINK))"_s;
}

Resultado<std::vector<Punto>> serie(dao::Database& db, const FiltroFilas& filtro, int cuantos) {
  const Condicion c = filtro.condicion();
  const bool horas = porHoras(filtro.clase);
  const QString eje = ejeDe(filtro.clase);
  const QString seccion = conSeccion(filtro.clase) ? u"GRUPOS.SECCION"_s : u"0"_s;
  const QString grupos = conSeccion(filtro.clase) ? eje + u", GRUPOS.SECCION"_s : eje;
  std::vector<dao::Valor> valores = c.valores;
  valores.emplace_back(horas ? kHoras : cuantos);
  const QString sql = dao::conMarcas(
      u"SELECT {eje}, {seccion}, sum(t.[IMP]) FROM {tabla} AS t "
      u"LEFT JOIN GRUPOS ON t.GRUPO=GRUPOS.CODGPO WHERE {condicion} "
      u"GROUP BY {grupos} ORDER BY {orden} LIMIT ?",
      {{u"eje", eje},
       {u"seccion", seccion},
       {u"tabla", NombreTabla(filtro.clase)},
       {u"condicion", c.sql},
       {u"grupos", grupos},
       {u"orden", horas ? u"1"_s : u"3 DESC, 1"_s}});
  std::vector<Punto> puntos;
  TARVO_INTENTAR(
      dao::recorrer(db.OpenQuery(sql, valores), [&](const dao::Recordset& fila) -> Resultado<> {
        TARVO_TOMAR(const auto nombre,
                    nombreDePunto(db, filtro.clase, fila.entero(1), fila.entero(0)));
        puntos.push_back({fila.entero(0), nombre, fila.entero(2)});
        return {};
      }));
  return puntos;
}

Resultado<std::vector<PuntoPeriodo>> evolucion(const Periodos& periodos,
                                               const FiltroCodigo& filtro) {
  const Condicion c = filtro.condicion();
  const QString sql = dao::conMarcas(
      u"SELECT COLUMNA.FECHA1, sum(t.[IMP]) FROM {tabla} AS t "
      u"INNER JOIN COLUMNA ON t.LINK=COLUMNA.LINK WHERE {condicion} "
      u"GROUP BY COLUMNA.FECHA1 ORDER BY COLUMNA.FECHA1",
      {{u"tabla", NombreTabla(filtro.clase)}, {u"condicion", c.sql}});
  return dao::reunir(periodos.base().OpenQuery(sql, c.valores), [](const dao::Recordset& fila) {
    return PuntoPeriodo{fila.fecha(0), fila.entero(1)};
  });
}

// The row with the highest amount, whatever its group.
Resultado<CodigoDe> masVendido(const Periodos& periodos, TipoTotal clase) {
  CodigoDe mayor;
  const QString sql = dao::conMarcas(
      u"SELECT GRUPOS.SECCION, t.CODI FROM {tabla} AS t LEFT JOIN GRUPOS ON GRUPOS.CODGPO=t.GRUPO "
      u"WHERE t.LINK=(SELECT LINK FROM COLUMNA WHERE TIPO=1 ORDER BY FECHA1 DESC LIMIT 1) "
      u"ORDER BY t.[IMP] DESC LIMIT 1",
      {{u"tabla", NombreTabla(clase)}});
  TARVO_INTENTAR(dao::recorrer(periodos.base().consultar(sql), [&](const dao::Recordset& fila) {
    mayor = {static_cast<int>(fila.entero(0)), fila.entero(1)};
  }));
  return mayor;
}

Resultado<QString> nombreDeCodigo(const Periodos& periodos, const FiltroCodigo& filtro) {
  const TipoTotal clase =
      filtro.clase == TipoTotal::OperHora ? TipoTotal::Operadores : filtro.clase;
  return nombreDePunto(periodos.base(), clase, filtro.seccion.value_or(0), filtro.codigo);
}

Resultado<std::map<TipoTotal, qint64>> filasPorClase(const Periodos& periodos, qint64 link) {
  std::map<TipoTotal, qint64> cuantas;
  for (const ClaseTotal& c : enVigor(periodos.ajustes())) {
    std::set<qint64> grupos;
    TARVO_TOMAR(const auto suma, cuenta(periodos.base(), c, link, grupos));
    cuantas[c.tipo] = suma.first;
  }
  return cuantas;
}

Resultado<std::vector<Procedencia>> procedencia(const Periodos& periodos, qint64 link, int grupo,
                                                TipoTotal clase, qint64 codigo) {
  dao::Database& db = periodos.base();
  std::vector<Procedencia> lista;
  const auto una = [&](const dao::Recordset& fila) -> Resultado<> {
    Procedencia p{grupo,
                  fila.texto(5),
                  fila.entero(0),
                  {},
                  fila.fecha(2),
                  fila.fecha(3),
                  fila.texto(4) == u"diferencia",
                  {}};
    if (!fila.nulo(1)) p.leido = fila.fecha(1);
    if (fila.logico(6))
      TARVO_INTENTAR(dao::recorrer(
          db.consultar(u"SELECT ADDR, sum([IMP]) FROM LectFilas WHERE GRUPO=? AND CLASE=? AND "
                       u"CODI=? GROUP BY ADDR ORDER BY ADDR",
                       grupo, numeroDe(clase), codigo),
          [&p](const dao::Recordset& m) {
            p.maquinas.emplace_back(static_cast<int>(m.entero(0)), m.entero(1));
          }));
    lista.push_back(std::move(p));
    return {};
  };
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          u"SELECT o.EJECUCION, o.LEIDO, o.DESDE, o.HASTA, o.MODO, GRUPOS.NOMGPO, l.FIN=o.LEIDO "
          u"FROM (Origenes AS o LEFT JOIN GRUPOS ON GRUPOS.CODGPO=o.GRUPO) LEFT JOIN Lecturas AS l "
          u"ON l.GRUPO=o.GRUPO AND l.CLASE=o.CLASE WHERE o.LINK=? AND o.GRUPO=? AND o.CLASE=? "
          u"ORDER BY o.LEIDO",
          link, grupo, numeroDe(clase)),
      una));
  return lista;
}

Resultado<Resumen> resumir(const Periodos& periodos, const std::vector<qint64>& links) {
  Resumen r;
  std::set<qint64> grupos;
  for (const qint64 link : links) {
    ++r.periodos;
    std::map<TipoTotal, qint64> importes;
    for (const ClaseTotal& c : enVigor(periodos.ajustes())) {
      TARVO_TOMAR(const auto suma, cuenta(periodos.base(), c, link, grupos));
      r.filas += suma.first;
      if (suma.first > 0) importes[c.tipo] = suma.second;
    }
    for (const TipoTotal tipo : {TipoTotal::GranTotal, TipoTotal::PLUs, TipoTotal::Departamentos,
                                 TipoTotal::Operadores, TipoTotal::Horario, TipoTotal::OperHora})
      if (const auto i = importes.find(tipo); i != importes.end()) {
        r.importe += i->second;
        break;
      }
  }
  r.grupos = static_cast<int>(grupos.size());
  return r;
}

}  // namespace tarvo::totals
