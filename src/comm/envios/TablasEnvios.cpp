#include "comm/envios/TablasEnvios.h"

namespace tarvo::envios {

namespace {

// Enviados: the record that a group last confirmed, as a hash of it without its prices and one of
// its prices; Null if the group may hold another. SECCION is the group's at that time: a group that
// moved keeps what it held.
//
// Retenidos: an article that a group hasn't received, since DESDE. ERROR 0: it doesn't fit its
// record, for the reason in MOTIVO; else the code with which the group refused it.
//
// EnviosGrupo: the section and tarifa of the group's last sending, its machine (kind, access and
// addresses; Null if not yet recorded), and BORRANDO 1 while an ordered wipe is unconfirmed.
//
// BorradosGrupo: articles that a machine without comparison was told to delete. It may come back
// with an older memory.
//
// FichasPedidas: the last single record that each group was asked for, in hexadecimal; Null if it
// doesn't hold the article.
constexpr QStringView kGuion =
    uR"(
CREATE TABLE IF NOT EXISTS Enviados (
  GRUPO INTEGER NOT NULL REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  SECCION INTEGER NOT NULL, CODPLU INTEGER NOT NULL, HUELLA BIGINT, HUELLA_PRE BIGINT,
  CUANDO DOUBLE PRECISION, PRIMARY KEY (GRUPO, SECCION, CODPLU));
CREATE TABLE IF NOT EXISTS Retenidos (
  GRUPO INTEGER NOT NULL REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  SECCION INTEGER NOT NULL, CODPLU INTEGER NOT NULL, MOTIVO TEXT, ERROR INTEGER DEFAULT 0,
  DESDE DOUBLE PRECISION, CUANDO DOUBLE PRECISION, PRIMARY KEY (GRUPO, SECCION, CODPLU));
CREATE TABLE IF NOT EXISTS EnviosGrupo (
  GRUPO INTEGER PRIMARY KEY REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  SECCION INTEGER, BORRANDO INTEGER DEFAULT 0);
CREATE TABLE IF NOT EXISTS BorradosGrupo (
  GRUPO INTEGER NOT NULL REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  CODPLU INTEGER NOT NULL, CUANDO DOUBLE PRECISION, PRIMARY KEY (GRUPO, CODPLU));
CREATE TABLE IF NOT EXISTS FichasPedidas (
  GRUPO INTEGER NOT NULL REFERENCES GRUPOS (CODGPO) ON UPDATE CASCADE ON DELETE CASCADE,
  CODPLU INTEGER NOT NULL, FICHA TEXT, CUANDO DOUBLE PRECISION, PRIMARY KEY (GRUPO, CODPLU));
CREATE INDEX IF NOT EXISTS Cross_Borra ON [Cross] (Grupo) WHERE borra<>0;
)";

}  // namespace

dao::TablasDeSala tablasEnvios() {
  const QString tabla = QStringLiteral("EnviosGrupo");
  return {.sala = QStringLiteral("envios"),
          .pasos = {{1, kGuion.toString()},
                    dao::columna(2, tabla, QStringLiteral("TARIFA"), QStringLiteral("INTEGER")),
                    dao::columna(3, tabla, QStringLiteral("MAQUINA"), QStringLiteral("TEXT"))},
          .copias = {}};
}

std::vector<QString> tablasDeGrupo() {
  return {QStringLiteral("Enviados"), QStringLiteral("Retenidos"), QStringLiteral("EnviosGrupo"),
          QStringLiteral("BorradosGrupo"), QStringLiteral("FichasPedidas")};
}

Resultado<> asegurarTablasEnvios(dao::Database& db) {
  return dao::darPasos(db, {tablasEnvios()});
}

}  // namespace tarvo::envios
