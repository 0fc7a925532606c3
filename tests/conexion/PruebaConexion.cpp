// The test of a connection against machine models: what it finds, and that it asks nothing else.
#include "conexion/TiendaDeConexion.h"

namespace tarvo::prueba {

namespace {

struct Caso {
  QStringView que;
  int tipo;  // of the group
  std::optional<simulador::Paso> averia;
  QStringView dicho;
  int otra = 0;       // the machine at the end is of that kind; -1: none
  int direccion = 5;  // asked for; the machine has 5
};

constexpr QStringView kNadie = u"Abierto NoContesta";

}  // namespace

struct Conexion : TiendaDeConexion {};

TEST_F(Conexion, CadaClaseYCadaFalta) {
  const simulador::Paso sorda{.averia = Averia::Sorda}, muda{.averia = Averia::RespuestaPerdida},
      basura{.averia = Averia::Basura, .valor = 300}, mala{.averia = Averia::ControlMalo},
      corte{.averia = Averia::Corte}, lenta{.averia = Averia::AckLento, .trama = 1, .valor = 3000};
  const Caso casos[] = {
      {u"scales", 1, {}, u"Abierto Contesta"},
      {u"Birch", 4, {}, u"Abierto Contesta"},
      {u"Ebony", 2, {}, u"Abierto Contesta"},
      {u"register", 3, {}, u"Abierto Contesta"},
      {u"scales, late ACK", 1, lenta, u"Abierto Contesta"},
      {u"register, late ACK", 3, lenta, u"Abierto Contesta"},
      {u"another node", 2, {}, kNadie, 0, 6},
      {u"another register", 3, {}, kNadie, 0, 6},
      {u"no line, scales", 1, {}, u"NoAbre SinProbar", -1},
      {u"no line, Ebony", 2, {}, u"NoAbre SinProbar", -1},
      {u"no line, register", 3, {}, u"NoAbre SinProbar", -1},
      {u"silent scales", 1, sorda, kNadie},
      {u"silent Birch", 4, sorda, kNadie},
      {u"silent Ebony", 2, sorda, kNadie},
      {u"silent register", 3, sorda, kNadie},
      {u"only ACK, scales", 1, muda, u"Abierto AMedias"},
      {u"only ACK, Ebony", 2, muda, u"Abierto AMedias"},
      {u"only ACK, register", 3, muda, u"Abierto AMedias"},
      {u"noise, scales", 1, basura, u"Abierto Ruido"},
      {u"noise, Ebony", 2, basura, u"Abierto AMedias"},
      {u"noise, register", 3, basura, u"Abierto Ruido"},
      {u"bad check, Birch", 4, mala, u"Abierto Ruido"},
      {u"refusal, scales", 1, simulador::Paso{.averia = Averia::Err, .valor = 2},
       u"Abierto Rechaza"},
      {u"refusal, Ebony", 2, simulador::Paso{.averia = Averia::Rechazo}, u"Abierto Rechaza"},
      {u"cut, scales", 1, corte, u"Abierto Cortado"},
      {u"cut, register", 3, corte, u"Abierto Cortado"},
      {u"scales that are Ebony", 1, {}, kNadie, 2},
      {u"Ebony that are scales", 2, {}, kNadie, 1},
      {u"scales that are a register", 1, {}, kNadie, 3},
      {u"register that is scales", 3, {}, u"Abierto Ruido", 1}};
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.que.toString().toStdString());
    fabrica.cables.clear();
    puestas.clear();
    if (c.otra >= 0) {
      auto& m = enlazar(c.otra > 0 ? c.otra : c.tipo, 5, {0});
      if (c.averia) averiar(m, *c.averia);
    }
    ASSERT_TRUE(probar(pedir(c.tipo, {c.tipo == 3 ? c.direccion : 0}, c.direccion)));
    EXPECT_EQ(dicho().toStdString(), c.dicho.toString().toStdString());
    const auto& ultima = prueba.contestaciones().back();
    EXPECT_EQ(ultima.ms >= 0, ultima.que == Que::Contesta || ultima.que == Que::Rechaza);
    EXPECT_TRUE(soloPreguntas());
    EXPECT_TRUE(libre());
    EXPECT_EQ(conexion::todoBien(prueba), dicho() == u"Abierto Contesta");
    const QString mira = conexion::queMirar(prueba.contestaciones()[c.otra < 0 ? 0 : 1],
                                            prueba.grupo(), textosDePrueba());
    EXPECT_EQ(mira.isEmpty(), conexion::todoBien(prueba));
    reloj.avanzar(60000);
  }
}

TEST_F(Conexion, LasDelGrupoYLasDeNadie) {
  enlazar(1, 1, {0, 2, 12});
  ASSERT_TRUE(probar(pedir(1, {0, 1, 2})));
  EXPECT_EQ(dicho().toStdString(), u"Abierto Contesta NoEsta Contesta Sobra12"_s.toStdString());
  EXPECT_EQ(
      resumido(),
      u"Contestan 2 de las 3 máquinas del grupo: elija cada una de las demás y lea qué mirar. "
      u"Además contesta 1 que no está en él.");
  EXPECT_EQ(puestas[0]->oidas().size(), 1U);
}

// Each by its address; one that doesn't answer is no hindrance for the next one, and no late answer
// counts for another.
TEST_F(Conexion, LasCajasUnaAUna) {
  for (const int n : {1, 2, 4}) enlazar(3, n);
  averiar(*puestas[1], {.averia = Averia::AckLento, .valor = 9000});
  auto p = pedir(3, {1, 2, 3, 4, 1});
  p.maquinas.push_back({.sitio = 5});
  ASSERT_TRUE(probar(p));
  EXPECT_EQ(dicho().toStdString(),
            u"Abierto Contesta NoContesta NoContesta Contesta MismaDir SinDir"_s.toStdString())
      << "register 2 acknowledges too late, and 3 isn't there";
  EXPECT_TRUE(soloPreguntas());
  EXPECT_TRUE(enDuda()) << "what is still to come may be taken for a line of the next list";
}

// A list that ends leaves no doubt, and one without an end is left, with the registers after it.
TEST_F(Conexion, UnaListaEnteraYUnaSinFin) {
  enlazar(3, 1);
  enlazar(3, 2);
  ASSERT_TRUE(probar(pedir(3, {1, 2})));
  EXPECT_EQ(resumido(), u"Contestan las 2 máquinas del grupo.");
  EXPECT_FALSE(enDuda());
  averiar(*puestas[0], {.averia = Averia::ListaSinFin});
  ASSERT_TRUE(probar(pedir(3, {1, 2}), 5));
  EXPECT_EQ(dicho().toStdString(), u"Abierto AMedias SinProbar"_s.toStdString());
  EXPECT_TRUE(enDuda());
}

TEST_F(Conexion, ParadaYSinLinea) {
  averiar(enlazar(3, 1), {.averia = Averia::Sorda});
  bien(prueba.empezar(pedir(3, {1, 2})));
  EXPECT_FALSE(prueba.empezar(pedir(3, {1}))) << "one at a time";
  reloj.avanzar(1000);
  int acabadas = 0;
  prueba.alAcabar = [&] { ++acabadas; };
  prueba.parar();
  ASSERT_TRUE(acabar());
  EXPECT_EQ(acabadas, 1);
  EXPECT_EQ(dicho().toStdString(), u"Abierto SinProbar SinProbar"_s.toStdString());
  EXPECT_EQ(resumido(), u"Prueba parada: ha contestado 0 de 2.");
  EXPECT_TRUE(libre());
  // A line that never says how its opening, or its closing, has ended.
  fabrica.mudos = true;
  ASSERT_TRUE(probar(pedir(1, {0}), 5));
  EXPECT_EQ(dicho().toStdString(), u"NoAbre SinProbar"_s.toStdString());
  bien(prueba.empezar(pedir(1, {0})));
  reloj.avanzar(1000);
  prueba.parar();
  ASSERT_TRUE(acabar(5));
  EXPECT_EQ(dicho().toStdString(), u"SinProbar SinProbar"_s.toStdString());
}

// --- beside the engine

TEST_F(Conexion, ConElMotorOcupadoNoSePrueba) {
  grupo(1, 1, u"cable 1"_s);
  const auto como = [&] {
    const auto r = prueba.empezar(pedir(1, {0}));
    if (r) prueba.parar(), acabar();
    return r ? u"bien"_s : r.error().texto.left(16);
  };
  EXPECT_EQ(como(), u"bien");
  gestor->FijarModo(true);
  EXPECT_EQ(como(), u"Hay una comunica") << "a process drives the engine";
  gestor->FijarModo(false);
  fallo(1, {.averia = Averia::Sorda, .trama = 1});
  encolar(1, 7);
  reloj.avanzar(500);
  EXPECT_EQ(como(), u"Hay una comunica");
  ASSERT_TRUE(correr());
  // The line may still be closing.
  reloj.avanzar(1000);
  EXPECT_EQ(como(), u"bien");
  // A task that failed and rests has no line: that is when one wants to try it.
  fallo(1, {.averia = Averia::Sorda});
  encolar(1, 7);
  reloj.avanzar(25'000);
  ASSERT_TRUE(gestor->tareas().front().descansa);
  EXPECT_EQ(como(), u"bien");
  gestor->terminator();
  cables().canales[0].Device = TipoAcceso::TcpIp;
  EXPECT_EQ(como(), u"El canal 1 no es");
}

// Whatever the test is doing: the task finds the access free, and needs no second attempt.
TEST_F(Conexion, UnaTareaQueLlegaGana) {
  grupo(1, 3, u"cable 1"_s, {1});
  vender(1, 10, 500, 250);
  gestor->VigilaProcesos(0, false, nullptr);
  for (const int ms : {0, 1, 2, 4, 6, 9, 12, 20}) {
    SCOPED_TRACE(ms);
    bien(prueba.empezar(pedir(3, {1})));
    reloj.avanzar(ms);
    encolar(1, 17);
    EXPECT_FALSE(prueba.enMarcha()) << "at once";
    EXPECT_TRUE(libre());
    EXPECT_EQ(enDuda(), dicho() == u"Abierto SinProbar") << "its list was broken off";
    ASSERT_TRUE(correr(5));
    EXPECT_EQ(prueba.fin() == conexion::Prueba::Fin::Cedida, dicho().contains(u"SinProbar"));
    EXPECT_EQ(bandeja(1, 17), u"1:1/0/500/0");
    reloj.avanzar(5000);
  }
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
}

// A process, a task put back, one that rested and begins again.
TEST_F(Conexion, TambienAUnProceso) {
  grupo(1, 1, u"cable 1"_s);
  fallo(1, {.averia = Averia::Sorda});
  const auto cede = [&](const std::function<void()>& hacer) {
    bien(prueba.empezar(pedir(1, {0})));
    reloj.avanzar(1000);
    hacer();
    return !prueba.enMarcha() && prueba.fin() == conexion::Prueba::Fin::Cedida && libre();
  };
  EXPECT_TRUE(cede([&] { gestor->FijarModo(true); }));
  EXPECT_EQ(resumido().left(25), u"Ha empezado una comunicac");
  gestor->FijarModo(false);
  const int id = encolar(1, 7);
  reloj.avanzar(25'000);
  ASSERT_TRUE(gestor->tareas().front().descansa);
  EXPECT_TRUE(cede([&] { gestor->AvanzarTarea(id); }) || (*enlaces)[0]);
  EXPECT_EQ(prueba.fin(), conexion::Prueba::Fin::Cedida);
}

// --- what is asked for, and the words

TEST_F(Conexion, DeUnGrupoComoSeEscribe) {
  devices::Grupo g;
  const auto falta = [&] {
    const auto p = conexion::grupoProbado(g, textosDePrueba());
    return p ? QString() : p.error().texto.left(22);
  };
  EXPECT_EQ(falta(), u"Ponga antes alguna máq");
  g.tipo(TipoGrupo::Balanzas);
  devices::Balanza b;
  b.tipo(devices::kCedar);
  g.LasBalanzas.emplace(3, b);
  EXPECT_EQ(falta(), u"Este grupo no comunica");
  const std::tuple<TipoAcceso, QStringView, QStringView> casos[] = {
      {TipoAcceso::Directo, u"", u""},
      {TipoAcceso::Modem, u" ", u"Falta el teléfono o el"},
      {TipoAcceso::Modem, u"912345678", u""},
      {TipoAcceso::Conector, u"", u"Falta el teléfono o el"},
      {TipoAcceso::TcpIp, u"tienda", u"La dirección ha de lle"},
      {TipoAcceso::TcpIp, u":4000", u"La dirección ha de lle"},
      {TipoAcceso::TcpIp, u"tienda:70000", u"La dirección ha de lle"},
      {TipoAcceso::TcpIp, u"tienda:4000,2", u""}};
  for (const auto& [acceso, texto, esperada] : casos) {
    g.Acceso = acceso;
    g.Telefono = texto.toString();
    EXPECT_EQ(falta(), esperada) << texto.toString().toStdString();
  }
  const auto p = bien(conexion::grupoProbado(g, textosDePrueba()));
  EXPECT_EQ(p.maquinas, (std::vector<conexion::MaquinaProbada>{{.sitio = 3, .modelo = 3}}));
  EXPECT_EQ(conexion::nombreDe({.sitio = 3, .modelo = 3}, p, textosDePrueba()), u"4 · Cedar");
}

// What to look at when the line doesn't open depends on the failure and on the kind of line.
TEST_F(Conexion, QueMirarSegunElAcceso) {
  const std::tuple<TipoAcceso, int, QStringView> casos[] = {
      {TipoAcceso::Directo, 4, u"El puerto de ese canal"},
      {TipoAcceso::Directo, 18, u"No hay señal en el cable"},
      {TipoAcceso::Modem, 4, u"El módem de este ordenador"},
      {TipoAcceso::Modem, 10, u"El módem de este ordenador"},
      {TipoAcceso::Modem, 11, u"No se ha podido hablar"},
      {TipoAcceso::Modem, 207, u"No se ha podido hablar"},
      {TipoAcceso::TcpIp, 26, u"No se llega a esa dirección"},
      {TipoAcceso::TcpIp, 23, u"En esa dirección nadie"},
      {TipoAcceso::Conector, 24, u"No hay ningún conector"},
      {TipoAcceso::Conector, 27, u"La línea está ocupada"},
      {TipoAcceso::Conector, 23, u"En esa dirección nadie"}};
  for (const auto& [acceso, error, empieza] : casos) {
    conexion::GrupoProbado p;
    p.remoto = acceso;
    const QString mira =
        conexion::queMirar({.que = Que::NoAbre, .error = error}, p, textosDePrueba());
    EXPECT_TRUE(mira.startsWith(empieza)) << error << ' ' << mira.toStdString();
  }
}

}  // namespace tarvo::prueba
