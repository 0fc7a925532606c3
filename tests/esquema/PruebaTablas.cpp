// The tables, as seen by this and by any other program.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include "core/esquema/Esquema.h"
#include "dao/recorrer.h"

namespace tarvo::esquema {
namespace {

class Tablas : public testing::Test {
 protected:
  void SetUp() override {
    auto r = dao::Database::OpenDatabase(ruta(), {.crear = true});
    ASSERT_TRUE(r);
    db = std::move(*r);
    const auto h = ponerAlDia(*db, Fecha::deDias(46090));
    ASSERT_TRUE(h) << h.error().texto.toStdString();
  }
  QString ruta() const { return carpeta.filePath("T.MDB"); }
  void hacer(const QString& guion) {
    const auto r = db->ejecutarGuion(guion);
    ASSERT_TRUE(r) << r.error().texto.toStdString();
  }
  std::string ver(const QString& sql) { return filasComoTexto(*db, sql); }
  // The stock shell, which knows none of our functions.
  std::string concha(const QString& sql) {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start("sqlite3", {"-bail", ruta(), sql});
    EXPECT_TRUE(p.waitForFinished());
    EXPECT_EQ(p.exitCode(), 0);
    return QString::fromUtf8(p.readAll()).trimmed().toStdString();
  }
  QTemporaryDir carpeta;
  std::unique_ptr<dao::Database> db;
};

TEST_F(Tablas, LosIndicesSeAbrenPorSuNombreYConSuClave) {
  const std::vector<std::tuple<const char*, const char*, std::vector<const char*>>> casos{
      {"PLUSES", "PrimaryKey", {"SECCION", "CODPLU"}},
      {"PLUSES", "CodBarExt", {"SECCION", "CodBarExt"}},
      {"DEPTS", "PrimaryKey", {"SECCION", "NUMDEP"}},
      {"SECCS", "NMSECC", {"NMSECC"}},
      {"OPERS", "CODOPE", {"CODOPE"}},
      {"OFERTAS", "PrimaryKey", {"GRUPO", "SECCION", "CODIGO"}},
      {"Cross", "crossKey", {"Secc", "plu", "Grupo"}},
      {"GRUPOS", "CODGPO", {"CODGPO"}},
      {"BZAS", "PrimaryKey", {"SUGPO", "NMBZA"}},
      {"Sesiones", "CODGPO", {"CODGPO"}},
      {"COLUMNA", "LINK", {"LINK"}},
      {"COLUMNA", "INTV", {"TIPO", "FECHA1", "FECHAF"}},
      {"TOTPLU", "Cols", {"LINK", "GRUPO", "CODI"}},
      {"TOTGRT", "Filas", {"GRUPO", "CODI", "LINK"}},
      {"TOTOPE", "Cols", {"LINK", "GRUPO", "CODI"}},
      {"TOTDEP", "Filas", {"GRUPO", "CODI", "LINK"}},
      {"TOTHOR", "Cols", {"LINK", "GRUPO", "CODI"}},
      {"TOTOPHOR", "Cols", {"LINK", "GRUPO", "CODI", "HORA"}},
      {"TOTOPHOR", "Filas", {"GRUPO", "CODI", "HORA", "LINK"}},
      {"ETIQUETAS", "NUMETQ", {"NUMETQ"}},
      {"TEXTOSETQ", "CODSET", {"CODSET"}},
      {"ALMACEN", "CODALM", {"CODALM"}},
      {"MovsAlm", "ALM", {"CODALM", "SECCION", "CODIGO"}},
      {"MovsAlm", "PLU", {"SECCION", "CODIGO", "CODALM"}},
      {"ALBA_CAB", "PrimaryKey", {"NUMALB"}},
      {"PEDI_CAB", "PrimaryKey", {"NUMPED"}},
      {"INVE_CAB", "NumInv", {"NUMINV"}},
      {"TikAbier", "key", {"grupo", "opera", "linea"}},
      {"Transacs", "docID", {"docID", "linea"}},
      {"Transacs", "scann", {"tagID", "grupo", "balan", "numTK", "linea"}},
      {"Cliente", "Codigo", {"Codigo"}},
      {"FacturaVentaDetalle", "PrimaryKey", {"Serie", "Numero", "Linea"}}};
  // Articles, stock and details refer to other rows.
  hacer(
      "pragma defer_foreign_keys=on;\ninsert into SECCS (NMSECC) values (3);\ninsert into ALMACEN "
      "(CODALM) values (3);\n"
      "insert into PLUSES (SECCION, CODPLU) values (3, 3);\ninsert into FacturaVentaCabecera "
      "(Serie, Numero) values (3, 3);\n");
  for (const auto& [tabla, indice, columnas] : casos) {
    SCOPED_TRACE(std::string(tabla) + "." + indice);
    auto rs = db->OpenTable(QString::fromLatin1(tabla), QString::fromLatin1(indice));
    ASSERT_TRUE(rs) << rs.error().texto.toStdString();
    std::vector<dao::Valor> clave(columnas.size(), dao::Valor(3));
    if (!*(*rs)->Seek(dao::Busca::Igual, std::span<const dao::Valor>(clave))) {
      (*rs)->AddNew();
      for (const char* c : columnas) (*rs)->poner((*rs)->columna(QString::fromLatin1(c)), 3);
      const auto u = (*rs)->Update();
      ASSERT_TRUE(u) << u.error().texto.toStdString();
    }
    const auto hay = (*rs)->Seek(dao::Busca::Igual, std::span<const dao::Valor>(clave));
    EXPECT_TRUE(hay && *hay);
    clave.emplace_back(3);
    EXPECT_FALSE((*rs)->Seek(dao::Busca::Igual, std::span<const dao::Valor>(clave)))
        << "the key has no more parts";
  }
}

TEST_F(Tablas, LosHuecosDeOperadorEstanEnSuSitio) {
  auto rs = db->OpenTable(u"GRUPOS", u"CODGPO");
  ASSERT_TRUE(rs);
  for (int i = 0; i < 20; ++i) {
    const QString nn = QStringLiteral("%1").arg(i + 1, 2, 10, QLatin1Char('0'));
    EXPECT_EQ((*rs)->columna(QString("OP" + nn + "_C")), 2 * i + 12);
    EXPECT_EQ((*rs)->columna(QString("op" + nn + "_t")), 2 * i + 13);
  }
  EXPECT_GE((*rs)->columna(u"IVD40"), 0);
  EXPECT_GE((*rs)->columna(u"IVA05"), 0);
}

TEST_F(Tablas, LosBorradosYCambiosVanEnCascada) {
  hacer(
      "insert into SECCS (NMSECC) values (2);\ninsert into DEPTS (SECCION, NUMDEP) values (2, 1);\n"
      "insert into PLUSES (SECCION, CODPLU) values (2, 10), (2, 11);\ninsert into ALMACEN (CODALM) "
      "values (4);\n"
      "insert into GRUPOS (CODGPO, SECCION, Almacen) values (1, 2, 4), (2, 1, 4);\ninsert into "
      "GRUPOS (CODGPO) values (3);\n"
      "insert into MovsAlm (CODALM, SECCION, CODIGO) values (4, 2, 10), (4, 2, 11), (0, 2, 11);\n"
      "insert into ALBA_CAB (NUMALB, Almacen) values (1, 4);\ninsert into ALBA_LIN (NUMALB) values "
      "(1);\n"
      "insert into PEDI_CAB (NUMPED, Almacen) values (1, 4);\n"
      "insert into Cliente (Codigo) values (1);\ninsert into AlbaranVentaCabecera (Numero, "
      "Cliente) values (5, 1);\n"
      "insert into AlbaranVentaDetalle (Numero, Linea) values (5, 1);\n");
  hacer(
      "update ALMACEN set CODALM=6 where CODALM=4;\nupdate Cliente set Codigo=8;\nupdate PLUSES "
      "set CODPLU=12 where CODPLU=11;\n");
  EXPECT_EQ(ver("select (select Almacen from GRUPOS where CODGPO=1), (select Almacen from "
                "ALBA_CAB), (select Almacen from PEDI_CAB), "
                "(select Cliente from AlbaranVentaCabecera), (select count(*) from MovsAlm where "
                "CODIGO=12)"),
            "6|6|6|8|2");
  const auto enUso = db->Execute(u"delete from ALMACEN where CODALM=6");
  EXPECT_EQ(enUso.error().clase, Fallo::Restriccion);
  hacer(
      "delete from SECCS where NMSECC=2;\ndelete from ALBA_CAB;\ndelete from "
      "AlbaranVentaCabecera;\n");
  EXPECT_EQ(ver("select (select count(*) from DEPTS), (select count(*) from PLUSES), (select "
                "count(*) from MovsAlm), "
                "(select count(*) from ALBA_LIN), (select count(*) from AlbaranVentaDetalle)"),
            "0|2|0|0|0");
  EXPECT_EQ(ver("select CODGPO from GRUPOS order by CODGPO"), "2 3");
  hacer(
      "update GRUPOS set Almacen=null;\ndelete from PEDI_CAB;\ninsert into MovsAlm (CODALM, "
      "SECCION, CODIGO) values (6, 1, 1);\n"
      "delete from ALMACEN;\n");
  EXPECT_EQ(ver("select count(*) from MovsAlm"), "0");
  hacer(
      "insert into GRUPOS (CODGPO) values (7);\ninsert into GRUPOS (CODGPO, Almacen) values (8, "
      "0);\n");
  EXPECT_EQ(ver("select count(*) from GRUPOS where Almacen=0"), "2")
      << "no warehouse is no reason to refuse a group";
}

TEST_F(Tablas, LasReglasDeLosDatos) {
  const std::vector<std::pair<const char*, Fallo>> casos{
      {"insert into PLUSES (SECCION, CODPLU, CodBarExt) values (1, 21, '84')", Fallo::Duplicado},
      {"insert into PLUSES (SECCION, CODPLU) values (1, 20)", Fallo::Duplicado},
      {"insert into BZAS (SUGPO, NMBZA, MESS_R) values (1, 1, 101)", Fallo::Restriccion},
      {"insert into TOTPLU (LINK, GRUPO, CODI) values (1, 1, 1)", Fallo::Duplicado},
      {"insert into MovsAlm (CODALM, SECCION, CODIGO) values (0, 1, 999)", Fallo::Restriccion}};
  hacer(
      "insert into PLUSES (SECCION, CODPLU, CodBarExt) values (1, 20, '84');\n"
      "insert into PLUSES (SECCION, CODPLU, CodBarExt) values (1, 22, null), (1, 23, null);\n"
      "insert into SECCS (NMSECC) values (2);\ninsert into PLUSES (SECCION, CODPLU, CodBarExt) "
      "values (2, 20, '84');\n"
      "insert into TOTPLU (LINK, GRUPO, CODI) values (1, 1, 1);\n");
  for (const auto& [sql, clase] : casos) {
    const auto r = db->Execute(QString::fromLatin1(sql));
    ASSERT_FALSE(r) << sql;
    EXPECT_EQ(r.error().clase, clase) << sql;
  }
}

TEST_F(Tablas, LasVistasDanNombresEImportes) {
  hacer(
      "insert into DEPTS (SECCION, NUMDEP, NomDep) values (1, 4, 'Fruta');\ninsert into OPERS "
      "values (7, 'Ana');\n"
      "insert into PLUSES (SECCION, CODPLU, NOMPLU, CADA, COSTE) values (1, 30, 'Pera', 0, 150), "
      "(1, 31, 'Kiwi', 2, 20);\n"
      "insert into GRUPOS (CODGPO, NOMGPO, SECCION) values (5, 'Tienda', 1);\n"
      "insert into COLUMNA (LINK, TIPO, FECHA1, FECHAF) values (9, 1, 100, 100.5);\n"
      "insert into TOTPLU values (9, 5, 30, 1, 1500, 225, 0), (9, 5, 77, 2, 0, 10, 0), (8, 6, 30, "
      "1, 1, 1, 1);\n"
      "insert into TOTGRT values (9, 5, 0, 3, 1500, 235, 0);\ninsert into TOTOPE values (9, 5, 7, "
      "3, 1500, 235, 0);\n"
      "insert into TOTDEP values (9, 5, 4, 1, 1500, 225, 0);\ninsert into TOTHOR values (9, 5, 12, "
      "3, 1500, 235, 0);\n"
      "insert into TOTOPHOR values (9, 5, 7, 12, 3, 1500, 235, 0);\n"
      "insert into INVE_LIN (NUMINV, SECCION, CODIGO, UNIDS, PESO) values (1, 1, 30, 0, 500), (1, "
      "1, 31, 3, 0), (1, 1, 99, 1, 0);\n");
  EXPECT_EQ(ver("SELECT SECCION, GRUPO, CODI, NOMBRE, CON, PES/1000, [IMP]/100, SCO/100 FROM "
                "QNTPLU WHERE (QNTPLU.LINK= 9)"),
            "1|5|30|Pera|1|1.5|2.25|0 1|5|77|~|2|0|0.1|0");
  EXPECT_EQ(ver("select NOMBRE from QNTGRT"), "Tienda");
  EXPECT_EQ(ver("select NOMBRE from QNTOPE"), "Ana");
  EXPECT_EQ(ver("select NOMBRE from QNTDEP"), "Fruta");
  EXPECT_EQ(ver("select CODI, IMP from QNTHOR"), "12|235");
  EXPECT_EQ(ver("select CODI, HORA, IMP from QTOPH"), "7|12|235");
  EXPECT_EQ(ver("SELECT DIA1, DIAF, NOMBRE, GRUPO, CON FROM QNFPLU WHERE (TIPO= 1) AND (SECCION= "
                "1) AND (CODI= 30)"),
            "100|100.5|Pera|5|1");
  EXPECT_EQ(ver("SELECT NUMINV, SECCION, CODIGO, NOMPLU, IMPORTE/1 FROM QLININV WHERE NUMINV= 1 "
                "ORDER BY SECCION, NOMPLU"),
            "1|1|99|~|~ 1|1|31|Kiwi|60 1|1|30|Pera|75");
  ASSERT_TRUE(QLinkDePeriodo(*db, 8));
  EXPECT_EQ(ver("select GRUPO from QLINK"), "6");
  ASSERT_TRUE(QLinkDeArticulo(*db, 30));
  EXPECT_EQ(ver("select LINK from QLINK order by LINK"), "8 9");
}

TEST_F(Tablas, LasFacturasRedondeanCadaTipoPorSeparado) {
  hacer(
      "insert into Cliente (Codigo, Nombre, UsaREq) values (1, 'A', 1), (2, 'B', 0);\n"
      "insert into FacturaVentaCabecera (Serie, Numero, Cliente, Descuento, DesctoPP) values (0, "
      "1, 1, 10, 5), (0, 2, 2, 0, 0);\n"
      "insert into FacturaVentaDetalle (Serie, Numero, Linea, Importe, pIVA, pREq, Bultos, Envase) "
      "values "
      "(0, 1, 1, 10.10, 21, 5.2, 2, 50), (0, 1, 2, 3.33, 10, 1.4, 0, 0), (0, 2, 1, 100, 21, 5.2, "
      "0, 0);\n"
      "insert into AlbaranVentaCabecera (Numero, Cliente) values (1, 1);\n"
      "insert into AlbaranVentaDetalle (Numero, Linea, Cada, Cantidad, Precio, CanStock) values "
      "(1, 1, 0, 1500, 1000, 0);\n");
  EXPECT_EQ(ver("select count(*) from ListaBasesImponibles where Numero=1"), "2");
  EXPECT_EQ(ver("select format(Neto,'0.00'), format(IVA,'0.00'), format(REq,'0.00'), sEnvases from "
                "ListaFacturas order by Numero"),
            "11.42|2.08|0.49|1 100.00|21.00|0.00|0");
  EXPECT_EQ(ver("select Importe, stock, nlin from ListaAlbaranes"), "1500|1|1");
}

TEST_F(Tablas, CualquierProgramaAbreLeeYEscribe) {
  EXPECT_EQ(
      concha(
          "insert into PLUSES (SECCION, CODPLU, NOMPLU) values (1, 40, 'Ñame'), (1, 41, 'nuez'), "
          "(1, 42, 'Óleo');"
          "insert into GRUPOS (CODGPO, NOMGPO, SECCION) values (1, 'G', 1); insert into TOTPLU "
          "(LINK, GRUPO, CODI) values (0, 1, 40);"
          "insert into BZAS (SUGPO) values (1); insert into Transacs (docID) values (1); insert "
          "into Cliente (Nombre) values ('x');"
          "select Almacen, IVD40 from GRUPOS; pragma foreign_key_check; pragma integrity_check;"),
      "0|1\nok");
  QStringList vistas;
  auto rs = db->consultar(u"select name from sqlite_master where type='view'");
  for (; !(*rs)->Eof(); avanzar(**rs)) vistas += "select count(*)>=0 from " + (*rs)->texto(0) + ';';
  EXPECT_EQ(concha(vistas.join(u' ')).find('0'), std::string::npos);
  EXPECT_EQ(vistas.size(), 21);
  auto plu = db->OpenTable(u"PLUSES", u"NOMBRE");
  ASSERT_TRUE(*(*plu)->Seek(dao::Busca::MayorIgual, 1, QStringLiteral("n")));
  std::string orden;
  for (; orden.size() < 12 && !(*plu)->Eof(); avanzar(**plu))
    orden += std::to_string((*plu)->entero((*plu)->columna(u"CODPLU"))) + ' ';
  EXPECT_EQ(orden.substr(0, 9), "41 40 42 ");
}

}  // namespace
}  // namespace tarvo::esquema
