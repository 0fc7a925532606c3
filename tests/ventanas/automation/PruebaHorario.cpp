// A user creates a timetable, activates it and watches it run.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>

#include "MesaDeProcesos.h"
#include "app/ventanas/Puertas.h"
#include "automation/lenguaje/Horario.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/parrilla/ModeloVivo.h"

namespace tarvo::automation {
namespace {

using ventanas::Parrilla;
using ventanas::Ventana;

struct Principal final : Ventana {
  using Ventana::Ventana;
  Resultado<> entrar(const app::PuertaMainTarvo&) { return {}; }
};

struct Horarios : MesaDeProcesos {
  // A process that asks a silent group that many times, and reports it.
  static QString preguntarEnVano(int veces) {
    return u"T:RXGRTOT,1\r\nC:ESPERA,%1,No\r\n"_s.arg(veces);
  }

  Horarios() : MesaDeProcesos({1}) {
    fichero(u"BIEN.AUT"_s, u"N:a\r\n"_s);
    fichero(u"mal.aut"_s, preguntarEnVano(2));
    todas().registrar<app::PuertaMainTarvo, Principal>();
  }
  Ventana* editar(const QString& nombre = {}) {
    return todas().abrir(PuertaEdiCron{nombre.isEmpty() ? QString() : ruta(nombre)});
  }
  // Fills in the current line by keys; the process is the first or the last of the list.
  static void llenar(Ventana* v, const QString& hora, Qt::Key proceso) {
    auto* campo = pieza<QLineEdit>(v, u"Hora"_s);
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, hora);
    for (int d = 0; d < 7; ++d)
      QTest::keyClick(pieza<QCheckBox>(v, u"dia_%1"_s.arg(d)), Qt::Key_Space);
    QTest::keyClick(pieza<QComboBox>(v, u"NomMacro"_s), proceso);
    QTest::keyClick(campo, Qt::Key_Return);
  }
  // Escape on the window; the button, or Return on the question that comes. Returns the question.
  static QString alCerrar(Ventana* v, const QString& boton) {
    QString dicho;
    cuandoHayaCaja([&dicho, boton](QWidget& caja) {
      dicho = pieza<QLabel>(&caja, u"Mensaje"_s)->text();
      boton.isEmpty() ? QTest::keyClick(&caja, Qt::Key_Return)
                      : QTest::keyClick(pieza<QPushButton>(&caja, boton), Qt::Key_Space);
    });
    QTest::keyClick(v, Qt::Key_Escape);
    return dicho;
  }
  QStringList lineas(const QString& nombre) {
    return texto(nombre).split(u"\r\n"_s, Qt::SkipEmptyParts);
  }
};

const QString kSiempre = u"Sí,Sí,Sí,Sí,Sí,Sí,Sí"_s;

// Two lines with the same time, in the order in which they were entered; both run, one after the
// other.
TEST(Horarios, SeHaceSeGuardaSeActivaYCorre) {
  Horarios s;
  Ventana* e = s.editar();
  auto* nombre = pieza<QLineEdit>(e, u"NomCron"_s);
  QTest::keyClick(nombre, Qt::Key_Return);
  EXPECT_EQ(e->tira().texto(), u"Escriba un nombre.");
  QTest::keyClicks(nombre, u"tien.:?da"_s);
  s.asentar();
  EXPECT_TRUE(e->tira().texto().startsWith(u"El nombre de un horario no puede llevar"));
  EXPECT_GE(e->height(), e->layout()->heightForWidth(e->width())) << "and it is read whole";
  const QRect pantalla = e->screen()->availableGeometry();
  e->move(pantalla.right() - 100, pantalla.bottom() - 100);
  QTest::keyClick(nombre, Qt::Key_Return);
  EXPECT_LE(e->frameGeometry().bottom(), pantalla.bottom()) << "it grows within the screen";
  EXPECT_EQ(e->frameGeometry().x(), std::max(0, pantalla.width() - e->frameGeometry().width()));
  EXPECT_EQ(e->tira().texto(), QString()) << "it has a name now";
  auto* lista = pieza<Parrilla>(e, u"ListaBat"_s);
  ASSERT_EQ(lista->filas(), 1) << "the blank line";
  Horarios::llenar(e, u"22:05:00"_s, Qt::Key_End);
  ASSERT_EQ(lista->filas(), 2);
  lista->irA(1);
  Horarios::llenar(e, u"22:05:00"_s, Qt::Key_Home);
  EXPECT_FALSE(QFile::exists(s.ruta(u"TIENDA.CRO"_s))) << "no file before it is saved";
  pieza<QAction>(e, u"guardar"_s)->trigger();
  EXPECT_EQ(s.lineas(u"TIENDA.CRO"_s), QStringList({u"22:05:00;"_s + kSiempre + u";MAL"_s,
                                                    u"22:05:00;"_s + kSiempre + u";BIEN"_s}));

  s.todas().abrir(u"MainTarvo"_s);
  Ventana* c = s.todas().abrir(PuertaCronos{s.ruta(u"TIENDA.CRO"_s)});
  ASSERT_TRUE(c);
  s.asentar();
  EXPECT_FALSE(s.abierta(u"MainTarvo"_s)) << "replaced by the timetable";
  s.pasar(1);
  EXPECT_EQ(pieza<QLabel>(c, u"reloj"_s)->text(), u"22:00:01");
  EXPECT_EQ(pieza<QLabel>(c, u"lblFaltan"_s)->text(), u"faltan 00:04:59");
  auto* filas = pieza<Parrilla>(c, u"ListaCron"_s);
  EXPECT_EQ(filas->texto(0, u"estado"), u"Siguiente");
  s.pasar(300);
  EXPECT_TRUE(s.abierta(u"Automat"_s));
  EXPECT_TRUE(c->isMinimized());
  EXPECT_EQ(filas->texto(0, u"estado"), u"En marcha");
  EXPECT_EQ(filas->texto(1, u"estado"), u"Ya le toca");
  s.pasar(120);
  EXPECT_FALSE(s.abierta(u"Automat"_s));
  EXPECT_FALSE(c->isMinimized());
  EXPECT_EQ(filas->texto(0, u"ko"), u"1");
  EXPECT_EQ(filas->texto(1, u"ok"), u"1");
  EXPECT_TRUE(Horarios::alCerrar(c, u"Acepto"_s).startsWith(u"Próximo: MAL"));
  EXPECT_TRUE(s.abierta(u"MainTarvo"_s));
  EXPECT_FALSE(s.cronos.activo());
}

// The night runs only while the timetable is open: a key too many doesn't end it.
TEST(Horarios, CerrarElActivoSePregunta) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"22:05:00;"_s + kSiempre + u";BIEN\r\n"_s);
  s.fichero(u"OTRO.CRO"_s, u"22:05:00;"_s + kSiempre + u";MAL\r\n"_s);
  Ventana* c = s.todas().abrir(PuertaCronos{s.ruta(u"T.CRO"_s)});
  s.asentar();
  EXPECT_EQ(pieza<Parrilla>(c, u"ListaCron"_s)->filaActual(), 0) << "F9 has a line";
  EXPECT_FALSE(pieza<QCheckBox>(c, u"activo"_s)->hasFocus()) << "Space doesn't deactivate it";
  EXPECT_TRUE(Horarios::alCerrar(c, {}).contains(u"tampoco esta noche"));
  EXPECT_TRUE(s.abierta(u"Cronos"_s));
  EXPECT_TRUE(s.cronos.activo());
  // Nor does another one take its place unasked.
  cuandoHayaCaja([](QWidget& caja) { QTest::keyClick(&caja, Qt::Key_Return); });
  s.todas().abrir(PuertaCronos{s.ruta(u"OTRO.CRO"_s)});
  EXPECT_EQ(s.cronos.nombre(), u"T");
  // Without anything to run there is nothing to ask.
  QTest::keyClick(pieza<QCheckBox>(c, u"activo"_s), Qt::Key_Space);
  QTest::keyClick(c, Qt::Key_Escape);
  EXPECT_FALSE(s.abierta(u"Cronos"_s));
  // Stopped from outside, where nobody may be, it doesn't ask either.
  c = s.todas().abrir(PuertaCronos{s.ruta(u"T.CRO"_s)});
  s.cronos.parar();
  EXPECT_TRUE(c->descargar());
}

// The editor activates what it has written.
TEST(Horarios, ElEditorLoActiva) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"22:05:00;"_s + kSiempre + u";BIEN\r\n"_s);
  s.todas().abrir(u"MainTarvo"_s);
  Ventana* e = s.editar(u"T.CRO"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(e));
  QTest::keyClick(pieza<QComboBox>(e, u"NomMacro"_s), Qt::Key_End);
  QTest::keyClick(e, Qt::Key_F9);
  s.asentar();
  EXPECT_FALSE(s.abierta(u"EdiCron"_s));
  EXPECT_FALSE(s.abierta(u"MainTarvo"_s));
  ASSERT_TRUE(s.abierta(u"Cronos"_s));
  EXPECT_TRUE(s.cronos.activo());
  EXPECT_EQ(s.cronos.entradas().front().proceso, u"MAL");
}

TEST(Horarios, AplicarPideProcesoYCancelarDevuelveLaLinea) {
  Horarios s;
  s.fichero(u"T.CRO"_s,
            u"99:99;Sí,no,Sí,Sí,Sí,Sí,Sí;bien\r\n@INICIO BATCH\r\nN:a\r\n@FINAL BATCH\r\n"_s);
  Ventana* e = s.editar(u"T.CRO"_s);
  auto* lista = pieza<Parrilla>(e, u"ListaBat"_s);
  EXPECT_EQ(lista->texto(0, u"hora"), u"00:00:00") << "an invalid hour is corrected";
  EXPECT_EQ(lista->texto(0, u"proceso"), u"BIEN");
  auto* dia = pieza<QCheckBox>(e, u"dia_1"_s);
  QTest::keyClick(dia, Qt::Key_Space);
  EXPECT_FALSE(lista->isEnabled());
  QTest::mouseClick(pieza<QPushButton>(e, u"Cancelar"_s), Qt::LeftButton);
  EXPECT_TRUE(lista->isEnabled());
  EXPECT_FALSE(dia->isChecked());

  lista->irA(1);
  QTest::keyClick(dia, Qt::Key_Space);
  QTest::mouseClick(pieza<QPushButton>(e, u"Aplicar"_s), Qt::LeftButton);
  EXPECT_EQ(e->tira().texto(), u"Elija el proceso de la línea.");
  EXPECT_FALSE(lista->isEnabled()) << "the line is still being changed";
  QTest::keyClick(dia, Qt::Key_Escape);
  EXPECT_TRUE(s.abierta(u"EdiCron"_s)) << "Escape cancels the line, not the window";
  EXPECT_EQ(e->focusWidget(), lista->vista());

  // A line that was just inserted goes with its Escape.
  for (const bool conHora : {false, true}) {
    QTest::keyClick(lista->vista(), Qt::Key_Insert);
    EXPECT_EQ(lista->filas(), 3);
    auto* hora = e->focusWidget();
    if (conHora) QTest::keyClicks(hora, u"0745"_s);
    QTest::keyClick(hora, Qt::Key_Escape);
    EXPECT_EQ(lista->filas(), 2) << conHora;
    EXPECT_TRUE(s.abierta(u"EdiCron"_s));
  }

  QTest::keyClick(lista->vista(), Qt::Key_Insert);
  pieza<QAction>(e, u"guardar"_s)->trigger();
  EXPECT_EQ(e->tira().texto().left(8), u"La línea") << e->tira().texto().toStdString();
  lista->irA(1);
  QTest::keyClick(lista->vista(), Qt::Key_Delete);
  pieza<QAction>(e, u"guardar"_s)->trigger();
  EXPECT_EQ(s.texto(u"T.CRO"_s),
            u"00:00:00;Sí,No,Sí,Sí,Sí,Sí,Sí;BIEN\r\n@INICIO BATCH\r\nN:a\r\n@FINAL BATCH\r\n");
}

// Each change of the lines comes back with Ctrl+Z, the last first; a key with nothing to bring back
// says so.
// Each letter marks the day that it ticks; the caption of the days marks none.
TEST(Horarios, CadaLetraMarcaSuDia) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"21:00:00;no,no,no,no,no,no,no;bien\r\n"_s);
  Ventana* e = s.editar(u"T.CRO"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(e));
  const std::pair<Qt::Key, int> letras[] = {{Qt::Key_L, 0}, {Qt::Key_M, 1}, {Qt::Key_I, 2},
                                            {Qt::Key_J, 3}, {Qt::Key_V, 4}, {Qt::Key_S, 5},
                                            {Qt::Key_D, 6}};
  for (const auto& [letra, dia] : letras) {
    QTest::keyClick(e, letra, Qt::AltModifier);
    const auto puesto = [&] { return pieza<QCheckBox>(e, u"dia_%1"_s.arg(dia))->isChecked(); };
    EXPECT_TRUE(QTest::qWaitFor(puesto, 30'000)) << dia;
    for (int otro = dia + 1; otro < 7; ++otro)
      EXPECT_FALSE(pieza<QCheckBox>(e, u"dia_%1"_s.arg(otro))->isChecked()) << dia << otro;
  }
}

TEST(Horarios, LoCambiadoVuelve) {
  Horarios s;
  const QString antes = u"22:05:00;"_s + kSiempre + u";BIEN\r\n"_s;
  s.fichero(u"T.CRO"_s, antes);
  Ventana* e = s.editar(u"T.CRO"_s);
  auto* lista = pieza<Parrilla>(e, u"ListaBat"_s);
  const auto deshacer = [&] { QTest::keyClick(lista->vista(), Qt::Key_Z, Qt::ControlModifier); };
  ASSERT_TRUE(QTest::qWaitForWindowActive(e));
  deshacer();
  EXPECT_EQ(e->tira().texto(), u"Nada que deshacer");
  QTest::keyClick(lista->vista(), Qt::Key_Insert);
  EXPECT_EQ(lista->filas(), 3);
  lista->irA(1);
  lista->vista()->setFocus();
  QTest::keyClick(lista->vista(), Qt::Key_Delete);
  EXPECT_EQ(lista->filas(), 2);
  EXPECT_EQ(e->tira().texto(), u"Línea quitada. Ctrl+Z la devuelve.");
  deshacer();
  EXPECT_EQ(lista->texto(1, u"proceso"), u"BIEN");
  deshacer();
  EXPECT_EQ(lista->filas(), 2);
  EXPECT_TRUE(e->close()) << "it is as it was: nothing is asked";
  EXPECT_EQ(s.texto(u"T.CRO"_s), antes);
}

TEST(Horarios, AbandonarNoTocaElFichero) {
  Horarios s;
  EXPECT_FALSE(leerHorario(s.texto(u"BIEN.AUT"_s), s.p.lenguaje())) << "a process is no timetable";
  const QString antes = u"22:05:00;"_s + kSiempre + u";BIEN\r\n"_s;
  s.fichero(u"T.CRO"_s, antes);
  Ventana* e = s.editar(u"T.CRO"_s);
  QTest::keyClick(pieza<Parrilla>(e, u"ListaBat"_s)->vista(), Qt::Key_Delete);
  const auto salir = [&](const QString& boton) {
    cuandoHayaCaja([boton](QWidget& caja) {
      QTest::keyClick(caja.findChild<QPushButton*>(boton), Qt::Key_Space);
    });
    QTest::keyClick(e, Qt::Key_Escape);
  };
  salir(u"Cancelo"_s);
  EXPECT_TRUE(s.abierta(u"EdiCron"_s));
  salir(u"Acepto"_s);
  EXPECT_FALSE(s.abierta(u"EdiCron"_s));
  EXPECT_EQ(s.texto(u"T.CRO"_s), antes);
}

// The window that asked for the name grows around its middle, into the editor.
TEST(Horarios, CreceAlrededorDeSuMedio) {
  Horarios s;
  Ventana* e = s.editar();
  const int medio = e->frameGeometry().center().y();
  QTest::keyClicks(pieza<QLineEdit>(e, u"NomCron"_s), u"T"_s);
  QTest::keyClick(pieza<QLineEdit>(e, u"NomCron"_s), Qt::Key_Return);
  EXPECT_GT(e->height(), 300);
  EXPECT_NEAR(e->frameGeometry().center().y(), medio, 2);
}

// From a timetable to another of the folder, to a new one, and away with it, leaving a copy.
TEST(Horarios, HayOtrosYSeBorran) {
  Horarios s;
  const QString antes = u"22:05:00;"_s + kSiempre + u";BIEN\r\n"_s;
  for (const char16_t* nombre : {u"T.CRO", u"OTRO.CRO"})
    s.fichero(QString::fromUtf16(nombre), antes);
  Ventana* e = s.editar(u"T.CRO"_s);
  const auto menu = [&] {
    pieza<QAction>(e, u"otro"_s)->trigger();
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  };
  const QMenu* desplegado = menu();
  ASSERT_TRUE(desplegado);
  const QWidget* boton =
      pieza<QToolBar>(e, u"barra"_s)->widgetForAction(pieza<QAction>(e, u"otro"_s));
  EXPECT_NEAR(desplegado->x(), boton->mapToGlobal(QPoint()).x(), boton->width() / 2);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  EXPECT_EQ(pieza<QLabel>(e, u"lblNom"_s)->text(), u"Preparar un horario: OTRO");
  cuandoHayaCaja([](QWidget& caja) {
    QTest::keyClick(caja.findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
  });
  pieza<QAction>(e, u"quitar"_s)->trigger();
  s.asentar();
  EXPECT_FALSE(s.abierta(u"EdiCron"_s));
  EXPECT_FALSE(QFile::exists(s.ruta(u"OTRO.CRO"_s)));
  EXPECT_EQ(s.texto(u"OTRO.CRO~"_s), antes);
  e = s.editar(u"T.CRO"_s);
  ASSERT_TRUE(menu());
  EXPECT_EQ(menu()->actions().size(), 2) << "a new one, and no other";
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  EXPECT_TRUE(pieza<QLineEdit>(e, u"NomCron"_s)->isVisible());
}

// The time stored is the one typed, regardless of the former contents; an invalid time is refused.
TEST(Horarios, LaHoraEsLaQueSeEscribe) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"22:05:30;"_s + kSiempre + u";BIEN\r\n"_s);
  Ventana* e = s.editar(u"T.CRO"_s);
  auto* hora = pieza<QLineEdit>(e, u"Hora"_s);
  const auto escribir = [&](const QString& texto) {
    hora->setFocus();
    QTest::keyClick(hora, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(hora, texto);
  };
  escribir(u"25:00"_s);
  EXPECT_EQ(hora->text(), u"25:00") << "every key is accepted";
  s.asentar();
  EXPECT_GE(hora->width(), hora->maximumWidth()) << "beside the buttons of its line too";
  cuandoHayaCaja([](QWidget& caja) {
    QTest::keyClick(caja.findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
  });
  QTest::keyClick(hora, Qt::Key_Return);
  EXPECT_FALSE(pieza<QLabel>(e, u"faltaHora"_s)->text().isEmpty());
  escribir(u"07:45"_s);
  QTest::keyClick(hora, Qt::Key_Return);
  pieza<QAction>(e, u"guardar"_s)->trigger();
  EXPECT_EQ(s.lineas(u"T.CRO"_s), QStringList(u"07:45:00;"_s + kSiempre + u";BIEN"_s));
}

// Typed on the list, it is the hour of the current line.
TEST(Horarios, LaHoraSeTecleaEnLaLista) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"22:05:30;"_s + kSiempre + u";BIEN\r\n"_s);
  Ventana* e = s.editar(u"T.CRO"_s);
  ASSERT_TRUE(QTest::qWaitForWindowActive(e));
  for (const QChar c : u"21:30"_s) QTest::keyClick(e->focusWidget(), c.toLatin1());
  QTest::keyClick(e->focusWidget(), Qt::Key_Return);
  pieza<QAction>(e, u"guardar"_s)->trigger();
  EXPECT_EQ(s.lineas(u"T.CRO"_s), QStringList(u"21:30:00;"_s + kSiempre + u";BIEN"_s));
}

TEST(Cronos, ADesactivarYAManoYUnoQueNoSeLee) {
  Horarios s;
  s.fichero(u"ROTO.AUT"_s, u"T:NADA,1\r\n"_s);
  s.fichero(u"T.CRO"_s,
            u"22:05:00;"_s + kSiempre + u";BIEN\r\n22:06:00;"_s + kSiempre + u";ROTO\r\n"_s);
  Ventana* c = s.todas().abrir(PuertaCronos{s.ruta(u"T.CRO"_s)});
  s.asentar();
  auto* filas = pieza<Parrilla>(c, u"ListaCron"_s);
  EXPECT_EQ(filas->texto(1, u"estado"), u"No se puede leer");
  EXPECT_TRUE(c->tira().texto().contains(u"ROTO")) << c->tira().texto().toStdString();
  QTest::keyClick(pieza<QCheckBox>(c, u"activo"_s), Qt::Key_Space);
  s.pasar(600);
  EXPECT_EQ(filas->texto(0, u"ok"), u"0");
  EXPECT_FALSE(puede(c, u"ejecutar"_s));
  QTest::keyClick(pieza<QCheckBox>(c, u"activo"_s), Qt::Key_Space);
  filas->irA(1);
  pieza<QAction>(c, u"ejecutar"_s)->trigger();
  EXPECT_EQ(c->tira().texto(), u"Elija una línea que esté en espera.");
  filas->irA(0);
  // A Return too many starts nothing, nor does who would rather keep what it makes machines forget.
  for (const int vez : {0, 1, 2}) {
    const bool seAcepta = vez > 0;
    s.consiente = vez == 2;
    bool preguntado = false;
    cuandoHayaCaja([&](QWidget& caja) {
      preguntado = true;
      if (seAcepta)
        QTest::keyClick(caja.findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
      else
        QTest::keyClick(&caja, Qt::Key_Return);
    });
    pieza<QAction>(c, u"ejecutar"_s)->trigger();
    s.pasar(10);
    EXPECT_TRUE(preguntado);
    EXPECT_EQ(filas->texto(0, u"ok"), vez == 2 ? u"1" : u"0");
    EXPECT_EQ(s.pasosAConsentir, seAcepta ? 1 : 0) << "the steps of its process";
  }
}

// The next process waits while a user may be reading why the first was stopped, but not all night.
TEST(Cronos, UnProcesoParadoNoRetieneLaNoche) {
  Horarios s;
  s.fichero(u"LARGO.AUT"_s, Horarios::preguntarEnVano(1000));
  s.fichero(u"T.CRO"_s,
            u"22:05:00;"_s + kSiempre + u";LARGO\r\n22:05:30;"_s + kSiempre + u";BIEN\r\n"_s);
  Ventana* c = s.todas().abrir(PuertaCronos{s.ruta(u"T.CRO"_s)});
  auto* filas = pieza<Parrilla>(c, u"ListaCron"_s);
  s.pasar(310);
  s.automat().abortar();
  s.pasar(120);
  EXPECT_EQ(filas->texto(1, u"estado"), u"Ya le toca");
  s.pasar(240);
  EXPECT_EQ(filas->texto(0, u"ko"), u"1");
  EXPECT_EQ(filas->texto(1, u"ok"), u"1");
}

TEST(Automat, UnProcesoConHorarioVaAlCronos) {
  Horarios s;
  s.correr(u"22:05:00;"_s + kSiempre + u";@\r\n@INICIO BATCH\r\nN:a\r\n@FINAL BATCH\r\n"_s);
  s.asentar();
  EXPECT_FALSE(s.abierta(u"Automat"_s));
  ASSERT_TRUE(s.abierta(u"Cronos"_s));
  EXPECT_EQ(pieza<QLabel>(s.todas().cargada(u"Cronos"_s), u"lblNom"_s)->text(), u"NOCHE");
}

// A timetable waits for a process run by a user.
TEST(Cronos, EsperaAlProcesoDeLaPersona) {
  Horarios s;
  s.fichero(u"T.CRO"_s, u"22:00:05;"_s + kSiempre + u";BIEN\r\n"_s);
  QWidget* v = s.correr(Horarios::preguntarEnVano(1000));
  Ventana* c = s.todas().abrir(PuertaCronos{s.ruta(u"T.CRO"_s)});
  auto* filas = pieza<Parrilla>(c, u"ListaCron"_s);
  s.pasar(20);
  EXPECT_EQ(filas->texto(0, u"estado"), u"Ya le toca");
  s.automat().abortar();
  s.pasar(1);
  v->close();
  s.pasar(60);
  EXPECT_EQ(filas->texto(0, u"ok"), u"1");
}

}  // namespace
}  // namespace tarvo::automation
