// The program with windows as a process, on a screen that isn't there.
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

// The main window forgets the tickets of other days and, told to end, closes in order.
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

// What a computer that is shut down leaves of a run with its window, the next start goes on with.
TEST_F(ConVentanas, UnaSenalDejaElProcesoParaSeguir) {
  QByteArray largo;
  for (int i = 0; i < 500; ++i) largo += "P:LIMPIAR\r\n";
  poner(u"LARGO.AUT"_s, largo);
  const auto hastaQue = [&](QProcess& p, const QByteArray& dice) {
    QElapsedTimer desde;
    desde.start();
    while (!ver(u"LARGO.TZA"_s).contains(dice) && desde.elapsed() < 20'000) p.waitForReadyRead(50);
    return ver(u"LARGO.TZA"_s).contains(dice);
  };
  const QByteArrayList dichos{"iniciada", "Se reanuda"};
  for (const QByteArray& dice : dichos) {
    QProcess p;
    arrancar(p, {u"--carpeta"_s, dir.path(), u"LARGO"_s});
    ASSERT_TRUE(hastaQue(p, dice)) << ver(u"LARGO.TZA"_s).toStdString();
    p.waitForReadyRead(700);
    ASSERT_TRUE(avisar(p, SIGTERM));
    EXPECT_EQ(acabar(p).estado, 2);
    EXPECT_TRUE(ver(u"LARGO.TZA"_s).contains("interrumpida"));
  }
}

// A question that nobody has answered goes with the program, and the run ends as if unanswered.
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

}  // namespace
}  // namespace tarvo::prueba
