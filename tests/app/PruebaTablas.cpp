// The schema of all rooms: databases of earlier versions become the same as a new one, and any
// program can work with it.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "app/Tablas.h"
#include "core/esquema/Esquema.h"
#include "dao/recorrer.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::app {
namespace {

using namespace Qt::StringLiterals;

const Fecha kHoy = Fecha::de(QDate(2026, 3, 9));

class Esquema : public testing::Test {
 protected:
  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  // The standard shell, which knows nothing of ours.
  std::string concha(const QString& nombre, const QByteArray& sql) {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(u"sqlite3"_s, {u"-bail"_s, ruta(nombre)});
    p.write("PRAGMA foreign_keys=ON;\n" + sql);
    p.closeWriteChannel();
    EXPECT_TRUE(p.waitForFinished());
    EXPECT_EQ(p.exitCode(), 0) << p.peek(2000).toStdString();
    return QString::fromUtf8(p.readAll()).trimmed().toStdString();
  }
  std::unique_ptr<dao::Database> abrir(const QString& nombre) {
    auto db = dao::Database::OpenDatabase(ruta(nombre), {.crear = true});
    EXPECT_TRUE(db) << db.error().texto.toStdString();
    const auto alDia = esquema::ponerAlDia(**db, kHoy, tablasDeLasSalas());
    EXPECT_TRUE(alDia) << alDia.error().texto.toStdString();
    return std::move(*db);
  }
  // The file's own description of itself, however it is formatted.
  static std::map<std::string, std::string> objetos(dao::Database& db) {
    std::map<std::string, std::string> todos;
    const auto r = dao::recorrer(
        db.consultar(u"select type & ' ' & name, sql from sqlite_master where name not like "
                     u"'sqlite*'"),
        [&](const dao::Recordset& fila) {
          QString sql = fila.texto(1).toLower();
          sql.removeIf([](QChar c) { return c.isSpace() || u"\"[]"_s.contains(c); });
          todos[fila.texto(0).toStdString()] = sql.toStdString();
        });
    EXPECT_TRUE(r);
    return todos;
  }
  QTemporaryDir carpeta;
};

QByteArray anterior(bool soloPlantilla) {
  QFile f(QStringLiteral(TARVO_ANTERIORES "/1.0.sql"));
  EXPECT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray todo = f.readAll();
  return soloPlantilla ? todo.left(todo.indexOf("-- tables of single rooms")) : todo;
}

TEST_F(Esquema, UnaBaseAnteriorAcabaComoUnaNueva) {
  struct Caso {
    const char* que;
    bool soloPlantilla;
    QByteArray cambios;
  };
  const Caso casos[] = {
      {"the empty template", true, ""},
      {"the last before steps were noted", false, ""},
      {"without a history", false,
       "DROP TABLE Ejecuciones; DROP TABLE EjecucionAvisos; DROP TABLE ExportesPendientes;"
       "ALTER TABLE ProcesoTareas DROP COLUMN CLASE; ALTER TABLE ProcesoTareas DROP COLUMN FALLO;"},
      {"whose sendings know no machine", false,
       "ALTER TABLE EnviosGrupo DROP COLUMN TARIFA; ALTER TABLE EnviosGrupo DROP COLUMN MAQUINA;"},
      {"whose readings know no adjustment", false,
       "ALTER TABLE Lecturas DROP COLUMN AJUSTE; DROP TABLE CerosParte;"},
      {"that was never counted in", false,
       "DROP TABLE Origenes; DROP TABLE Lecturas; DROP TABLE LoteDespues; DROP TABLE "
       "PapeleraPer;"}};
  const auto nueva = objetos(*abrir(u"nueva"_s));
  EXPECT_GT(nueva.size(), 140U);
  for (const Caso& caso : casos) {
    SCOPED_TRACE(caso.que);
    QFile::remove(ruta(u"vieja"_s));
    concha(u"vieja"_s, "PRAGMA synchronous=OFF; BEGIN;" + anterior(caso.soloPlantilla) +
                           caso.cambios +
                           "insert into version values (1, 0); insert into SECCS (NMSECC) values "
                           "(3); insert into PLUSES (SECCION, CODPLU, NOMPLU) values (3, 10, "
                           "'Pera'); insert into COLUMNA (LINK, TIPO) values (9, 1); COMMIT;");
    const auto db = abrir(u"vieja"_s);
    EXPECT_EQ(objetos(*db), nueva);
    EXPECT_EQ(filasComoTexto(*db,
                             u"select (select NOMPLU from PLUSES where CODPLU=10), (select "
                             u"LINK from COLUMNA)"_s),
              "Pera|9");
    const qint64 antes = db->cambios();
    ASSERT_TRUE(esquema::ponerAlDia(*db, kHoy, tablasDeLasSalas()));
    EXPECT_EQ(db->cambios(), antes) << "nothing is left to do";
  }
}

// A table that names a period by its dates must follow a period whose dates change.
TEST_F(Esquema, LoQueNombraUnPeriodoPorSusFechasLoSigue) {
  const auto db = abrir(u"T"_s);
  // The periods themselves, and deleted ones.
  QStringList saben{u"COLUMNA"_s, u"PapeleraPer"_s, u"PapeleraSusti"_s, u"IdosConSuBloque"_s},
      tienen;
  for (const auto& nota : totals::notasDePeriodo()) saben << nota.tabla;
  const auto r = dao::recorrer(
      db->consultar(u"select m.name from sqlite_master m where m.type='table' and exists (select 1 "
                    u"from pragma_table_info(m.name) c where c.name='FECHAF') order by m.name"),
      [&](const dao::Recordset& fila) { tienen << fila.texto(0); });
  ASSERT_TRUE(r);
  saben.sort();
  tienen.sort();
  EXPECT_EQ(tienen, saben);
}

// A table with columns out of order or a default lost would not accept these.
TEST_F(Esquema, LaConchaDeSqliteAbreLeeYEscribeCadaTabla) {
  const auto db = abrir(u"T"_s);
  QByteArray lee, escribe = "begin;";
  const auto r = dao::recorrer(
      db->consultar(u"select type, name from sqlite_master where type in ('table', "
                    u"'view') and name not like 'sqlite*'"),
      [&](const dao::Recordset& fila) {
        const QByteArray nombre = '"' + fila.texto(1).toUtf8() + '"';
        lee += "select count(*)>=0 from (select * from " + nombre + ");";
        if (fila.texto(0) != u"table") return;
        const QByteArray columna = '"' + db->columnas(fila.texto(1))[0].toUtf8() + '"';
        escribe += "update " + nombre + " set " + columna + '=' + columna + "; delete from " +
                   nombre + " where 0;";
      });
  ASSERT_TRUE(r);
  EXPECT_EQ(concha(u"T"_s, lee).find('0'), std::string::npos);
  EXPECT_EQ(concha(u"T"_s, escribe + "commit;"), "");
  EXPECT_EQ(
      concha(u"T"_s,
             "insert into GRUPOS (CODGPO, NOMGPO, SECCION) values (1, 'G', 1);"
             "insert into PLUSES (SECCION, CODPLU, NOMPLU) values (1, 40, 'Ñame'), (1, 41, 'nuez');"
             "insert into Enviados (GRUPO, SECCION, CODPLU) values (1, 1, 40);"
             "insert into HistoriaPrecios (SECCION, CODPLU, AHORA) values (1, 40, 100);"
             "insert into LoteAntes (LOTE, SECCION, CODPLU) values (1, 1, 40);"
             "insert into EstadoTarvo values ('Prueba', 5);"
             "insert into Lecturas (GRUPO, CLASE) values (1, 1);"
             "insert into Proceso (NOMBRE) values ('X');"
             "update GRUPOS set CODGPO=2; update PLUSES set NOMPLU='Ñoras' where CODPLU=40;"
             "select GRUPO from Enviados; select NOMPLU from PLUSES where CODPLU>2 order by CODPLU;"
             "reindex; analyze; pragma foreign_key_check; pragma integrity_check;"),
      "2\nÑoras\nnuez\nok");
  auto plu = db->OpenTable(u"PLUSES", u"NOMBRE");
  ASSERT_TRUE(plu);
  ASSERT_TRUE(*(*plu)->Seek(dao::Busca::MayorIgual, 1, u"nuez"_s));
  avanzar(**plu);
  EXPECT_EQ((*plu)->texto((*plu)->columna(u"NOMPLU")), u"Ñoras") << "its key is in the index";
}

// A list is sorted by its language where a column of that name has texts; the views are looked at
// for names alone that no table has.
TEST_F(Esquema, NingunaVistaLlamaATextosComoAUnNumero) {
  const auto db = abrir(u"A.MDB"_s);
  EXPECT_EQ(concha(u"A.MDB"_s,
                   "WITH c AS (SELECT m.type k, lower(x.name) n, max(x.type='TEXT') t FROM "
                   "sqlite_master m, pragma_table_info(m.name) x GROUP BY 1, 2) "
                   "SELECT v.n FROM c v JOIN c t USING (n) WHERE v.k='view' AND t.k='table' AND "
                   "v.t > t.t;"),
            "");
}

}  // namespace
}  // namespace tarvo::app
