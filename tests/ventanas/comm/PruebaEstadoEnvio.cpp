// Jobs in the window of the send state: see what a group lacks, send just that, ask the scales for
// an article and see where it differs.
#include <QTableView>

#include "MesaDeComm.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

struct VentanaEstado : MesaDeComm {
  static constexpr TipoTarea kEnvio = TipoTarea::TxPlus;
  void SetUp() override {
    grupo(1, 1, u"cable 1"_s);
    for (const int c : {10, 20, 30}) poner(c, 100 * c, 1);
    poner(40, 1000000, 1);  // a price of seven digits
  }
  void poner(int codigo, int precio, int depto) {
    articulo({.codigo = codigo, .nombre = u"Tomate", .depto = depto, .precio = precio});
  }
  ventanas::Parrilla* lista() { return control<ventanas::Parrilla>(u"lista"_s, u"EstadoEnvio"_s); }
  ventanas::Parrilla* ficha() { return control<ventanas::Parrilla>(u"ficha"_s, u"EstadoEnvio"_s); }
  QString cuenta() { return control<QLabel>(u"LblCuenta"_s, u"EstadoEnvio"_s)->text(); }
  QString filasVistas() {
    QStringList s;
    for (int f = 0; f < lista()->filas(); ++f)
      s << lista()->texto(f, u"CODPLU") + u' ' + lista()->texto(f, u"SITUACION");
    return s.join(u',');
  }
  bool lista(const QString& filas) {
    return hasta([&] { return filasVistas() == filas; });
  }
  void tecla(Qt::Key t, Qt::KeyboardModifiers m = {}) {
    QTest::keyClick(escritorio.ventanas().cargada(u"EstadoEnvio"_s), t, m);
  }
};

TEST_F(VentanaEstado, SeEnviaSoloLoElegido) {
  abrir(comm::PuertaEstadoEnvio{1});
  ASSERT_TRUE(lista(u"0000010 Pendiente,0000020 Pendiente,0000030 Pendiente,0000040 Retenido"_s))
      << filasVistas().toStdString();
  EXPECT_EQ(lista()->texto(3, u"MOTIVO"), u"el precio base tiene más de 6 cifras");
  lista()->irA(1);
  tecla(Qt::Key_F6);
  const auto dicho = [&] {
    return escritorio.ventanas().cargada(u"EstadoEnvio"_s)->tira().texto();
  };
  EXPECT_EQ(dicho(), u"El envío está en la cola.");
  ASSERT_TRUE(hasta([&] { return dicho().startsWith(u"El envío ha acabado"); }));
  ASSERT_TRUE(lista(u"0000010 Pendiente,0000030 Pendiente,0000040 Retenido"_s))
      << filasVistas().toStdString();
  EXPECT_EQ(oidas(1).size(), 1);
  EXPECT_TRUE(cuenta().startsWith(u"Al día 1, sin comprobar 0, pendientes 2"));
  auto* ver = control<QComboBox>(u"Ver"_s, u"EstadoEnvio"_s);
  ver->setFocus();
  QTest::keyClick(ver, Qt::Key_Down);
  ASSERT_TRUE(lista(u"0000010 Pendiente,0000020 Al día,0000030 Pendiente,0000040 Retenido"_s));
}

// If nothing is pending, the list reports that, with the name of the group.
TEST_F(VentanaEstado, TodoAlDiaSeDice) {
  bien(db->ejecutar(u"DELETE FROM PLUSES WHERE CODPLU=40"));
  gestor->NuevaTarea(1, false, 0, 9999999, kEnvio);
  ASSERT_TRUE(correr());
  abrir(comm::PuertaEstadoEnvio{1});
  auto* vacia = lista()->findChild<QLabel*>(u"vacia"_s);
  EXPECT_TRUE(hasta([&] { return vacia->isVisible(); }));
  EXPECT_EQ(vacia->text(), u"Todo está al día en 0001  G.");
}

TEST_F(VentanaEstado, SePideUnArticuloALaBalanza) {
  gestor->NuevaTarea(1, false, 0, 9999999, kEnvio);
  ASSERT_TRUE(correr());
  maquina(1).memoria().catalogo[20].ficha.replace(27, 6, "000007");
  abrir(comm::PuertaEstadoEnvio{1});
  auto* ver = control<QComboBox>(u"Ver"_s, u"EstadoEnvio"_s);
  QTest::keyClick(ver, Qt::Key_Down);
  ASSERT_TRUE(lista(u"0000010 Al día,0000020 Al día,0000030 Al día,0000040 Retenido"_s));
  lista()->irA(1);
  EXPECT_EQ(ficha()->texto(2, u"alli"), u"");
  tecla(Qt::Key_F7);
  ASSERT_TRUE(lista(u"0000010 Al día,0000020 Pendiente,0000030 Al día,0000040 Retenido"_s))
      << filasVistas().toStdString();
  EXPECT_EQ(lista()->filaActual(), 1);
  EXPECT_EQ(ficha()->texto(2, u"aqui"), u"20,00");
  EXPECT_EQ(ficha()->texto(2, u"alli"), u"0,07");
  EXPECT_EQ(ficha()->texto(2, u"distinto"), u"Distinto");
  EXPECT_EQ(ficha()->texto(0, u"distinto"), u"Igual");
  lista()->irA(3);  // held back
  EXPECT_EQ(ficha()->texto(2, u"aqui"), u"10.000,00");
}

// A dead machine is reported, retried, and can be stopped; once it is back, the work goes on by
// itself.
TEST_F(VentanaEstado, UnaMaquinaQueNoContesta) {
  delMotor().IntentosManual = 1;
  abrir(comm::PuertaEstadoEnvio{1});
  ASSERT_TRUE(lista(u"0000010 Pendiente,0000020 Pendiente,0000030 Pendiente,0000040 Retenido"_s));
  auto* aviso = control<QLabel>(u"LblTarea"_s, u"EstadoEnvio"_s);
  EXPECT_TRUE(aviso->isHidden());
  maquina(1).percances().cambiar({.guion = {{simulador::Averia::Sorda, 0, -1}}});
  lista()->irA(0);
  tecla(Qt::Key_F6);
  const auto dicho = [&](const QString& texto) {
    return hasta([&] { return !aviso->isHidden() && aviso->text().contains(texto); });
  };
  ASSERT_TRUE(dicho(u"no ha tenido respuesta ACK. Se vuelve a probar a las "_s))
      << aviso->text().toStdString();
  pasar(60'000);
  maquina(1).percances().cambiar({});
  ASSERT_TRUE(lista(u"0000020 Pendiente,0000030 Pendiente,0000040 Retenido"_s))
      << filasVistas().toStdString();
  EXPECT_TRUE(aviso->isHidden());
  maquina(1).percances().cambiar({.guion = {{simulador::Averia::Sorda, 0, -1}}});
  tecla(Qt::Key_F7);
  ASSERT_TRUE(dicho(u"Se vuelve a probar"_s));
  tecla(Qt::Key_F8);
  EXPECT_EQ(escritorio.ventanas().cargada(u"EstadoEnvio"_s)->tira().texto(),
            u"Se quita de la cola 1 tarea de este grupo.");
  EXPECT_TRUE(hasta([&] { return aviso->isHidden() && gestor->CuantosQuedan().total == 0; }));
}

// A problem with the sending stays visible, and opens the send state of its group.
TEST_F(VentanaEstado, LoQueNoSeEnvioSeQuedaALaVista) {
  grupo(2, 1, u"cable 2"_s);
  abrir(u"gestcomm"_s);
  gestor->TerminaCuandoPuedas();
  gestor->NuevaTarea(2, true, 0, 9999999, kEnvio);
  ASSERT_TRUE(correr());
  pasar(3000);
  ASSERT_EQ(cola()->filas(), 1);
  EXPECT_EQ(celda(0, u"Problema"), u"Sin enviar (F12): retenidos 1, rechazados 0");
  // It isn't shown as a plain success, and its diagnosis names it though it has left the queue.
  EXPECT_EQ(celda(0, u"Estado"), u"Terminado, pero falta algo");
  cola()->irA(0);
  QString tarea, detalle, foco;
  luego([&](QWidget* d) {
    tarea = d->findChild<QLabel*>(u"LblTarea"_s)->text();
    detalle = d->findChild<QPlainTextEdit*>(u"TxtDetalle"_s)->toPlainText();
    foco = d->focusWidget()->objectName();
    EXPECT_TRUE(d->findChild<QPushButton*>(u"Tramas"_s)->isVisible());
    QTest::keyClick(d, Qt::Key_Escape);
  });
  QTest::keyClick(cola()->vista(), Qt::Key_Return);
  EXPECT_TRUE(tarea.startsWith(u"Tarea 001: Tx Artículos"_s)) << tarea.toStdString();
  EXPECT_EQ(detalle, celda(0, u"Problema"));
  EXPECT_EQ(foco, u"Acepto");
  QTest::keyClick(cola(), Qt::Key_F12);
  EXPECT_EQ(control<QComboBox>(u"Grupo"_s, u"EstadoEnvio"_s)->currentData().toInt(), 2);
  // Once corrected and sent again, nothing more is reported.
  sql(u"UPDATE PLUSES SET PRECIO_00=5 WHERE CODPLU=40"_s);
  gestor->NuevaTarea(2, false, 0, 9999999, kEnvio);
  ASSERT_TRUE(correr());
  pasar(3000);
  ASSERT_EQ(cola()->filas(), 2);
  EXPECT_TRUE(celda(1, u"Problema").startsWith(u"Grupo 2: artículos enviados"));
  gestor->TerminaCuandoPuedas();
  EXPECT_TRUE(hasta([&] { return !escritorio.ventanas().cargada(u"gestcomm"_s); }, 5));
}

// Tab goes as one reads: commands, group, what is shown, search, list, the article beside it.
TEST_F(VentanaEstado, ElTabuladorVaComoSeLee) {
  auto* v = abrir(comm::PuertaEstadoEnvio{1});
  auto* grupo = control<QComboBox>(u"Grupo"_s, u"EstadoEnvio"_s);
  grupo->setFocus();
  QStringList paradas;
  do {
    const QWidget* w = v->focusWidget();
    auto* boton = qobject_cast<const QToolButton*>(w);
    const QWidget* lista = w->objectName() == u"vista" ? w->parentWidget() : nullptr;
    paradas << (boton && boton->defaultAction() ? boton->defaultAction()->objectName()
                : lista                         ? lista->objectName()
                                                : w->objectName());
    QTest::keyClick(v, Qt::Key_Tab);
  } while (v->focusWidget() != grupo && paradas.size() < 20);
  EXPECT_EQ(paradas.join(u' ').toStdString(),
            "Grupo Ver busca lista ficha Enviar Pedir Recalcular");
}

TEST_F(VentanaEstado, DesdeLaVentanaDeComunicaciones) {
  grupo(2, 3, u"cable 2"_s, {4});
  abrir(u"gestcomm"_s);
  gestor->CambioAModo(false);
  gestor->NuevaTarea(2, true, 0, 9999999, kEnvio);
  pasar(200);
  QTest::keyClick(cola(), Qt::Key_F12);
  EXPECT_EQ(abiertas.back(), u"EstadoEnvio");
  EXPECT_EQ(control<QComboBox>(u"Grupo"_s, u"EstadoEnvio"_s)->currentData().toInt(), 2);
  // A cash register has room for a price that is too long for a scale.
  ASSERT_TRUE(lista(u"0000010 Pendiente,0000020 Pendiente,0000030 Pendiente,0000040 Pendiente"_s));
  EXPECT_FALSE(control<QAction>(u"Pedir"_s, u"EstadoEnvio"_s)->isEnabled());
}

}  // namespace tarvo::prueba
