#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "tienda/Disco.h"
#include "totals/TiendaDeTotales.h"
#include "totals/intercambio/Anadidura.h"
#include "totals/periodos/AjustesPeriodos.h"

using namespace tarvo;
using namespace tarvo::totals;
using namespace Qt::StringLiterals;
using tarvo::prueba::bien;
using tarvo::prueba::momento;

namespace {

struct Exporta : testing::Test, prueba::TiendaDeTotales {
  void fila(const char16_t* tabla, qint64 link, qint64 grupo, qint64 codi, Contadores c) {
    total(tabla, {link, grupo, codi, c.CON, c.PES, c.IMP, c.SCO});
  }
  qint64 diaEntero() {
    const qint64 dia = crear(1, "05/06/2018");
    fila(u"TOTPLU", dia, 2, 7, {3, 0, 450, 0});
    fila(u"TOTPLU", dia, 1, 1234, {12, 3456, 7890, -50});
    fila(u"TOTGRT", dia, 1, 0, {5, 6, 7, 8});
    fila(u"TOTOPE", dia, 1, 9, {-1, -2, -3, 0});
    fila(u"TOTDEP", dia, 9, 4, {1, 2, 3, 4});
    fila(u"TOTHOR", dia, 1, 23, {1, 2, 3, 4});
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
    bien(impTot.importarBytes(bytes, u"X.EXP"_s, como, hechos));
    return hechos;
  }
  QString errorDe(const QByteArray& bytes, size_t enteros = 0) {
    std::vector<ImpTot::Hecho> hechos;
    const auto r = impTot.importarBytes(bytes, u"X.EXP"_s, SiExiste::Acumularlo, hechos);
    EXPECT_EQ(hechos.size(), enteros);
    return r ? u"(bien)"_s : r.error().texto;
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

TEST_F(Exporta, EscribeLosDosFormatos) {
  const qint64 dia = diaEntero();
  EXPECT_TRUE(exportar(dia, "largo"));
  EXPECT_TRUE(exportar(dia, "corto.txt", false, "", true));
  EXPECT_EQ(fichero(u"largo.EXP"_s), kLargo);
  EXPECT_EQ(fichero(u"corto.txt"_s), kCorto);
  EXPECT_TRUE(exportar(dia, "LARGO.exp"));  // after the existing contents
  EXPECT_EQ(fichero(u"largo.EXP"_s), kLargo + kLargo);
}

TEST_F(Exporta, LasCabecerasSonLasDelFichero) {
  const qint64 tramo = crear(5, "05/06/2018 13:00:01", "06/06/2018 08:30");
  sql(u"update COLUMNA set DESCR=?"_s, u"Año\r\nde €, \u4e2d"_s);
  EXPECT_TRUE(exportar(tramo, "a"));
  EXPECT_EQ(fichero(u"a.EXP"_s),
            "*A\xF1o  de \x80, ?\r\n*05/06/2018 13:00:01  06/06/2018 08:30:00\r\n");
}

// A file that doesn't begin as an export does is somebody else's, whatever it is called.
TEST_F(Exporta, UnFicheroAjenoQuedaComoEsta) {
  const qint64 dia = crear(1, "05/06/2018");
  for (const QByteArray ajeno : {"Lista de la compra\r\n", "0100", "* leche\n- pan\n", "\n*\n"}) {
    escribir(u"A.EXP"_s, ajeno);
    const auto mal = xporTot.XportRemoto({dia}, {false, true}, u"a"_s, QString());
    EXPECT_TRUE(!mal && mal.error().texto.contains(u"A.EXP existe y no es de exportación"_s));
    EXPECT_EQ(fichero(u"A.EXP"_s), ajeno);
    EXPECT_TRUE(bien(periodos.columna(dia)));
  }
  for (const QByteArray& vale : {QByteArray(), prueba::kAntes}) {
    escribir(u"A.EXP"_s, vale);
    EXPECT_TRUE(exportar(dia, "a")) << vale.toStdString();
  }
}

TEST_F(Exporta, UnValorQueNoCabeLoParaTodo) {
  const qint64 dia = crear(1, "05/06/2018"), otro = crear(1, "06/06/2018");
  fila(u"TOTPLU", dia, 1, 1, {1, 1, 1, 1});
  fila(u"TOTPLU", otro, 1, 70001, {1, 1, 1, 1});
  const auto probar = [&](bool corto) {
    return xporTot.XportRemoto({dia, otro}, {corto, true}, u"x"_s, QString());
  };
  const auto mal = probar(true);
  ASSERT_FALSE(mal);
  EXPECT_TRUE(mal.error().texto.contains(u"6 junio 2018"_s)) << mal.error().texto.toStdString();
  EXPECT_TRUE(mal.error().texto.contains(u"70001"_s));
  EXPECT_EQ(fichero(u"x.EXP"_s), "(nada)");
  EXPECT_EQ(bien(periodos.lista()).size(), 2U);
  for (const auto& [valor, cabe] : {std::pair<qint64, bool>{999999, true},
                                    {1000000, false},
                                    {-99999, true},
                                    {-100000, false}}) {
    sql(u"update TOTPLU set CON=? where LINK=?"_s, valor, dia);
    EXPECT_EQ(bloque(dia).has_value(), cabe) << valor;
  }
}

TEST_F(Exporta, SoloBorraLoQueEstaEnElDisco) {
  const qint64 dia = diaEntero();
  for (const char* malo : {"", "  ", "sub\\", "..", "noexiste/x"})
    EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, QString::fromUtf8(malo), QString()))
        << malo;
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_FALSE(bien(xporTot.XportRemoto({99, dia}, {}, u"x"_s, QString())));
  EXPECT_FALSE(bien(xporTot.XportRemoto({}, {}, u"x"_s, QString())));
  EXPECT_FALSE(xporTot.XportRemoto({dia, 99}, {false, true}, u"x"_s, QString()));
  {
    const auto t = dao::Transaccion::empezar(*db);  // which may be rolled back
    ASSERT_TRUE(t);
    EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, u"x"_s, QString()));
  }
  EXPECT_EQ(fichero(u"x.EXP"_s), "(nada)");
  QStringList pedido;
  prueba::alDisco = &pedido;
  EXPECT_TRUE(exportar(dia, "x", true));
  prueba::alDisco = nullptr;
  EXPECT_TRUE(pedido.contains(u"vuelca x.EXP"_s)) << "before the period goes";
  EXPECT_EQ(fichero(u"x.EXP"_s), kLargo);
  EXPECT_TRUE(bien(periodos.lista()).empty());
  EXPECT_EQ(plus(dia), QString());
}

// A mistyped name must not write into the database or a process.
TEST_F(Exporta, NoEscribeEnLoQueNoEsUnaExportacion) {
  const qint64 dia = diaEntero();
  escribir(u"NOCHE.AUT"_s, "T:RXGRTOT,ALL\r\n");
  escribir(u"TARVO.LCK"_s, "");
  for (const char* ajeno : {"NOCHE.AUT", "noche.aut", "TARVO.LCK"})
    EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, QString::fromUtf8(ajeno), QString()))
        << ajeno;
  EXPECT_EQ(fichero(u"NOCHE.AUT"_s), "T:RXGRTOT,ALL\r\n");
  EXPECT_EQ(fichero(u"TARVO.LCK"_s), "");
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_TRUE(exportar(dia, "VENTAS.TXT"));
  EXPECT_TRUE(exportar(dia, "VENTAS.TXT"));
  EXPECT_EQ(fichero(u"VENTAS.TXT"_s), kLargo + QByteArray(kLargo));
}

// The disk takes a hundred bytes more than the old file, which is far larger than the database.
TEST_F(Exporta, UnDiscoLlenoDejaElFicheroDeAntes) {
  const qint64 dia = diaEntero();
  const qint64 grande = qint64{64} << 20;
  QFile x(ruta(u"x.EXP"_s));
  ASSERT_TRUE(x.open(QIODevice::WriteOnly) && x.write("*") == 1 &&
              x.seek(grande - prueba::kAntes.size() - 2) && x.write("\r\n" + prueba::kAntes) > 0);
  x.close();
  rlimit normal{};
  getrlimit(RLIMIT_FSIZE, &normal);
  rlimit lleno = normal;
  lleno.rlim_cur = grande + 100;
  const auto anterior = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &lleno);
  const auto r = xporTot.XportRemoto({dia}, {false, true}, u"x"_s, QString());
  setrlimit(RLIMIT_FSIZE, &normal);
  std::signal(SIGXFSZ, anterior);
  ASSERT_FALSE(r);
  EXPECT_EQ(r.error().clase, Fallo::DiscoLleno);
  EXPECT_EQ(x.size(), grande);
  EXPECT_EQ(QDir(carpeta.path()).entryList({u"x.EXP?*"_s}, QDir::Files).size(), 0);
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
}

// The program is killed in the middle of a block: its remains are removed at the next start, or
// when the file is written to again.
TEST_F(Exporta, UnaMuerteNoDejaMedioBloque) {
  const qint64 dia = diaEntero();
  const auto morirEscribiendo = [&](const QString& nombre, int bytes) {
    const pid_t hijo = fork();
    if (hijo == 0) {
      auto suya = dao::Database::OpenDatabase(ruta(u"TARVO.MDB"_s), {});
      auto a =
          suya ? Anadidura::empezar(**suya, ruta(nombre), 200000, "****", ajustes, textosDePrueba())
               : std::unexpected(suya.error());
      if (a && (*a)->escribir(QByteArray(bytes, '*'))) std::raise(SIGKILL);
      _exit(1);
    }
    int estado = 0;
    waitpid(hijo, &estado, 0);
    ASSERT_TRUE(WIFSIGNALED(estado));
  };
  escribir(u"x.EXP"_s, prueba::kAntes);
  for (const bool alEmpezar : {true, false}) {
    morirEscribiendo(u"x.EXP"_s, 100000);
    morirEscribiendo(u"nuevo.EXP"_s, 100000);
    EXPECT_EQ(fichero(u"x.EXP"_s).size(), prueba::kAntes.size() + 100000);
    if (alEmpezar) {
      bien(xporTot.recuperar());
      EXPECT_EQ(fichero(u"x.EXP"_s), prueba::kAntes);
      EXPECT_EQ(fichero(u"nuevo.EXP"_s), "(nada)");
    } else {
      EXPECT_TRUE(exportar(dia, "x"));
      EXPECT_TRUE(exportar(dia, "nuevo"));
      EXPECT_EQ(fichero(u"x.EXP"_s), prueba::kAntes + kLargo);
      EXPECT_EQ(fichero(u"nuevo.EXP"_s), kLargo);
    }
  }
  // The file has been replaced, changed, or appended to by others.
  const QByteArray nuestro(100000, '*'), bloques = kLargo + QByteArray(kLargo);
  for (const auto& [nombre, ahora] : {std::pair("x.EXP", "*otro\r\n" + bloques),
                                      {"otro.EXP", "*otro\r\n" + bloques},
                                      {"x.EXP", "*otros\r\n" + nuestro},
                                      {"x.EXP", prueba::kAntes + nuestro + nuestro + bloques}}) {
    if (QByteArrayView(nombre) == "x.EXP") escribir(u"x.EXP"_s, prueba::kAntes);
    morirEscribiendo(QString::fromUtf8(nombre), 100000);
    escribir(QString::fromUtf8(nombre), ahora);
    bien(xporTot.recuperar());
    EXPECT_TRUE(fichero(QString::fromUtf8(nombre)) == ahora) << nombre << ' ' << ahora.size();
  }
  EXPECT_EQ(leer(u"select count(*) from ExportesAbiertos"_s), u"0"_s);
}

// A block in the file but not in the database doesn't count, and is removed.
TEST_F(Exporta, ElBloqueQueNoSePuedeAnotarSeRetira) {
  const qint64 dia = diaEntero();
  escribir(u"x.EXP"_s, prueba::kAntes);
  sql(u"create trigger lleno before insert on Exportes begin select raise(abort, "
      "'disco lleno'); end"_s);
  EXPECT_FALSE(xporTot.XportRemoto({dia}, {false, true}, u"x"_s, u"17.3"_s));
  EXPECT_EQ(fichero(u"x.EXP"_s), prueba::kAntes);
  EXPECT_TRUE(bien(periodos.columna(dia)));
  sql(u"drop trigger lleno"_s);
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  EXPECT_EQ(fichero(u"x.EXP"_s), prueba::kAntes + kLargo);
}

// The file's contents are neither reread nor rewritten: a file with a hole of 3 GiB.
TEST_F(Exporta, UnFicheroDeMasDeUnGibibyte) {
  const qint64 dia = diaEntero();
  const qint64 grande = qint64{3} << 30;
  {
    QFile f(ruta(u"x.EXP"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("*") == 1 &&
                f.seek(grande - prueba::kAntes.size() - 2) && f.write("\r\n" + prueba::kAntes) > 0);
  }
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  sql(u"update Exportes set HECHO=0"_s);
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  QFile f(ruta(u"x.EXP"_s));
  ASSERT_TRUE(f.open(QIODevice::ReadOnly) && f.seek(grande));
  EXPECT_EQ(f.readAll(), kLargo);
}

// The export was interrupted after the block, or before it; other blocks may have followed.
TEST_F(Exporta, UnBloqueNoSeEscribeDosVecesConUnaMarca) {
  const qint64 dia = diaEntero(), otro = crear(1, "06/06/2018");
  EXPECT_TRUE(exportar(dia, "x", false, "17.3"));
  sql(u"update Exportes set HECHO=0"_s);
  EXPECT_TRUE(exportar(otro, "x"));
  const QByteArray todo = fichero(u"x.EXP"_s);
  // Midnight has passed, and the name has changed with it.
  EXPECT_TRUE(exportar(dia, "y", true, "17.3"));
  EXPECT_EQ(fichero(u"x.EXP"_s), todo);
  EXPECT_EQ(fichero(u"y.EXP"_s), "(nada)");
  EXPECT_FALSE(bien(periodos.columna(dia)));
  // Final: a new period with the number of the deleted one is safe.
  periodo({.link = dia});
  EXPECT_TRUE(exportar(dia, "x", true, "17.3"));
  EXPECT_TRUE(bien(periodos.columna(dia)));
  // The mark was written but the file was not.
  escribir(u"x.EXP"_s, prueba::kAntes);
  EXPECT_TRUE(exportar(otro, "x", false, "17.3"));
  EXPECT_EQ(fichero(u"x.EXP"_s).count("*"),
            4);  // two that were left, two of the new block
  // Another file is there now, no shorter.
  sql(u"update Exportes set HECHO=0"_s);
  const QByteArray ajeno = prueba::kAntes + QByteArray(fichero(u"x.EXP"_s).size(), '\n');
  escribir(u"x.EXP"_s, ajeno);
  EXPECT_TRUE(exportar(otro, "x", false, "17.3"));
  EXPECT_GT(fichero(u"x.EXP"_s).size(), ajeno.size());
}

TEST_F(Exporta, VuelveComoSeFue) {
  const qint64 dia = diaEntero();
  const auto todo = [&](qint64 link) {
    QStringList filas;
    for (const ClaseTotal& c : todasLasClases())
      filas << leer(
          u"select GRUPO, CODI, CON, PES, [IMP], SCO from %1 where LINK=%2 order by GRUPO, CODI"_s
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
  EXPECT_EQ(leer(u"select HORA from TOTOPHOR"_s), u"8"_s);
  EXPECT_TRUE(col(hechos[0].link).stkABLE);
  EXPECT_EQ(col(hechos[0].link).DESCR, u"Semana, santa-5 junio 2018"_s);
}

// No more than one line of a file is in memory, however large it is.
TEST_F(Exporta, UnFicheroSinFinDeLineaSeLeeEntero) {
  QFile f(ruta(u"x.EXP"_s));
  const qint64 grande = qint64{300} << 20;
  ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.resize(grande) && f.seek(grande) &&
              f.write("\r\n" + kLargo) > 0);
  f.close();
  std::vector<ImpTot::Hecho> hechos;
  bien(impTot.importar(f.fileName(), SiExiste::Borrarlo, hechos));
  ASSERT_EQ(hechos.size(), 1U);
  EXPECT_EQ(hechos[0].lineas, 7);
}

// Our own short layout is read back unchanged, another system's is read by its columns, and a line
// that may be either is refused.
TEST_F(Exporta, LeeElFormatoCortoDeLosDosSistemas) {
  const qint64 dia = crear(1, "05/06/2018");
  for (const char16_t* tabla : {u"TOTPLU", u"TOTOPE", u"TOTDEP"})
    fila(tabla, dia, 1, 44, {1, 2, 3, 4});
  fila(u"TOTGRT", dia, 2, 0, {1, 2, 3, 4});
  fila(u"TOTOPE", dia, 2, 1234, {5, 6, 7, 8});
  fila(u"TOTHOR", dia, 1, 23, {1, 2, 3, 4});
  operHora(dia, 12, 8, 6);
  const auto todo = [&] {
    QStringList filas;
    for (const ClaseTotal& c : todasLasClases())
      filas << leer(
          u"select GRUPO, CODI, CON, PES, [IMP], SCO from %1 order by "
          "GRUPO, CODI"_s.arg(QString::fromUtf16(c.tabla)));
    return filas.join(u'\n');
  };
  const QString antes = todo();
  EXPECT_EQ(bien(xporTot.noVolverian({dia})), QString());
  EXPECT_TRUE(exportar(dia, "x", true, "", true));
  importar(fichero(u"x.EXP"_s));
  EXPECT_EQ(todo(), antes);

  const QByteArray cabecera = "*uno\r\n*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n";
  const QByteArray resto = "0000000001000000000000000000000001\r\n";
  struct Caso {
    const char* cabeza;
    const char* tabla;
    const char* clave;      // null: refused
    bool supuesta = false;  // it may also be ours, of a group that is gone
  };
  const Caso casos[] = {
      {"03000209", "TOTOPE", "2 9"},       {"03990209", "TOTOPE", "2 9", true},
      {"03020009", "TOTOPE", "2 9"},       {"03010209", "TOTOPE", nullptr},
      {"03998809", "TOTOPE", nullptr},     {"04000104", "TOTDEP", "1 4"},
      {"04990104", "TOTDEP", "1 4", true}, {"04010304", "TOTDEP", "1 4"},
      {"04010204", "TOTDEP", nullptr},  // ours, in other sections then
      {"04020105", "TOTDEP", nullptr},     {"04020405", "TOTDEP", nullptr},
      {"04010104", "TOTDEP", "1 4"},  // the same in both layouts
      {"02000002", "TOTGRT", "2 0"},
  };
  for (const Caso& c : casos) {
    const QByteArray bytes = cabecera + c.cabeza + resto;
    if (!c.clave) {
      EXPECT_TRUE(errorDe(bytes).contains(u"línea 3: en el formato corto"_s)) << c.cabeza;
      continue;
    }
    const auto [link, periodo, lineas, supuestas] = importar(bytes).at(0);
    EXPECT_EQ(supuestas, c.supuesta ? 1 : 0) << c.cabeza;
    EXPECT_EQ(leer(u"select GRUPO, CODI from %1 where LINK=%2"_s.arg(QString::fromUtf8(c.tabla))
                       .arg(link)),
              QString::fromUtf8(c.clave))
        << c.cabeza;
  }
  fila(u"TOTOPE", dia, 1, 209, {});
  EXPECT_TRUE(bien(xporTot.noVolverian({dia})).contains(u"de estos grupos: 1."_s));
}

TEST_F(Exporta, DosBloquesDeUnDiaSeSumanOSeSustituyen) {
  const QByteArray linea = "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray cabecera = "*05/06/2018 00:00:00  05/06/2018 23:59:59\n*uno\n";
  const QByteArray bloque = cabecera + linea + "\r\n" + linea;
  auto hechos = importar("basura\r\n" + bloque + bloque, SiExiste::Acumularlo);
  ASSERT_EQ(hechos.size(), 2U);
  EXPECT_EQ(plus(hechos[1].link), u"1 7 4 0 400 0"_s);
  hechos = importar("\xEF\xBB\xBF" + bloque + cabecera + linea);
  EXPECT_EQ(plus(hechos[1].link), u"1 7 1 0 100 0"_s);
  hechos = importar(cabecera);
  EXPECT_EQ(hechos[0].lineas, 0);
  EXPECT_EQ(bien(periodos.lista()).size(), 1U);
  EXPECT_EQ(plus(hechos[0].link), QString());
}

TEST_F(Exporta, LaSemanaYElStockSiguenALoImportado) {
  const qint64 dia = crear(1, "05/06/2018");
  plu(dia, 7, 1);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(dia))));
  EXPECT_EQ(bien(periodos.DescontarPeriodo(col(dia))), Descuento::Hecho);
  const qint64 semana = bien(periodos.BuscarPeriodo(2, momento("05/06/2018"), {}))->LINK;
  const QByteArray bloque =
      "*uno\n*05/06/2018 00:00:00  05/06/2018 "
      "23:59:59\n01000100300000070000000100000000000000000000000002\n";
  importar(bloque, SiExiste::Acumularlo);
  EXPECT_EQ(plus(semana), u"1 7 3 10 200 1000"_s);
  EXPECT_EQ(venta(), u"7 3"_s);
  const qint64 nuevo = importar(bloque, SiExiste::Borrarlo).at(0).link;
  EXPECT_EQ(plus(semana), u"1 7 3 10 200 1000"_s);
  EXPECT_FALSE(col(nuevo).ACUM2);
  EXPECT_TRUE(bien(periodos.AcumularPeriodo(2, col(nuevo))));
  EXPECT_EQ(bien(periodos.DescontarPeriodo(col(nuevo))), Descuento::Hecho);
  EXPECT_EQ(plus(semana), u"1 7 2 0 100 0"_s);
  EXPECT_EQ(venta(), u"7 2"_s);
}

TEST_F(Exporta, LasFechasDanConSuPeriodo) {
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

TEST_F(Exporta, UnaLineaMalaDeshaceSuBloqueYSeNombra) {
  const QByteArray bien1 =
      "*uno\r\n*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"
      "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray dos =
      "*dos\r\n*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n"
      "01000100300000070000000100000000000000000000000001\r\n";
  const QByteArray malas[] = {
      "0100010030000007000000010000000000000000000000001",   // 49
      "05000100300000070000000100000000000000000000000001",  // the code of no kind
      "010001003000000700000001x0000000000000000000000001",
      "01000100300000070000000100          00000000000001", QByteArray(5000, '0')};
  for (const QByteArray& mala : malas) {
    EXPECT_TRUE(errorDe(bien1 + dos + mala + "\r\n", 1).contains(u"línea 7"_s)) << mala.constData();
    EXPECT_FALSE(bien(periodos.BuscarPeriodo(1, momento("06/06/2018"), {})));
  }
  EXPECT_EQ(plus(1), u"1 7 5 0 500 0"_s);
  for (const char* mala : {"", "hola\r\n", "*uno\r\n", "*uno\r\n*dos\r\n",
                           "*uno\r\n\r\n*05/06/2018 00:00:00  05/06/2018 23:59:59\r\n"})
    EXPECT_TRUE(errorDe(mala).startsWith(u"ERROR: El fichero contiene líneas no reconocibles"_s))
        << mala;
  std::vector<ImpTot::Hecho> hechos;
  EXPECT_FALSE(impTot.importar(ruta(u"no.EXP"_s), SiExiste::Borrarlo, hechos));
  sql(u"update TOTPLU set [IMP]=9223372036854775800 where LINK=1"_s);
  EXPECT_NE(errorDe(bien1), u"(bien)"_s);
  EXPECT_EQ(plus(1), u"1 7 5 0 9223372036854775800 0"_s);
}

TEST(ExportaFuera, OtroIdiomaNoTieneOperadorPorHora) {
  prueba::TiendaDeTotales t;
  const Ajustes uk(t.carpeta.path(), Idioma::UK, {ajustesPeriodos()});
  Periodos periodos(*t.db, uk, t.almacenes, textosDePrueba());
  ImpTot impTot(periodos);
  std::vector<ImpTot::Hecho> hechos;
  EXPECT_FALSE(impTot.importarBytes(kLargo, u"X.EXP"_s, SiExiste::Borrarlo, hechos));
}

}  // namespace
