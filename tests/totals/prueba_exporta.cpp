#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "totals/Tienda.h"
#include "totals/intercambio/Anadidura.h"
#include "totals/periodos/AjustesPeriodos.h"

using namespace tarvo;
using namespace tarvo::totals;
using tarvo::prueba::bien;
using tarvo::prueba::momento;

namespace {

struct Exporta : testing::Test, prueba::Tienda {
  QByteArray fichero(const QString& nombre) {
    QFile f(ruta(nombre));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(nada)");
  }
  void escribir(const QString& nombre, const QByteArray& bytes) {
    QFile f(ruta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  void fila(const char* tabla, qint64 link, qint64 grupo, qint64 codi, Contadores c) {
    sql(QStringLiteral(
            "insert into %1 (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) values (?, ?, ?, ?, ?, ?, ?)")
            .arg(QString::fromUtf8(tabla)),
        link, grupo, codi, c.CON, c.PES, c.IMP, c.SCO);
  }
  qint64 diaEntero() {
    const qint64 dia = crear(1, "05/06/2018");
    fila("TOTPLU", dia, 2, 7, {3, 0, 450, 0});
    fila("TOTPLU", dia, 1, 1234, {12, 3456, 7890, -50});
    fila("TOTGRT", dia, 1, 0, {5, 6, 7, 8});
    fila("TOTOPE", dia, 1, 9, {-1, -2, -3, 0});
    fila("TOTDEP", dia, 9, 4, {1, 2, 3, 4});
    fila("TOTHOR", dia, 1, 23, {1, 2, 3, 4});
    operHora(dia, 12, 8, 6);
    return dia;
  }
  bool exportar(qint64 link, const char* nombre, bool borrar = false, const char* marca = "",
                bool corto = false) {
    return bien(xporTot.XportRemoto({link}, {corto, borrar}, QString::fromUtf8(nombre),
                                    QString::fromUtf8(marca)));
  }
  std::vector<ImpTot::Hecho> importar(const QByteArray& bytes, SiExiste como = SiExiste::Borrarlo) {
    std::vector<ImpTot::Hecho> hechos;
    bien(impTot.importarBytes(bytes, QStringLiteral("X.EXP"), como, hechos));
    return hechos;
  }
  QString errorDe(const QByteArray& bytes, size_t enteros = 0) {
    std::vector<ImpTot::Hecho> hechos;
    const auto r =
        impTot.importarBytes(bytes, QStringLiteral("X.EXP"), SiExiste::Acumularlo, hechos);
    EXPECT_EQ(hechos.size(), enteros);
    return r ? QStringLiteral("(bien)") : r.error().texto;
  }
};

const QByteArray kLargo =
    "*Semana, santa-5 junio 2018\r\n"
    "*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"
    "01000100300012340000007890-00000005000003456000012\r\n"
    "01000200300000070000000450000000000000000000000003\r\n"
    "02000100300000000000000007000000000800000006000005\r\n"
    "0300010030000009-0000000030000000000-0000002-00001\r\n"
    "04000900000000040000000003000000000400000002000001\r\n"
    "06000100300000230000000003000000000400000002000001\r\n"
    "07000100300012080000000006000000000000000000000006\r\n";

const QByteArray kCorto =
    "*Semana, santa-5 junio 2018\r\n"
    "*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"
    "010112340000007890-00000005000003456000012\r\n"
    "010200070000000450000000000000000000000003\r\n"
    "020000010000000007000000000800000006000005\r\n"
    "03010009-0000000030000000000-0000002-00001\r\n"
    "040900040000000003000000000400000002000001\r\n"
    "060100230000000003000000000400000002000001\r\n"
    "070112080000000006000000000000000000000006\r\n";

TEST_F(Exporta, WritesBothLayouts) {
  const qint64 dia = diaEntero();
  EXPECT_TRUE(exportar(dia, "largo"));
  EXPECT_TRUE(exportar(dia, "corto.txt", false, "", true));
  EXPECT_EQ(fichero(QStringLiteral("largo.EXP")), kLargo);
  EXPECT_EQ(fichero(QStringLiteral("corto.txt")), kCorto);
  EXPECT_TRUE(exportar(dia, "LARGO.exp"));  // after what is there
  EXPECT_EQ(fichero(QStringLiteral("largo.EXP")), kLargo + kLargo);
}

TEST_F(Exporta, HeadersFitTheFile) {
  const qint64 tramo = crear(5, "05/06/2018 13:00:01", "06/06/2018 08:30");
  sql(QStringLiteral("update COLUMNA set DESCR=?"), QStringLiteral("Año\r\nde €, \u4e2d"));
  escribir(QStringLiteral("A.EXP"), "0100");  // cut off by someone else
  EXPECT_TRUE(exportar(tramo, "a"));
  EXPECT_EQ(fichero(QStringLiteral("A.EXP")),
            "0100\r\n*A\xF1o  de \x80, ?\r\n*05/06/2018 13:00:01  06/06/2018 08:30:00\r\n");
}

TEST_F(Exporta, AValueThatDoesNotFitStopsAll) {
  const qint64 dia = crear(1, "05/06/2018"), otro = crear(1, "06/06/2018");
  fila("TOTPLU", dia, 1, 1, {1, 1, 1, 1});
  fila("TOTPLU", otro, 1, 70001, {1, 1, 1, 1});
  const auto probar = [&](bool corto) {
    return xporTot.XportRemoto({dia, otro}, {corto, true}, QStringLiteral("x"), QString());
  };
  const auto mal = probar(true);
  ASSERT_FALSE(mal);
  EXPECT_TRUE(mal.error().texto.contains(QStringLiteral("6 junio 2018")))
      << mal.error().texto.toStdString();
  EXPECT_TRUE(mal.error().texto.contains(QStringLiteral("70001")));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "(nada)");
  EXPECT_EQ(bien(periodos.lista()).size(), 2U);
  for (const auto& [valor, cabe] : {std::pair<qint64, bool>{999999, true},
                                    {1000000, false},
                                    {-99999, true},
                                    {-100000, false}}) {
    sql(QStringLiteral("update TOTPLU set CON=? where LINK=?"), valor, dia);
    EXPECT_EQ(bloque(dia).has_value(), cabe) << valor;
  }
}

TEST_F(Exporta, DeletesOnlyWhatIsOnDisk) {
  const qint64 dia = diaEntero();
  for (const char* malo : {"", "  ", "sub\\", "..", "noexiste/x"})
    EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, QString::fromUtf8(malo), QString()))
        << malo;
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_FALSE(bien(xporTot.XportRemoto({99, dia}, {}, QStringLiteral("x"), QString())));
  EXPECT_FALSE(bien(xporTot.XportRemoto({}, {}, QStringLiteral("x"), QString())));
  EXPECT_FALSE(xporTot.XportRemoto({dia, 99}, {false, true}, QStringLiteral("x"), QString()));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "(nada)");
  EXPECT_TRUE(exportar(dia, "x", true));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), kLargo);
  EXPECT_TRUE(bien(periodos.lista()).empty());
  EXPECT_EQ(plus(dia), QString());
}

// A slip of the name must not write into the database or a process.
TEST_F(Exporta, WritesIntoNoFileThatIsNotAnExport) {
  const qint64 dia = diaEntero();
  escribir(QStringLiteral("NOCHE.AUT"), "T:RXGRTOT,ALL\r\n");
  escribir(QStringLiteral("TARVO.LCK"), "");
  for (const char* ajeno : {"NOCHE.AUT", "noche.aut", "TARVO.LCK"})
    EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, QString::fromUtf8(ajeno), QString()))
        << ajeno;
  EXPECT_EQ(fichero(QStringLiteral("NOCHE.AUT")), "T:RXGRTOT,ALL\r\n");
  EXPECT_EQ(fichero(QStringLiteral("TARVO.LCK")), "");
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_TRUE(exportar(dia, "VENTAS.TXT"));
  EXPECT_TRUE(exportar(dia, "VENTAS.TXT"));
  EXPECT_EQ(fichero(QStringLiteral("VENTAS.TXT")), kLargo + QByteArray(kLargo));
}

// The disk takes a hundred bytes more than the old file has, which is far above the database.
TEST_F(Exporta, AFullDiskLeavesTheOldFile) {
  const qint64 dia = diaEntero();
  const qint64 grande = qint64{64} << 20;
  escribir(QStringLiteral("x.EXP"), "*antes\r\n");
  QFile x(ruta(QStringLiteral("x.EXP")));
  ASSERT_TRUE(x.resize(grande));
  rlimit normal{};
  getrlimit(RLIMIT_FSIZE, &normal);
  rlimit lleno = normal;
  lleno.rlim_cur = grande + 100;
  const auto anterior = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &lleno);
  const auto r = xporTot.XportRemoto({dia}, {false, true}, QStringLiteral("x"), QString());
  setrlimit(RLIMIT_FSIZE, &normal);
  std::signal(SIGXFSZ, anterior);
  ASSERT_FALSE(r);
  EXPECT_EQ(r.error().clase, Fallo::DiscoLleno);
  EXPECT_EQ(x.size(), grande);
  EXPECT_EQ(QDir(carpeta.path()).entryList({QStringLiteral("x.EXP?*")}, QDir::Files).size(), 0);
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
}

// The program is killed in the middle of a block: what there is of it goes at the next start, or
// when the file is written to again.
TEST_F(Exporta, AKillLeavesNoHalfBlock) {
  const qint64 dia = diaEntero();
  const auto morirEscribiendo = [&](const QString& nombre, int bytes) {
    const pid_t hijo = fork();
    if (hijo == 0) {
      auto suya = dao::Database::OpenDatabase(ruta(QStringLiteral("TARVO.MDB")), {});
      auto a = suya ? Anadidura::empezar(**suya, ruta(nombre), 200000, "****", textosDePrueba())
                    : std::unexpected(suya.error());
      if (a && (*a)->escribir(QByteArray(bytes, '*'))) std::raise(SIGKILL);
      _exit(1);
    }
    int estado = 0;
    waitpid(hijo, &estado, 0);
    ASSERT_TRUE(WIFSIGNALED(estado));
  };
  escribir(QStringLiteral("x.EXP"), "*antes\r\n");
  for (const bool alEmpezar : {true, false}) {
    morirEscribiendo(QStringLiteral("x.EXP"), 100000);
    morirEscribiendo(QStringLiteral("nuevo.EXP"), 100000);
    EXPECT_EQ(fichero(QStringLiteral("x.EXP")).size(), 100008);
    if (alEmpezar) {
      bien(xporTot.recuperar());
      EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "*antes\r\n");
      EXPECT_EQ(fichero(QStringLiteral("nuevo.EXP")), "(nada)");
    } else {
      EXPECT_TRUE(exportar(dia, "x"));
      EXPECT_TRUE(exportar(dia, "nuevo"));
      EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "*antes\r\n" + kLargo);
      EXPECT_EQ(fichero(QStringLiteral("nuevo.EXP")), kLargo);
    }
  }
  // Somebody has put another file in its place.
  const QByteArray otro = "*otro\r\n" + QByteArray(kLargo + kLargo);
  for (const char* nombre : {"x.EXP", "otro.EXP"}) {
    morirEscribiendo(QString::fromUtf8(nombre), 100000);
    escribir(QString::fromUtf8(nombre), otro);
    bien(xporTot.recuperar());
    EXPECT_EQ(fichero(QString::fromUtf8(nombre)), otro);
  }
  EXPECT_EQ(leer(QStringLiteral("select count(*) from ExportesAbiertos")), QStringLiteral("0"));
}

// A block is in the file and not in the database: it counts for nothing, and goes.
TEST_F(Exporta, ABlockThatCannotBeCountedIsTakenBack) {
  const qint64 dia = diaEntero();
  escribir(QStringLiteral("x.EXP"), "*antes\r\n");
  sql(
      QStringLiteral("create trigger lleno before insert on Exportes begin select raise(abort, "
                     "'disco lleno'); end"));
  EXPECT_FALSE(
      xporTot.XportRemoto({dia}, {false, true}, QStringLiteral("x"), QStringLiteral("17.3")));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "*antes\r\n");
  EXPECT_TRUE(bien(periodos.columna(dia)));
  sql(QStringLiteral("drop trigger lleno"));
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), "*antes\r\n" + kLargo);
}

// What the file holds is neither read nor written again: a file with a hole of 3 GiB in it.
TEST_F(Exporta, AFileAboveOneGibibyte) {
  const qint64 dia = diaEntero();
  const qint64 grande = qint64{3} << 30;
  {
    QFile f(ruta(QStringLiteral("x.EXP")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("*") == 1 && f.resize(grande - 2) &&
                f.seek(grande - 2) && f.write("\r\n") == 2);
  }
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  sql(QStringLiteral("update Exportes set HECHO=0"));
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  QFile f(ruta(QStringLiteral("x.EXP")));
  ASSERT_TRUE(f.open(QIODevice::ReadOnly) && f.seek(grande));
  EXPECT_EQ(f.readAll(), kLargo);
}

// The export was cut off after the block, or before it; other blocks may have come after.
TEST_F(Exporta, ABlockIsNotWrittenTwiceForOneMark) {
  const qint64 dia = diaEntero(), otro = crear(1, "06/06/2018");
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  sql(QStringLiteral("update Exportes set HECHO=0"));
  EXPECT_TRUE(exportar(otro, "x"));
  const QByteArray todo = fichero(QStringLiteral("x.EXP"));
  // Midnight has passed, and the name with it.
  EXPECT_TRUE(exportar(dia, "y", true, "17.3"));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")), todo);
  EXPECT_EQ(fichero(QStringLiteral("y.EXP")), "(nada)");
  EXPECT_FALSE(bien(periodos.columna(dia)));
  // Done for good: a new period that took the number of the deleted one is safe.
  sql(QStringLiteral("insert into COLUMNA (LINK, TIPO) values (?, 1)"), dia);
  EXPECT_TRUE(exportar(dia, "x", true, "17.3"));
  EXPECT_TRUE(bien(periodos.columna(dia)));
  // The mark was written and the file was not.
  escribir(QStringLiteral("x.EXP"), todo.left(40));
  EXPECT_TRUE(exportar(otro, "x", false, "17.3"));
  EXPECT_EQ(fichero(QStringLiteral("x.EXP")).count("*"),
            4);  // two of what was left, two of the new block
}

TEST_F(Exporta, ComesBackAsItWent) {
  const qint64 dia = diaEntero();
  const auto todo = [&](qint64 link) {
    QStringList filas;
    for (const ClaseTotal& c : todasLasClases())
      filas << leer(
          QStringLiteral(
              "select GRUPO, CODI, CON, PES, [IMP], SCO from %1 where LINK=%2 order by GRUPO, CODI")
              .arg(QString::fromUtf16(c.tabla))
              .arg(link));
    return filas.join(u'\n');
  };
  const QString antes = todo(dia);
  bien(periodos.BorrarPeriodo(dia));
  auto hechos = importar(kLargo);
  ASSERT_EQ(hechos.size(), 1U);
  EXPECT_EQ(hechos[0].lineas, 7);
  EXPECT_EQ(hechos[0].periodo, LimitesPeriodo(1, momento("05/06/2018"), {}));
  EXPECT_EQ(todo(hechos[0].link), antes);
  EXPECT_EQ(leer(QStringLiteral("select HORA from TOTOPHOR")), QStringLiteral("8"));
  EXPECT_TRUE(col(hechos[0].link).stkABLE);
  EXPECT_EQ(col(hechos[0].link).DESCR, QStringLiteral("Semana, santa-5 junio 2018"));
}

// Of a file no more than a line is in memory, however much there is of it.
TEST_F(Exporta, AnEndlessFileIsReadToItsEnd) {
  QFile f(ruta(QStringLiteral("x.EXP")));
  const qint64 grande = qint64{300} << 20;
  ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.resize(grande) && f.seek(grande) &&
              f.write("\r\n" + kLargo) > 0);
  f.close();
  std::vector<ImpTot::Hecho> hechos;
  bien(impTot.importar(f.fileName(), SiExiste::Borrarlo, hechos));
  ASSERT_EQ(hechos.size(), 1U);
  EXPECT_EQ(hechos[0].lineas, 7);
}

// What we wrote in the short layout comes back as it was, what another system wrote is read by its
// columns, and a line that may be either is refused.
TEST_F(Exporta, ReadsTheShortLayoutOfBothSystems) {
  const qint64 dia = crear(1, "05/06/2018");
  for (const char* tabla : {"TOTPLU", "TOTOPE", "TOTDEP"}) fila(tabla, dia, 1, 44, {1, 2, 3, 4});
  fila("TOTGRT", dia, 2, 0, {1, 2, 3, 4});
  fila("TOTOPE", dia, 2, 1234, {5, 6, 7, 8});
  fila("TOTHOR", dia, 1, 23, {1, 2, 3, 4});
  operHora(dia, 12, 8, 6);
  const auto todo = [&] {
    QStringList filas;
    for (const ClaseTotal& c : todasLasClases())
      filas << leer(QStringLiteral("select GRUPO, CODI, CON, PES, [IMP], SCO from %1 order by "
                                   "GRUPO, CODI")
                        .arg(QString::fromUtf16(c.tabla)));
    return filas.join(u'\n');
  };
  const QString antes = todo();
  EXPECT_TRUE(exportar(dia, "x", true, "", true));
  importar(fichero(QStringLiteral("x.EXP")));
  EXPECT_EQ(todo(), antes);

  const QByteArray cabecera = "*uno\r\n*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n";
  const QByteArray resto = "0000000001000000000000000000000001\r\n";
  struct Caso {
    const char* cabeza;
    const char* tabla;
    const char* clave;  // null: refused
  };
  const Caso casos[] = {
      {"03000209", "TOTOPE", "2 9"},   {"03990209", "TOTOPE", "2 9"},
      {"03020009", "TOTOPE", "2 9"},   {"03010209", "TOTOPE", nullptr},
      {"03998809", "TOTOPE", nullptr}, {"04990104", "TOTDEP", "1 4"},
      {"04010304", "TOTDEP", "1 4"},   {"04010204", "TOTDEP", "2 4"},
      {"02000002", "TOTGRT", "2 0"},
  };
  for (const Caso& c : casos) {
    const QByteArray bytes = cabecera + c.cabeza + resto;
    if (!c.clave) {
      EXPECT_TRUE(errorDe(bytes).contains(QStringLiteral("línea 3: en el formato corto")))
          << c.cabeza;
      continue;
    }
    const qint64 link = importar(bytes).at(0).link;
    EXPECT_EQ(leer(QStringLiteral("select GRUPO, CODI from %1 where LINK=%2")
                       .arg(QString::fromUtf8(c.tabla))
                       .arg(link)),
              QString::fromUtf8(c.clave))
        << c.cabeza;
  }
}

TEST_F(Exporta, TwoBlocksOfOneDayAddUpOrReplace) {
  const QByteArray linea = "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray cabecera = "*05/06/2018 00:00:00  05/06/2018 23:59:59\n*uno\n";
  const QByteArray bloque = cabecera + linea + "\r\n" + linea;
  auto hechos = importar("basura\r\n" + bloque + bloque, SiExiste::Acumularlo);
  ASSERT_EQ(hechos.size(), 2U);
  EXPECT_EQ(plus(hechos[1].link), QStringLiteral("1 7 4 0 400 0"));
  hechos = importar("\xEF\xBB\xBF" + bloque + cabecera + linea);
  EXPECT_EQ(plus(hechos[1].link), QStringLiteral("1 7 1 0 100 0"));
  hechos = importar(cabecera);
  EXPECT_EQ(hechos[0].lineas, 0);
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_EQ(plus(hechos[0].link), QString());
}

TEST_F(Exporta, TheWeekAndTheStockFollowAnImport) {
  const qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 1);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_TRUE(bien(periodos.DescontarPeriodo(col(dia), 1)));
  const qint64 semana = bien(periodos.BuscarPeriodo(2, momento("05/06/2018"), {}))->LINK;
  const QByteArray bloque =
      "*uno\n*05/06/2018 00:00:00  05/06/2018 "
      "23:59:59\n01000100300000070000000100000000000000000000000002\n";
  importar(bloque, SiExiste::Acumularlo);
  EXPECT_EQ(plus(semana), QStringLiteral("1 7 3 10 200 1000"));
  EXPECT_EQ(venta(), QStringLiteral("7 3"));
  const qint64 nuevo = importar(bloque, SiExiste::Borrarlo).at(0).link;
  EXPECT_EQ(plus(semana), QStringLiteral("1 7 3 10 200 1000"));
  EXPECT_FALSE(col(nuevo).ACUM2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(nuevo))));
  EXPECT_TRUE(bien(periodos.DescontarPeriodo(col(nuevo), 1)));
  EXPECT_EQ(plus(semana), QStringLiteral("1 7 2 0 100 0"));
  EXPECT_EQ(venta(), QStringLiteral("7 2"));
}

TEST_F(Exporta, DatesFindTheirPeriod) {
  ajustes.de<AjustesPeriodos>().FestivoSemanal[6] = true;
  struct Caso {
    const char* fechas;
    int tipo;
  };
  const Caso casos[] = {
      {"04/06/2018 21:00:00  05/06/2018 22:00:00", 1},
      {"04/06/2018 00:00:00  10/06/2018 23:59:59", 2},
      {"01/06/2018 00:00:00  30/06/2018 23:59:59", 3},
      {"01/01/2018 00:00:00  31/12/2018 23:59:59", 4},
      {"10/06/2018 00:00:00  10/06/2018 23:59:59", 1},  // a closed Sunday, exported as a day
      {"05/06/2018 14:00:00  05/06/2018 22:00:00", 5},
      {"05/06/2018 22:00:00  04/06/2018 22:00:00", 5}};
  for (const Caso& c : casos)
    EXPECT_EQ(importar(QByteArray("*x\n*") + c.fechas).at(0).periodo.tipo, c.tipo) << c.fechas;
  // A description that looks like dates.
  const auto hechos = importar(
      "*01/01/2001 00:00:00  01/01/2001 00:00:00\n*05/06/2018 00:00:00  05/06/2018 23:59:59\n");
  EXPECT_EQ(hechos.at(0).periodo.desde, momento("05/06/2018"));
}

TEST_F(Exporta, ABadLineUndoesItsBlockAndIsNamed) {
  const QByteArray bien1 =
      "*uno\r\n*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"
      "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray dos =
      "*dos\r\n*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n"
      "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray malas[] = {
      "0100010030000007000000010000000000000000000000001",   // 49
      "05000100300000070000000100000000000000000000000001",  // a code of no kind
      "010001003000000700000001x0000000000000000000000001",
      "01000100300000070000000100          00000000000001", QByteArray(5000, '0')};
  for (const QByteArray& mala : malas) {
    EXPECT_TRUE(errorDe(bien1 + dos + mala + "\r\n", 1).contains(QStringLiteral("línea 7")))
        << mala.constData();
    EXPECT_FALSE(bien(periodos.BuscarPeriodo(1, momento("06/06/2018"), {})));
  }
  EXPECT_EQ(plus(1), QStringLiteral("1 7 5 0 500 0"));
  for (const char* mala : {"", "hola\r\n", "*uno\r\n", "*uno\r\n*dos\r\n",
                           "*uno\r\n\r\n*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"})
    EXPECT_TRUE(errorDe(mala).startsWith(
        QStringLiteral("ERROR: El fichero contiene líneas no reconocibles")))
        << mala;
  std::vector<ImpTot::Hecho> hechos;
  EXPECT_FALSE(impTot.importar(ruta(QStringLiteral("no.EXP")), SiExiste::Borrarlo, hechos));
  sql(QStringLiteral("update TOTPLU set [IMP]=9223372036854775800 where LINK=1"));
  EXPECT_NE(errorDe(bien1), QStringLiteral("(bien)"));
  EXPECT_EQ(plus(1), QStringLiteral("1 7 5 0 9223372036854775800 0"));
}

TEST(ExportaFuera, AnotherLanguageHasNoOperatorByHour) {
  prueba::Tienda t;
  const Ajustes uk(t.carpeta.path(), Idioma::UK, {ajustesPeriodos()});
  ImpTot impTot(*t.db, t.periodos, uk);
  std::vector<ImpTot::Hecho> hechos;
  EXPECT_FALSE(impTot.importarBytes(kLargo, QStringLiteral("X.EXP"), SiExiste::Borrarlo, hechos));
}

}  // namespace
