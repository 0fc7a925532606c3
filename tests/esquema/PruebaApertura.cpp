// The opening at program start: a missing file, the version, the rows that every database has, and
// failures.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/esquema/Esquema.h"
#include "dao/recorrer.h"

namespace tarvo::esquema {
namespace {

Fecha hoy() {
  return Fecha::de(QDate(2026, 3, 9), QTime(10, 30));
}

class Apertura : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QDir(carpeta.path()).mkdir("instalado"));
    QFile resto(carpeta.filePath("instalado/VOIDtarvo.MDB.taller"));  // of one that was cut off
    EXPECT_TRUE(resto.open(QIODevice::WriteOnly) && resto.write(QByteArray(3000, 'z')) > 0);
    resto.close();
    const auto r = escribirPlantilla(carpeta.filePath("instalado/VOIDtarvo.MDB"));
    ASSERT_TRUE(r) << r.error().texto.toStdString();
  }
  QString base() const { return carpeta.filePath("TARVO.MDB"); }
  Resultado<std::unique_ptr<dao::Database>> abrir(Version v = {2, 5}) {
    return abrirBase(base(),
                     {carpeta.filePath("no hay"), carpeta.path(), carpeta.filePath("instalado")},
                     hoy(), {}, v);
  }
  Fallo falla(Version v = {2, 5}) {
    const auto r = abrir(v);
    EXPECT_FALSE(r);
    mensaje = r ? QString() : r.error().texto;
    return r ? Fallo::Comunicacion : r.error().clase;
  }
  QTemporaryDir carpeta;
  QString mensaje;
};

TEST_F(Apertura, SinBaseSeCopiaLaPlantillaYQuedaLista) {
  const auto db = abrir();
  ASSERT_TRUE(db) << db.error().texto.toStdString();
  EXPECT_EQ(filasComoTexto(**db, "select MAJOR, MINOR from version"), "2|5");
  EXPECT_EQ(filasComoTexto(**db, "select NMSECC, NOMSEC, IVAs from SECCS"),
            "1|SECCIÓN ÚNICA|7@7@7@7@7");
  EXPECT_EQ(filasComoTexto(**db, "select CODALM, NOMALM, FCHINI, FCHREG from ALMACEN"),
            "0||46090|46090");
  EXPECT_EQ(filasComoTexto(**db,
                           "select CODPLU, NOMPLU, CADA, MDF_PRE, BARRAS, PFX_BAR, FORMATO, "
                           "PRECIO_00+PRECIO_27, DEPTO "
                           "from PLUSES order by CODPLU"),
            "1|VENTA LIBRE A PESO|0|1|1|0|1|0|~ 2|VENTA LIBRE A CUERPO|2|1|1|0|1|0|~");
}

TEST_F(Apertura, UnaBaseAlDiaNoSeToca) {
  ASSERT_TRUE(abrir());
  QFile f(base());
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray antes = f.readAll();
  f.seek(0);
  {
    const auto db = abrir();
    ASSERT_TRUE(db);
    EXPECT_EQ((*db)->cambios(), 0);
  }
  EXPECT_EQ(f.readAll(), antes);
}

TEST_F(Apertura, LoQueFaltaVuelve) {
  {
    const auto db = abrir();
    ASSERT_TRUE(db);
    ASSERT_TRUE(
        (*db)->ejecutarGuion(u"insert into SECCS (NMSECC) values (9);\n"
                             "delete from PLUSES where CODPLU=2;\n"
                             "insert into PLUSES (SECCION, CODPLU) values (1, 50);\n"
                             "insert into MovsAlm (CODALM, SECCION, CODIGO, Venta, Merma) values "
                             "(0, 1, 1, null, 3), (0, 1, 50, 4, null);\n"
                             "drop table TikAbier;\ndrop view QTKAB;\ndelete from version;\n"));
  }
  const auto db = abrir({2, 6});
  ASSERT_TRUE(db);
  EXPECT_EQ(filasComoTexto(**db, "select SECCION, CODPLU from PLUSES order by SECCION, CODPLU"),
            "1|1 1|2 1|50 9|1 9|2");
  EXPECT_EQ(filasComoTexto(**db, "select Venta, Merma from MovsAlm order by CODIGO"), "0|3 4|0");
  EXPECT_EQ(filasComoTexto(**db, "select MAJOR, MINOR from version"), "2|6");
  EXPECT_TRUE((*db)->OpenTable(u"TikAbier", u"key"));
  EXPECT_TRUE((*db)->consultar(u"select secc from QTKAB"));
  ASSERT_TRUE((*db)->Execute(u"delete from PLUSES where CODPLU=2"));
  ASSERT_TRUE(abrir({2, 6})) << "all else is up to date";
  EXPECT_EQ(filasComoTexto(**db, "select SECCION from PLUSES where CODPLU=2 order by 1"), "1 9");
}

TEST_F(Apertura, OtraVersionSeRechazaAntesDeTocarNada) {
  ASSERT_TRUE(abrir({3, 0}));
  {
    const auto db = dao::Database::OpenDatabase(base());
    ASSERT_TRUE((*db)->Execute(u"drop table TOTHOR"));
  }
  EXPECT_EQ(falla({2, 9}), Fallo::OtraVersion);
  EXPECT_EQ(mensaje, "Base de datos de versión posterior");
  EXPECT_EQ(falla({4, 0}), Fallo::OtraVersion);
  EXPECT_EQ(mensaje, "Base de datos de versión anterior: Realizar conversión");
  const auto db = dao::Database::OpenDatabase(base());
  EXPECT_FALSE((*db)->existeTabla(u"TOTHOR"));
  EXPECT_EQ(filasComoTexto(**db, "select MAJOR, MINOR from version"), "3|0");
}

TEST_F(Apertura, LoQueFallaSeDiceYNoDejaMedias) {
  ASSERT_TRUE(QFile::rename(carpeta.filePath("instalado/VOIDtarvo.MDB"), carpeta.filePath("otra")));
  EXPECT_EQ(falla(), Fallo::NoExiste);
  EXPECT_EQ(mensaje, "No existe base de datos vacía: voidTarvo.mdb");
  QFile plantilla(carpeta.filePath("voidtarvo.mdb"));
  ASSERT_TRUE(plantilla.open(QIODevice::WriteOnly));
  plantilla.write(QByteArray(3000, 'z'));
  plantilla.close();
  EXPECT_EQ(falla(), Fallo::NoEsBaseDatos);
  EXPECT_FALSE(QFile::exists(base())) << "a template that is no database is not copied";
  ASSERT_TRUE(plantilla.rename(base()));
  EXPECT_EQ(falla(), Fallo::NoEsBaseDatos);
  EXPECT_TRUE(mensaje.contains(base()));
  for (const qint64 bytes : {99, 1, 0}) {  // the store takes one of a byte for a new one
    ASSERT_TRUE(QFile::resize(base(), bytes));
    EXPECT_EQ(falla(), Fallo::NoEsBaseDatos);
    EXPECT_TRUE(mensaje.startsWith("La base de datos está vacía"));
    EXPECT_EQ(QFileInfo(base()).size(), bytes);
  }
  ASSERT_TRUE(QFile::remove(base()));
  ASSERT_TRUE(QFile::rename(carpeta.filePath("otra"), carpeta.filePath("voidTarvo.mdb")));
  const auto r = abrirBase(carpeta.filePath("no/hay/T.MDB"), {carpeta.path()}, hoy());
  ASSERT_FALSE(r);
  EXPECT_TRUE(r.error().texto.startsWith("No se encuentra la base de datos: "));
  // Leftovers of a lost database are not taken for part of the new one.
  QFile resto(base() + "-wal");
  ASSERT_TRUE(resto.open(QIODevice::WriteOnly));
  resto.write("resto");
  resto.close();
  EXPECT_TRUE(abrir());
}

TEST_F(Apertura, DosProgramasALaVez) {
  const auto uno = abrir();
  ASSERT_TRUE(uno);
  ASSERT_TRUE((*uno)->BeginTrans());
  const auto otro = abrir();
  ASSERT_TRUE(otro) << otro.error().texto.toStdString();
}

}  // namespace
}  // namespace tarvo::esquema
