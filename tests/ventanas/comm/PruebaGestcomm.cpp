// The jobs of an operator: receive, see failures, try again, give up, close.

#include <QTimer>

#include "MesaDeGestcomm.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using simulador::Averia;

TEST_F(Gestcomm, RecibeTotalesDeDosGrupos) {
  dosGrupos();
  lenta(1, 1);
  abrir(u"gestcomm"_s);
  EXPECT_EQ(cola()->filas(), 0);
  EXPECT_TRUE(control<QLabel>(u"imgVacia"_s)->isVisible());
  luego([](QWidget* d) {
    EXPECT_EQ(d->windowTitle(), u"Recogida de totales generales");
    auto* lista = d->findChild<QListWidget*>(u"lstGpo"_s);
    EXPECT_EQ(lista->count(), 2);
    EXPECT_EQ(lista->item(1)->text(), u"0002  G");
    auto* todas = d->findChild<QCheckBox*>(u"Todas"_s);
    todas->setFocus();
    QTest::keyClick(todas, Qt::Key_Space);
    EXPECT_FALSE(lista->isEnabled());
    QTest::keyClick(todas, Qt::Key_Return);
  });
  menu(Qt::Key_R, Qt::Key_G);
  EXPECT_EQ(abiertas.back(), u"GrpDlg");
  pasar(150);
  ASSERT_EQ(cola()->filas(), 2);
  EXPECT_EQ(celda(0, u"Tarea"), u"001");
  EXPECT_EQ(celda(1, u"Destino"), u"Gran Total, grupo 0002");
  EXPECT_EQ(celda(1, u"Estado"), u"Terminado");
  EXPECT_FALSE(control<QMenu>(u"MnSes"_s)->menuAction()->isEnabled());
  ASSERT_TRUE(hasta([&] { return celda(0, u"Estado") == u"Transfiriendo datos"; }));
  auto* panel = control<QFrame>(u"PanelCanal1"_s);
  EXPECT_EQ(panel->findChild<QLabel*>(u"lbtar"_s)->text(), u"001");
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0; }));
  pasar(150);
  // A finished task stays visible, with its result.
  EXPECT_EQ(celda(0, u"Estado"), u"Terminado");
  EXPECT_EQ(celda(0, u"Problema"), u"Con ventas: 1. Importe: 5,00.");
  EXPECT_EQ(bandeja(1, 17), u"1:1/250/500/0");
  EXPECT_EQ(bandeja(2, 17), u"2:1/250/1000/0");
  pasar(1500);
  EXPECT_TRUE(control<QToolButton>(u"ImgLlena"_s)->isVisible());
  EXPECT_TRUE(control<QMenu>(u"MnSes"_s)->menuAction()->isEnabled());
  EXPECT_EQ(panel->findChild<QLabel*>(u"palabra"_s)->text(), u"Libre");
}

// Opened for a group, the window selects that group's task, or explains how to queue one.
TEST_F(Gestcomm, SeAbrePorUnGrupo) {
  dosGrupos();
  for (const int g : {1, 2}) fallo(g, {.averia = Averia::Sorda});
  auto* v = abrir(u"gestcomm"_s);
  for (const int g : {1, 2}) gestor->NuevaTarea(g, true, 0, 9999999, TipoTarea::RxGrTot);
  ASSERT_TRUE(hasta([&] { return cola()->filas() == 2; }));
  for (const int g : {1, 2}) {
    abrir(comm::PuertaGestcomm{g});
    EXPECT_EQ(cola()->filaActual(), g - 1);
  }
  abrir(comm::PuertaGestcomm{7});
  EXPECT_TRUE(v->tira().texto().startsWith(u"El grupo 7 no tiene ninguna tarea"));
}

TEST_F(Gestcomm, UnaFallaSeDiagnosticaSeReintentaYSeQuita) {
  dosGrupos();
  fallo(2, {.averia = Averia::Sorda});
  auto* v = abrir(u"gestcomm"_s);
  for (const int g : {1, 2}) gestor->NuevaTarea(g, true, 0, 9999999, TipoTarea::RxGrTot);
  ASSERT_TRUE(hasta([&] {
    return cola()->filas() == 2 && celda(1, u"Estado") == u"Interrumpido por algún problema";
  }));
  EXPECT_EQ(celda(1, u"Problema"), u"Una trama VEK no ha tenido respuesta ACK");
  EXPECT_EQ(control<QLabel>(u"LblProblema"_s)->text(),
            u"Tarea 002: Una trama VEK no ha tenido respuesta ACK");
  EXPECT_TRUE(control<QLabel>(u"LblSesion"_s)->text().startsWith(u"La sesión no se abre"))
      << "the reason why its menu is disabled";
  EXPECT_FALSE(accion(u"RunP"_s)->isEnabled());
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);  // manual mode
  pasar(150);
  EXPECT_TRUE(accion(u"RunP"_s)->isEnabled());
  EXPECT_FALSE(accion(u"ManuP"_s)->isEnabled());

  QString dicho;
  luego([&](QWidget* d) {
    dicho = d->findChild<QLabel*>(u"LblTitular"_s)->text() + u'\n' +
            d->findChild<QPlainTextEdit*>(u"TxtDetalle"_s)->toPlainText();
    QTest::keyClick(d, Qt::Key_Escape);
  });
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_EQ(dicho.toStdString(),
            "El proceso no se desarrolla correctamente.\nInterrumpido por algún problema\n"
            "El código de error devuelto es:  16\nUna trama VEK no ha tenido respuesta ACK");

  const auto antes = oidas(2).size();
  QTest::keyClick(v, Qt::Key_F6);
  pasar(150);
  EXPECT_EQ(celda(1, u"Estado"), u"Transfiriendo datos");
  ASSERT_TRUE(hasta([&] { return celda(1, u"Estado") == u"Interrumpido por algún problema"; }));
  EXPECT_EQ(gestor->tareas().front().FallosTrama, 2);
  EXPECT_EQ(oidas(2).size(), antes);
  QTest::keyClick(v, Qt::Key_Delete);
  pasar(150);
  EXPECT_EQ(cola()->filas(), 1);
  EXPECT_EQ(v->tira().texto(), u"Tarea 002 quitada. Ctrl+Z la devuelve a la cola.");
  EXPECT_FALSE(accion(u"TodoP"_s)->isEnabled());
  EXPECT_EQ(bandeja(2, 17), u"");
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  pasar(150);
  ASSERT_EQ(cola()->filas(), 2);
  EXPECT_EQ(celda(1, u"Tarea"), u"002");
  EXPECT_EQ(cola()->filasElegidas(), std::vector{1}) << "the next key is for what came back";
  EXPECT_FALSE(accion(u"ReponP"_s)->isEnabled());
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier);
  EXPECT_TRUE(gestor->ModoAutomatico());
  ASSERT_TRUE(hasta([&] { return accion(u"TodoP"_s)->isEnabled(); }));
  maquina(2).percances().cambiar({});
  QTest::keyClick(v, Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(v->tira().texto(), u"1 tarea se intenta de nuevo.");
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0; }, 5));
  EXPECT_NE(bandeja(2, 17), u"");
  pasar(150);
  EXPECT_TRUE(control<QLabel>(u"LblSesion"_s)->isHidden());
}

// The current step of a task is shown: the article being sent or deleted, the zeroing.
TEST_F(Gestcomm, SeVeQueSeEnviaQueSeBorraYQueSePoneACero) {
  struct Mirada : motor::Observador {
    void tareaCambiada(int id) override {
      if (const auto t = motor->tarea(id); t && !t->paso.isEmpty()) pasos.insert(t->paso);
    }
    motor::gestcomm* motor = nullptr;
    std::set<QString> pasos;
  } mirada;
  grupo(1, 1, u"cable 1"_s);
  mirada.motor = gestor.get();
  gestor->observar(&mirada);
  bien(db->ejecutar(u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU, DEPTO) VALUES (1, 20, 'T', 1)"));
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::TxPlus);
  ASSERT_TRUE(correr());
  bien(db->ejecutar(u"DELETE FROM PLUSES WHERE CODPLU=20"));
  gestor->NuevaTarea(1, false, 0, 9999999, TipoTarea::TxPlus);
  ASSERT_TRUE(correr());
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::TxZero);
  ASSERT_TRUE(correr());
  gestor->dejarDeObservar(&mirada);
  for (const auto& paso : {u"P 0000020"_s, u"B 0000020"_s, u"** CERO **"_s})
    EXPECT_TRUE(mirada.pasos.contains(paso)) << paso.toStdString();
}

// A waiting or failed task survives the closing of the window, but not the end of the program: the
// question names it.
TEST_F(Gestcomm, AlCerrarSeNombraLoQueQueda) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  gestor->CambioAModo(false);
  encolar(1, 17);
  encolar(2, 18);
  const auto cerrar = [&] { v->descargar(); };
  EXPECT_EQ(
      caja(cerrar, u"Cancelo"_s),
      u"Quedan 2 tareas sin hacer:\n001  Gran Total, grupo 0001: En espera de ser procesado\n"
      u"002  Tot. Operadores, grupo 0002: En espera de ser procesado\n\n"
      u"Al cerrar esta ventana la cola pasa a automático y siguen solas; si sale del programa "
      u"se pierden. ¿Cierra de todos modos?");
  EXPECT_TRUE(v->isVisible());
  caja(cerrar);
  EXPECT_FALSE(escritorio.ventanas().cargada(u"gestcomm"_s));
  ASSERT_TRUE(correr(1));
  EXPECT_NE(bandeja(1, 17), u"");
}

// A lost link, unattended: the command named by the window opens it at once.
TEST_F(Gestcomm, SeguirAbreElEnlacePerdido) {
  dosGrupos();
  delMotor().IntentosManual = 0;
  fallo(1, {.averia = Averia::CierreLimpio, .trama = 3});
  auto* v = abrir(u"gestcomm"_s);
  encolar(1, 18);
  ASSERT_TRUE(hasta([&] { return celda(0, u"Estado") == u"Interrumpido por algún problema"; }, 5));
  EXPECT_EQ(celda(0, u"Problema"), u"Se ha cortado la línea mientras se usaba");
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_FALSE(v->tira().isVisible());
  ASSERT_TRUE(hasta([&] { return celda(0, u"Estado") == u"Terminado"; }, 5));
}

TEST_F(Gestcomm, RetenerSoltarYPararEnManual) {
  dosGrupos();
  lenta(1, 5);
  lenta(1, 10);
  auto* v = abrir(u"gestcomm"_s);
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxOpera);
  ASSERT_TRUE(
      hasta([&] { return cola()->filas() == 1 && cola()->valor(0, u"cont").entero() > 1; }));
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(v, Qt::Key_F7);
  ASSERT_TRUE(hasta([&] { return celda(0, u"Estado") == u"Retenido por el usuario"; }));
  const auto parada = oidas(1).size();
  pasar(5000);
  EXPECT_EQ(oidas(1).size(), parada);
  QTest::keyClick(v, Qt::Key_Delete);
  EXPECT_EQ(v->tira().texto(),
            u"La tarea está «Retenido por el usuario»: así no se le puede hacer eso.");
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_FALSE(v->tira().isVisible()) << "it referred to another command";
  pasar(500);
  EXPECT_GT(oidas(1).size(), parada);
  QTest::keyClick(v, Qt::Key_F8);
  pasar(200);
  EXPECT_EQ(celda(0, u"Estado"), u"Interrumpido voluntariamente por el usuario");
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier);
  ASSERT_TRUE(hasta([&] { return gestor->tareas().empty(); }));
  pasar(1000);
  ASSERT_EQ(cola()->filas(), 1) << "what was not collected stays in view";
  EXPECT_EQ(celda(0, u"Estado"), u"Interrumpido voluntariamente por el usuario");
}

TEST_F(Gestcomm, CerrarEnMitadSeNiegaYNoMolesta) {
  dosGrupos();
  lenta(1, 1);
  auto* v = abrir(u"gestcomm"_s);
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxOpera);
  ASSERT_TRUE(hasta([&] { return gestor->tareas().front().Estado == 3; }));
  const QString dicho = caja([&] { QTest::keyClick(v, Qt::Key_Escape); });
  EXPECT_EQ(dicho, u"No podrá cerrar esta ventana mientras haya procesos en curso");
  EXPECT_TRUE(v->isVisible());
  EXPECT_EQ(gestor->tareas().front().Estado, 3);
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0; }));
  EXPECT_TRUE(bandeja(1, 18).startsWith(u"1:1/0/500/0 2:0/"));
  EXPECT_EQ(filas(u"SELECT COUNT(*) FROM GRUPOS"_s), u"2");
}

// With a link still open the window is hidden, and unloaded after the link has closed.
TEST_F(Gestcomm, SeVaCuandoCierraElUltimoCanal) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  lenta(1, 1);
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxGrTot);
  ASSERT_TRUE(hasta([&] { return !gestor->puedeCerrar(); }));
  fabrica.mudos = true;  // closing takes its time
  ASSERT_TRUE(hasta([&] { return gestor->puedeCerrar(); }));
  EXPECT_FALSE(v->descargar());
  EXPECT_FALSE(v->isVisible());
  ASSERT_TRUE(hasta([&] { return !escritorio.ventanas().cargada(u"gestcomm"_s); }));
  EXPECT_EQ(gestor->canales().front().EstadoCanal, 3);
}

TEST_F(Gestcomm, MenusSegunGruposYQuienSabe) {
  grupo(3, 3, u"cable 3"_s);  // only cash registers
  motor::ClaseTarea sinQuienEnvie = *repertorio.de(TipoTarea::TxTecla);
  sinQuienEnvie.crear = nullptr;
  repertorio.anadir(sinQuienEnvie);
  abrir(u"gestcomm"_s);
  struct {
    const char16_t* entrada;
    bool vale;
    const char16_t* pista;
  } const casos[] = {
      {u"MnRxGrT", true, u""},
      {u"MnZero", true, u""},
      {u"MnTxFch", false, u"Ningún grupo admite esta tarea"},  // a register has no clock
      {u"MnTxTec", false, u"Esta versión todavía no"},         // no implementation yet
  };
  for (const auto& c : casos) {
    QAction* a = accion(QString::fromUtf16(c.entrada));
    EXPECT_EQ(a->isEnabled(), c.vale) << QString::fromUtf16(c.entrada).toStdString();
    if (!c.vale) {
      EXPECT_TRUE(a->toolTip().startsWith(c.pista)) << a->toolTip().toStdString();
    }
  }
  // With one group there is nothing to ask: no dialog.
  accion(u"MnRxGrT"_s)->trigger();
  EXPECT_EQ(abiertas.back(), u"gestcomm");
  EXPECT_EQ(gestor->CuantosQuedan().total, 1);
  // An implementation added later enables its entry.
  grupo(1, 1, u"cable 1"_s);
  motor::ClaseTarea teclados = *repertorio.de(TipoTarea::TxTecla);
  teclados.crear = repertorio.de(TipoTarea::RxGrTot)->crear;
  repertorio.anadir(teclados);
  escritorio.ventanas().abrir(u"gestcomm"_s);
  EXPECT_TRUE(accion(u"MnTxTec"_s)->isEnabled());
}

// A wipe and a zeroing state what will be lost and wait for confirmation, in every way they can be
// started and even with one group.
TEST_F(Gestcomm, LoQueSePierdeSePregunta) {
  grupo(1, 2, u"cable 1"_s);
  vender(1, 10, 1500, 250);
  articulo(10);
  fila(u"Enviados", {{u"GRUPO", 1}, {u"SECCION", 1}, {u"CODPLU", 10}});
  abrir(u"gestcomm"_s);
  encolar(1, 17);
  ASSERT_TRUE(hasta([&] { return cola()->filas() == 0 && sesion->estado() == 2; }));
  gestor->CambioAModo(false);
  const auto responder = [&](const QString& boton, const std::function<void()>& hacer) {
    QString dicho;
    luego([&](QWidget* w) {
      auto* titulo = w->findChild<QLabel*>(u"Mensaje"_s);
      if (titulo) dicho = titulo->text();
      auto* cancelo = w->findChild<QPushButton*>(u"Cancelo"_s);
      ASSERT_TRUE(cancelo);
      EXPECT_TRUE(cancelo->isDefault());
      if (boton.isEmpty()) return QTest::keyClick(w, Qt::Key_Return);
      QTest::mouseClick(w->findChild<QPushButton*>(boton), Qt::LeftButton);
    });
    hacer();
    return dicho;
  };
  const auto borrar = [&] { accion(u"MnBorr"_s)->trigger(); };
  const QString alBorrar = responder({}, borrar);
  EXPECT_TRUE(alBorrar.contains(u"0001 G: 1 artículo;")) << alBorrar.toStdString();
  EXPECT_TRUE(alBorrar.contains(u"15,00")) << alBorrar.toStdString();
  EXPECT_TRUE(alBorrar.contains(u"Sin totales por artículos: 0001 G.")) << alBorrar.toStdString();
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  // Once memorised in a period, the same reading is only the base of the next one.
  sql(u"UPDATE Lecturas SET LINK=7"_s);
  const QString nada = u"ninguna venta recogida sin guardar"_s;
  EXPECT_TRUE(responder({}, borrar).contains(nada));
  // Nor is it lost after its machines were zeroed and the session was closed, unless it was closed
  // without memorising.
  sql(u"UPDATE Lecturas SET LINK=NULL"_s);
  EXPECT_FALSE(responder({}, borrar).contains(nada)) << "the session is open";
  ASSERT_TRUE(sesion->ponerEstado(0));
  EXPECT_TRUE(responder({}, borrar).contains(nada));
  sql(u"INSERT INTO Olvidos (GRUPO, EJECUCION, SEC) VALUES (1, 1, 9999)"_s);
  EXPECT_FALSE(responder({}, borrar).contains(nada));
  responder(u"Acepto"_s, borrar);
  EXPECT_EQ(gestor->CuantosQuedan().total, 1);
  gestor->terminator();
  // The same from the dialog, which stays open after a refusal.
  auto* v = abrir(comm::PuertaGrpDlg());
  const auto cero = [&] {
    QTest::keyClick(v->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
    QCoreApplication::processEvents();
  };
  EXPECT_TRUE(responder({}, cero).contains(u"a cero"));
  EXPECT_TRUE(v->isVisible());
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
  responder(u"Acepto"_s, cero);
  EXPECT_EQ(gestor->CuantosQuedan().total, 1);
}

namespace {

// Notes how it is opened, and is accepted or given up at once.
class CerrSesCallada final : public ventanas::Ventana {
 public:
  CerrSesCallada(ventanas::Contexto& c, const QString& n,
                 std::vector<totals::PuertaCerrSes>& puertas, bool& acepta)
      : Ventana(c, n), puertas_(puertas), acepta_(acepta) {}
  Resultado<> entrar(const totals::PuertaCerrSes& puerta) {
    puertas_.push_back(puerta);
    QTimer::singleShot(0, this, [this] { acepta_ ? aceptar() : rechazar(); });
    return {};
  }

 private:
  std::vector<totals::PuertaCerrSes>& puertas_;
  bool& acepta_;
};

}  // namespace

TEST_F(Gestcomm, LasSesiones) {
  dosGrupos();
  abrir(u"gestcomm"_s);
  accion(u"MnAbrSs"_s)->trigger();
  EXPECT_EQ(sesion->estado(), 1);
  EXPECT_FALSE(accion(u"MnCerSs"_s)->isEnabled());
  accion(u"MnCanSs"_s)->trigger();
  EXPECT_EQ(sesion->estado(), 0);
  encolar(1, 17);
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0 && sesion->estado() == 2; }));
  pasar(200);
  // The picture opens the closing of the session by a double click, not by an accidental single
  // one. To forget what was received is asked for there as well, where it can be brought back.
  std::vector<totals::PuertaCerrSes> puertas;
  bool acepta = false;
  escritorio.ventanas().registrar<totals::PuertaCerrSes, CerrSesCallada>(puertas, acepta);
  auto* llena = control<QToolButton>(u"ImgLlena"_s);
  QTest::mouseClick(llena, Qt::LeftButton);
  EXPECT_EQ(abiertas.back(), u"gestcomm");
  QTest::mouseDClick(llena, Qt::LeftButton);
  EXPECT_EQ(abiertas.back(), u"CerrSes");
  pasar(200);
  accion(u"MnCanSs"_s)->trigger();
  EXPECT_EQ(puertas, (std::vector<totals::PuertaCerrSes>{{}, {.olvidar = true}}));
  EXPECT_EQ(sesion->estado(), 2);
  // After memorising or forgetting in another window, the light is out.
  ASSERT_TRUE(llena->isVisible());
  bien(sesion->cerrarSinMemorizar());
  pasar(1000);
  EXPECT_FALSE(llena->isVisible());
}

// Sales that are forgotten are no more in any period than before: their group isn't zeroed for it.
TEST_F(Gestcomm, LaSesionCerradaSinMemorizarDejaConstancia) {
  dosGrupos();
  encolar(1, 17);
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0 && sesion->estado() == 2; }));
  ASSERT_TRUE(bien(gestor->LaSesion(0)));
  EXPECT_EQ(sesion->estado(), 0);
  EXPECT_EQ(bien(sesion->sinPeriodo(1)), 500);
}

// The inbox is asked about before the window goes, in the way in which Return memorises nothing.
TEST_F(Gestcomm, AlCerrarPreguntaPorLaBandejaSinMemorizarPorIntro) {
  dosGrupos();
  abrir(u"gestcomm"_s);
  encolar(1, 17);
  ASSERT_TRUE(hasta([&] { return gestor->CuantosQuedan().total == 0 && sesion->estado() == 2; }));
  pasar(200);
  std::vector<totals::PuertaCerrSes> puertas;
  bool acepta = false;
  escritorio.ventanas().registrar<totals::PuertaCerrSes, CerrSesCallada>(puertas, acepta);
  // Given up with Escape there, this window stays too.
  for (const bool cual : {false, true}) {
    acepta = cual;
    EXPECT_EQ(escritorio.ventanas().descargar(u"gestcomm"_s), acepta);
  }
  EXPECT_EQ(puertas, (std::vector<totals::PuertaCerrSes>{{.alSalir = true}, {.alSalir = true}}));
  EXPECT_EQ(sesion->estado(), 2);
}

// Asking again after a reading and its zeroing: the repeat would lose the data waiting in the
// inbox.
TEST_F(Gestcomm, RepetirTrasLaPuestaACeroSeNiega) {
  dosGrupos();
  abrir(u"gestcomm"_s);
  encolar(1, 17);
  ASSERT_TRUE(correr());
  reloj.avanzar(60000);
  sql(u"UPDATE Sesiones SET PZERO=? WHERE CODGPO=1"_s, reloj.ahora());
  QString dicho;
  luego([&](QWidget* d) {
    dicho = caja([d] { QTest::keyClick(d->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space); });
  });
  accion(u"MnRxGrT"_s)->trigger();
  EXPECT_EQ(dicho.toStdString(),
            "Esta opción ya ha sido usada durante la presente sesión\n"
            "y se ha realizado una puesta a cero posterior\n"
            "Si la repitiera, se perderían los datos anteriormente recogidos");
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
}

TEST_F(Gestcomm, DiagnosticoDeUnErrorConDosCausas) {
  auto* v = abrir(comm::PuertaDiagnostico{.estado = 6, .error = 18});
  EXPECT_TRUE(v->findChild<QPlainTextEdit*>(u"TxtDetalle"_s)
                  ->toPlainText()
                  .endsWith(u"El cable puede desconectado o defectuoso o Si la conexión es "
                            u"directa, la balanza puede estar apagada"));
  // Checks for a shop, followed by advice for the current mode.
  const struct {
    int error;
    bool automatico;
    QString empieza, acaba;
  } remedios[] = {
      {18, true, u"Mire, por este orden: que la balanza está encendida; que su cable"_s,
       u"pase a manual y pulse Quitar."_s},
      {23, false, u"Mire, por este orden: que la balanza está encendida; que su cable de red"_s,
       u"o Quitar para darla por perdida."_s},
      {25, false, u"Mire, por este orden: que el módem"_s, u"o Quitar para darla por perdida."_s},
      {19, false, u"En manual no se vuelve a intentar sola"_s,
       u"o Quitar para darla por perdida."_s},
  };
  for (const auto& r : remedios) {
    gestor->CambioAModo(r.automatico);
    abrir(comm::PuertaDiagnostico{.estado = 6, .error = r.error});
    const QString dice = v->findChild<QLabel*>(u"LblRemedio"_s)->text();
    EXPECT_TRUE(dice.startsWith(r.empieza) && dice.endsWith(r.acaba)) << dice.toStdString();
    EXPECT_EQ(dice.contains(u"pase a manual"), r.automatico);
  }
  abrir(comm::PuertaDiagnostico{.estado = 7, .error = 18});
  EXPECT_EQ(v->findChild<QLabel*>(u"LblTitular"_s)->text(),
            u"No se observa comportamiento anómalo.");
}

}  // namespace tarvo::prueba
