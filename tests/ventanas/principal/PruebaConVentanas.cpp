// The program with windows, as a process on an off-screen display.
#include <QTest>
#include <functional>

#include "app/Programa.h"
#include "core/dao/Database.h"

namespace tarvo::prueba {
namespace {

using namespace Qt::StringLiterals;

class ConVentanas : public Programa {
 protected:
  ConVentanas() {
    variables = {{u"QT_QPA_PLATFORM"_s, u"offscreen"_s}, {u"XDG_RUNTIME_DIR"_s, dir.path()}};
  }
  std::unique_ptr<dao::Database> base() const {
    auto db = dao::Database::OpenDatabase(en(u"TARVO.MDB"_s));
    EXPECT_TRUE(db);
    return db ? std::move(*db) : nullptr;
  }
};

// The main window discards the tickets of other days and, after a signal to end, closes in order.
TEST_F(ConVentanas, LaPrincipalEmpiezaYAcaba) {
  poner(u"VACIO.AUT"_s, {});
  ASSERT_EQ(correrAqui({u"--sin-ventana"_s, u"VACIO"_s}).estado, 0);
  QFile::remove(en(u"TARVO.INI"_s));
  const auto db = base();
  const double hoy = Fecha::de(QDate::currentDate()).dias();
  for (const double dia : {hoy - 0.5, hoy + 0.25})
    ASSERT_TRUE(
        db->ejecutar(u"INSERT INTO TikAbier (grupo, opera, linea, fecha) VALUES (1, 1, ?, ?)",
                     dia < hoy ? 1 : 2, dia));
  QProcess p;
  arrancar(p, {u"--carpeta"_s, dir.path()});
  const auto tiques = [&] { return db->uno(u"SELECT count(*) FROM TikAbier")->entero(); };
  QElapsedTimer desde;
  desde.start();
  while (tiques() != 1 && desde.elapsed() < 20'000) p.waitForReadyRead(50);
  EXPECT_EQ(db->uno(u"SELECT linea FROM TikAbier")->entero(), 2);
  p.waitForReadyRead(500);
  ASSERT_TRUE(avisar(p, SIGTERM));
  EXPECT_EQ(acabar(p).estado, 0);
  EXPECT_TRUE(QFile::exists(en(u"TARVO.INI"_s)));
}

// A run in a window interrupted by a shutdown of the computer is resumed at the next start.
TEST_F(ConVentanas, UnaSenalDejaElProcesoParaSeguir) {
  const MaquinaMuda muda;
  ponerProcesoQueEspera(u"LARGO.AUT"_s, muda);
  const auto hastaQue = [&](QProcess& p, const QByteArray& dice) {
    QElapsedTimer desde;
    desde.start();
    while (!ver(u"LARGO.TZA"_s).contains(dice) && desde.elapsed() < 20'000) p.waitForReadyRead(50);
    return ver(u"LARGO.TZA"_s).contains(dice);
  };
  const QByteArrayList dichos{"iniciada", "Se reanuda"};
  for (int vez = 0; const QByteArray& dice : dichos) {
    QProcess p;
    arrancar(p, {u"--carpeta"_s, dir.path(), u"LARGO"_s});
    ASSERT_TRUE(hastaQue(p, dice)) << ver(u"LARGO.TZA"_s).toStdString();
    ASSERT_TRUE(avisar(p, SIGTERM));
    EXPECT_EQ(acabar(p).estado, 2);
    EXPECT_EQ(ver(u"LARGO.TZA"_s).count("Ejecuci\xF3n interrumpida"), ++vez);
  }
}

// An unanswered question closes with the program, and the run ends as if unanswered.
TEST_F(ConVentanas, UnaSenalCierraLaPreguntaAbierta) {
  poner(u"DATO.AUT"_s, "N:%1,Grupo\r\nT:RXGRTOT,%1\r\n");
  QProcess p;
  arrancar(p, {u"--carpeta"_s, dir.path(), u"DATO"_s});
  QElapsedTimer desde;
  desde.start();
  while (!QFile::exists(en(u"DATO.TZA"_s)) && desde.elapsed() < 20'000) p.waitForReadyRead(50);
  p.waitForReadyRead(1500);
  ASSERT_TRUE(avisar(p, SIGTERM));
  const Fin fin = acabar(p);
  EXPECT_EQ(fin.estado, 2) << fin.errores.toStdString();
}

// --- a night and windows on one database

// The program with an open window, as a process.
struct Abierta {
  QProcess p;
  ~Abierta() {
    if (p.state() == QProcess::NotRunning) return;
    p.kill();
    p.waitForFinished();
  }
};

class Juntos : public ConVentanas {
 protected:
  void abrirVentanas(QProcess& p) {
    arrancar(p, {u"--carpeta"_s, dir.path()});
    ASSERT_TRUE(hasta([&] { return QFile::exists(en(u"TARVO.SCK"_s)); }));
  }
  static bool hasta(const std::function<bool()>& condicion, int ms = 20'000) {
    QElapsedTimer desde;
    desde.start();
    while (!condicion() && desde.elapsed() < ms) QTest::qWait(20);
    return condicion();
  }
  qint64 ejecuciones() const { return base()->uno(u"SELECT count(*) FROM Ejecuciones")->entero(); }
};

// A night started by cron while a window is open runs in that window: its lines, its result and its
// exit status are returned to the starting process.
TEST_F(Juntos, LaNocheCorreEnLaVentanaAbierta) {
  poner(u"BIEN.AUT"_s, "N:nada\r\n");
  poner(u"MAL.AUT"_s, "N:%1,Grupo\r\nT:RXGRTOT,%1\r\n");
  Abierta abierta;
  abrirVentanas(abierta.p);
  const Fin bien = correrAqui({u"--sin-ventana"_s, u"BIEN"_s});
  EXPECT_EQ(bien.estado, 0) << bien.errores.toStdString();
  EXPECT_TRUE(bien.salida.contains(u"Ejecución finalizada")) << bien.salida.toStdString();
  EXPECT_TRUE(ver(u"BIEN.TZA"_s).contains("finalizada"));
  const Fin mal = correrAqui({u"--sin-ventana"_s, u"--dato"_s, u"%1=99"_s, u"MAL"_s});
  EXPECT_EQ(mal.estado, 1) << mal.errores.toStdString();
  EXPECT_TRUE(mal.salida.contains(u"Grupo de destino no existe")) << mal.salida.toStdString();
  // A value missing from the command line isn't asked for in the window.
  const Fin sinDato = correrAqui({u"--sin-ventana"_s, u"MAL"_s});
  EXPECT_EQ(sinDato.estado, 2);
  EXPECT_TRUE(sinDato.errores.contains(u"%1")) << sinDato.errores.toStdString();
  EXPECT_EQ(correrAqui({u"BIEN"_s}).estado, 0);
  EXPECT_EQ(ejecuciones(), 4);
  EXPECT_EQ(abierta.p.state(), QProcess::Running);
}

// A line of the settings that wasn't understood is a problem of the runs there as well.
TEST_F(Juntos, LoQueNoSeEntendioDeLosAjustesSeDiceEnLaNoche) {
  poner(u"BIEN.AUT"_s, "N:nada\r\n");
  poner(u"TARVO.INI"_s, "TimeACK= 0\r\n");
  Abierta abierta;
  abrirVentanas(abierta.p);
  const Fin fin = correrAqui({u"--sin-ventana"_s, u"BIEN"_s});
  EXPECT_EQ(fin.estado, 1) << fin.salida.toStdString();
  EXPECT_TRUE(fin.salida.contains(u"TimeACK")) << fin.salida.toStdString();
  EXPECT_TRUE(ver(u"BIEN.TZA"_s).contains("TimeACK"));
}

// A comparison only looks; an answer is for the program that has the books.
TEST_F(Juntos, LasOrdenesDeUnaPersonaConLaVentanaAbierta) {
  Abierta abierta;
  abrirVentanas(abierta.p);
  for (const char16_t* sql :
       {u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF) VALUES (1, 1, 40000, 40000.9)",
        u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON, [IMP]) VALUES (1, 1, 1, 1, 500)",
        u"INSERT INTO TOTPLU (LINK, GRUPO, CODI, CON, [IMP]) VALUES (1, 1, 7, 1, 500)"})
    ASSERT_TRUE(base()->ejecutar(sql));
  const Fin cuadre = correrAqui({u"--cuadre"_s, u"1"_s});
  EXPECT_EQ(cuadre.estado, 0) << cuadre.errores.toStdString();
  EXPECT_TRUE(cuadre.salida.contains(u"5,00")) << cuadre.salida.toStdString();
  const Fin cero = correrAqui({u"--puesta-a-cero"_s, u"1"_s, u"no"_s});
  EXPECT_EQ(cero.estado, 4);
  EXPECT_TRUE(cero.errores.contains(u"conteste en él")) << cero.errores.toStdString();
  ASSERT_TRUE(avisar(abierta.p, SIGTERM));
  EXPECT_EQ(acabar(abierta.p).estado, 0);
}

// Stopping it there stops it here; a run that dies with the window is resumed outside.
TEST_F(Juntos, LaNochePasaDeUnoAOtro) {
  MaquinaMuda muda;
  ponerProcesoQueEspera(u"LARGO.AUT"_s, muda);
  Abierta abierta;
  abrirVentanas(abierta.p);
  {
    QProcess noche;
    QByteArray salida;
    arrancar(noche, {u"--carpeta"_s, dir.path(), u"--sin-ventana"_s, u"LARGO"_s});
    ASSERT_TRUE(esperar(noche, "iniciada", salida));
    ASSERT_TRUE(avisar(noche, SIGTERM));
    EXPECT_EQ(acabar(noche).estado, 2);
    EXPECT_TRUE(ver(u"LARGO.TZA"_s).contains("interrumpida"));
  }
  QProcess noche;
  QByteArray salida;
  arrancar(noche, {u"--carpeta"_s, dir.path(), u"--sin-ventana"_s, u"LARGO"_s});
  ASSERT_TRUE(esperar(noche, "Se reanuda", salida));
  abierta.p.kill();
  abierta.p.waitForFinished();
  EXPECT_TRUE(hasta([&] { return ver(u"LARGO.TZA"_s).count("Se reanuda") == 2; }));
  muda.colgar();
  const Fin fin = acabar(noche);
  EXPECT_EQ(fin.estado, 1) << fin.errores.toStdString();
  EXPECT_TRUE(fin.salida.contains(u"Se abandona la tarea")) << fin.salida.toStdString();
  EXPECT_TRUE(fin.salida.contains(u"finalizada"));
  EXPECT_EQ(ver(u"LARGO.TZA"_s).count("Se reanuda"), 2);
  EXPECT_EQ(ejecuciones(), 1);
}

// With a timetable active, windows can be opened; processes due meanwhile run in them, with their
// own trace.
TEST_F(Juntos, ElHorarioCorreEnLaVentanaAbierta) {
  const QByteArray hora = QTime::currentTime().addSecs(8).toString(u"hh:mm:ss"_s).toLatin1();
  poner(u"TIENDA.CRO"_s, hora + ";Sí,Sí,Sí,Sí,Sí,Sí,Sí;NOCHE\r\n");
  poner(u"NOCHE.AUT"_s, "N:nada\r\n");
  QProcess horario;
  QByteArray salida;
  arrancar(horario, {u"--carpeta"_s, dir.path(), u"--sin-ventana"_s, u"TIENDA.CRO"_s});
  ASSERT_TRUE(esperar(horario, "en marcha", salida));
  Abierta abierta;
  abrirVentanas(abierta.p);
  EXPECT_TRUE(esperar(horario, "finalizada", salida)) << salida.toStdString();
  const QByteArray suya = ver(u"TIENDA.TZC"_s);
  EXPECT_TRUE(suya.contains("finalizada")) << suya.toStdString();
  EXPECT_EQ(ejecuciones(), 1);
  ASSERT_TRUE(avisar(horario, SIGTERM));
  EXPECT_EQ(acabar(horario).estado, 2);
}

// Without windows, the timetable holds the database only while a process runs.
TEST_F(Juntos, ElHorarioTomaLaBaseCuandoLeToca) {
  MaquinaMuda muda;
  ponerProcesoQueEspera(u"LARGO.AUT"_s, muda);
  const QByteArray hora = QTime::currentTime().addSecs(4).toString(u"hh:mm:ss"_s).toLatin1();
  poner(u"TIENDA.CRO"_s, hora + ";Sí,Sí,Sí,Sí,Sí,Sí,Sí;LARGO\r\n");
  QProcess horario;
  QByteArray salida;
  arrancar(horario, {u"--carpeta"_s, dir.path(), u"--sin-ventana"_s, u"TIENDA.CRO"_s});
  ASSERT_TRUE(esperar(horario, "iniciada", salida)) << salida.toStdString();
  EXPECT_EQ(correrAqui({u"--puesta-a-cero"_s, u"1"_s, u"no"_s}).estado, 4);
  muda.colgar();
  EXPECT_TRUE(esperar(horario, "finalizada", salida)) << salida.toStdString();
  poner(u"V.AUT"_s, {});
  EXPECT_TRUE(hasta(
      [&] { return correrAqui({u"--sin-ventana"_s, u"--espera"_s, u"0"_s, u"V"_s}).estado == 0; }));
  ASSERT_TRUE(avisar(horario, SIGTERM));
  EXPECT_EQ(acabar(horario).estado, 2);
}

// A second start brings the first to the front, and ends.
TEST_F(Juntos, UnSegundoInicioAlzaElPrimero) {
  Abierta abierta;
  abrirVentanas(abierta.p);
  EXPECT_EQ(correrAqui({}).estado, 0);
  EXPECT_EQ(correrAqui({u"--ventana"_s, u"PortalCnf"_s}).estado, 0);
  EXPECT_EQ(abierta.p.state(), QProcess::Running);
  ASSERT_TRUE(avisar(abierta.p, SIGTERM));
  EXPECT_EQ(acabar(abierta.p).estado, 0);
  EXPECT_FALSE(QFile::exists(en(u"TARVO.SCK"_s)));
}

}  // namespace
}  // namespace tarvo::prueba
