// Leaving the main window: Escape, the icon in the tray, and what is still under way.
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTcpServer>
#include <QTimer>

#include "MesaPrincipal.h"
#include "comm/cables/AjustesCables.h"
#include "core/ventanas/marco/Captura.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/libros/TablasLibros.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct PuertaEnLinea {
  static constexpr QStringView kNombre = u"OnLine";
};

}  // namespace

// An Escape for a window that has closed by itself, however late, or one held down, doesn't end the
// program.
TEST(Principal, UnEscapeDeMasNoSale) {
  MesaPrincipal t;
  auto* v = t.principal();
  QTest::mouseClick(v->findChild<QToolButton*>(u"EnviarRecibir"_s), Qt::LeftButton);
  static_cast<ventanas::Ventana*>(t.todas().cargada(u"gestcomm"_s))->cerrarSola();
  QTest::qWait(1050);
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_EQ(v->tira().texto(), u"Pulse Esc otra vez para salir de TARVO.");
  QKeyEvent sostenida(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, true);
  QApplication::sendEvent(v, &sostenida);
  EXPECT_TRUE(t.todas().cargada(u"MainTarvo"_s));
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(t.todas().cargada(u"MainTarvo"_s));
}

// Nor does the second of two Escapes for a box, a menu or a file dialog on top of the main window.
TEST(Principal, UnEscapeDeMasTrasUnaCajaNoSale) {
  MesaPrincipal t({}, "Personal(1)=Pedido|PEDIDO\r\n");
  t.fichero(u"PEDIDO.AUT"_s, "S:ABRIR\r\n");
  auto* v = t.principal();
  auto* entrada = v->findChild<QToolButton*>(u"Personalizado"_s);
  const std::function<void()> abren[] = {[&] { QTest::mouseClick(entrada, Qt::LeftButton); },
                                         [&] {
                                           entrada->setFocus();
                                           QTest::keyClick(entrada, Qt::Key_F10, Qt::ShiftModifier);
                                         },
                                         [&] { QFileDialog(v).exec(); }};
  for (const auto& abrir : abren) {
    QTest::qWait(1050);
    bool habia = false;
    QTimer::singleShot(50, v, [&] {
      QWidget* encima = QApplication::activePopupWidget();
      if (!encima) encima = QApplication::activeModalWidget();
      ASSERT_TRUE(encima);
      habia = true;
      QTest::keyClick(encima, Qt::Key_Escape);
    });
    abrir();
    EXPECT_TRUE(habia);
    QTest::keyClick(v, Qt::Key_Escape);
    ASSERT_TRUE(t.todas().cargada(u"MainTarvo"_s));
  }
  QTest::qWait(1050);
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(t.todas().cargada(u"MainTarvo"_s));
}

// From the tray it comes back by a click on the icon, or by its menu.
TEST(Principal, LaBandejaLaTrae) {
  MesaPrincipal t;
  auto* v = t.conManana();
  auto& tray = *v->findChild<app::SysTray*>();
  constexpr int kArribaIzda = 514, kArribaDcha = 517;
  QAction* mostrar = nullptr;
  for (const QMenu* menu : v->findChildren<QMenu*>())
    for (QAction* a : menu->actions())
      if (a->text() == u"&Mostrar TARVO") mostrar = a;
  ASSERT_TRUE(mostrar);
  const std::function<void()> vuelven[] = {[&] { tray.mensaje(kArribaIzda); },
                                           [&] { mostrar->trigger(); }};
  for (const auto& vuelve : vuelven) {
    v->hide();
    tray.mensaje(kArribaDcha);
    EXPECT_FALSE(v->isVisible()) << "the other button opens the menu";
    vuelve();
    EXPECT_TRUE(v->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(v));
  }
}

// Escape never leaves a collection behind without asking, and the safe answer is the default.
TEST(Principal, EscapePreguntaPorLaBandeja) {
  MesaPrincipal t;
  auto* v = t.principal();
  bien(totals::EstadoBase(*t.fondo->db).poner(u"SesionAbier"_s, 2));
  bien(t.aplicacion.sesion().cargar());
  ASSERT_EQ(t.aplicacion.sesion().estado(), 2);
  QString dicho;
  const auto escape = [&](Qt::Key respuesta) {
    QTimer::singleShot(0, v, [&, respuesta] {
      QWidget* caja = QApplication::activeModalWidget();
      ASSERT_TRUE(caja);
      dicho = caja->findChild<QLabel*>(u"Mensaje"_s)->text();
      respuesta == Qt::Key_Return
          ? QTest::keyClick(caja, Qt::Key_Return)
          : QTest::mouseClick(caja->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    });
    QTest::keyClick(v, Qt::Key_Escape);
  };
  escape(Qt::Key_Return);
  EXPECT_TRUE(dicho.contains(u"bandeja de entrada")) << dicho.toStdString();
  EXPECT_TRUE(v->isVisible());
  QTest::qWait(1050);  // until an Escape is this window's again
  escape(Qt::Key_unknown);
  EXPECT_FALSE(t.todas().cargada(u"MainTarvo"_s));
}

TEST(Principal, NoSeCierraMientrasTransfiere) {
  MesaPrincipal t;
  auto* v = t.principal();
  t.todas().abrir(u"VerTot"_s);
  QTest::mouseClick(v->findChild<QToolButton*>(u"EnviarRecibir"_s), Qt::LeftButton);
  t.suplente(u"gestcomm"_s)->seNiega = true;
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(v->isVisible());
  EXPECT_TRUE(t.suplente(u"VerTot"_s)) << "every other window is untouched";
  EXPECT_TRUE(v->tira().texto().startsWith(u"Hay comunicaciones en curso"));
  t.suplente(u"gestcomm"_s)->seNiega = false;
  QEvent deVuelta(QEvent::ActivationChange);
  QApplication::sendEvent(v, &deVuelta);
  EXPECT_FALSE(v->tira().isVisible()) << "the transfer has ended";
  t.todas().abrir(u"Cronos"_s);
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(t.todas().cargada(u"MainTarvo"_s));
  EXPECT_TRUE(t.todas().cargada(u"Cronos"_s)) << "a timetable survives the windows around it";
  EXPECT_EQ(t.todas().abiertas().size(), 1U);
}

// The engine keeps working after its window is closed: it asks, and names the pending tasks.
TEST(Principal, PreguntaAlMotorQueSigueSinSuVentana) {
  MesaPrincipal t;
  QTcpServer muda;
  ASSERT_TRUE(muda.listen(QHostAddress::LocalHost));
  t.fondo->ajustes.de<enlace::AjustesCables>().canales[0].Device = TipoAcceso::TcpIp;
  auto& motor = t.aplicacion.gestcomm();
  motor.cambiaronCanales();
  t.grupo(
      {.codigo = 71, .remoto = 3, .acceso = u"127.0.0.1:%1"_s.arg(muda.serverPort()), .addr = 1});
  auto* v = t.principal();
  ASSERT_EQ(motor.NuevaTarea(71, true, 0, 9999999, TipoTarea::RxGrTot), motor::Pedida::EnCola);
  ASSERT_TRUE(esperar([&] { return !motor.puedeCerrar(); }));
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(v->isVisible());
  EXPECT_TRUE(v->tira().texto().startsWith(u"Hay comunicaciones en curso"));
  motor.terminator();
  ASSERT_TRUE(esperar([&] {
    motor.terminator();
    return motor.tareas().empty();
  }));
  motor.CambioAModo(false);
  ASSERT_EQ(motor.NuevaTarea(71, true, 0, 9999999, TipoTarea::RxGrTot), motor::Pedida::EnCola);
  const auto salir = [v](const QString& boton) {
    QString dicho;
    QTimer::singleShot(50, qApp, [&dicho, boton] {
      QWidget* caja = QApplication::activeModalWidget();
      ASSERT_TRUE(caja);
      dicho = caja->findChild<QLabel*>(u"Mensaje"_s)->text();
      QTest::mouseClick(caja->findChild<QPushButton*>(boton), Qt::LeftButton);
    });
    v->descargar();
    return dicho;
  };
  const QString dicho = salir(u"Cancelo"_s);
  EXPECT_TRUE(dicho.contains(u"Gran Total, grupo 0071: En espera de ser procesado"));
  EXPECT_TRUE(dicho.endsWith(u"Si sale del programa se pierden. ¿Sale de todos modos?"));
  EXPECT_TRUE(v->isVisible());
  salir(u"Acepto"_s);
  EXPECT_FALSE(t.todas().cargada(u"MainTarvo"_s));
}

// Windows that receive from a machine are asked to stop, once, and waited for; only then are the
// others closed.
TEST(Principal, EsperaALasCapturas) {
  class Receptora final : public Lisa, public Captura {
   public:
    using Lisa::Lisa;
    void SuspenderCaptura(bool borrar) override {
      EXPECT_FALSE(borrar);
      ++pedidas;
      if (nombre() == u"OnLine#0001") return static_cast<void>(descargar());
      QTimer::singleShot(100, this, [this] { descargar(); });  // its line has closed
    }
    int pedidas = 0;
  };
  MesaPrincipal t;
  t.todas().registrar<PuertaEnLinea, Receptora>();
  auto* v = t.principal();
  t.todas().abrir(u"VerTot"_s);
  t.todas().abrir(u"OnLine#0001"_s);
  auto* segunda = static_cast<Receptora*>(t.todas().abrir(u"OnLine#0002"_s));
  QTimer::singleShot(20, v, [&] {
    EXPECT_FALSE(t.todas().cargada(u"OnLine#0001"_s));
    EXPECT_TRUE(t.suplente(u"VerTot"_s)) << "they are closed first";
    QTest::keyClick(v, Qt::Key_Escape);  // an impatient user
    EXPECT_EQ(segunda->pedidas, 1);
  });
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(t.todas().abiertas().empty());
}

TEST(SysTray, SeisMensajes) {
  app::SysTray tray;
  QStringList oidos;
  const auto oir = [&](const QString& que) {
    return [&oidos, que, &tray](int boton) {
      oidos << que + QString::number(boton);
      tray.mensaje(513);  // never nested
    };
  };
  QObject::connect(&tray, &app::SysTray::MouseDown, oir(u"abajo"_s));
  QObject::connect(&tray, &app::SysTray::MouseUp, oir(u"arriba"_s));
  QObject::connect(&tray, &app::SysTray::DblClick, oir(u"doble"_s));
  for (int n = 512; n <= 519; ++n) tray.mensaje(n);
  EXPECT_EQ(oidos.join(u' '), u"abajo1 arriba1 doble1 abajo2 arriba2 doble2");
}

}  // namespace tarvo::prueba
