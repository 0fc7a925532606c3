#include "automation/historia/Historial.h"

#include <QLocale>
#include <QStringList>

#include "automation/historia/TextosHistoria.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// "number:kind:first:last", or the number alone.
PeriodoHecho periodoDe(QStringView texto) {
  const auto partes = texto.split(u':');
  PeriodoHecho p{partes[0].toLongLong(), {}};
  if (partes.size() == 4)
    p.dias = {partes[1].toInt(), Fecha::deDias(partes[2].toDouble()),
              Fecha::deDias(partes[3].toDouble())};
  return p;
}

std::vector<PeriodoHecho> periodosDe(const QString& texto) {
  std::vector<PeriodoHecho> periodos;
  for (const QStringView parte : QStringView(texto).split(u',', Qt::SkipEmptyParts))
    periodos.push_back(periodoDe(parte));
  return periodos;
}

QString textoDe(const dao::Recordset& columna) {
  const auto dia = [&](int campo) {
    return QString::number(columna.valor(campo).real(), 'g', QLocale::FloatingPointShortest);
  };
  return u"%1:%2:%3:%4,"_s.arg(columna.entero(0)).arg(columna.entero(1)).arg(dia(2), dia(3));
}

FinEjecucion finDe(const dao::Valor& resultado, bool enMarcha) {
  if (enMarcha) return FinEjecucion::EnMarcha;
  if (resultado.nulo()) return FinEjecucion::Interrumpida;
  return static_cast<FinEjecucion>(std::clamp<qint64>(resultado.entero(), 0, 3));
}

EjecucionHecha ejecucionDe(const dao::Recordset& rs, std::optional<qint64> enMarcha) {
  EjecucionHecha e;
  e.numero = rs.entero(0);
  e.nombre = rs.texto(1);
  e.inicio = rs.fecha(2);
  if (!rs.nulo(3)) e.final = rs.fecha(3);
  e.fin = finDe(rs.valor(4), e.numero == enMarcha);
  e.periodos = periodosDe(rs.texto(5));
  e.traza = rs.texto(6);
  return e;
}

TareaHecha tareaDe(const dao::Recordset& rs, TipoTarea clase) {
  TareaHecha t{static_cast<int>(rs.entero(0)), clase, TareaHecha::Estado::EnCola, rs.texto(3)};
  if (rs.entero(2) == 1)
    t.estado = TareaHecha::Estado::Hecha;
  else if (!rs.nulo(3))
    t.estado = TareaHecha::Estado::Fallida;
  return t;
}

}  // namespace

Resultado<> Historial::empezar(qint64 numero, const QString& nombre, Fecha inicio,
                               const QString& traza) {
  for (const QString& tabla : {u"Ejecuciones"_s, u"ProcesoTareas"_s, u"EjecucionAvisos"_s})
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(u"DELETE FROM {tabla} WHERE EJECUCION<=? AND EJECUCION NOT IN (SELECT "
                       u"EJECUCION FROM Proceso) AND EJECUCION NOT IN (SELECT max(EJECUCION) FROM "
                       u"Ejecuciones GROUP BY NOMBRE)",
                       {{u"tabla", tabla}}),
        numero - kEjecucionesGuardadas));
  // The mark of an export begins with its run. A debt keeps the mark by which it is recognised in
  // its file.
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM Exportes WHERE int(val(MARCA))<=? AND MARCA NOT IN (SELECT MARCA "
                   u"FROM ExportesPendientes) AND int(val(MARCA)) NOT IN (SELECT EJECUCION FROM "
                   u"Proceso)",
                   numero - kEjecucionesGuardadas));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT OR REPLACE INTO Ejecuciones (EJECUCION, NOMBRE, INICIO, TRAZA) VALUES (?, ?, ?, ?)",
      numero, nombre, inicio, traza));
  return {};
}

Resultado<> Historial::acabar(qint64 numero, FinEjecucion fin, Fecha ahora) {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Ejecuciones SET FIN=?, RESULTADO=? WHERE EJECUCION=?", ahora,
                              static_cast<int>(fin), numero));
  return {};
}

Resultado<> Historial::periodosHechos(qint64 numero, const std::vector<qint64>& links) {
  for (const qint64 link : links) {
    TARVO_TOMAR(auto rs, db_.consultar(
                             u"SELECT LINK, TIPO, FECHA1, FECHAF FROM COLUMNA WHERE LINK=?", link));
    if (rs->Eof()) continue;
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE Ejecuciones SET PERIODOS=PERIODOS & ? WHERE EJECUCION=?",
                                textoDe(*rs), numero));
  }
  return {};
}

Resultado<> Historial::aviso(qint64 numero, const AvisoHecho& aviso) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO EjecucionAvisos (EJECUCION, GRUPO, TEXTO, GRAVE) VALUES (?, ?, ?, ?)", numero,
      aviso.grupo, aviso.texto, numeroDe(aviso.peso)));
  return {};
}

Resultado<> Historial::tareaFallida(qint64 numero, int grupo, TipoTarea clase,
                                    const QString& motivo) {
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE ProcesoTareas SET FALLO=? WHERE EJECUCION=? AND GRUPO=? AND CLASE=? AND HECHA=0",
      motivo, numero, grupo, clase));
  return {};
}

Resultado<std::vector<EjecucionHecha>> Historial::ejecuciones(std::optional<qint64> enMarcha) {
  return dao::reunir(
      db_.consultar(u"SELECT EJECUCION, NOMBRE, INICIO, FIN, RESULTADO, PERIODOS, TRAZA FROM "
                    u"Ejecuciones ORDER BY EJECUCION DESC"),
      [&](const dao::Recordset& rs) { return ejecucionDe(rs, enMarcha); });
}

Resultado<std::map<qint64, int>> Historial::gruposPedidos(qint64 desde) {
  std::map<qint64, int> pedidos;
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT EJECUCION, count(DISTINCT GRUPO) FROM ProcesoTareas WHERE "
                    u"EJECUCION>=? AND CLASE BETWEEN ? AND ? GROUP BY EJECUCION",
                    desde, TipoTarea::RxPlus, TipoTarea::RxOpHor),
      [&](const dao::Recordset& rs) { pedidos[rs.entero(0)] = static_cast<int>(rs.entero(1)); }));
  return pedidos;
}

Resultado<std::vector<TareaHecha>> Historial::tareas(qint64 numero) {
  std::vector<TareaHecha> lista;
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT GRUPO, CLASE, HECHA, FALLO FROM ProcesoTareas WHERE EJECUCION=? ORDER "
                    u"BY PASO, GRUPO",
                    numero),
      [&](const dao::Recordset& rs) -> Resultado<> {
        const auto clase = deNumero<TipoTarea>(rs.entero(1));
        if (!clase) return fallo(Fallo::Formato, textos_(kTxTareaDesconocida, {rs.entero(1)}));
        lista.push_back(tareaDe(rs, *clase));
        return {};
      }));
  return lista;
}

Resultado<std::vector<AvisoHecho>> Historial::avisos(qint64 numero) {
  return dao::reunir(
      db_.consultar(u"SELECT GRUPO, TEXTO, GRAVE FROM EjecucionAvisos WHERE EJECUCION=? ORDER BY "
                    u"rowid",
                    numero),
      [](const dao::Recordset& rs) {
        return AvisoHecho{static_cast<int>(rs.entero(0)), rs.texto(1),
                          deNumero<PesoAviso>(rs.entero(2)).value_or(PesoAviso::Grave)};
      });
}

}  // namespace tarvo::automation
