// Operations on a period that failed one night are owed, done once, and can be dropped.
#include <QDir>

#include "Runner.h"
#include "automation/historia/Pendientes.h"

namespace tarvo::automation {
namespace {

class DeudasTest : public RunnerTest {};

// A discount that fails tonight because of one group is made once the group is corrected.
TEST_F(DeudasTest, LoQueNoSeDescontoSeDescuentaLaNocheSiguiente) {
  const auto noche = [&](const QString& arreglo) {
    const auto p = tienda_.programa();
    EXPECT_TRUE(p->db().ejecutar(arreglo));
    const auto lineas = correr(kNoche, *p);
    fin_ = p->fin.value_or(ResultadoProceso::Abortado);
    tienda_.reloj.avanzar(24LL * 3600 * 1000);
    maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
    return lineas;
  };
  EXPECT_FALSE(noche(u"UPDATE GRUPOS SET SECCION=NULL WHERE CODGPO=2"_s)
                   .filter(u"falta la sección o el almacén de estos grupos: 2."_s)
                   .isEmpty());
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_FALSE(noche(u"UPDATE GRUPOS SET NOMGPO='x'"_s).filter(u"Sigue pendiente"_s).isEmpty());
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_TRUE(tienda_.libros().filter(u"MovsAlm"_s).isEmpty());
  EXPECT_EQ(noche(u"UPDATE GRUPOS SET SECCION=1"_s).filter(u"se ha hecho ahora"_s).size(), 2);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_TRUE(tienda_.libros().contains(u"MovsAlm: 1|7|1700"_s))
      << tienda_.libros().join(u'\n').toStdString();
  EXPECT_TRUE(noche(u"UPDATE GRUPOS SET NOMGPO='y'"_s).filter(u"se ha hecho ahora"_s).isEmpty());
}

// A file that can't be written tonight gets this night's block tomorrow, once, before tomorrow's.
TEST_F(DeudasTest, LoQueNoSeExportoSeExportaLaNocheSiguiente) {
  const QString exportado = tienda_.dir.filePath(u"VENTAS.EXP"_s);
  const auto noche = [&](const QString& destino) {
    const auto lineas = correr(QString(kNoche).replace(u"VENTAS"_s, destino));
    tienda_.reloj.avanzar(24LL * 3600 * 1000);
    maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
    return lineas;
  };
  ASSERT_TRUE(QDir().mkpath(exportado));
  for (const int nueva : {0, 1}) {
    EXPECT_EQ(noche(u"VENTAS"_s).filter(u"Sigue pendiente"_s).size(), nueva);
    EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  }
  ASSERT_TRUE(QDir(exportado).removeRecursively());
  // Another name for the file is just as good a remedy.
  EXPECT_EQ(noche(u"OTRO"_s).filter(u"se ha hecho ahora"_s).size(), 2);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_EQ(tienda_.texto(u"OTRO.EXP"_s).count(u"*Ventas"_s), 3);
  EXPECT_TRUE(noche(u"OTRO"_s).filter(u"se ha hecho ahora"_s).isEmpty());
  EXPECT_EQ(tienda_.texto(u"OTRO.EXP"_s).count(u"*Ventas"_s), 4);
}

// Owed once however often it was tried, and whichever step exports it into that file.
TEST_F(DeudasTest, UnPeriodoSeDebeUnaSolaVez) {
  for (const bool borrar : {false, true}) {
    Tienda tienda;
    const auto p = tienda.programa();
    for (const char16_t* sql :
         {u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR) VALUES (7, 5, 43000, 43001, "
          u"'x')",
          u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR) VALUES (8, 5, 43002, 43003, "
          u"'y')",
          u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON) VALUES (7, 1, 0, 10000000)"})
      ASSERT_TRUE(p->db().ejecutar(QString::fromUtf16(sql)));
    const QString proceso =
        u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,%1,VENTAS\r\n"_s.arg(
            borrar ? u"Sí"_s : u"No"_s);
    for (int vez = 0; vez < 3; ++vez) {
      p->lineas.clear();
      correr(vez < 2 ? proceso : proceso + u"N:editado\r\n"_s, *p);
      EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
      EXPECT_EQ(p->lineas.filter(u"Queda pendiente"_s).size(), vez == 0 ? 1 : 0);
      EXPECT_EQ(p->lineas.filter(u"Sigue pendiente"_s).size(), vez == 0 ? 0 : 1);
    }
    p->correr(proceso, {}, u"OTRO"_s);
    EXPECT_TRUE(p->hastaElFin());
    ASSERT_TRUE(p->db().ejecutar(u"UPDATE TOTGRT SET CON=1"));
    const auto antes = tienda.texto(u"VENTAS.EXP"_s);
    EXPECT_FALSE(antes.contains(u"*x"_s));
    EXPECT_EQ(antes.count(u"*y"_s), borrar ? 1 : 4) << "the other period is not held back";
    for (int vez = 0; vez < 2; ++vez) {
      p->lineas.clear();
      correr(u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,%1,VENTAS\r\n"_s.arg(
                 borrar ? u"Sí"_s : u"No"_s),
             *p);
      if (vez == 0) {
        EXPECT_EQ(p->fin, ResultadoProceso::Bien) << p->lineas.join(u'\n').toStdString();
      }
      EXPECT_EQ(tienda.texto(u"VENTAS.EXP"_s).count(u"*x"_s), borrar ? 1 : 1 + vez);
    }
    EXPECT_EQ(p->db().uno(u"SELECT count(*) FROM ExportesPendientes")->entero(), 0);
  }
}

// The number of a deleted period was given to another one, for which nothing is owed.
TEST_F(DeudasTest, UnNumeroDadoDeNuevoNoHeredaDeudas) {
  const auto p = tienda_.programa();
  correr(u"N:x"_s, *p);
  const auto periodo = [&](int dia) {
    ASSERT_TRUE(p->db().ejecutar(u"DELETE FROM COLUMNA"));
    ASSERT_TRUE(p->db().ejecutar(
        u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, stkABLE) VALUES (7, 1, ?, ?, 1)", dia,
        dia + 0.9));
  };
  periodo(43000);
  ASSERT_TRUE(
      p->db().ejecutar(u"INSERT INTO TOTPLU (LINK, GRUPO, CODI, CON, PES) VALUES (7, 1, 7, "
                       u"1, 1)"));
  Pendientes libro(p->db());
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Stock, 0}, {7}));
  ASSERT_TRUE(libro.anotarExporte({u"NOCHE"_s, 1, u"x"_s}, {u"1.1.7"_s, {7}}));
  periodo(43001);
  EXPECT_TRUE(libro.todos()->empty());
  p->lineas.clear();
  correr(u"P:STOCK\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  EXPECT_TRUE(p->lineas.filter(u"pendiente"_s).isEmpty()) << p->lineas.join(u'\n').toStdString();
  EXPECT_TRUE(tienda_.texto(u"VENTAS.EXP"_s).isEmpty());
  EXPECT_EQ(p->db().uno(u"SELECT count(*) FROM MovsAlm")->entero(), 0);
}

TEST_F(DeudasTest, LoQueNoPuedeHacerseLoOlvidaUnaPersona) {
  const auto p = tienda_.programa();
  for (const char16_t* sql :
       {u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR) VALUES (7, 1, 43000, "
        u"43000.999988425926, 'x')",
        u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON) VALUES (7, 1, 0, 10000000)"})
    ASSERT_TRUE(p->db().ejecutar(QString::fromUtf16(sql)));
  correr(u"P:SELECCIONAR,1,22/09/2017,22/09/2017\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  Pendientes libro(p->db());
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Acumular, 2}, {7}));
  auto todos = libro.todos();
  ASSERT_TRUE(todos);
  ASSERT_EQ(todos->size(), 2U);
  EXPECT_EQ(todos->at(0).proceso, u"NOCHE");
  EXPECT_EQ(todos->at(0).fichero, tienda_.dir.filePath(u"VENTAS.EXP"_s));
  EXPECT_EQ(todos->at(1).que, Pendientes::Debido::Que::Acumular);
  EXPECT_EQ(todos->at(1).mayor, 2);
  for (const auto& debido : *todos) {
    EXPECT_EQ(debido.descripcion, u"x");
    EXPECT_TRUE(*libro.olvidar(debido));
    EXPECT_FALSE(*libro.olvidar(debido));
  }
  p->lineas.clear();
  correr(u"P:LIMPIAR\r\nE:TOTALIZA,No,No,VENTAS\r\nP:ACUMULAR,2\r\n"_s, *p);
  EXPECT_TRUE(p->lineas.filter(u"pendiente"_s).isEmpty()) << p->lineas.join(u'\n').toStdString();
}

}  // namespace
}  // namespace tarvo::automation
