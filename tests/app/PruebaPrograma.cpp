// The program's answers to its command line: the exit status, and a word of its output.
#include <unistd.h>

#include <thread>

#include "app/Principal.h"
#include "app/Programa.h"
#include "comm/tramas/Trama.h"
#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"

using namespace tarvo;
using namespace tarvo::prueba;

namespace {

const QString kSinVentana = QStringLiteral("--sin-ventana");

struct Caso {
  QStringList argumentos;
  int estado;
  const char16_t* palabra;  // in its output or errors
};

// A timetable that never comes due, and so never ends by itself.
const QByteArray kEsperaSinFin =
    "00:00:00;No,No,No,No,No,No,No;@\r\n@INICIO BATCH\r\nN:x\r\n@FINAL BATCH\r\n";

}  // namespace

TEST_F(Programa, TablaDeLineasDeOrdenes) {
  poner(QStringLiteral("VACIO.AUT"), "");
  poner(QStringLiteral("MALO.AUT"), "T:NADA,1\r\n");
  poner(QStringLiteral("UNO.AUT"), "N:hola\r\n");
  poner(QStringLiteral("DATO.AUT"), "N:%1,Grupo\r\nT:RXGRTOT,%1\r\n");
  poner(QStringLiteral("GRUPO.AUT"), "T:RXGRTOT,99\r\n");
  poner(QStringLiteral("MALO.CRO"), "esto no es una hora\r\n");
  QDir(dir.path()).mkdir(QStringLiteral("SUB.d"));
  poner(QStringLiteral("SUB.d/DOS.AUT"), "");
  const Caso casos[] = {
      {{"--ayuda"}, 0, u"Uso:"},
      {{"--version"}, 0, u"TARVO"},
      {{}, 64, u"ventanas"},
      {{"VACIO"}, 64, u"ventanas"},
      {{"--nada"}, 64, u"--nada"},
      {{"--tema", "azul"}, 64, u"azul"},
      {{"--ventana"}, 64, u"--ventana"},
      {{"--ventana", "VerTot", "VACIO"}, 64, u"--ventana"},
      {{kSinVentana}, 64, u"Falta el nombre del proceso"},
      {{kSinVentana, ""}, 64, u"Falta el nombre del proceso"},
      {{kSinVentana, "VACIO", "UNO"}, 64, u"UNO"},
      {{kSinVentana, "VACIO", "--idioma"}, 64, u"--idioma"},
      {{kSinVentana, "VACIO", "--idioma", "xx"}, 64, u"xx"},
      {{kSinVentana, "VACIO", "--dato", "%1"}, 64, u"%1"},
      {{kSinVentana, "VACIO", "--espera", "mucho"}, 64, u"mucho"},
      {{kSinVentana, "VACIO", "--espera", "-1"}, 64, u"-1"},
      {{kSinVentana, "VACIO", "--dato", "x1=3"}, 64, u"x1=3"},
      {{kSinVentana, "--cuadre"}, 64, u"--cuadre"},
      {{kSinVentana, "--carpeta", "no/hay", "VACIO"}, 4, u"no/hay"},
      {{kSinVentana, "--carpeta", "/proc", "VACIO"}, 4, u"escribir"},
      {{kSinVentana, "VACIO"}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "vacio.aut"}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "\"VACIO\""}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "sub.D\\dos"}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "./SUB.d/DOS"}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "--idioma", "uk", "VACIO"}, 0, u"Ejecución finalizada"},
      {{kSinVentana, "NADA"}, 3, u"No se pudo cargar el Proceso '"},
      {{kSinVentana, "MALO"}, 3, u"MALO.AUT'"},
      {{kSinVentana, "MALO.CRO"}, 3, u"MALO.CRO'"},
      {{kSinVentana, "DATO"}, 2, u"%1"},
      {{kSinVentana, "--dato", "%1=tres", "DATO"}, 2, u"tres"},
      {{kSinVentana, "--dato", "%1=99", "DATO"}, 1, u"Grupo de destino no existe"},
      {{kSinVentana, "GRUPO"}, 1, u"Grupo de destino no existe"},
      {{"--puesta-a-cero", "7", "sí"}, 1, u"Del grupo 7 no hay ninguna duda"},
      {{"--puesta-a-cero", "7:11", "no"}, 1, u"Del grupo 7 no hay ninguna duda"},
      {{"--puesta-a-cero", "7", "quizá"}, 64, u"--puesta-a-cero va sola"},
      {{"--puesta-a-cero", "pepe", "sí"}, 64, u"--puesta-a-cero va sola"},
      {{"--puesta-a-cero", "7"}, 64, u"--puesta-a-cero"},
      {{kSinVentana, "--puesta-a-cero", "7", "sí"}, 64, u"--puesta-a-cero"},
      {{"--cuadre", "999"}, 1, u"cuadre"},
      {{"--cuadre", "abc"}, 64, u"con el número de un periodo"},
      {{"--explorar", "/dev/no/hay", "127.0.0.1:1"}, 1, u"/dev/no/hay: el puerto no existe"},
      {{"--explorar", "nada"}, 64, u"Para explorar"},
      {{"--explorar", "h:1-300"}, 64, u"256 como mucho"},
      {{"--explorar", "192.168.1.300:80"}, 64, u"Para explorar"},
      {{kSinVentana, "--explorar"}, 64, u"Para explorar"},
      {{"--aplicar"}, 64, u"Para explorar"},
      {{kSinVentana, "--dato", "x", "V"}, 64, u"escríbalo como '%n=5'"},
  };
  for (const Caso& c : casos) {
    const bool conCarpeta = c.argumentos.contains(u"--carpeta");
    const Fin fin = conCarpeta ? correr(c.argumentos) : correrAqui(c.argumentos);
    const std::string linea = c.argumentos.join(u' ').toStdString();
    EXPECT_EQ(fin.estado, c.estado) << linea << '\n' << fin.errores.toStdString();
    EXPECT_TRUE((fin.salida + fin.errores).contains(QStringView(c.palabra)))
        << linea << '\n'
        << fin.salida.toStdString() << fin.errores.toStdString();
  }
}

TEST_F(Programa, UnaCarpetaNuevaRecibeBaseYAjustes) {
  poner(QStringLiteral("V.AUT"), "");
  ASSERT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  EXPECT_TRUE(ver(QStringLiteral("TARVO.MDB")).startsWith("SQLite format 3"));
  EXPECT_TRUE(ver(QStringLiteral("TARVO.INI")).contains("Ses\x69\xF3nAbier= 0\r\n"));
  EXPECT_TRUE(ver(QStringLiteral("V.TZA")).contains("Ejecuci\xF3n finalizada"));
  const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
  ASSERT_TRUE(db);
  EXPECT_EQ((*db)->uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=1")->texto(), u"GRUPO");
}

// A file that may not grow is an error of that file, like a full disk, and not the end of the
// night.
TEST_F(Programa, UnFicheroEnSuLimiteNoAcabaElPrograma) {
  poner(QStringLiteral("UNO.AUT"), "N:hola\r\n");
  ASSERT_EQ(correrAqui({kSinVentana, "UNO"}).estado, 0);
  poner(QStringLiteral("UNO.TZA"), QByteArray(1 << 20, 'x'));
  QProcess p;
  preparar(p);
  p.start(QStringLiteral("/bin/sh"),
          {QStringLiteral("-c"), QStringLiteral("ulimit -f 2048; exec \"$0\" \"$@\""),
           QStringLiteral(TARVO_PROGRAMA), QStringLiteral("--carpeta"), dir.path(), kSinVentana,
           QStringLiteral("UNO")});
  ASSERT_TRUE(p.waitForStarted());
  const Fin fin = acabar(p);
  EXPECT_EQ(fin.estado, 1) << fin.salida.toStdString() << fin.errores.toStdString();
  EXPECT_TRUE(fin.salida.contains(u"UNO.TZA")) << fin.salida.toStdString();
}

// What the person answers is no problem; totals that don't foot are one.
TEST_F(Programa, ElEstadoDeLasOrdenesDeUnaPersona) {
  poner(QStringLiteral("V.AUT"), "");
  ASSERT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  {
    const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
    ASSERT_TRUE(db);
    for (const char16_t* sql :
         {u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF) VALUES (1, 1, 40000, 40000.9)",
          u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON, [IMP]) VALUES (1, 1, 1, 1, 500)",
          u"INSERT INTO TOTPLU (LINK, GRUPO, CODI, CON, [IMP]) VALUES (1, 1, 7, 1, 500)"})
      ASSERT_TRUE((*db)->ejecutar(sql)) << QString::fromUtf16(sql).toStdString();
  }
  EXPECT_EQ(correrAqui({"--cuadre", "1"}).estado, 0);
  {
    const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
    ASSERT_TRUE(db && (*db)->ejecutar(u"UPDATE TOTPLU SET [IMP]=400"));
  }
  const Fin fin = correrAqui({"--cuadre", "1"});
  EXPECT_EQ(fin.estado, 1);
  EXPECT_TRUE(fin.salida.contains(u"NO CUADRA")) << fin.salida.toStdString();
}

TEST_F(Programa, UnProcesoQueNoSeCargaTambienEscribeLosAjustes) {
  EXPECT_EQ(correrAqui({kSinVentana, "NADA"}).estado, 3);
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("TARVO.INI"))));
}

TEST_F(Programa, LaCarpetaVieneDeVariosSitios) {
  QDir(dir.path()).mkpath(QStringLiteral("a"));
  poner(QStringLiteral("a/V.AUT"), "");
  variables = {{QStringLiteral("TARVO_CARPETA"), en(QStringLiteral("a"))}};
  EXPECT_EQ(correr({kSinVentana, "V"}).estado, 0);
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("a/TARVO.MDB"))));
  variables = {{QStringLiteral("TARVO_CARPETA"), en(QStringLiteral("b"))}};
  EXPECT_EQ(correr({kSinVentana, "V"}).estado, 4);
  EXPECT_FALSE(QFile::exists(en(QStringLiteral("b"))));
  variables = {{QStringLiteral("XDG_DATA_HOME"), en(QStringLiteral("c"))}};
  EXPECT_EQ(correr({kSinVentana, "V"}).estado, 3);
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("c/tarvo/TARVO.MDB"))));
}

TEST_F(Programa, LoQueNoSePuedeAbrirEsCuatro) {
  poner(QStringLiteral("V.AUT"), "");
  const auto espera = [this](const char16_t* palabra) {
    const Fin fin = correrAqui({kSinVentana, "V"});
    EXPECT_EQ(fin.estado, 4) << QString::fromUtf16(palabra).toStdString();
    EXPECT_TRUE(fin.errores.contains(QStringView(palabra))) << fin.errores.toStdString();
  };
  const QByteArray basura(5000, 'x');
  poner(QStringLiteral("TARVO.MDB"), basura);
  espera(u"TARVO.MDB");
  EXPECT_EQ(ver(QStringLiteral("TARVO.MDB")), basura);
  QFile::remove(en(QStringLiteral("TARVO.MDB")));

  QFile::copy(QFileInfo(QStringLiteral(TARVO_PROGRAMA)).path() + QStringLiteral("/voidTarvo.mdb"),
              en(QStringLiteral("TARVO.MDB")));
  {
    const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
    ASSERT_TRUE(db && (*db)->Execute(u"INSERT INTO version (MAJOR, MINOR) VALUES (99, 0)"));
  }
  espera(u"TARVO.MDB");
  QFile::remove(en(QStringLiteral("TARVO.MDB")));

  poner(QStringLiteral("TARVO.INI"), "BaseDatos= /proc/no/TARVO.MDB\r\n");
  espera(u"/proc/no/TARVO.MDB");
  QFile::remove(en(QStringLiteral("TARVO.INI")));
  QDir(dir.path()).mkdir(QStringLiteral("TARVO.INI"));
  espera(u"TARVO.INI");
  QDir(dir.path()).rmdir(QStringLiteral("TARVO.INI"));
  QFile::remove(en(QStringLiteral("TARVO.LCK")));
  QDir(dir.path()).mkdir(QStringLiteral("TARVO.LCK"));
  espera(u"escribir");
}

// A database that the settings of a shop name and that isn't there has been lost or misspelt: no
// night runs on an empty one in its place.
TEST_F(Programa, UnaBaseNombradaQueFaltaNoSeCrea) {
  poner(QStringLiteral("V.AUT"), "");
  ASSERT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  ASSERT_TRUE(QFile::rename(en(QStringLiteral("TARVO.MDB")), en(QStringLiteral("COPIA.MDB"))));
  const QByteArray suyo = ver(QStringLiteral("TARVO.INI"));
  for (const QByteArray& ini : {suyo, QByteArray("BaseDatos= pepe\r\n")}) {
    poner(QStringLiteral("TARVO.INI"), ini);
    for (const QStringList& orden :
         {QStringList{kSinVentana, "V"}, QStringList{"--cuadre"}, QStringList{kSinVentana, "C"}}) {
      const Fin fin = correrAqui(orden);
      EXPECT_EQ(fin.estado, 4) << orden.join(u' ').toStdString();
      EXPECT_TRUE(fin.errores.contains(u"recupérela de una copia")) << fin.errores.toStdString();
    }
    EXPECT_EQ(QDir(dir.path()).entryList({"*.MDB", "pepe*"}), QStringList{"COPIA.MDB"});
    EXPECT_EQ(ver(QStringLiteral("TARVO.INI")), ini);
  }
  poner(QStringLiteral("TARVO.INI"), "BaseDatos= copia.mdb\r\n");
  EXPECT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  poner(QStringLiteral("TARVO.INI"), "WhoAmI= 3\r\n");
  EXPECT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("TARVO.MDB")))) << "a folder that names none";
  QDir(dir.path()).mkpath(QStringLiteral("nueva"));
  poner(QStringLiteral("nueva/TARVO.INI"), "BaseDatos= TARVO.MDB\r\n");
  poner(QStringLiteral("nueva/V.AUT"), "");
  EXPECT_EQ(correr({"--carpeta", en(QStringLiteral("nueva")), kSinVentana, "V"}).estado, 0);
}

// A person is asked whether to begin anew.
TEST_F(Programa, UnaBaseNombradaQueFaltaSeCreaSiSePide) {
  poner(QStringLiteral("TARVO.INI"), "BaseDatos= pepe.mdb\r\n");
  poner(QStringLiteral("V.TZA"), "");
  app::Ordenes ordenes;
  ordenes.carpeta = dir.path();
  for (const bool si : {false, true}) {
    QStringList preguntas, fallos;
    const int estado = app::conFondo(
        ordenes, textosDePrueba(), [&](const QString& texto) { fallos << texto; },
        [](app::Fondo& fondo, Reloj&) {
          return static_cast<int>(fondo.db->uno(u"SELECT count(*) FROM GRUPOS")->entero());
        },
        {.ocupada = {}, .crearla = [&](const QString& base) {
           preguntas << base;
           return si;
         }});
    EXPECT_EQ(estado, si ? 1 : 4);
    EXPECT_EQ(preguntas, QStringList{en(QStringLiteral("pepe.mdb"))});
    EXPECT_TRUE(fallos.isEmpty()) << fallos.join(u' ').toStdString();
    EXPECT_EQ(QFile::exists(en(QStringLiteral("pepe.mdb"))), si);
  }
}

// Two processes at once, wherever the database is reached from: the second waits its turn, and
// gives up when told not to wait.
TEST_F(Programa, UnaBaseEsDeUnSoloProceso) {
  const MaquinaMuda muda;
  ponerProcesoQueEspera(QStringLiteral("L.AUT"), muda);
  poner(QStringLiteral("V.AUT"), "");
  QDir(dir.path()).mkpath(QStringLiteral("otra"));
  QDir(dir.path()).mkpath(QStringLiteral("enlazada"));
  QDir(dir.path()).mkpath(QStringLiteral("dura"));
  poner(QStringLiteral("otra/TARVO.INI"), "BaseDatos= ../TARVO.MDB\r\n");
  QFile::link(en(QStringLiteral("TARVO.MDB")), en(QStringLiteral("enlazada/TARVO.MDB")));
  ASSERT_EQ(::link(QFile::encodeName(en(QStringLiteral("TARVO.MDB"))).constData(),
                   QFile::encodeName(en(QStringLiteral("dura/TARVO.MDB"))).constData()),
            0);
  QProcess primera;
  QByteArray salida;
  arrancar(primera, {QStringLiteral("--carpeta"), dir.path(), kSinVentana, QStringLiteral("L")});
  ASSERT_TRUE(esperar(primera, "iniciada", salida)) << salida.toStdString();
  for (const char16_t* desde : {u"", u"otra", u"enlazada", u"dura"}) {
    const QString carpeta = en(QString::fromUtf16(desde));
    poner(QDir(dir.path()).relativeFilePath(carpeta + QStringLiteral("/V.AUT")), "");
    const Fin fin = correr({"--carpeta", carpeta, kSinVentana, "--espera", "0", "V"});
    EXPECT_EQ(fin.estado, 4) << carpeta.toStdString();
    EXPECT_TRUE(fin.errores.contains(u"Otro TARVO")) << fin.errores.toStdString();
  }
  EXPECT_EQ(QDir(en(QStringLiteral("dura"))).entryList({QStringLiteral("TARVO.MDB-*")}),
            QStringList())
      << "refused before it wrote a journal of its own";
  QProcess segunda;
  QByteArray suya;
  arrancar(segunda, {QStringLiteral("--carpeta"), en(QStringLiteral("otra")), kSinVentana,
                     QStringLiteral("V")});
  EXPECT_FALSE(segunda.waitForFinished(1500));
  primera.kill();
  primera.waitForFinished();
  EXPECT_EQ(acabar(segunda).estado, 0);
}

// A copied folder has its own database.
TEST_F(Programa, UnaCopiaDeLaCarpetaTieneSuBase) {
  poner(QStringLiteral("V.AUT"), "");
  ASSERT_EQ(correrAqui({kSinVentana, "V"}).estado, 0);
  QDir(dir.path()).mkpath(QStringLiteral("copia"));
  for (const QString& nombre : {QStringLiteral("TARVO.INI"), QStringLiteral("V.AUT")})
    QFile::copy(en(nombre), en(QStringLiteral("copia/") + nombre));
  ASSERT_EQ(correr({"--carpeta", en(QStringLiteral("copia")), kSinVentana, "V"}).estado, 0);
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("copia/TARVO.MDB"))));
  EXPECT_TRUE(QFile::exists(en(QStringLiteral("copia/V.TZA"))));
}

// A timetable doesn't hold the database while it waits for its hours.
TEST_F(Programa, UnHorarioNoEstorbaMientrasEspera) {
  poner(QStringLiteral("C.AUT"), kEsperaSinFin);
  poner(QStringLiteral("V.AUT"), "");
  QProcess horario;
  QByteArray salida;
  arrancar(horario, {QStringLiteral("--carpeta"), dir.path(), kSinVentana, QStringLiteral("C")});
  ASSERT_TRUE(esperar(horario, "en marcha", salida)) << salida.toStdString();
  EXPECT_EQ(correrAqui({kSinVentana, "--espera", "0", "V"}).estado, 0);
}

// A setting that isn't understood is a problem of each night until a person mends it: its line
// stays as it was written. Its value is ignored where it would change the books.
TEST_F(Programa, LosAjustesQueNoSeEntiendenSeDicen) {
  struct Mala {
    QByteArray antes, ahora;
    const char16_t* dice;  // null: a good one
    QByteArray queda;
  };
  const Mala casos[] = {
      {"MonedaNativa= 0", "MonedaNativa= pepe", u"«MonedaNativa= pepe»; vale 0",
       "MonedaNativa= pepe"},
      {"MonedaNativa= 0", "", nullptr, "MonedaNativa= 0"},
      {"MonedaNativa= 0", "MonedaNativa= 1", nullptr, "MonedaNativa= 1"},
      {"", "MonedaNativa= pepe", u"«MonedaNativa= pepe»; vale 1", "MonedaNativa= pepe"},
      {"", "Euro= 12345678901234567890", u"vale 166.386000", "Euro= 12345678901234567890"},
      {"", "ÚltimosPeriodos= -1", u"«ÚltimosPeriodos= -1»", nullptr},
      {"", "TimeCero= 999999999", u"«TimeCero= 999999999»; vale 150000", "TimeCero= 999999999"},
      {"", "Monedero= 3", u"«Monedero= 3»; no se tiene en cuenta", "MonedaNativa= 1"},
  };
  poner(QStringLiteral("V.AUT"), "N:nada\r\n");
  for (const Mala& c : casos) {
    QFile::remove(en(QStringLiteral("TARVO.MDB")));
    for (const QByteArray& ini : {c.antes, c.ahora}) {
      poner(QStringLiteral("TARVO.INI"), ini + "\r\n");
      QFile::remove(en(QStringLiteral("V.TZA")));
      const Fin fin = correrAqui({kSinVentana, "V"});
      const bool mala = ini == c.ahora && c.dice;
      EXPECT_EQ(fin.estado, mala ? 1 : 0) << ini.toStdString() << fin.salida.toStdString();
      EXPECT_TRUE(!mala || fin.salida.contains(QStringView(c.dice))) << fin.salida.toStdString();
      EXPECT_EQ(ver(QStringLiteral("V.TZA")).contains("no se entiende"), mala);
    }
    EXPECT_TRUE(ver(QStringLiteral("TARVO.INI")).contains("\r\n" + c.queda + "\r\n"))
        << c.ahora.toStdString();
  }
}

TEST_F(Programa, UnaSenalParaEnOrden) {
  poner(QStringLiteral("C.AUT"), kEsperaSinFin);
  for (const int senal : {SIGTERM, SIGINT}) {
    QFile::remove(en(QStringLiteral("TARVO.INI")));
    QProcess p;
    QByteArray salida;
    arrancar(p, {QStringLiteral("--carpeta"), dir.path(), kSinVentana, QStringLiteral("C")});
    ASSERT_TRUE(esperar(p, "en marcha", salida));
    ASSERT_TRUE(avisar(p, senal));
    EXPECT_EQ(acabar(p).estado, 2);
    EXPECT_TRUE(QFile::exists(en(QStringLiteral("TARVO.INI"))));
  }
}

TEST_F(Programa, ExploraYConfiguraLoHallado) {
  const MaquinaMuda maquina;
  const QString aqui = QStringLiteral("127.0.0.1:%1").arg(maquina.puerto());
  const QByteArray respuesta =
      tramas::kACK + tramas::construirVEK(5, tramas::cuerpoVEK(0, 570, "01"));
  std::thread contesta([&] {
    for (int i = 0; i < 2; ++i) maquina.contestarUna(respuesta);
  });
  const auto grupo = [this] {
    const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
    return db ? (*db)->uno(u"SELECT NOMGPO & ' ' & TELEF FROM GRUPOS")->texto() : QString();
  };
  Fin fin = correrAqui({"--explorar", aqui});
  EXPECT_EQ(fin.estado, 0) << fin.errores.toStdString();
  EXPECT_EQ(fin.salida,
            aqui + QStringLiteral(": balanzas VEK: la estación 0, con la balanza 1.\n"));
  EXPECT_EQ(grupo(), u"GRUPO ");
  fin = correrAqui({"--explorar", "--aplicar", aqui});
  contesta.join();
  EXPECT_EQ(fin.estado, 0) << fin.errores.toStdString();
  EXPECT_EQ(grupo(), QStringLiteral("Grupo 0001 creado por  asistente ") + aqui);
  EXPECT_TRUE(ver(QStringLiteral("TARVO.INI")).contains("Device(1)= 3\r\n"));

  // The database is taken meanwhile, and a signal stops it.
  QProcess p;
  QByteArray salida;
  arrancar(p, {"--carpeta", dir.path(), "--explorar", "/dev/no/hay", aqui});
  ASSERT_TRUE(esperar(p, "no existe", salida));
  EXPECT_EQ(correrAqui({"--explorar", "/dev/no/hay"}).estado, 4);
  ASSERT_TRUE(avisar(p, SIGINT));
  fin = acabar(p);
  EXPECT_EQ(fin.estado, 2);
  EXPECT_TRUE(fin.errores.contains(u"interrumpida")) << fin.errores.toStdString();
}

TEST_F(Programa, UnaSenalAbortaElProcesoEnMarcha) {
  const MaquinaMuda muda;
  ponerProcesoQueEspera(QStringLiteral("LARGO.AUT"), muda);
  QProcess p;
  QByteArray salida;
  arrancar(p, {QStringLiteral("--carpeta"), dir.path(), kSinVentana, QStringLiteral("LARGO")});
  ASSERT_TRUE(esperar(p, "iniciada", salida));
  ASSERT_TRUE(avisar(p, SIGTERM));
  const Fin fin = acabar(p);
  EXPECT_EQ(fin.estado, 2);
  EXPECT_TRUE((QString::fromUtf8(salida) + fin.salida).contains(u"Ejecución interrumpida"));
}

TEST_F(Programa, SiLosAjustesNoSeGuardanSeDice) {
  poner(QStringLiteral("V.AUT"), "");
  QDir(dir.path()).mkdir(QStringLiteral("TARVO.INI.nuevo"));
  const Fin fin = correrAqui({kSinVentana, "V"});
  EXPECT_EQ(fin.estado, 1);
  EXPECT_TRUE(fin.errores.contains(u"ajustes")) << fin.errores.toStdString();
}

TEST_F(Programa, UnLectorQueSeVaNoParaLaNoche) {
  poner(QStringLiteral("V.AUT"), "N:uno\r\n");
  QProcess p;
  preparar(p);
  p.start(QStringLiteral("/bin/sh"),
          {QStringLiteral("-c"),
           QStringLiteral(
               "{ \"$0\" --carpeta \"$1\" --sin-ventana V; echo $? > \"$1/estado\"; } | true"),
           QStringLiteral(TARVO_PROGRAMA), dir.path()});
  ASSERT_TRUE(p.waitForFinished(30000));
  EXPECT_EQ(ver(QStringLiteral("estado")), "0\n");
}
