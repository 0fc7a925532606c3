#include "comm/envios/TablasEnvios.h"

namespace tarvo::envios {

namespace {

// Enviados: the record that a group confirmed last, as a hash of it without its prices and one of
// its prices; Null where it may hold another. SECCION is the group's at that time: one that moved
// keeps what it held.
//
// Retenidos: an article that a group didn't get, since DESDE. ERROR 0: it doesn't fit its record,
// and MOTIVO says why; else the code with which the group refused it.
//
// EnviosGrupo: the section and tarifa of the group's last sending, the machine that it went to (its
// kind, access and addresses; Null where nobody noted it yet), and BORRANDO 1 while a wipe was
// ordered and not confirmed.
//
// BorradosGrupo: articles that a machine which can't be compared was told to delete. It may come
// back with an older memory.
//
// FichasPedidas: the last record that each group was asked for by itself, in hexadecimal; Null when
// it doesn't hold the article.
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

Resultado<> asegurarTablasEnvios(dao::Database& db) {
  return dao::darPasos(db, {tablasEnvios()});
}

}  // namespace tarvo::envios
