// A user runs, pauses, steps and stops a process, and answers its questions.
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QToolBar>

#include "MesaDeProcesos.h"

namespace tarvo::automation {
namespace {

struct Proceso : MesaDeProcesos {
  using MesaDeProcesos::MesaDeProcesos;
  // A step that waits for nothing, one that fails, and one that succeeds.
  static inline const QString kTresPasos = u"N:uno\r\nS:CERRAR,x,Sí,Sí\r\nN:tres\r\n"_s;

  static QString titulo(QWidget* v) { return pieza<QLabel>(v, u"lblTitulo"_s)->text(); }
  static QString resultado(QWidget* v, int fila) {
    return pieza<ventanas::Parrilla>(v, u"ListaPasos"_s)->texto(fila, u"resultado");
  }
  static QStringList traza(QWidget* v) {
    QStringList lineas;
    const auto* lista = pieza<QListWidget>(v, u"Problemas"_s);
    for (int i = 0; i < lista->count(); ++i) lineas += lista->item(i)->text();
    return lineas;
  }
};

TEST(Automat, SeVeComoAcabaCadaPasoYSeCierra) {
  Proceso s;
  QWidget* v = s.correr(Proceso::kTresPasos);
  ASSERT_TRUE(v);
  EXPECT_EQ(Proceso::titulo(v), u"EJECUTÁNDOSE: NOCHE");
  EXPECT_EQ(Proceso::resultado(v, 0), u"Hecho");
  EXPECT_EQ(Proceso::resultado(v, 2), u"Pendiente");
  EXPECT_FALSE(v->close()) << "a run keeps its window";
  s.pasar(0.1);
  EXPECT_EQ(Proceso::resultado(v, 1), u"Con problemas");
  EXPECT_EQ(pieza<ventanas::Parrilla>(v, u"ListaPasos"_s)->texto(1, u"motivo"),
            u"La sesión está ya cerrada");
  EXPECT_EQ(Proceso::resultado(v, 2), u"Hecho");
  EXPECT_EQ(Proceso::titulo(v), u"PROCESO TERMINADO: NOCHE");
  const QStringList traza = Proceso::traza(v);
  EXPECT_TRUE(traza.first().startsWith(u"Ejecución iniciada: ")) << traza.first().toStdString();
  EXPECT_TRUE(traza.contains(u"002:SESIÓN"));
  EXPECT_TRUE(traza.last().startsWith(u"Ejecución finalizada: "));
  EXPECT_TRUE(s.abierta(u"Automat"_s));
  s.pasar(1);
  EXPECT_FALSE(s.abierta(u"Automat"_s));
}

TEST(Automat, SeRetienePorTeclasYSigueAPasos) {
  Proceso s;
  QWidget* v = s.correr(Proceso::kTresPasos);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  EXPECT_FALSE(puede(v, u"paso"_s));
  QTest::keyClick(v, Qt::Key_F10);
  EXPECT_TRUE(
      static_cast<ventanas::Ventana*>(v)->tira().texto().startsWith(u"Para ir paso a paso"));
  QTest::keyClick(v, Qt::Key_Control);
  EXPECT_EQ(s.automat().fase(), kEjecutando) << "a key touched by accident holds no night";
  QTest::keyClick(v, Qt::Key_F8);
  EXPECT_EQ(Proceso::titulo(v), u"PROCESO RETENIDO: NOCHE");
  s.pasar(10);
  EXPECT_EQ(s.automat().fase(), kDetenidoEnPaso);
  EXPECT_EQ(s.automat().pasoActual(), 1);
  EXPECT_EQ(Proceso::resultado(v, 1), u"Pendiente");
  pieza<QAction>(v, u"paso"_s)->trigger();
  s.pasar(10);
  EXPECT_EQ(Proceso::resultado(v, 1), u"Con problemas");
  EXPECT_EQ(s.automat().pasoActual(), 2);
  EXPECT_EQ(s.automat().fase(), kDetenidoEnPaso);
  QTest::keyClick(v, Qt::Key_C, Qt::ControlModifier);
  QTest::keyPress(v, Qt::Key_Control);
  QTest::keyClick(v, Qt::Key_C, Qt::ControlModifier);
  QTest::keyRelease(v, Qt::Key_Control);
  EXPECT_EQ(s.automat().fase(), kDetenidoEnPaso) << "Ctrl+C doesn't start a run";
  QTest::keyClick(v, Qt::Key_Control);
  EXPECT_EQ(s.automat().fase(), kEjecutando);
  EXPECT_TRUE(Proceso::traza(v).contains(u"    Sigue donde se retuvo, en el paso 3"));
  s.pasar(4);
  EXPECT_FALSE(s.abierta(u"Automat"_s));
}

// Whoever looks at the end of the trace sees each new line, also after the window became smaller.
TEST(Automat, LaTrazaSigueASuFinal) {
  Proceso s;
  QWidget* v = s.correr(QString(u"S:CERRAR,x,Sí,Sí\r\n"_s).repeated(60));
  const auto* barra = pieza<QListWidget>(v, u"Problemas"_s)->verticalScrollBar();
  s.pasar(0.5);
  ASSERT_GT(barra->maximum(), 20);
  EXPECT_EQ(barra->value(), barra->maximum());
  v->resize(v->width(), v->minimumSizeHint().height());
  s.asentar();
  EXPECT_EQ(barra->value(), barra->maximum());
}

// A step whose tasks are done is done, while those of another are waited for and when the run is
// stopped. The keys of the queue hold and go on here too, and none leaves the focus on "Alto".
TEST(Automat, LoHechoSigueHechoAlParar) {
  Proceso s({2});
  QWidget* v = s.correr(u"T:RXGRTOT,1\r\nT:RXGRTOT,2\r\nC:ESPERA,1000,No\r\n"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  s.pasar(60);
  EXPECT_EQ(Proceso::resultado(v, 0), u"Hecho");
  EXPECT_EQ(Proceso::resultado(v, 1), u"En la cola");
  QWidget* lista = pieza<ventanas::Parrilla>(v, u"ListaPasos"_s)->vista();
  EXPECT_EQ(v->focusWidget(), lista);
  auto* barra = pieza<QToolBar>(v, u"barra"_s);
  barra->widgetForAction(pieza<QAction>(v, u"retener"_s))->setFocus();
  QTest::keyClick(v, Qt::Key_F7);
  EXPECT_EQ(s.automat().fase(), kPasoAPaso);
  EXPECT_EQ(v->focusWidget(), lista);
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_EQ(s.automat().fase(), kEjecutando);
  s.automat().abortar();
  s.pasar(1);
  EXPECT_EQ(s.automat().fase(), kAbortado);
  EXPECT_EQ(Proceso::resultado(v, 0), u"Hecho");
  EXPECT_EQ(Proceso::resultado(v, 1), u"Interrumpido");
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_EQ(s.automat().fase(), kAbortado) << "it goes on, and begins nothing";
  EXPECT_TRUE(static_cast<ventanas::Ventana*>(v)->tira().texto().startsWith(
      u"No hay ningún proceso retenido"));
}

// A run that was stopped begins again by its button or its key only.
TEST(Automat, UnaTeclaDeMasNoVuelveAEmpezarLoParado) {
  Proceso s;
  QWidget* v = s.correr(Proceso::kTresPasos);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  s.automat().abortar();
  s.pasar(0.5);
  ASSERT_EQ(s.automat().fase(), kAbortado);
  QTest::keyClick(v, Qt::Key_Control);
  EXPECT_EQ(s.automat().fase(), kAbortado);
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_EQ(s.automat().fase(), kEjecutando);
}

// Each step is described in words; its line of the process language has a column of its own.
TEST(Automat, LosPasosSeDicenEnPalabras) {
  Proceso s({1, 2});
  const struct {
    QString linea, dice;
  } casos[] = {
      {u"T:RXGRTOT,ALL"_s, u"Recogida de totales generales, todos los grupos"_s},
      {u"T:RXGRTOT,0002"_s, u"Recogida de totales generales, grupo 0002"_s},
      {u"C:ESPERA, 1000, No"_s, u"Esperar a que acaben las tareas"_s},
      {u"S:CERRAR, x, Sí, Sí"_s, u"Memorizar lo recibido y cerrar la sesión"_s},
      {u"P:SEL. ULTIMO"_s, u"Elegir el último periodo"_s},
      {u"P:STOCK"_s, u"Descontar del stock los periodos elegidos"_s},
      {u"E:TOTALIZA, No, No,VENTAS"_s, u"Exportar los periodos elegidos a VENTAS"_s},
      {u"N:nota"_s, u"nota"_s},
  };
  QString proceso;
  for (const auto& c : casos) proceso += c.linea + u"\r\n"_s;
  const auto* lista = pieza<ventanas::Parrilla>(s.correr(proceso), u"ListaPasos"_s);
  for (int i = 0; const auto& c : casos) {
    EXPECT_EQ(lista->texto(i, u"paso"), c.dice);
    EXPECT_EQ(lista->texto(i++, u"orden"), c.linea);
  }
}

// A queueing step is done once its tasks have ended.
TEST(Automat, LoEncoladoEstaHechoCuandoAcaba) {
  Proceso s;
  QWidget* v = s.correr(u"T:RXGRTOT,1\r\nC:ESPERA,1000,No\r\nC:ESPERA,1000,No\r\n"_s);
  QStringList vistos;
  for (int i = 0; i < 200 && Proceso::resultado(v, 1) != u"Hecho"; ++i) {
    if (!vistos.contains(Proceso::resultado(v, 0))) vistos << Proceso::resultado(v, 0);
    s.pasar(0.1);
  }
  EXPECT_EQ(vistos, QStringList{u"En la cola"_s});
  EXPECT_EQ(Proceso::resultado(v, 0), u"Hecho");
}

TEST(Automat, AltoPreguntaYEliminaLasTareas) {
  Proceso s({1, 2});
  QWidget* v = s.correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,1000,No\r\nN:tres\r\n"_s);
  s.pasar(2);
  EXPECT_EQ(Proceso::resultado(v, 0), u"En la cola");
  EXPECT_EQ(Proceso::resultado(v, 1), u"En curso");
  EXPECT_EQ(pieza<QLabel>(v, u"lblCola"_s)->text(), u"Tareas en cola: 2");
  int faseAlPreguntar = 0;
  const auto contestar = [&](const QString& boton) {
    cuandoHayaCaja([&, boton](QWidget& caja) {
      faseAlPreguntar = s.automat().fase();
      QTest::keyClick(caja.findChild<QPushButton*>(boton), Qt::Key_Space);
    });
    QTest::keyClick(v, Qt::Key_Escape);
  };
  contestar(u"Cancelo"_s);
  EXPECT_EQ(faseAlPreguntar, kConfirmando);
  EXPECT_EQ(s.automat().fase(), kEjecutando);
  contestar(u"Acepto"_s);
  s.pasar(20);
  EXPECT_EQ(s.automat().fase(), kAbortado);
  EXPECT_EQ(s.p.motor().CuantosQuedan().total, 0);
  EXPECT_EQ(Proceso::titulo(v), u"LISTO PARA EJECUTAR: NOCHE");
  EXPECT_EQ(Proceso::resultado(v, 1), u"Interrumpido");
  EXPECT_TRUE(puede(v, u"ejecutar"_s));
  s.pasar(3600);
  EXPECT_TRUE(s.abierta(u"Automat"_s)) << "its user can read the reason";
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(s.abierta(u"Automat"_s));
}

TEST(Automat, LoQueNoSeLeeSeDice) {
  Proceso s;
  s.fichero(u"ROTO.AUT"_s, u"T:NADA,1\r\n"_s);
  auto* v = s.correr(u"N:a\r\n"_s.repeated(20));
  EXPECT_EQ(s.todas().abrir(PuertaAutomat{s.ruta(u"ROTO.AUT"_s)}, v), nullptr);
  EXPECT_EQ(v->tira().texto(),
            u"Ya hay un proceso en marcha, NOCHE: espere a que termine o párelo con Alto.");
  s.pasar(30);
  ASSERT_FALSE(s.abierta(u"Automat"_s));
  v = s.todas().abrir(u"Automat"_s);
  EXPECT_EQ(s.todas().abrir(PuertaAutomat{s.ruta(u"ROTO.AUT"_s)}, v), nullptr);
  EXPECT_TRUE(v->tira().texto().startsWith(u"No se pudo cargar el Proceso 'ROTO.AUT'"))
      << v->tira().texto().toStdString();
}

// --- parameters

TEST(EnParMac, SePreguntaSeRehusaYSeContesta) {
  Proceso s;
  QString rehusado, pregunta;
  cuandoHayaCaja([&](QWidget& v) {
    pregunta = pieza<QLabel>(&v, u"lblPregunta"_s)->text();
    auto* valor = pieza<QLineEdit>(&v, u"Valor"_s);
    QTest::keyClicks(valor, u"40000"_s);
    cuandoHayaCaja([&](QWidget& caja) {
      rehusado = pieza<QLabel>(&caja, u"Mensaje"_s)->text();
      QTest::keyClick(&caja, Qt::Key_Return);
    });
    QTest::keyClick(valor, Qt::Key_Return);
    EXPECT_EQ(pieza<QLabel>(&v, u"faltaValor"_s)->text(), rehusado);
    QTest::keyClicks(valor, u"2"_s);
    QTest::keyClick(valor, Qt::Key_Return);
  });
  QWidget* v = s.correr(u"N:%1,Grupo que se lee\r\nT:RXGRTOT,%1\r\nC:ESPERA,3,Sí\r\n"_s);
  EXPECT_EQ(pregunta, u"Grupo que se lee");
  EXPECT_EQ(rehusado, u"Debe ser un número entero entre -32768 y 32767.");
  EXPECT_EQ(Proceso::resultado(v, 0), u"Hecho");
  s.pasar(1);
  EXPECT_NE(Proceso::resultado(v, 1), u"Con problemas") << "group 2 took the place of %1";
}

TEST(EnParMac, CancelarAborta) {
  Proceso s;
  cuandoHayaCaja([](QWidget& v) { QTest::keyClick(&v, Qt::Key_Escape); });
  QWidget* v = s.correr(u"N:%1,Grupo\r\nN:dos\r\n"_s);
  s.pasar(5);
  EXPECT_EQ(s.automat().fase(), kAbortado);
  EXPECT_EQ(s.automat().resultado(), ResultadoProceso::Abortado);
  EXPECT_EQ(Proceso::resultado(v, 0), u"Interrumpido");
}

// Wednesday 4 March 2026: the month shown, the days selected in it, or two free dates.
TEST(EnParMac, LasTresFormasDeDarFechas) {
  const struct {
    const char* opcion;
    QDate desde, hasta;
  } casos[] = {{"TodoElMes", QDate(2026, 3, 1), QDate(2026, 3, 31)},
               {"LosDias", QDate(2026, 3, 1), QDate(2026, 3, 1)},
               {"OtrasFechas", QDate(2026, 2, 27), QDate(2026, 3, 4)}};
  for (const auto& c : casos) {
    MesaDeProcesos s;
    QString falta;
    cuandoHayaCaja([&](QWidget& v) {
      QTest::keyClick(pieza<QRadioButton>(&v, u"OtrasFechas"_s), Qt::Key_Space);
      QTest::keyClicks(pieza<QLineEdit>(&v, u"Desde"_s), u"x"_s);  // ignored by the other options
      QTest::keyClick(pieza<QRadioButton>(&v, QString::fromLatin1(c.opcion)), Qt::Key_Space);
      if (c.opcion != std::string("OtrasFechas")) {
        QTest::mouseClick(pieza<QPushButton>(&v, u"Acepto"_s), Qt::LeftButton);
        return;
      }
      pieza<QLineEdit>(&v, u"Hasta"_s)->setText(u"01/02/2026"_s);
      pieza<QLineEdit>(&v, u"Desde"_s)->setText(u"27/02/2026"_s);
      auto* acepto = pieza<QPushButton>(&v, u"Acepto"_s);
      cuandoHayaCaja([&](QWidget& caja) {
        falta = pieza<QLabel>(&caja, u"Mensaje"_s)->text();
        QTest::keyClick(&caja, Qt::Key_Return);
      });
      QTest::mouseClick(acepto, Qt::LeftButton);
      pieza<QLineEdit>(&v, u"Hasta"_s)->setText(u"04/03/2026"_s);
      QTest::mouseClick(acepto, Qt::LeftButton);
    });
    const auto dado = s.preguntas.PromptFch(u"#x"_s, u"¿Qué días?"_s);
    ASSERT_TRUE(dado) << c.opcion;
    EXPECT_EQ(dado->first.qdate(), c.desde) << c.opcion;
    EXPECT_EQ(dado->second.qdate(), c.hasta) << c.opcion;
    EXPECT_EQ(falta.isEmpty(), c.opcion != std::string("OtrasFechas"));
  }
}

}  // namespace
}  // namespace tarvo::automation
