#include "automation/historia/Diario.h"

#include <QCryptographicHash>

#include "automation/historia/TablasHistoria.h"
#include "automation/historia/TextosHistoria.h"
#include "core/dao/Recorrido.h"
#include "totals/libros/TablasLibros.h"

namespace tarvo::automation {

namespace {

std::unexpected<Error> danado(const Textos& textos) {
  return fallo(Fallo::Formato, textos(kTxDiarioDanado));
}

template <class Numeros>
QString unir(const Numeros& numeros) {
  QStringList partes;
  for (const auto n : numeros) partes += QString::number(n);
  return partes.join(u',');
}

std::optional<std::vector<qint64>> partir(const QString& texto) {
  std::vector<qint64> numeros;
  for (const QStringView parte : QStringView(texto).split(u',', Qt::SkipEmptyParts)) {
    bool es = false;
    numeros.push_back(parte.toLongLong(&es));
    if (!es) return std::nullopt;
  }
  return numeros;
}

// False for an invalid row.
bool leerListas(const dao::Recordset& rs, Ejecucion& e) {
  const auto texto = [&rs](QStringView columna) { return rs.texto(rs.columna(columna)); };
  auto seleccion = partir(texto(u"SELECCION")), ultimos = partir(texto(u"ULTIMOS")),
       fallidos = partir(texto(u"FALLIDOS"));
  auto respuestas = recordarRespuestas(texto(u"PARAMETROS"));
  if (!seleccion || !ultimos || !fallidos || !respuestas) return false;
  e.seleccion = std::move(*seleccion);
  e.ultimos = std::move(*ultimos);
  for (const qint64 g : *fallidos) e.fallidos.insert(static_cast<int>(g));
  e.respuestas = std::move(*respuestas);
  e.lineas = texto(u"PASOS").split(u'\n');
  return true;
}

}  // namespace

QString Ejecucion::huella() const {
  const auto h = QCryptographicHash::hash(lineas.join(u'\n').toUtf8(), QCryptographicHash::Sha256);
  return QString::fromLatin1(h.toHex());
}

Resultado<> Diario::asegurar() {
  return asegurarTablasHistoria(db_);
}

Resultado<std::optional<Ejecucion>> Diario::pendiente(const QString& nombre) {
  TARVO_TOMAR(auto consulta, db_.consultar(u"SELECT * FROM Proceso WHERE NOMBRE=?", nombre));
  const auto& rs = *consulta;
  if (rs.Eof()) return std::nullopt;
  Ejecucion e;
  e.nombre = nombre;
  e.numero = rs.entero(rs.columna(u"EJECUCION"));
  e.paso = rs.entero(rs.columna(u"PASO"));
  e.problemas = rs.entero(rs.columna(u"RESULTADO")) != 0;
  e.inicio = rs.fecha(rs.columna(u"INICIO"));
  e.latido = rs.fecha(rs.columna(u"LATIDO"));
  if (!leerListas(rs, e) || e.paso < 0 || e.paso > e.lineas.size()) return danado(textos_);
  return e;
}

Resultado<> Diario::abrir(Ejecucion& e, const QString& traza) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  totals::EstadoBase estado(db_);
  TARVO_TOMAR(const auto ultima, estado.leer(QStringLiteral("Ejecucion")));
  e.numero = ultima.entero() + 1;
  TARVO_INTENTAR(estado.poner(QStringLiteral("Ejecucion"), e.numero));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Proceso (NOMBRE, HUELLA, EJECUCION, INICIO, PASOS) VALUES (?, ?, ?, ?, ?)",
      e.nombre, e.huella(), e.numero, e.inicio, e.lineas.join(u'\n')));
  TARVO_INTENTAR(historial_.empezar(e.numero, e.nombre, e.inicio, traza));
  TARVO_INTENTAR(anotar(e));
  return tr.confirmar();
}

Resultado<> Diario::anotar(const Ejecucion& e) {
  TARVO_TOMAR(
      const auto filas,
      db_.ejecutar(
          u"UPDATE Proceso SET PASO=?, SELECCION=?, ULTIMOS=?, FALLIDOS=?, RESULTADO=?, LATIDO=?, "
          u"PARAMETROS=? "
          u"WHERE EJECUCION=?",
          e.paso, unir(e.seleccion), unir(e.ultimos), unir(e.fallidos), e.problemas, e.latido,
          guardarRespuestas(e.respuestas), e.numero));
  if (filas == 0) return fallo(Fallo::NoExiste, textos_(kTxFaltaDiario));
  return {};
}

Resultado<> Diario::latir(qint64 ejecucion, Fecha ahora) {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Proceso SET LATIDO=? WHERE EJECUCION=?", ahora, ejecucion));
  return {};
}

Resultado<> Diario::conProblemas(qint64 ejecucion) {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Proceso SET RESULTADO=1 WHERE EJECUCION=?", ejecucion));
  return {};
}

Resultado<> Diario::cerrar(qint64 ejecucion, FinEjecucion fin, Fecha ahora) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(historial_.acabar(ejecucion, fin, ahora));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM Proceso WHERE EJECUCION=?", ejecucion));
  return tr.confirmar();
}

namespace {
// Values of HECHA.
constexpr int kPorHacer = 0, kRechazada = 2;
}  // namespace

Resultado<> Diario::tareaEnCola(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase) {
  return anadirTarea(ejecucion, paso, grupo, clase, kPorHacer, {});
}

Resultado<> Diario::tareaRechazada(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase,
                                   const QString& motivo) {
  return anadirTarea(ejecucion, paso, grupo, clase, kRechazada, motivo);
}

Resultado<> Diario::anadirTarea(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase,
                                int hecha, const dao::Valor& motivo) {
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO ProcesoTareas (EJECUCION, PASO, GRUPO, CLASE, HECHA, FALLO) "
                   u"VALUES (?, ?, ?, ?, ?, ?) ON CONFLICT (EJECUCION, PASO, GRUPO) DO NOTHING",
                   ejecucion, paso, grupo, clase, hecha, motivo));
  return {};
}

Resultado<> Diario::tareaHecha(qint64 ejecucion, qint64 paso, int grupo, Fecha ahora) {
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE ProcesoTareas SET HECHA=1 WHERE EJECUCION=? AND PASO=? AND GRUPO=?",
                   ejecucion, paso, grupo));
  return latir(ejecucion, ahora);
}

Resultado<std::vector<Diario::Tarea>> Diario::tareasPorHacer(qint64 ejecucion, qint64 desdePaso) {
  return dao::reunir(
      db_.consultar(u"SELECT PASO, GRUPO FROM ProcesoTareas WHERE EJECUCION=? AND PASO>=? AND "
                    u"HECHA=0 ORDER BY PASO, GRUPO",
                    ejecucion, desdePaso),
      [](const dao::Recordset& rs) { return Tarea{rs.entero(0), static_cast<int>(rs.entero(1))}; });
}

}  // namespace tarvo::automation
