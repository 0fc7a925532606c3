#include "comm/configuracion/Aceptado.h"

#include <map>

#include "core/dao/Recorrido.h"

namespace tarvo::configuracion {

using namespace Qt::StringLiterals;

namespace {

// HUELLA: of the frames accepted; Null while that is unknown. CUANDO: the last whole sending.
constexpr QStringView kGuion =
    uR"(
CREATE TABLE IF NOT EXISTS ConfigAceptada (
  GRUPO INTEGER NOT NULL REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  MAQUINA INTEGER NOT NULL, CLASE INTEGER NOT NULL, HUELLA TEXT, CUANDO DOUBLE PRECISION,
  PRIMARY KEY (GRUPO, MAQUINA, CLASE));
)";

struct Nota {
  QString huella;
  std::optional<Fecha> cuando;
};

std::optional<Fecha> cuandoDe(const Nota* nota) {
  return nota ? nota->cuando : std::nullopt;
}

Situacion situacionDe(const Nota* nota, const QString& huella) {
  if (!nota || !nota->cuando) return Situacion::NuncaEnviada;
  return nota->huella == huella ? Situacion::Igual : Situacion::Cambio;
}

using Notas = std::map<std::pair<int, int>, Nota>;  // by kind and machine

Estado estadoDeClase(TipoTarea clase, const std::vector<Envio>& envios,
                     const std::vector<int>& maquinas, const Notas& notas) {
  std::optional<Estado> estado;
  std::set<int> todas;
  for (const Envio& envio : envios) {
    const QString huella = envio.huella();
    for (const int maquina : maquinas) {
      if (envio.maquina != kTodoElGrupo && envio.maquina != maquina) continue;
      const auto nota = notas.find({numeroDe(clase), maquina});
      const Nota* suya = nota == notas.end() ? nullptr : &nota->second;
      const Situacion s = situacionDe(suya, huella);
      if (!estado) estado = Estado{.clase = clase, .situacion = s, .cuando = cuandoDe(suya)};
      if (s < estado->situacion) estado->situacion = s, estado->cuando = cuandoDe(suya);
      if (s != Situacion::Igual) estado->maquinas.insert(maquina);
      todas.insert(maquina);
    }
  }
  if (estado) estado->cuantas = static_cast<int>(todas.size());
  return estado.value_or(Estado{.clase = clase});
}

}  // namespace

dao::TablasDeSala tablasConfiguracion() {
  return {.sala = u"configuracion"_s, .pasos = {{1, kGuion.toString()}}, .copias = {}};
}

std::vector<QString> tablasDeGrupo() {
  return {u"ConfigAceptada"_s};
}

Resultado<> olvidarMaquinas(dao::Database& db, int grupo, const std::set<int>& maquinas) {
  for (const int maquina : maquinas)
    TARVO_INTENTAR(
        db.ejecutar(u"DELETE FROM ConfigAceptada WHERE GRUPO=? AND MAQUINA=?", grupo, maquina));
  return {};
}

Resultado<> anunciar(dao::Database& db, int grupo, TipoTarea clase, int maquina) {
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE ConfigAceptada SET HUELLA=NULL WHERE GRUPO=? AND CLASE=? AND (? OR MAQUINA=?)",
      grupo, numeroDe(clase), maquina == kTodoElGrupo, maquina));
  return {};
}

Resultado<> anotarAceptado(dao::Database& db, int grupo, TipoTarea clase, const Envio& envio,
                           Fecha cuando) {
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO ConfigAceptada (GRUPO, MAQUINA, CLASE, HUELLA, CUANDO) SELECT SUGPO, NMBZA, ?, "
      u"?, ? FROM BZAS WHERE SUGPO=? AND (? OR NMBZA=?) ON CONFLICT (GRUPO, MAQUINA, CLASE) DO "
      u"UPDATE SET HUELLA=excluded.HUELLA, CUANDO=excluded.CUANDO",
      numeroDe(clase), envio.huella(), cuando, grupo, envio.maquina == kTodoElGrupo,
      envio.maquina));
  return {};
}

Resultado<std::vector<Estado>> estadoDe(dao::Database& db, const Ajustes& ajustes,
                                        const Destino& destino) {
  Notas notas;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT CLASE, MAQUINA, HUELLA, CUANDO FROM ConfigAceptada WHERE GRUPO=?",
                   destino.grupo),
      [&](const dao::Recordset& rs) {
        notas[{static_cast<int>(rs.entero(0)), static_cast<int>(rs.entero(1))}] = {
            rs.nulo(2) ? QString() : rs.texto(2),
            rs.nulo(3) ? std::nullopt : std::optional(rs.fecha(3))};
      }));
  TARVO_TOMAR(const auto maquinas,
              dao::reunir(db.consultar(u"SELECT NMBZA FROM BZAS WHERE SUGPO=? ORDER BY NMBZA",
                                       destino.grupo),
                          [](const dao::Recordset& rs) { return static_cast<int>(rs.entero(0)); }));
  std::vector<Estado> estados;
  for (const TipoTarea clase : kClases) {
    if (!valePara(clase, destino.tipo)) continue;
    TARVO_TOMAR(const auto envios, prepararEnvio(db, ajustes, clase, destino));
    estados.push_back(estadoDeClase(clase, envios, maquinas, notas));
  }
  return estados;
}

}  // namespace tarvo::configuracion
