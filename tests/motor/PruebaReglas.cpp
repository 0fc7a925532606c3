// What the engine must never do: serve one access twice at a time, zero unread machines, take a
// broken reading for a good one, or wait for ever.
#include "motor/Reglas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

TEST_F(Reglas, LoQueNoSePuedeEncolar) {
  tienda();
  grupo(3, 3, QStringLiteral("cable 3"));
  grupo({.codigo = 9, .almacen = 0, .remoto = 0})
      .grupo({.codigo = 10, .tipo = 7, .almacen = 0, .remoto = 3})
      .grupo({.codigo = 11, .almacen = 0, .remoto = 9});
  EXPECT_EQ(gestor->NuevaTarea(99, true, 0, 1, TipoTarea::TxHora), motor::Pedida::DestinoMalo);
  EXPECT_EQ(gestor->NuevaTarea(9, true, 0, 1, TipoTarea::TxHora), motor::Pedida::DestinoMalo);
  for (const int g : {10, 11})  // of an unknown kind and with an unknown access
    EXPECT_EQ(gestor->NuevaTarea(g, true, 0, 9999999, TipoTarea::RxGrTot),
              motor::Pedida::DestinoMalo)
        << g;
  EXPECT_EQ(gestor->NuevaTarea(3, true, 0, 1, TipoTarea::TxHora),
            motor::Pedida::DestinoMalo);  // registers have no clock
  motor::ClaseTarea sinQuienEnvie = *repertorio.de(TipoTarea::TxTecla);
  sinQuienEnvie.crear = nullptr;
  repertorio.anadir(sinQuienEnvie);
  EXPECT_EQ(gestor->NuevaTarea(1, true, 0, 1, TipoTarea::TxTecla), motor::Pedida::DestinoMalo);
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  EXPECT_EQ(repertorio.porClave(u"TXPLUS")->tarea, TipoTarea::TxPlus);
  EXPECT_EQ(repertorio.porClave(u""), nullptr);
}

// Reported once, when all is done and closed; a task that stays for the operator delays it.
TEST_F(Reglas, TerminaCuandoPuedas) {
  struct Mira final : motor::Observador {
    void acabado() override { ++veces; }
    int veces = 0;
  } mira;
  gestor->observar(&mira);
  tienda();
  encolar(1, 17);
  encolar(1, 7);
  gestor->TerminaCuandoPuedas();
  EXPECT_EQ(mira.veces, 0);
  ASSERT_TRUE(correr());
  reloj.avanzar(5000);
  EXPECT_EQ(mira.veces, 1);
  gestor->VigilaProcesos(0, false, nullptr);
  fallo(1, {Averia::Sorda});
  encolar(1, 17);
  gestor->TerminaCuandoPuedas();
  reloj.avanzar(10 * 60 * 1000);
  EXPECT_EQ(mira.veces, 1);
  gestor->TerminaCuandoPuedas(false);
  gestor->terminator();
  reloj.avanzar(60 * 1000);
  EXPECT_EQ(mira.veces, 1);
  gestor->dejarDeObservar(&mira);
}

TEST_F(Reglas, UnAccesoSirveAUnaTareaCadaVez) {
  cables().canales[0].Device = cables().canales[1].Device = TipoAcceso::TcpIp;
  arrancar();
  tienda(1, QStringLiteral("tcp:sur"));
  sql(u"UPDATE GRUPOS SET telef=' SUR:4000 ' WHERE CODGPO=1"_s);
  grupo({.codigo = 2, .nombre = u"B", .almacen = 0, .remoto = 3, .acceso = u"sur:4000", .addr = 1});
  fabrica.cables[QStringLiteral(" SUR")] = fabrica.cables[QStringLiteral("SUR")] =
      fabrica.cables[QStringLiteral("sur")];
  const int a = encolar(1, 18), b = encolar(2, 7);
  int juntas = 0;
  for (int i = 0; i < 200 && gestor->CuantosQuedan().total > 0; ++i) {
    reloj.avanzar(50);
    juntas += estado(b) > 0 && estado(a) > 0 && estado(a) < 4;
  }
  EXPECT_EQ(juntas, 0);
  EXPECT_TRUE(problemas.isEmpty());
  EXPECT_EQ(hechas, (QStringList{QStringLiteral("18 G1"), QStringLiteral("7 G2")}));
  EXPECT_EQ(fabrica.aperturas, 1);  // the idle link was used again
}

// A fault must not change the rows of a reading.
TEST_F(Reglas, LasAveriasNoCambianLoLeido) {
  tiempos().TimeOut = 3000;
  arrancar();
  tienda();
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  grupo(3, 3, QStringLiteral("cable 3"), {4});
  for (int a = 1; a <= 30; ++a) vender(2, a, a, 1, 1 + a % 10, 5), vender(3, a, a, 0, 1, 4);
  struct Esperada {
    int grupo, addr, clase;
    QString filas;
  };
  std::vector<Esperada> esperadas;
  for (const auto& [g, addr] : {std::pair(1, 1), {2, 5}, {3, 4}})
    for (const int clase : {16, 17, 18, 19}) {
      if (g == 3 && clase == 18) continue;
      encolar(g, clase);
      ASSERT_TRUE(correr());
      esperadas.push_back({g, addr, clase, bandeja(g, clase)});
    }
  for (const Averia a :
       {Averia::AckPerdido, Averia::RespuestaPerdida, Averia::RespuestaTardia,
        Averia::RespuestaDoble, Averia::MismoNumero, Averia::RespuestaPartida,
        Averia::RespuestaPegada, Averia::ControlMalo, Averia::RegistroCorto, Averia::OtroNumero,
        Averia::OtroCodigo, Averia::Corte, Averia::CierreLimpio, Averia::Err, Averia::Rechazo})
    for (const Esperada& e : esperadas) {
      problemas.clear();
      maquina(e.grupo, e.addr).percances() =
          simulador::Percances({.guion = {{a, 2, -1, 0}, {a, 1, -1, 1}}}, 1);
      encolar(e.grupo, e.clase);
      ASSERT_TRUE(correr(60)) << nombreAveria(a).toStdString();
      EXPECT_EQ(bandeja(e.grupo, e.clase).toStdString(), e.filas.toStdString())
          << nombreAveria(a).toStdString() << " grupo " << e.grupo << " clase " << e.clase;
    }
}

TEST_F(Reglas, LoQueNuncaVaBienSeAcabaYSeDice) {
  tiempos().TimeOut = 3000;
  arrancar();
  tienda();
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  for (int a = 1; a <= 30; ++a) vender(2, a, a, 1, 1, 5);
  leida(1);
  const QString antes = bandeja(1, 17);
  // A record with only the beginning of its number left isn't one, however often it comes.
  struct Caso {
    Averia averia;
    int grupo, clase, error, valor = -1;
  };
  for (const Caso& c :
       {Caso{Averia::RegistroCorto, 1, 19, 7, 1}, Caso{Averia::RegistroCorto, 2, 16, 7, 4},
        Caso{Averia::RegistroCorto, 1, 17, 7, 0}, Caso{Averia::Corte, 1, 17, 32},
        Caso{Averia::CierreLimpio, 1, 16, 32}, Caso{Averia::CierreLimpio, 2, 16, 32},
        Caso{Averia::ListaSinFin, 1, 21, 17}, Caso{Averia::RegistroCorto, 1, 22, 7},
        Caso{Averia::Err, 1, 17, 105}}) {
    problemas.clear(), avisos.clear();
    maquina(1).memoria().olvidar(simulador::Lista::Pedidos);
    for (int i = 1; i < 9; ++i) maquina(1).memoria().apuntar(simulador::Lista::Pedidos, {i, i, i});
    maquina(c.grupo, c.grupo == 2 ? 5 : 1).percances() = simulador::Percances(
        {.guion = {{c.averia, 0, -1, 0, c.averia == Averia::Err ? 5 : c.valor}}}, 1);
    encolar(c.grupo, c.clase, c.error != 17);
    ASSERT_TRUE(correr()) << nombreAveria(c.averia).toStdString();
    ASSERT_EQ(problemas.size(), 1) << nombreAveria(c.averia).toStdString();
    EXPECT_TRUE(problemas.front().startsWith(
        QStringLiteral("%1 G%2 E%3 ").arg(c.clase).arg(c.grupo).arg(c.error)))
        << nombreAveria(c.averia).toStdString() << problemas.front().toStdString();
    EXPECT_EQ(avisos.size(), c.error == 7) << nombreAveria(c.averia).toStdString();
    EXPECT_EQ(bandeja(1, 17), antes);
    EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM PEDI_CAB")), u"0");
    EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM PEDI_LIN")), u"0");
  }
}

// A record without its last field is asked for again. If it keeps coming in the same bytes, the
// machine always sends it so: it is read with 0 for the missing field, and this is reported.
TEST_F(Reglas, UnRegistroQueSiempreVieneAsi) {
  tienda();
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  grupo(3, 3, QStringLiteral("cable 3"), {4});
  for (int a = 1; a <= 30; ++a) vender(2, a, a, 1, 1, 5), vender(3, a, a, 0, 1, 4);
  struct Caso {
    int grupo, clase, codigo, quedan;  // length of the record
    QString fila;                      // one of the rows read
    int tomados;
  };
  const Caso casos[] = {{1, 17, 850, 23, QStringLiteral("1:0/300/600/0"), 1},
                        {1, 16, 830, 25, QStringLiteral("20:0/100/200/0"), 3},
                        {2, 16, 67, 22, QStringLiteral("1:0/1/1/0"), 4},
                        {3, 16, 2057, 25, QStringLiteral("2:30/0/0/0"), 30}};
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.codigo);
    const int addr = c.grupo == 1 ? 1 : c.grupo == 2 ? 5 : 4;
    reintentos.clear(), avisos.clear();
    std::vector<simulador::Paso> guion;
    for (int m = 0; m < 30; ++m) guion.push_back({Averia::RegistroCorto, 0, c.codigo, m, c.quedan});
    maquina(c.grupo, addr).percances() = simulador::Percances({.guion = guion}, 1);
    encolar(c.grupo, c.clase);
    ASSERT_TRUE(correr());
    EXPECT_TRUE(problemas.isEmpty()) << problemas.join(u' ').toStdString();
    EXPECT_TRUE(reintentos.isEmpty()) << reintentos.join(u' ').toStdString();
    const QString filasLeidas = bandeja(c.grupo, c.clase);
    EXPECT_TRUE(filasLeidas.split(u' ').contains(c.fila)) << filasLeidas.toStdString();
    const QString frase =
        QStringLiteral(
            "Grupo %1: registros que han llegado varias veces iguales y no se leen enteros, %2 (")
            .arg(c.grupo)
            .arg(c.tomados);
    EXPECT_EQ(avisos.join(u'\n').count(frase), 1) << avisos.join(u'\n').toStdString();
  }
}

// One short record among whole ones, with no attempt to spare: it is taken when it has come four
// times alike, and it isn't when a longer one of the same subject came, or once cut otherwise.
TEST_F(Reglas, UnRegistroCortoEntreOtrosEnteros) {
  tienda();
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  grupo(3, 3, QStringLiteral("cable 3"), {4});
  for (int a = 1; a <= 30; ++a) vender(2, a, a, 1, 1, 5), vender(3, a, a, 0, 1, 4);
  gestor->VigilaProcesos(0, true, this);
  struct Caso {
    int grupo, addr, codigo;
    std::vector<int> veces;  // the questions with that answer, from 1
    int mensaje, quedan;     // the frame of a list, and its length
    QString fila;
  };
  const Caso casos[] = {{1, 1, 830, {2, 3, 4, 5}, 0, 25, QStringLiteral("20:0/100/200/0")},
                        {2, 5, 67, {1, 2, 3, 4}, 3, 152, QStringLiteral("30:0/1/30/0")},
                        {3, 4, 2057, {1, 2, 3, 4}, 1, 25, QStringLiteral("2:30/0/463/0")}};
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.codigo);
    problemas.clear(), reintentos.clear(), avisos.clear();
    std::vector<simulador::Paso> guion;
    for (const int vez : c.veces)
      guion.push_back({Averia::RegistroCorto, vez, c.codigo, c.mensaje, c.quedan});
    maquina(c.grupo, c.addr).percances() = simulador::Percances({.guion = guion}, 1);
    encolar(c.grupo, 16);
    ASSERT_TRUE(correr());
    EXPECT_TRUE(problemas.isEmpty()) << problemas.join(u' ').toStdString();
    EXPECT_TRUE(reintentos.isEmpty()) << reintentos.join(u' ').toStdString();
    EXPECT_EQ(avisos.filter(QStringLiteral("no se leen enteros, 1 (")).size(), 1)
        << avisos.join(u'\n').toStdString();
    const QString leidas = bandeja(c.grupo, 16);
    EXPECT_TRUE(leidas.split(u' ').contains(c.fila)) << leidas.toStdString();
  }
}

// Missing counters say nothing about a machine that may still hold memorised ones: 0 would look as
// if it had forgotten, and its whole day would be added again.
TEST_F(Reglas, UnRegistroCortoNoSeComparaConLoMemorizado) {
  tienda();
  encolar(1, 16);
  ASSERT_TRUE(correr());
  const QString entera = bandeja(1, 16);
  sql(u"UPDATE Lecturas SET LINK=1 WHERE GRUPO=1"_s);
  std::vector<simulador::Paso> guion;
  for (int m = 0; m < 30; ++m) guion.push_back({Averia::RegistroCorto, 0, 830, m, 25});
  maquina(1, 1).percances() = simulador::Percances({.guion = guion}, 1);
  encolar(1, 16);
  (void)correr();
  EXPECT_FALSE(problemas.isEmpty() && reintentos.isEmpty());
  EXPECT_TRUE(avisos.filter(QStringLiteral("no se leen enteros")).isEmpty());
  EXPECT_EQ(bandeja(1, 16), entera);
}

// Once the machine has forgotten there is nothing to compare with, and they are taken again.
TEST_F(Reglas, UnRegistroCortoDespuesDePonerseACero) {
  tienda();
  encolar(1, 16);
  ASSERT_TRUE(correr());
  sql(u"UPDATE Lecturas SET LINK=1 WHERE GRUPO=1"_s);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  ASSERT_TRUE(gestor->LaSesion(0));
  ASSERT_TRUE(problemas.isEmpty()) << problemas.join(u' ').toStdString();
  vender(1, 20, 5, 0);
  std::vector<simulador::Paso> guion;
  for (int m = 0; m < 30; ++m) guion.push_back({Averia::RegistroCorto, 0, 830, m, 25});
  maquina(1, 1).percances() = simulador::Percances({.guion = guion}, 1);
  encolar(1, 16);
  ASSERT_TRUE(correr());
  EXPECT_TRUE(problemas.isEmpty()) << problemas.join(u' ').toStdString();
  EXPECT_EQ(avisos.filter(QStringLiteral("no se leen enteros")).size(), 1);
}

// A refusal is one under any code, and a question without an answer ends in time.
TEST_F(Reglas, UnaNegativaConElCodigoDeOtraPregunta) {
  tienda();
  fallo(1, {Averia::Err, 1, 850, 0, 1});
  fallo(1, {Averia::OtroCodigo, 1, 850});
  encolar(1, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(reintentos, QStringList{QStringLiteral("17 G1 E101")});
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
}

// The scales of a shop with that setting may answer under any code.
TEST_F(Reglas, ContestarConOtroCodigo) {
  tienda();
  for (const bool acepta : {false, true}) {
    delMotor().AceptaOtroCodigo = acepta;
    problemas.clear();
    maquina(1).percances() = simulador::Percances({.guion = {{Averia::OtroCodigo}}}, 1);
    for (const int clase : {17, 6}) encolar(1, clase);
    ASSERT_TRUE(correr());
    EXPECT_EQ(problemas, acepta ? QStringList{}
                                : (QStringList{QStringLiteral("17 G1 E17 (6)"),
                                               QStringLiteral("6 G1 E22 (0)")}));
    EXPECT_EQ(bandeja(1, 17), acepta ? u"1:3/300/600/0" : u"");
    EXPECT_EQ(maquina(1).memoria().puestas().size(), acepta ? 1U : 0U);
  }
}

TEST_F(Reglas, SiElVigiaOElAlmacenFallanNoSeGuardaNada) {
  tienda();
  hecha = tarvo::fallo(Fallo::DiscoLleno, QStringLiteral("No queda sitio en el disco."));
  encolar(1, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas, QStringList{QStringLiteral("17 G1 E99 (6)")});
  EXPECT_EQ(avisos, QStringList{QStringLiteral("No queda sitio en el disco.")});
  EXPECT_EQ(bandeja(1, 17), u"");
  EXPECT_EQ(sesion->estado(), 0);
  hecha = {};
  encolar(1, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(sesion->estado(), 2);
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
}

TEST_F(Reglas, ReintentosALaCuentaJusta) {
  tienda();
  maquina(1).percances().cambiar({.guion = {{Averia::Sorda, 0, -1}}});
  gestor->VigilaProcesos(2, true, this);
  encolar(1, 7);
  ASSERT_TRUE(correr());
  EXPECT_EQ(reintentos.size(), 2);  // retried until the counter is above the limit
  EXPECT_EQ(problemas, QStringList{QStringLiteral("7 G1 E16 (6)")});
  // A line without an answer.
  problemas.clear(), reintentos.clear();
  reloj.avanzar(5000);
  fabrica.cables.clear();
  encolar(1, 7);
  ASSERT_TRUE(correr());
  EXPECT_EQ(reintentos.size(), 2);
  EXPECT_EQ(problemas, QStringList{QStringLiteral("7 G1 E11 (2)")});
}

TEST_F(Reglas, LoQueFallaAntesDeLaEsperaTieneSusReintentos) {
  tienda();
  maquina(1).percances().cambiar({.guion = {{Averia::Sorda, 0, -1}}});
  gestor->VigilaProcesos(0, false, this);
  encolar(1, 17);
  encolar(1, 6);
  EXPECT_FALSE(correr(5));
  EXPECT_EQ(problemas + avisos, QStringList{});
  maquina(1).percances().cambiar({});
  gestor->VigilaProcesos(1, true, this);
  ASSERT_TRUE(correr());
  EXPECT_EQ(reintentos.size(), 1);
  EXPECT_EQ(problemas + avisos, QStringList{});
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

TEST_F(Reglas, SinCanalDeSuClaseLaTareaNoEspera) {
  tienda(1, QStringLiteral("tcp:tienda"));
  tienda(2, QStringLiteral("tel:555"));
  for (auto& c : cables().canales) c.Device = TipoAcceso::Directo;
  arrancar();
  encolar(1, 17);
  encolar(2, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas,
            (QStringList{QStringLiteral("17 G1 E14 (5)"), QStringLiteral("17 G2 E14 (5)")}));
}

TEST_F(Reglas, OrdenesDelOperador) {
  tienda();
  gestor->VigilaProcesos(0, false, nullptr);
  gestor->CambioAModo(false);
  const int id = encolar(1, 18);
  reloj.avanzar(5000);
  EXPECT_EQ(estado(id), 0);  // in manual mode nothing advances by itself
  gestor->AvanzarTarea(id);
  reloj.avanzar(20);
  EXPECT_EQ(estado(id), 3);
  gestor->PausarTarea(id);
  reloj.avanzar(5000);
  EXPECT_EQ(estado(id), 7);
  EXPECT_FALSE(gestor->puedeCerrar());
  const int traza = tarea(id)->Traza;
  gestor->EliminarTarea(id);
  EXPECT_EQ(estado(id), 7);
  gestor->AvanzarTarea(id);
  reloj.avanzar(10);
  EXPECT_GT(tarea(id)->Traza, traza);
  gestor->DetenerTarea(id);
  EXPECT_EQ(estado(id), 8);
  EXPECT_TRUE(gestor->GruposFallidos().contains(1));
  gestor->EliminarTarea(id);
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  bool cerrada = false;
  gestor->cerrar([&] { cerrada = true; });
  reloj.avanzar(5000);
  EXPECT_TRUE(cerrada);
  EXPECT_EQ(gestor->canales()[0].EstadoCanal, 3);
}

TEST_F(Reglas, ElEnlaceQueNoDiceNadaSeAbandona) {
  tienda();
  fabrica.mudos = true;  // openings and closings that never end
  encolar(1, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas, QStringList{QStringLiteral("17 G1 E5 (2)")});
  fabrica.mudos = false;
  encolar(1, 17);
  reloj.avanzar(510);
  fabrica.mudos = true;
  ASSERT_TRUE(correr());
  EXPECT_EQ(hechas, QStringList{QStringLiteral("17 G1")});
  bool cerrada = false;
  gestor->cerrar([&] { cerrada = true; });
  reloj.avanzar(300000);
  EXPECT_TRUE(cerrada);
}

TEST_F(Reglas, ElEnlacePerdidoVuelveMedioMinutoDespues) {
  tienda();
  maquina(1).percances().cambiar({.guion = {{Averia::CierreLimpio, 3, -1}}});
  const int id = encolar(1, 18);
  reloj.avanzar(2000);
  EXPECT_EQ(gestor->canales()[0].EstadoCanal, 7);
  EXPECT_EQ(tarea(id)->Estado, 3);
  const auto antes = oidas(1).size();
  reloj.avanzar(27000);
  EXPECT_EQ(oidas(1).size(), antes);
  ASSERT_TRUE(correr(2));
  EXPECT_EQ(reintentos, QStringList{QStringLiteral("18 G1 E32")});
  EXPECT_EQ(oidas(1).count(QStringLiteral("800 01")), 1);  // it continues where it was
}

TEST_F(Reglas, CienConectores) {
  for (int g = 1; g <= 100; ++g) tienda(g, QStringLiteral("conector%1").arg(g));
  for (int g = 1; g <= 100; ++g) encolar(g, 17), encolar(g, 6);
  ASSERT_TRUE(correr(1));
  EXPECT_EQ(hechas.size(), 200);
  EXPECT_EQ(fabrica.aperturas, 100);
  for (int g = 1; g <= 100; ++g) EXPECT_EQ(maquina(g).memoria().puestas().size(), 1U);
}

TEST_F(Reglas, DetenerMientrasSeAbreNoSeReintenta) {
  tienda();
  fabrica.cables.clear();
  gestor->VigilaProcesos(5, false, nullptr);
  const int id = encolar(1, 17);
  reloj.avanzar(0);
  ASSERT_EQ(estado(id), 1);
  gestor->DetenerTarea(id);
  reloj.avanzar(60000);
  ASSERT_TRUE(tarea(id));
  EXPECT_EQ(tarea(id)->Estado, 2);
  EXPECT_EQ(tarea(id)->Error, 13);
  EXPECT_EQ(fabrica.aperturas, 1);
  EXPECT_TRUE(gestor->GruposFallidos().contains(1));
  gestor->terminator();
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  reloj.avanzar(1000);
  EXPECT_EQ(gestor->canales()[0].EstadoCanal, 3);
}

TEST_F(Reglas, ElCableQueNoEsDeLaTareaLaRechaza) {
  tienda();
  cables().canales[0].Device = TipoAcceso::Modem;
  arrancar();
  encolar(1, 17);
  encolar(1, 6);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas,
            (QStringList{QStringLiteral("6 G1 E22 (0)"), QStringLiteral("17 G1 E14 (5)")}));
}

TEST_F(Reglas, SinCanalDeSuClaseLaTareaNoEsperaParaSiempre) {
  arrancar();
  tienda(1, QStringLiteral("tcp:sur"));
  for (const int remoto : {1, 3}) {
    sql(u"UPDATE GRUPOS SET remoto=?, telef='sur:4000' WHERE CODGPO=1"_s, remoto);
    encolar(1, 17);
    ASSERT_TRUE(correr());
  }
  EXPECT_EQ(problemas, QStringList(2, QStringLiteral("17 G1 E14 (5)")));
}

}  // namespace tarvo::prueba
