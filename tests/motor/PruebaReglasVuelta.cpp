// Failed tasks that stay come back: by themselves while nobody watches, on the operator's command,
// and when a removal is undone.
#include "motor/Reglas.h"

namespace tarvo::prueba {

// Without retries or a watcher, in manual mode: the link comes back all the same, by itself in due
// time or at once on the operator's command.
TEST_F(Reglas, ElEnlacePerdidoVuelveAunqueNadieMire) {
  for (const bool automatico : {true, false}) {
    const int g = automatico ? 1 : 2;
    tienda(g, QStringLiteral("cable %1").arg(g));
    gestor->VigilaProcesos(0, false, nullptr);
    delMotor().IntentosManual = 0;
    maquina(g).percances().cambiar({.guion = {{Averia::CierreLimpio, 3, -1}}});
    const int id = encolar(g, 18);
    reloj.avanzar(300);
    ASSERT_EQ(estado(id), 6);
    gestor->CambioAModo(automatico);
    const auto antes = oidas(g).size();
    reloj.avanzar(25'000);
    EXPECT_EQ(oidas(g).size(), antes);
    if (!automatico) {
      gestor->AvanzarTarea(id);
      reloj.avanzar(1000);
      EXPECT_EQ(estado(id), 4);  // a finished task stays visible
      gestor->CambioAModo(true);
    }
    ASSERT_TRUE(correr(1));
    EXPECT_EQ(oidas(g).count(QStringLiteral("800 01")), 1);  // it continues where it was
    EXPECT_NE(bandeja(g, 18), u"");
  }
}

// The queue advances by itself, and so do failed tasks, less and less often; one that makes a
// machine forget waits for the operator.
TEST_F(Reglas, EnAutomaticoLoFallidoSeIntentaDeNuevo) {
  for (const int g : {1, 2}) tienda(g, QStringLiteral("tcp:casa%1").arg(g));
  delMotor().IntentosManual = 0;
  cables().canales[0].Device = TipoAcceso::TcpIp;
  arrancar();
  gestor->VigilaProcesos(0, false, nullptr);
  fallo(1, {Averia::Sorda, 0, -1});
  const int id = encolar(1, 17);
  encolar(2, 17);
  reloj.avanzar(12'000);
  EXPECT_EQ(estado(id), 6);
  EXPECT_TRUE(tarea(id)->descansa);
  EXPECT_NE(bandeja(2, 17), u"");  // it has given the only channel to the next task
  const auto veces = [&](int segundos) {
    const int antes = fabrica.aperturas;
    reloj.avanzar(segundos * 1000);
    return fabrica.aperturas - antes;
  };
  EXPECT_EQ(veces(40), 1);
  EXPECT_EQ(veces(5 * 60), 2);  // after one minute, and two
  maquina(1).percances().cambiar({});
  ASSERT_TRUE(correr(15));
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
  EXPECT_FALSE(gestor->GruposFallidos().contains(1));

  fallo(1, {Averia::Sorda, 0, 910});
  const int cero = encolar(1, 6, false);
  reloj.avanzar(30 * 60'000);
  EXPECT_EQ(estado(cero), 6);
  EXPECT_EQ(oidas(1).count(QStringLiteral("910")), 0);
  maquina(1).percances().cambiar({});
  EXPECT_EQ(gestor->ReintentarTodo(), 1);
  ASSERT_TRUE(correr(1));
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

TEST_F(Reglas, ReintentarTodoEsTodo) {
  for (const int g : {1, 2, 3}) tienda(g, QStringLiteral("cable %1").arg(g));
  cables().canales[1].Device = TipoAcceso::TcpIp;
  gestor->VigilaProcesos(0, false, nullptr);
  gestor->CambioAModo(false);
  EXPECT_FALSE(gestor->hayReintentables());
  fallo(1, {Averia::Sorda, 0, -1});
  const int sorda = encolar(1, 17), otra = encolar(2, 17), parada = encolar(3, 17);
  for (const int id : {sorda, otra, parada}) gestor->AvanzarTarea(id);
  gestor->DetenerTarea(parada);
  reloj.avanzar(20'000);
  const int cero = encolar(1, 6);
  gestor->AvanzarTarea(cero);
  EXPECT_EQ(estado(sorda), 6);
  EXPECT_EQ(estado(otra), 5);
  EXPECT_EQ(estado(parada), 2);
  // The zeroing waits for the failed reading, and runs once that one has succeeded.
  EXPECT_EQ(gestor->pendientes().size(), 4U);
  maquina(1).percances().cambiar({});
  cables().canales[1].Device = TipoAcceso::Directo;
  EXPECT_EQ(gestor->ReintentarTodo(), 3);
  gestor->CambioAModo(true);
  ASSERT_TRUE(correr(1));
  for (const int g : {1, 2, 3}) EXPECT_NE(bandeja(g, 17), u"") << g;
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);
}

// A group deleted while its tasks wait, or while one of them is read: nothing of it is stored, and
// this is reported.
TEST_F(Reglas, LoDeUnGrupoBorradoNoSeGuarda) {
  for (const bool enMarcha : {false, true}) {
    const int grupo = enMarcha ? 2 : 1;
    tienda(grupo, QStringLiteral("cable %1").arg(grupo));
    avisos.clear();
    gestor->VigilaProcesos(0, true, this);
    const int id = encolar(grupo, 17);
    const auto borrar = [&] {
      for (const char16_t* tabla : {u"BZAS", u"Sesiones", u"Lecturas", u"GRUPOS"})
        sql(QStringLiteral("delete from ") + QString::fromUtf16(tabla));
    };
    for (int i = 0; enMarcha && i < 1000 && estado(id) != 3; ++i) reloj.avanzar(1);
    EXPECT_EQ(estado(id), enMarcha ? 3 : 0);
    borrar();
    ASSERT_TRUE(correr());
    EXPECT_EQ(avisos.filter(QStringLiteral("ya no existe")).size(), 1) << enMarcha;
    EXPECT_EQ(filas(QStringLiteral("SELECT (SELECT COUNT(*) FROM TOTGRT), (SELECT COUNT(*) FROM "
                                   "Sesiones), (SELECT COUNT(*) FROM Lecturas)")),
              u"0,0,0")
        << enMarcha;
  }
}

TEST_F(Reglas, LoQuitadoVuelveASuSitio) {
  tienda();
  gestor->VigilaProcesos(0, false, nullptr);
  gestor->CambioAModo(false);
  EXPECT_EQ(gestor->ReponerTarea(), std::nullopt);
  const int lectura = encolar(1, 17), cero = encolar(1, 6);
  gestor->EliminarTarea(cero);
  gestor->EliminarTarea(lectura);
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  EXPECT_TRUE(gestor->GruposFallidos().contains(1));
  EXPECT_EQ(gestor->ReponerTarea(), motor::Pedida::EnCola);  // the latest first
  EXPECT_EQ(gestor->ReponerTarea(), motor::Pedida::EnCola);
  EXPECT_FALSE(gestor->hayQuitadas());
  ASSERT_EQ(gestor->tareas().size(), 2U);
  EXPECT_EQ(gestor->tareas().front().datos.Clase, TipoTarea::RxGrTot);
  gestor->CambioAModo(true);
  ASSERT_TRUE(correr(1));
  EXPECT_EQ(bandeja(1, 17), u"1:3/300/600/0");
  EXPECT_EQ(maquina(1).memoria().puestas().size(), 1U);  // after the reading
  // A finished task is gone for good.
  EXPECT_EQ(gestor->ReponerTarea(), std::nullopt);
}

}  // namespace tarvo::prueba
