// A process of another program has to wait for a run of a person, but not for a person who has
// gone.
#include "app/Entrega.h"
#include "app/ventanas/Encargos.h"
#include "app/ventanas/Puertas.h"
#include "app/ventanas/RegistrarVentanas.h"
#include "comm/cables/FabricaReal.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {
namespace {

struct MesaDeEncargos {
  MesaDeEncargos() {
    bien(aplicacion.empezar());
    app::registrarVentanas(escritorio.ventanas(), aplicacion);
    preguntas.poner(&escritorio.ventanas());
    aplicacion.automat().alTerminar = [this](automation::ResultadoProceso r) {
      if (!encargos.terminado(r)) suyo = r;
    };
    bien(encargos.escuchar());
  }
  std::vector<automation::PasoProceso> pasos(const QStringList& lineas) const {
    std::vector<automation::PasoProceso> v;
    for (const QString& linea : lineas) v.push_back(*bien(aplicacion.lenguaje().LeerPaso(linea)));
    return v;
  }
  void correr(qint64 ms) {
    for (qint64 van = 0; van < ms; van += 500) {
      relojEncargos.avanzar(500);
      QCoreApplication::processEvents();
    }
  }

  QTemporaryDir carpeta;
  Textos textos = bien(Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt")));
  RelojReal reloj;
  RelojVirtual relojEncargos{Fecha::de(QDate(2026, 3, 4), QTime(22, 0))};
  std::unique_ptr<app::Fondo> fondo =
      bien(app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textos, reloj));
  enlace::FabricaReal fabrica{reloj, fondo->ajustes};
  app::PreguntasApp preguntas{{}, textos};
  app::Aplicacion aplicacion{*fondo, reloj, fabrica, 1, preguntas};
  ventanas::Escritorio escritorio{
      *qApp, *fondo->db, fondo->ajustes, textos, reloj, ventanas::Cara::Clara, {}};
  app::Encargos encargos{*fondo, aplicacion, preguntas, escritorio.ventanas(), relojEncargos};
  std::optional<automation::ResultadoProceso> suyo;  // of the person's run
};

TEST(Encargos, LaNocheNoEsperaAQuienSeHaIdo) {
  for (const bool pregunta : {true, false}) {
    MesaDeEncargos m;
    auto& automat = m.aplicacion.automat();
    std::optional<int> fin;
    QStringList avisos;
    std::unique_ptr<app::Entrega> entrega;
    bool probado = false;
    const auto noche = [&] {
      entrega = std::make_unique<app::Entrega>(
          m.fondo->ajustes.BaseDatos,
          app::Peticion{.que = app::Peticion::Que::Proceso,
                        .ventana = {},
                        .nombre = u"NOCHE"_s,
                        .traza = {},
                        .pasos = {u"P:LIMPIAR"_s},
                        .omitidas = {},
                        .datos = {}},
          app::Entrega::Oyente{.decir = [](const QString&) {},
                               .avisar = [&](const QString& s) { avisos << s; },
                               .alAcabar = [&](int estado) { fin = estado; },
                               .alCortarse = [&] { fin = -1; }},
          m.reloj);
      EXPECT_TRUE(esperar([&] {
        m.correr(500);
        return !avisos.isEmpty();
      })) << "it is told that it has to wait";
      m.correr(app::Cesion::kPacienciaMs - 10'000);
      EXPECT_FALSE(m.suyo) << "a person may take that long";
      EXPECT_TRUE(automat.enMarcha());
      m.correr(20'000);
      probado = true;
    };
    // A question is modal: what happens meanwhile happens within.
    if (pregunta)
      QTimer::singleShot(0, qApp, [&] {
        EXPECT_TRUE(esperar([&] { return m.escritorio.ventanas().cargada(u"EnParMac"_s); }));
        noche();
      });
    automat.PROCESO(pregunta ? m.pasos({u"N:%1,Grupo"_s, u"P:LIMPIAR"_s})
                             : m.pasos({u"P:LIMPIAR"_s, u"P:LIMPIAR"_s}),
                    {}, u"SUYO"_s);
    if (!pregunta) {
      automat.retener();
      ASSERT_TRUE(esperar([&] { return automat.fase() == automation::kDetenidoEnPaso; }));
      noche();
    }
    ASSERT_TRUE(esperar([&] {
      m.correr(500);
      return fin.has_value() && probado;
    }));
    EXPECT_EQ(*fin, 0);
    EXPECT_EQ(m.suyo, automation::ResultadoProceso::Abortado);
    EXPECT_EQ(avisos.filter(u"SUYO lleva cinco minutos"_s).size(), 1)
        << avisos.join(u'\n').toStdString();
    // The person's run is left to be continued.
    EXPECT_EQ(m.fondo->db->uno(u"SELECT count(*) FROM Proceso WHERE NOMBRE='SUYO'")->entero(), 1);
    m.encargos.dejar();
    m.escritorio.ventanas().DescargaTodo();
  }
}

// Nor does the timetable of the windows themselves.
TEST(Encargos, ElHorarioNoEsperaAQuienSeHaIdo) {
  MesaDeEncargos m;
  auto& automat = m.aplicacion.automat();
  const auto escribir = [&](const QString& nombre, const QByteArray& texto) {
    QFile f(m.carpeta.filePath(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto);
  };
  escribir(u"NOCHE.AUT"_s, "P:LIMPIAR\r\n");
  escribir(u"DIARIO.CRO"_s, "23:59:59;S\xed,S\xed,S\xed,S\xed,S\xed,S\xed,S\xed;NOCHE");
  bien(m.aplicacion.cronos().ActivarCron(u"DIARIO"_s));
  automat.PROCESO(m.pasos({u"P:LIMPIAR"_s, u"P:LIMPIAR"_s}), {}, u"SUYO"_s);
  automat.retener();
  ASSERT_TRUE(esperar([&] { return automat.fase() == automation::kDetenidoEnPaso; }));
  ASSERT_TRUE(m.aplicacion.cronos().adelantar(0));
  const auto mientras = [&](qint64 ms) {
    for (qint64 van = 0; van < ms; van += 30'000) {
      m.relojEncargos.avanzar(30'000);
      if (m.aplicacion.cronos().alEsperar)
        m.aplicacion.cronos().alEsperar(m.aplicacion.cronos().entradas().front());
    }
  };
  mientras(app::Cesion::kPacienciaMs - 60'000);
  EXPECT_FALSE(m.suyo) << "a person may take that long";
  mientras(120'000);
  ASSERT_TRUE(esperar([&] { return m.aplicacion.cronos().entradas().front().exitos == 1; }));
  EXPECT_EQ(m.fondo->db->uno(u"SELECT count(*) FROM Proceso WHERE NOMBRE='SUYO'")->entero(), 1);
  m.encargos.dejar();
  m.escritorio.ventanas().DescargaTodo();
}

// A second start shows the main window, or the one it names, wherever the first left it; a dialog
// stays in front.
TEST(Encargos, UnSegundoInicioTraeLaVentana) {
  MesaDeEncargos m;
  auto& todas = m.escritorio.ventanas();
  auto* principal = todas.abrir(app::PuertaMainTarvo());
  auto* otra = todas.abrir(app::PuertaPortalCnf());
  const auto segundo = [&](const QString& ventana) {
    std::optional<int> fin;
    const app::Entrega entrega(m.fondo->ajustes.BaseDatos,
                               app::Peticion{.que = app::Peticion::Que::Alzar,
                                             .ventana = ventana,
                                             .nombre = {},
                                             .traza = {},
                                             .pasos = {},
                                             .omitidas = {},
                                             .datos = {}},
                               app::Entrega::Oyente{.decir = [](const QString&) {},
                                                    .avisar = [](const QString&) {},
                                                    .alAcabar = [&](int estado) { fin = estado; },
                                                    .alCortarse = [&] { fin = -1; }},
                               m.reloj);
    EXPECT_TRUE(esperar([&] { return fin.has_value(); }));
    EXPECT_EQ(fin, 0);
  };
  const std::function<void()> idas[] = {[&] { principal->hide(); },
                                        [&] { principal->showMinimized(); },
                                        [&] { otra->activateWindow(); }};
  for (const auto& ida : idas) {
    ida();
    segundo({});
    EXPECT_TRUE(principal->isVisible() && !principal->isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(principal));
  }
  segundo(u"PortalCnf"_s);
  EXPECT_TRUE(QTest::qWaitForWindowActive(otra));
  bool delante = false;
  QTimer::singleShot(50, &todas, [&] {
    QWidget* caja = QApplication::activeModalWidget();
    segundo({});
    delante = QTest::qWaitForWindowActive(caja);
    QTest::keyClick(caja, Qt::Key_Escape);
  });
  ventanas::MyMsgBox::Decide(principal, m.textos, u"?"_s);
  EXPECT_TRUE(delante);
  m.encargos.dejar();
  todas.DescargaTodo();
}

}  // namespace
}  // namespace tarvo::prueba
