#include "core/dao/Pasos.h"

#include <QRegularExpression>
#include <map>
#include <set>

namespace tarvo::dao {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kDados = u"PasosDados";

using Dados = std::map<QString, std::set<qint64>>;  // by room

Resultado<Dados> leerDados(Database& db) {
  Dados dados;
  if (!db.existeTabla(kDados)) return dados;
  TARVO_INTENTAR(
      recorrer(db.consultar(u"SELECT SALA, PASO FROM PasosDados"),
               [&](const Recordset& fila) { dados[fila.texto(0)].insert(fila.entero(1)); }));
  return dados;
}

enum class Objeto { Tabla, Vista };

// The tables and views that are there once all steps of a room have run, or those of `dados`.
std::map<QString, Objeto> objetosDe(const TablasDeSala& sala,
                                    const std::set<qint64>* dados = nullptr) {
  static const QRegularExpression sentencia(
      u"^\\s*(create|drop) (table|view) (?:if (?:not )?exists )?\\[?(\\w+)"_s,
      QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
  std::map<QString, Objeto> objetos;
  for (const Paso& p : sala.pasos) {
    if (dados && !dados->contains(p.numero)) continue;
    for (const auto& m : sentencia.globalMatch(p.guion)) {
      if (m.captured(1).compare(u"create", Qt::CaseInsensitive) == 0)
        objetos[m.captured(3).toLower()] = m.captured(2).compare(u"table", Qt::CaseInsensitive) == 0
                                               ? Objeto::Tabla
                                               : Objeto::Vista;
      else
        objetos.erase(m.captured(3).toLower());
    }
  }
  return objetos;
}

bool completa(Database& db, const TablasDeSala& sala) {
  return std::ranges::all_of(objetosDe(sala),
                             [&](const auto& o) { return db.existeTabla(o.first); });
}

// Made anew, such a table would be empty: what a period has would be added to it again.
Resultado<> sinPerdidas(Database& db, const TablasDeSala& sala, const Dados& dados) {
  const auto suyos = dados.find(sala.sala);
  if (!sala.insustituible || suyos == dados.end()) return {};
  for (const auto& [nombre, clase] : objetosDe(sala, &suyos->second))
    if (clase == Objeto::Tabla && !db.existeTabla(nombre))
      return fallo(
          Fallo::NoEsBaseDatos,
          QStringLiteral("La base de datos está dañada: ha perdido la tabla «%1». Recupere "
                         "una copia de seguridad.")
              .arg(nombre));
  return {};
}

// A room that lost a table runs all its steps again, since several built the table.
std::vector<const Paso*> porDar(Database& db, const TablasDeSala& sala, const Dados& dados) {
  const auto suyos = dados.find(sala.sala);
  const bool ninguno = suyos == dados.end() || !completa(db, sala);
  std::vector<const Paso*> pasos;
  for (const Paso& p : sala.pasos)
    if (ninguno || !suyos->second.contains(p.numero)) pasos.push_back(&p);
  return pasos;
}

Resultado<> dar(Database& db, const QString& sala, const Paso& p) {
  if (!p.guion.isEmpty()) TARVO_INTENTAR(db.ejecutarGuion(p.guion));
  if (p.hacer) TARVO_INTENTAR(p.hacer(db));
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO PasosDados (SALA, PASO) VALUES (?, ?) ON CONFLICT (SALA, PASO) DO NOTHING",
      sala, p.numero));
  return {};
}

Resultado<> comprobarNumeros(const TablasDeSala& sala) {
  int anterior = 0;
  for (const Paso& p : sala.pasos) {
    if (p.numero <= anterior)
      return fallo(Fallo::Interno,
                   QStringLiteral("Los pasos de «%1» no van por orden.").arg(sala.sala));
    anterior = p.numero;
  }
  return {};
}

QStringList queFaltan(Database& db, const Copia& c) {
  QStringList faltan;
  if (!db.existeTabla(c.copia)) return faltan;
  for (const QString& nombre : db.columnas(c.origen))
    if (!db.existeColumna(c.copia, nombre)) faltan += nombre;
  return faltan;
}

}  // namespace

Paso columna(int numero, const QString& tabla, const QString& nombre, const QString& tipo) {
  return {numero, {}, [=](Database& db) -> Resultado<> {
            if (db.existeColumna(tabla, nombre)) return {};
            return db.ejecutarGuion(
                conMarcas(u"ALTER TABLE [{tabla}] ADD COLUMN {nombre} {tipo};",
                          {{u"tabla", tabla}, {u"nombre", nombre}, {u"tipo", tipo}}));
          }};
}

Paso vista(int numero, const QString& nombre, const QString& consulta) {
  return {numero, conMarcas(u"drop view if exists {nombre};\n"
                            u"create view {nombre} as {consulta};\n",
                            {{u"nombre", nombre}, {u"consulta", consulta}})};
}

Resultado<bool> alDia(Database& db, const std::vector<TablasDeSala>& salas) {
  TARVO_TOMAR(const Dados dados, leerDados(db));
  for (const TablasDeSala& sala : salas) {
    if (!porDar(db, sala, dados).empty()) return false;
    for (const Copia& c : sala.copias)
      if (!queFaltan(db, c).isEmpty()) return false;
  }
  return true;
}

Resultado<> darPasos(Database& db, const std::vector<TablasDeSala>& salas) {
  for (const TablasDeSala& sala : salas) TARVO_INTENTAR(comprobarNumeros(sala));
  TARVO_TOMAR(const bool hecho, alDia(db, salas));
  if (hecho) return {};
  TARVO_TOMAR(const Dados antes, leerDados(db));
  for (const TablasDeSala& sala : salas) TARVO_INTENTAR(sinPerdidas(db, sala, antes));
  TARVO_TOMAR(auto t, Transaccion::empezar(db));
  TARVO_INTENTAR(db.ejecutarGuion(
      u"CREATE TABLE IF NOT EXISTS PasosDados (SALA TEXT NOT NULL, PASO INTEGER NOT NULL, PRIMARY "
      u"KEY (SALA, PASO));"));
  TARVO_TOMAR(const Dados dados, leerDados(db));
  for (const TablasDeSala& sala : salas)
    for (const Paso* p : porDar(db, sala, dados)) TARVO_INTENTAR(dar(db, sala.sala, *p));
  for (const TablasDeSala& sala : salas)
    for (const Copia& c : sala.copias)
      for (const QString& nombre : queFaltan(db, c))
        TARVO_INTENTAR(db.copiarColumna(c.origen, nombre, c.copia));
  return t.confirmar();
}

}  // namespace tarvo::dao
