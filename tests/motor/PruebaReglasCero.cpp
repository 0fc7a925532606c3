// When a machine may be told to forget, and with which frames.
#include "comm/tareas/Duda.h"
#include "motor/Reglas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

TEST_F(Reglas, LaPuestaACeroEsperaALaLecturaDeDelante) {
  tienda();
  fallo(1, {Averia::Sorda, 1, 17});
  maquina(1).percances().cambiar({.guion = {{Averia::Sorda, 2, -1}, {Averia::Sorda, 3, -1}}});
  encolar(1, 16);
  encolar(1, 17);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_TRUE(problemas.isEmpty()) << problemas.join(u';').toStdString();
  EXPECT_EQ(hechas, (QStringList{QStringLiteral("16 G1"), QStringLiteral("17 G1"),
                                 QStringLiteral("6 G1")}));
  ASSERT_EQ(maquina(1).memoria().puestas().size(), 1U);
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
  EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM Sesiones WHERE PZERO IS NOT NULL")), u"1");
}

TEST_F(Reglas, NiPorOtroCanalAdelantaLaPuestaACero) {
  tienda(1, QStringLiteral("b"));
  sql(u"UPDATE GRUPOS SET telef='a'"_s);  // a missing connector
  encolar(1, 17);
  sql(u"UPDATE GRUPOS SET telef='b'"_s);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_TRUE(maquina(1).memoria().puestas().empty());
  EXPECT_EQ(problemas,
            (QStringList{QStringLiteral("17 G1 E24 (2)"), QStringLiteral("6 G1 E22 (0)")}));
}

// Articles sent after a wipe would be lost with it.
TEST_F(Reglas, LoQueSigueAUnBorradoLoEspera) {
  grupo(3, 3, QStringLiteral("b"), {9});
  leida(3);
  sql(QStringLiteral("UPDATE GRUPOS SET telef='a'"));  // a missing connector
  encolar(3, 10);
  sql(QStringLiteral("UPDATE GRUPOS SET telef='b'"));
  encolar(3, 17);
  alHacer = [this] { EXPECT_EQ(problemas.size(), 1) << "the wipe is given up by now"; };
  ASSERT_TRUE(correr());
  EXPECT_EQ(hechas.back(), QStringLiteral("17 G3"));
}

TEST_F(Reglas, TrasUnaLecturaFallidaNoHayPuestaACero) {
  tienda();
  leida(1);
  const QString antes = bandeja(1, 17);
  maquina(1).percances().cambiar({.guion = {{Averia::Sorda, 0, 850}}});
  for (const bool conVigia : {true, false}) {
    problemas.clear(), avisos.clear();
    encolar(1, 17);
    const int cero = encolar(1, 6);
    if (!conVigia) gestor->VigilaProcesos(0, false, nullptr);
    if (conVigia) {
      ASSERT_TRUE(correr());
      EXPECT_EQ(problemas,
                (QStringList{QStringLiteral("17 G1 E16 (6)"), QStringLiteral("6 G1 E22 (0)")}));
      EXPECT_EQ(avisos.size(), 1);
      EXPECT_TRUE(gestor->GruposFallidos().contains(1));
    } else {
      correr(5);
      ASSERT_TRUE(tarea(cero));
      EXPECT_EQ(tarea(cero)->Error, 22);
      EXPECT_EQ(gestor->CuantosQuedan().enCurso, 0);
      gestor->EliminarTarea(cero);
      gestor->EliminarTarea(cero - 1);
    }
    EXPECT_TRUE(maquina(1).memoria().puestas().empty());
    EXPECT_EQ(bandeja(1, 17), antes);  // the good reading before it stays
  }
  EXPECT_FALSE(bien(sesion->permisoCero(1)).permitido);
  // After a complete reading, the group may be zeroed.
  maquina(1).percances().cambiar({});
  gestor->VigilaProcesos(3, true, this);
  encolar(1, 17);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

TEST_F(Reglas, PuestaACeroDeCadaFamilia) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  grupo(3, 3, QStringLiteral("cable 3"), {4, 6});
  grupo(4, 4, QStringLiteral("cable 4"));
  for (const int g : {2, 3, 4}) encolar(g, 6);
  fallo(4, {Averia::Sorda, 1, 915});
  fallo(4, {Averia::Sorda, 2, 915});
  fallo(4, {Averia::Sorda, 3, 915});
  fallo(4, {Averia::Sorda, 4, 915});
  ASSERT_TRUE(correr());
  EXPECT_TRUE(problemas.isEmpty());
  EXPECT_EQ(oidas(2, 5).value(0), u"71");
  for (const int a : {4, 6})
    EXPECT_EQ(oidas(3, a), (QStringList{QStringLiteral("3054"), QStringLiteral("3056"),
                                        QStringLiteral("3058"), QStringLiteral("2060")}));
  // After a failure a Birch group is zeroed in part; who has obeyed shows it.
  EXPECT_EQ(oidas(4).mid(oidas(4).size() - 2),
            (QStringList{QStringLiteral("910"), QStringLiteral("860")}));
  EXPECT_EQ(filas(QStringLiteral(
                "SELECT GRUPO, ADDR, SEC_HECHO>SEC_INTENCION FROM Ceros ORDER BY GRUPO, ADDR")),
            u"2,0,1;3,4,1;3,6,1;4,0,1");
}

TEST_F(Reglas, TrasUnCorteSoloSePoneACeroLoQueNoHaVendido) {
  for (const int g : {1, 2, 3}) tienda(g, QStringLiteral("cable %1").arg(g));
  for (const int g : {1, 2, 3}) leida(g);
  arrancar(true);
  hechas.clear();
  vender(2, 10, 55, 1);                                    // sold since
  maquina(3).memoria().ponerACero(reloj.ahora(), 915, 7);  // has forgotten already
  for (const int g : {1, 2, 3}) encolar(g, 6);
  ASSERT_TRUE(correr());
  hechas.sort();
  EXPECT_EQ(hechas, (QStringList{QStringLiteral("6 G1"), QStringLiteral("6 G3")}));
  EXPECT_EQ(problemas, QStringList{QStringLiteral("6 G2 E22 (0)")});
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
  EXPECT_TRUE(maquina(2).memoria().puestas().empty());
  EXPECT_EQ(maquina(3).memoria().puestas().size(), 1U);
}

// What was sold between two processes, one that reads and one that zeroes, is in no reading.
TEST_F(Reglas, OtroProcesoSoloPoneACeroLoQueNoHaVendido) {
  articulo(10, QStringLiteral("2000010"));
  const struct {
    int tipo;
    std::vector<int> lee;
    bool vende, cero;
  } casos[] = {{1, {17, 16}, false, true}, {1, {17, 16}, true, false}, {1, {16}, true, false},
               {3, {17, 16}, false, true}, {3, {17, 16}, true, false}, {3, {16}, true, false},
               {3, {16}, false, true},     {1, {}, true, true},        {3, {}, true, true}};
  for (int g = 1; const auto& c : casos) {
    grupo(g, c.tipo, QStringLiteral("toma %1").arg(g));
    vender(g, 10, 500, 100);
    for (const int clase : c.lee) encolar(g, clase);
    ASSERT_TRUE(correr());
    ++g;
  }
  arrancar();
  sesion->ponerEnProceso(true);
  for (int g = 1; const auto& c : casos) {
    SCOPED_TRACE(g);
    problemas.clear();
    if (c.vende) vender(g, 10, 300, 50);
    encolar(g, 6, false);
    ASSERT_TRUE(correr());
    EXPECT_EQ(problemas, c.cero ? QStringList{} : QStringList{u"6 G%1 E22 (0)"_s.arg(g)})
        << oidas(g).join(u' ').toStdString();
    EXPECT_EQ(maquina(g).memoria().contadores().granTotal.imp, c.cero ? 0 : 800);
    ++g;
  }
}

// The group sold more than it had, although one of its registers forgot: the sum alone shows
// nothing.
TEST_F(Reglas, LoQueOlvidoUnaDeVariasNoSePisaEnLaBandeja) {
  articulo(10);
  grupo(3, 3, QStringLiteral("cable 3"), {4, 6});
  for (const int addr : {4, 6}) vender(3, 10, 300, 0, 1, addr);
  leida(3);
  const QString leido = bandeja(3, 17);
  // When continued, the zeroing asks each register again, and the second doesn't answer.
  arrancar(true);
  maquina(3, 6).percances().cambiar({.guion = {{Averia::Sorda, 0, 2060}}});
  encolar(3, 6);
  const QString ceros = QStringLiteral("SELECT count(*), count(HECHO) FROM Ceros");
  for (int i = 0; i < 100 && filas(ceros) != u"1,1"; ++i) reloj.avanzar(10);
  ASSERT_EQ(filas(ceros), u"1,1");
  maquina(3, 6).percances().cambiar({});
  arrancar();
  for (const int addr : {4, 6, 4}) vender(3, 10, 500, 0, 1, addr);
  EXPECT_EQ(gestor->NuevaTarea(3, true, 0, 9999999, TipoTarea::RxGrTot), motor::Pedida::YaUsada);
  ASSERT_TRUE(correr());
  EXPECT_EQ(bandeja(3, 17), leido);
}

// The order gets no answer, or a refusal. Before it is sent again the machine must show its
// contents; if it was only silent it is asked at once, without using a retry.
TEST_F(Reglas, UnaOrdenSinRespuestaNoSeRepiteACiegas) {
  struct Caso {
    int tipo, clase, trama;
    Averia averia;
    bool vende;
    int ordenes;   // received by the machine
    qint64 queda;  // left of its grand total
  };
  constexpr Averia niega = Averia::CeroRechazado, calla = Averia::RespuestaPerdida,
                   nada = Averia::CeroSinRespuesta, sorda = Averia::Sorda;
  const Caso casos[] = {{1, 17, 910, niega, false, 2, 0},   {1, 17, 910, niega, true, 1, 1300},
                        {1, 17, 910, calla, false, 1, 0},   {1, 17, 910, calla, true, 1, 300},
                        {1, 17, 910, nada, true, 1, 300},   {1, 17, 910, sorda, false, 1, 0},
                        {2, 17, 71, calla, true, 1, 300},   {2, 17, 71, nada, true, 1, 300},
                        {3, 17, 3054, niega, false, 2, 0},  {3, 17, 3054, calla, true, 1, 1300},
                        {3, 17, 3056, calla, true, 1, 300}, {1, 16, 910, niega, false, 1, 1000},
                        {1, 16, 910, calla, false, 1, 0}};
  articulo(10, QStringLiteral("2000010"));
  for (int g = 1; const Caso& c : casos) {
    SCOPED_TRACE(g);
    grupo(g, c.tipo, QStringLiteral("toma %1").arg(g));
    for (const int importe : {500, 300, 200}) vender(g, 10, importe, 100);
    encolar(g, c.clase);
    ASSERT_TRUE(correr());
    problemas.clear();
    reintentos.clear();
    fallo(g, {c.averia, 1, c.trama});
    encolar(g, 6, false);
    const QString orden = QString::number(c.trama);
    for (int n = 0; n < 100 && oidas(g).filter(orden).isEmpty(); ++n) reloj.avanzar(10);
    if (c.vende) vender(g, 10, 300, 50);
    ASSERT_TRUE(correr());
    EXPECT_EQ(oidas(g).filter(orden).size(), c.ordenes) << oidas(g).join(u' ').toStdString();
    // Later sales of a register are in no reading: they are left, and this is reported.
    const bool dicho = c.queda >= 1000 || (c.tipo == 3 && c.vende);
    EXPECT_EQ(problemas.isEmpty(), !dicho) << problemas.join(u' ').toStdString();
    // A wide answer begins with a digit: the refusal of a register is not recognised.
    EXPECT_EQ(reintentos.isEmpty(), c.averia != niega || c.tipo == 3)
        << reintentos.join(u' ').toStdString();
    EXPECT_EQ(maquina(g).memoria().contadores().granTotal.imp, c.queda);
    ++g;
  }
}

// A confirmed order is done if the question after it shows a machine at zero, or brings no answer:
// then what the machine held is kept for its next reading. It isn't if the sales are still there.
TEST_F(Reglas, QuienConfirmaMuestraSiObedecio) {
  const struct {
    int tipo;
    Averia averia;
    int trama;
    bool vista, obedece = true;
    int leida = 17;
  } casos[] = {{1, Averia::Sorda, 0, true},
               {1, Averia::Sorda, 850, false},
               {1, Averia::Err, 850, false},
               {1, Averia::CeroIncumplido, 910, true, false},
               {2, Averia::Sorda, 0, true},
               {2, Averia::CeroIncumplido, 71, true, false},
               {3, Averia::Sorda, 0, true},
               {3, Averia::Sorda, 2060, false},
               {3, Averia::CeroIncumplido, 3056, true, false},
               {3, Averia::CeroIncumplido, 3054, true, false, 16}};
  articulo(10, QStringLiteral("2000010"));
  for (int g = 1; const auto& c : casos) {
    SCOPED_TRACE(g);
    grupo(g, c.tipo, QStringLiteral("toma %1").arg(g));
    vender(g, 10, 500, 100);
    encolar(g, c.leida);
    ASSERT_TRUE(correr());
    for (int vez = 1; c.trama != 0 && vez <= 9; ++vez) fallo(g, {c.averia, vez, c.trama});
    encolar(g, 6, false);
    ASSERT_TRUE(correr());
    const QString cero = QStringLiteral("6 G%1").arg(g);
    EXPECT_EQ(problemas, c.obedece ? QStringList{} : QStringList{cero + u" E22 (0)"_s});
    problemas.clear();
    EXPECT_EQ(hechas.filter(QRegularExpression(u'^' + cero)).size(), c.obedece ? 1 : 0)
        << oidas(g).join(u' ').toStdString();
    EXPECT_EQ(
        uno(QStringLiteral("SELECT SEC_HECHO>=SEC_INTENCION FROM Ceros WHERE GRUPO=%1").arg(g))
            .logico(),
        c.obedece);
    EXPECT_EQ(uno(QStringLiteral("SELECT VISTO OR NOT EXISTS (SELECT 1 FROM CeroFilas f WHERE "
                                 "f.GRUPO=Ceros.GRUPO) FROM Ceros WHERE GRUPO=%1")
                      .arg(g))
                  .logico(),
              c.vista)
        << oidas(g).join(u' ').toStdString();
    ++g;
  }
}

// Two empty lists that were both late ends of one that broke off.
TEST(Contraste, LoQueSeRompeNoVaSeguido) {
  const Textos textos;
  tareas::Contraste<int> c(4);
  c.dudar();
  EXPECT_FALSE(bien(c.vale(1, textos)));
  c.romper();
  EXPECT_FALSE(bien(c.vale(1, textos)));
  EXPECT_TRUE(bien(c.vale(1, textos)));
}

// A truncated "ERR01" is no consent, nor is a number that refuses nothing.
TEST_F(Reglas, UnaNegativaCortadaEsNegativa) {
  tienda();
  leida(1);
  for (int i = 1; i <= 4; ++i) maquina(1).memoria().apuntar(simulador::Lista::Pedidos, {i, i, i});
  const auto negar = [&](int codigo, int numero) {
    std::vector<simulador::Paso> guion{{Averia::Err, 0, codigo, 0, numero}};
    if (numero == 1) guion.push_back({Averia::RegistroCorto, 0, codigo, 0, 2});
    maquina(1).percances().cambiar({.guion = guion});
  };
  for (const auto& [clase, orden] : {std::pair{6, 910}, {22, 880}})
    for (const int numero : {1, 99}) {
      problemas.clear();
      negar(orden, numero);
      encolar(1, clase, false);
      ASSERT_TRUE(correr());
      EXPECT_EQ(problemas, QStringList{QStringLiteral("%1 G1 E7 (6)").arg(clase)});
    }
  EXPECT_EQ(filas(QStringLiteral("SELECT count(*) FROM Sesiones WHERE PZERO IS NOT NULL")), u"0");
  EXPECT_EQ(filas(QStringLiteral("SELECT count(*) FROM ListasRecibidas WHERE OLVIDADA<>0")), u"0");
}

// An unreadable record never proves that a machine has forgotten.
TEST_F(Reglas, UnGranTotalIlegibleNoPruebaNada) {
  tienda();
  leida(1);
  arrancar(true);
  maquina(1).percances() =
      simulador::Percances({.guion = {{Averia::RegistroCorto, 0, 850, 0, 9}}}, 1);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas, QStringList{QStringLiteral("6 G1 E7 (6)")});
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 0U);
  EXPECT_EQ(filas(QStringLiteral("SELECT count(*) FROM Sesiones WHERE PZERO IS NOT NULL")), u"0");
}

// A grand total read before the machine last forgot says nothing about its present contents.
TEST_F(Reglas, UnGranTotalDeOtraNocheNoVale) {
  tienda();
  leida(1);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  bien(sesion->ponerEstado(0));
  vender(1, 10, 55, 1);
  encolar(1, 16);
  ASSERT_TRUE(correr());
  arrancar(true);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas, QStringList{QStringLiteral("6 G1 E22 (0)")});
  EXPECT_TRUE(avisos.join(u' ').contains(u"guarda ventas que no están memorizadas"));
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

// Deleting the journal of the database by mistake loses nothing that a machine has forgotten.
TEST_F(Reglas, LoQueSeOlvidaEstaEnElFicheroMismo) {
  tienda();
  leida(1);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  ASSERT_EQ(maquina(1).memoria().puestas().size(), 1U);
  const QString copia = carpeta_.filePath(QStringLiteral("solo.mdb"));
  ASSERT_TRUE(QFile::copy(db->ruta(), copia));
  const auto sola = bien(dao::Database::OpenDatabase(copia, {}));
  EXPECT_EQ(bien(sola->uno(u"SELECT IMP FROM TOTGRT WHERE LINK=0 AND GRUPO=1")).entero(), 600);
}

// The register is silent from one frame on, and the zeroing is requested again without a new
// reading.
TEST_F(Reglas, ElRegistroAMediasSigueDondeQuedo) {
  struct Caso {
    int calla;      // deaf for this frame
    bool borra;     // ... but it obeys the first time
    bool vende;     // before the second try
    QString luego;  // frames of the second attempt after the grand total
  };
  const Caso casos[] = {{3054, false, false, QStringLiteral("3054 3056 3058")},
                        {3054, true, false, QStringLiteral("3054 3056 3058")},
                        {3056, false, false, QStringLiteral("3056 3058")},
                        {3056, true, false, QStringLiteral("3056 3058")},
                        {3058, false, false, QStringLiteral("3058")},
                        {3054, true, true, {}},
                        {3056, false, true, {}},
                        {3056, true, true, {}},
                        {3058, false, true, {}}};
  grupo(3, 3, QStringLiteral("cable 3"), {4});
  articulo(10, QStringLiteral("2000010"));
  for (const bool reanuda : {false, true})
    for (const Caso& c : casos) {
      SCOPED_TRACE(QStringLiteral("%1 %2 %3 %4")
                       .arg(c.calla)
                       .arg(c.borra)
                       .arg(c.vende)
                       .arg(reanuda)
                       .toStdString());
      for (int n = 0; n < 3; ++n) vender(3, 10, 200, 0, 1, 4);
      leida(3);
      auto& percances = maquina(3, 4).percances();
      std::vector<simulador::Paso> guion{{Averia::Sorda, 0, 2060}};
      if (c.borra) guion.push_back({Averia::CeroSinRespuesta, 1, c.calla});
      for (int n = c.borra ? 2 : 1; n < 20; ++n) guion.push_back({Averia::Sorda, n, c.calla});
      maquina(3, 4).cambiarPercances(simulador::Percances({.guion = guion}, 1));
      encolar(3, 6);
      ASSERT_TRUE(correr());
      percances.cambiar({});
      arrancar(reanuda);
      if (c.vende) vender(3, 10, 300, 0, 1, 4);
      const auto antes = oidas(3, 4).size();
      encolar(3, 6);
      ASSERT_TRUE(correr());
      EXPECT_EQ(oidas(3, 4).mid(antes).filter(QStringLiteral("30")).join(u' '), c.luego);
      EXPECT_EQ(maquina(3, 4).memoria().contadores().articulos.empty(), !c.vende);
      maquina(3, 4).memoria().ponerACero(reloj.ahora(), 0, simulador::kTodos);
      bien(sesion->ceroHecho(3, 4, true, totals::Sesion::Visto::Todo));
      bien(sesion->ponerEstado(0));
    }
}

// A good reading says nothing about the group's other kinds.
TEST_F(Reglas, UnaLecturaBuenaNoBorraElFalloDeOtra) {
  tienda();
  gestor->VigilaProcesos(0, true, this);
  fallo(1, {Averia::Sorda, 0, 850});
  encolar(1, 17);
  ASSERT_TRUE(correr());
  maquina(1).percances().cambiar({});
  encolar(1, 18);
  ASSERT_TRUE(correr());
  EXPECT_TRUE(gestor->GruposFallidos().contains(1));
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas.back(), QStringLiteral("6 G1 E22 (0)"));
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 0U);
  encolar(1, 17);
  ASSERT_TRUE(correr());
  EXPECT_FALSE(gestor->GruposFallidos().contains(1));
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

// A failure holds for the run in which it happened.
TEST_F(Reglas, ElFalloDeOtraNocheNoImpideElCero) {
  tienda();
  gestor->VigilaProcesos(0, true, this);
  maquina(1).percances().cambiar({.guion = {{Averia::Sorda, 0, -1}}});
  encolar(1, 23);
  ASSERT_TRUE(correr());
  EXPECT_TRUE(gestor->GruposFallidos().contains(1));
  maquina(1).percances().cambiar({});
  sesion->ponerEjecucion(2, false);
  leida(1);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

}  // namespace tarvo::prueba
