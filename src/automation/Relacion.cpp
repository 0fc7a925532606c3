#include "automation/Relacion.h"

#include <map>
#include <set>

#include "automation/TextosAutomation.h"
#include "automation/historia/Historial.h"
#include "comm/motor/TextosMotor.h"
#include "core/dao/Recorrido.h"
#include "core/dinero/Dinero.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

struct DeGrupo {
  QStringList recogido, hecho, sinHacer;
  std::map<qint64, qint64> memorizado;  // the amount by period
  bool aCero = false;
};
using PorGrupo = std::map<int, DeGrupo>;

void anotarTarea(const TareaHecha& t, const Textos& textos, DeGrupo& g) {
  const QString nombre = textos(motor::kTxMensajeClase + numeroDe(t.clase));
  if (t.estado != TareaHecha::Estado::Hecha)
    g.sinHacer << nombre;
  else if (t.clase == TipoTarea::TxZero)
    g.aCero = true;
  else
    (esDeTotales(t.clase) ? g.recogido : g.hecho) << nombre;
}

// The amount that each group brought into each period: from its grand total if it has one.
Resultado<> leerMemorizado(dao::Database& db, qint64 ejecucion, PorGrupo& grupos) {
  return dao::recorrer(
      db.consultar(u"SELECT GRUPO, LINK, CLASE, [IMP] FROM Origenes WHERE EJECUCION=? ORDER BY "
                   u"GRUPO, LINK, CLASE",
                   ejecucion),
      [&](const dao::Recordset& rs) {
        auto& suyos = grupos[static_cast<int>(rs.entero(0))].memorizado;
        const auto clase = deNumero<TipoTotal>(rs.entero(2));
        if (clase == TipoTotal::GranTotal || !suyos.contains(rs.entero(1)))
          suyos[rs.entero(1)] = rs.entero(3);
      });
}

Resultado<QString> lineaDe(const Taller& t, int grupo, const DeGrupo& g,
                           const std::set<int>& soloEnBandeja) {
  TARVO_TOMAR(const auto nombre, t.db.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", grupo));
  const auto lista = [&](int texto, const QStringList& cuales) {
    return cuales.isEmpty() ? QStringList() : QStringList(t.textos(texto, {cuales.join(u", ")}));
  };
  QStringList partes = lista(kTxRelacionRecogido, g.recogido);
  for (const auto& [link, importe] : g.memorizado) {
    TARVO_TOMAR(const auto c, t.verTot.columna(link));
    if (!c) continue;
    partes +=
        t.textos(kTxRelacionMemorizado, {VerImporte(t.ajustes, importe, t.ajustes.MonedaNativa),
                                         totals::DecirPeriodo(c->periodo, t.textos)});
  }
  if (g.aCero) partes += t.textos(kTxRelacionACero);
  if (g.aCero && soloEnBandeja.contains(grupo)) {
    TARVO_TOMAR(const auto importe, t.sesion.sinPeriodo(grupo));
    partes += t.textos(kTxRelacionEnBandeja,
                       {VerImporte(t.ajustes, importe.value_or(0), t.ajustes.MonedaNativa)});
  }
  partes += lista(kTxRelacionHecho, g.hecho);
  partes += lista(kTxRelacionSinHacer, g.sinHacer);
  return t.textos(kTxRelacionGrupo,
                  {Ceros(grupo, 4), nombre.texto().trimmed(), partes.join(u"; ")});
}

// The mark of each export of the run begins with the run's number.
Resultado<QStringList> exportado(const Taller& t, qint64 ejecucion) {
  const QString marca = QString::number(ejecucion) + u'.';
  QStringList lineas;
  TARVO_INTENTAR(dao::recorrer(
      t.db.consultar(u"SELECT RUTA, count(*) FROM Exportes WHERE left(MARCA, ?)=? AND HECHO<>0 "
                     u"GROUP BY RUTA ORDER BY RUTA",
                     static_cast<qint64>(marca.size()), marca),
      [&](const dao::Recordset& rs) {
        lineas += t.textos(kTxRelacionExportado,
                           {NombreFichero(rs.texto(0)),
                            Plural(t.textos(kTxRelacionPeriodos), static_cast<int>(rs.entero(1)))});
      }));
  return lineas;
}

}  // namespace

Resultado<QStringList> relacionDe(const Taller& taller, qint64 ejecucion) {
  PorGrupo grupos;
  TARVO_TOMAR(const auto tareas, Historial(taller.db, taller.textos).tareas(ejecucion));
  for (const TareaHecha& t : tareas) anotarTarea(t, taller.textos, grupos[t.grupo]);
  TARVO_INTENTAR(leerMemorizado(taller.db, ejecucion, grupos));
  TARVO_TOMAR(const auto enBandeja, taller.sesion.soloEnBandeja());
  const std::set<int> soloEnBandeja(enBandeja.begin(), enBandeja.end());
  QStringList lineas;
  for (const auto& [grupo, g] : grupos) {
    TARVO_TOMAR(const auto linea, lineaDe(taller, grupo, g, soloEnBandeja));
    lineas += linea;
  }
  TARVO_TOMAR(const auto ficheros, exportado(taller, ejecucion));
  return lineas + ficheros;
}

}  // namespace tarvo::automation
