// Jobs of a person in the editor of a group, by keys and by dragging.
#include "MesaDeGrupos.h"
#include "comm/conexion/ventanas/RegistrarVentanas.h"
#include "comm/ventanas/Puertas.h"

namespace tarvo::prueba {

namespace {

// In place of the window of communications: which group it was opened for.
struct Comunicaciones final : Lisa {
  using Lisa::Lisa;
  Resultado<> entrar(const comm::PuertaGestcomm& puerta) {
    setProperty("grupo", puerta.grupo);
    return {};
  }
};

}  // namespace

// From the tree: a new group, its name and access, two scales from the menu of models; everything
// is sent, in order.
TEST(EditorGrupo, UnGrupoNuevoConDosBalanzas) {
  MesaDeGrupos t;
  t.escritorio.ventanas().registrar<comm::PuertaGestcomm, Comunicaciones>();
  auto* arbol = t.abrir(PuertaBrowGrupos{.grupos = true});
  t.tecla(Qt::Key_Insert);
  auto* v = t.cargada(u"EdiGrupo"_s);
  t.escribir(u"Frutas"_s);
  t.elegir(v, u"lstAcceso", 3);
  t.poner(v, u"txTelf", u"balanza:4101"_s);
  t.ir(v, 0);
  for (const QString& modelo : {u"Rowan"_s, u"Maple"_s}) {
    t.tecla(Qt::Key_Insert);
    t.enMenu(modelo);
    t.activa(v);
    t.tecla(Qt::Key_Right);
  }
  EXPECT_EQ(t.puestas(v), u"Rowan Maple");
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS"_s), u"4") << "nothing is stored yet";
  t.alAbrirse([](QWidget* w) {
    EXPECT_TRUE(w->findChild<QLabel*>(u"que"_s)->text().startsWith(u"Se han realizado cambios en"));
    w->findChild<QPushButton*>(u"Si"_s)->click();
  });
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(
      t.leer(u"select CODGPO, NOMGPO, seccion, tipo, remoto, telef from GRUPOS where CODGPO=5"_s),
      u"5 Frutas 1 1 3 balanza:4101");
  EXPECT_EQ(t.leer(u"select NMBZA, tipo from BZAS where SUGPO=5 order by 1"_s), u"0 1 | 1 2");
  EXPECT_EQ(t.cola(), u"5 8 4 2 3 1-");
  auto* comunicaciones = t.escritorio.ventanas().cargada(u"gestcomm"_s);
  ASSERT_NE(comunicaciones, nullptr);
  EXPECT_EQ(comunicaciones->property("grupo"), 0) << "it would say that its queue is empty";
  comunicaciones->descargar();
  // It is the current one in the tree, and can be taken back while nothing else has its code.
  auto* rama = t.control<QTreeWidget>(arbol, u"Arbol")->currentItem();
  EXPECT_EQ(rama->text(0), u"(5) Frutas");
  t.gestor->terminator();
  arbol->activateWindow();
  t.activa(arbol);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS"_s), u"4") << arbol->tira().texto().toStdString();
}

// The three ways of sending on saving, for a change of the tariff alone.
TEST(EditorGrupo, LaTarifaSegunElEnvio) {
  struct Caso {
    int como;
    QString boton;
    bool noMas;
    QString cola;
    int queda;
  };
  for (const Caso& c : {Caso{0, {}, false, {}, 0}, Caso{1, u"Si"_s, false, u"1-"_s, 1},
                        Caso{1, u"No"_s, false, {}, 1}, Caso{1, u"Si"_s, true, u"1-"_s, 2},
                        Caso{1, u"No"_s, true, {}, 0}, Caso{2, {}, false, u"1-"_s, 2}}) {
    MesaDeGrupos t;
    t.envio() = c.como;
    auto* v = t.editor(1);
    t.elegir(v, u"txTfa", 3);
    if (!c.boton.isEmpty())
      t.alAbrirse([c](QWidget* w) {
        w->findChild<QCheckBox*>(u"NoMas"_s)->setChecked(c.noMas);
        w->findChild<QPushButton*>(c.boton)->click();
      });
    ASSERT_TRUE(t.guardar(v));
    EXPECT_EQ(t.leer(u"select tarifa from GRUPOS where CODGPO=1"_s), u"3");
    EXPECT_EQ(t.cola(), c.cola);
    EXPECT_EQ(t.envio(), c.queda);
  }
}

// Going back at the question stores nothing; and a group that doesn't communicate isn't asked
// about.
TEST(EditorGrupo, VolverAtrasNoGuarda) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.elegir(v, u"txTfa", 3);
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
  QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(v->isVisible());
  EXPECT_EQ(t.leer(u"select coalesce(tarifa, 0) from GRUPOS where CODGPO=1"_s), u"0");
  t.elegir(v, u"lstAcceso", 0);
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select tarifa, remoto from GRUPOS where CODGPO=1"_s), u"3 0");
  EXPECT_EQ(t.cola(), QString());
}

TEST(EditorGrupo, SinCambiosNoEscribeNada) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  const qint64 antes = t.contexto().base.cambios();
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.contexto().base.cambios(), antes);
}

// What other windows store while the editor is open (a name, a section, an operator's new code, a
// format's new name) stays, but for what is changed here.
TEST(EditorGrupo, LoGuardadoFueraQueda) {
  for (const bool nombreDeAqui : {false, true}) {
    MesaDeGrupos t;
    t.sql(u"update GRUPOS set OP01_C=1, OP02_C=2, OP03_C=3 where CODGPO=1"_s);
    t.sql(u"update BZAS set ETQ11='uno', ETQ12='dos' where SUGPO=1 and NMBZA=0"_s);
    auto* v = t.editor(1);
    t.sql(u"update GRUPOS set NOMGPO='Fuera', OP01_C=7, OP03_C=0 where CODGPO=1"_s);
    t.sql(u"update BZAS set ETQ11='once' where SUGPO=1 and NMBZA=0"_s);
    t.elegir(v, u"txTfa", 3);
    if (nombreDeAqui) t.poner(v, u"txNombre", u"Dentro"_s);
    t.envio() = 0;
    ASSERT_TRUE(t.guardar(v));
    EXPECT_EQ(t.leer(u"select NOMGPO, OP01_C, OP02_C, OP03_C, tarifa from GRUPOS where CODGPO=1"_s),
              (nombreDeAqui ? u"Dentro"_s : u"Fuera"_s) + u" 7 2 0 3"_s);
    EXPECT_EQ(t.leer(u"select ETQ11, ETQ12 from BZAS where SUGPO=1 and NMBZA=0"_s), u"once dos");
  }
}

TEST(EditorGrupo, LasFaltasJuntasYJuntoASuCampo) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.poner(v, u"txNombre", {});
  auto* falta = t.control<QLabel>(v, u"faltatxNombre");
  EXPECT_EQ(falta->text(), u"El nombre de grupo no puede quedar vacío") << "while it is typed";
  t.poner(v, u"txCodigo", u"0"_s);
  t.responder(u"Acepto"_s);
  QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.textoModal,
            u"El número de Grupo no es adecuado\nEl nombre de grupo no puede quedar vacío");
  EXPECT_EQ(v->focusWidget(), t.control(v, u"txCodigo"));
  t.poner(v, u"txCodigo", u"3"_s);
  EXPECT_EQ(t.control<QLabel>(v, u"faltatxCodigo")->text(),
            u"El código de registro ya existe: No debe duplicarse");
  t.poner(v, u"txCodigo", u"12"_s);
  t.poner(v, u"txNombre", u"Otro"_s);
  EXPECT_TRUE(falta->text().isEmpty());
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select NOMGPO from GRUPOS where CODGPO=12"_s), u"Otro");
}

// Each gesture by keys, each undone, and at the end there is nothing to abandon.
TEST(EditorGrupo, CadaGestoSeDeshace) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  const auto tecla = [&](Qt::Key k, Qt::KeyboardModifiers m = Qt::ControlModifier) {
    QTest::keyClick(&t.sitios(v), k, m);
  };
  QStringList vistas{t.puestas(v)};
  const auto visto = [&](const QString& como) {
    EXPECT_EQ(t.puestas(v), como);
    vistas << como;
  };
  EXPECT_EQ(vistas.front(), u"Rowan Cedar");
  t.ir(v, 0);
  tecla(Qt::Key_C);
  t.ir(v, 4);
  tecla(Qt::Key_V);
  visto(u"Rowan Cedar . . Rowan"_s);
  tecla(Qt::Key_Down);
  visto(u"Rowan Cedar . . . . . . . Rowan"_s);
  EXPECT_EQ(t.sitios(v).currentRow(), 9);
  tecla(Qt::Key_X);
  visto(u"Rowan Cedar"_s);
  t.ir(v, 0);
  tecla(Qt::Key_Right);
  visto(u"Cedar Rowan"_s);
  tecla(Qt::Key_Delete, Qt::NoModifier);
  visto(u"Cedar"_s);
  tecla(Qt::Key_V);
  visto(u"Cedar Rowan"_s);
  t.poner(v, u"txNombre", u"Otro"_s);
  t.sitios(v).setFocus();
  t.elegir(v, u"lstAcceso", 0);
  for (int i = 0; i < 2; ++i) QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.control(v, u"txNombre")->text(), u"G");
  EXPECT_EQ(t.control<QComboBox>(v, u"lstAcceso")->currentIndex(), 2);
  for (vistas.removeLast(); !vistas.isEmpty(); vistas.removeLast()) {
    QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.puestas(v), vistas.last());
  }
  EXPECT_TRUE(v->descargar()) << "nothing is asked";
}

TEST(EditorGrupo, SeArrastraYSeSuelta) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  auto* basura = t.control<QToolButton>(v, u"basura");
  t.soltarEn(v, {Arrastre::Modelo, devices::kMaple}, 3);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar . Maple");
  t.soltarEn(v, {Arrastre::Sitio, 0}, 4);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar . Maple Rowan") << "the source stays";
  t.soltarEn(v, {Arrastre::Sitio, 0}, 0);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar . Maple Rowan");
  t.soltarEn(v, {Arrastre::Sitio, 4}, 2, Qt::ShiftModifier);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar Rowan Maple");
  t.soltar(v, {Arrastre::Sitio, 3}, t.control<QToolButton>(v, u"clipbrd"), {5, 5});
  t.responder(u"Acepto"_s);
  t.soltarEn(v, {Arrastre::Portapapeles}, 0);
  EXPECT_EQ(t.puestas(v), u"Maple Cedar Rowan Maple");
  for (const int sitio : {3, 2}) t.soltar(v, {Arrastre::Sitio, sitio}, basura, {5, 5});
  EXPECT_EQ(t.puestas(v), u"Maple Cedar");
  // Another kind is refused, unless it is alone.
  t.soltarEn(v, {Arrastre::Modelo, devices::kEbony}, 2);
  EXPECT_EQ(t.puestas(v), u"Maple Cedar");
  EXPECT_EQ(v->tira().texto(), u"Los tipos de balanzas son incompatibles");
  t.soltarEn(v, {Arrastre::Sitio, 1}, 6, Qt::ShiftModifier);
  EXPECT_EQ(v->tira().texto(), QString()) << "that was of the command before";
  t.activa(v);
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Deshecho"));
  t.ir(v, 1);
  QTest::keyClick(&t.sitios(v), Qt::Key_Delete);
  EXPECT_EQ(v->tira().texto(), QString());
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  QGuiApplication::clipboard()->setText(u"otra cosa"_s);
  t.soltarEn(v, {Arrastre::Portapapeles}, 5);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Los datos del portapapeles no parecen ser de una"));
  for (const int sitio : {0, 1}) t.soltar(v, {Arrastre::Sitio, sitio}, basura, {5, 5});
  t.soltarEn(v, {Arrastre::Modelo, devices::kEbony}, 2);
  EXPECT_EQ(t.puestas(v), u". . Ebony");
  EXPECT_FALSE(t.orden(v, u"MnCas"_s)->isEnabled()) << "it is a group of another kind now";
  EXPECT_FALSE(t.control<QCheckBox>(v, u"MnRs485")->isVisible());
  EXPECT_TRUE(t.control(v, u"txAddr")->isVisible());
  t.envio() = 0;
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select tipo from GRUPOS where CODGPO=1"_s), u"2");
  EXPECT_EQ(t.leer(u"select NMBZA, tipo from BZAS where SUGPO=1"_s), u"2 7");
}

// A command goes on to a free place; only a drop or a paste may take a machine's place, and asks.
TEST(EditorGrupo, LaMaquinaQueHayNoSePierde) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  t.ir(v, 0);
  t.tecla(Qt::Key_Insert);
  t.enMenu(u"Maple"_s);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar Maple");
  EXPECT_EQ(t.sitios(v).currentRow(), 2);
  auto* modelos = t.control<QListWidget>(v, u"ico");
  for (int i = 3; i <= 10; ++i) QTest::keyClick(modelos, Qt::Key_Return);
  EXPECT_EQ(t.puestas(v), u"Rowan Cedar Maple"_s + u" Rowan"_s.repeated(7));
  EXPECT_TRUE(v->tira().texto().startsWith(u"Los diez sitios están ocupados"));
  t.ir(v, 3);
  QTest::keyClick(&t.sitios(v), Qt::Key_C, Qt::ControlModifier);
  const std::function<void()> encima[] = {
      [&] { t.soltarEn(v, {Arrastre::Modelo, devices::kCedar}, 2); },
      [&] { t.soltarEn(v, {Arrastre::Sitio, 0}, 2); },
      [&] {
        t.ir(v, 2);
        QTest::keyClick(&t.sitios(v), Qt::Key_V, Qt::ControlModifier);
      }};
  for (const auto& poner : encima) {
    const QString antes = t.puestas(v);
    t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Return); });
    poner();
    EXPECT_TRUE(t.textoModal.contains(u"«3 · Maple»")) << t.textoModal.toStdString();
    EXPECT_EQ(t.puestas(v), antes) << "Cancelar is the default";
    t.activa(v);
    t.responder(u"Acepto"_s);
    poner();
    EXPECT_NE(t.puestas(v), antes);
    t.activa(v);
    QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.puestas(v), antes);
  }
}

// What each access shows, and the group number on the bus, whose keys above its limit are dropped.
TEST(EditorGrupo, LosCamposSegunElAcceso) {
  MesaDeGrupos t;
  auto* v = t.editor(1);
  const QString visibles[] = {u"---"_s, u"T-B"_s, u"-CB"_s, u"T--"_s, u"T--"_s};
  for (int acceso = 0; acceso < 5; ++acceso) {
    t.elegir(v, u"lstAcceso", acceso);
    const auto si = [&](const char16_t* campo, QChar letra) {
      return t.control<QWidget>(v, campo)->isVisible() ? letra : QChar(u'-');
    };
    EXPECT_EQ(QString(si(u"txTelf", u'T')) + si(u"lstCOM", u'C') + si(u"lstBaud", u'B'),
              visibles[acceso])
        << acceso;
  }
  auto* bus = t.control<QCheckBox>(v, u"MnRs485");
  if (bus->isChecked()) bus->click();
  EXPECT_FALSE(t.control(v, u"txAddr")->isVisible());
  bus->click();
  EXPECT_EQ(t.control(v, u"txAddr")->text(), u"1");
  t.poner(v, u"txAddr", {});
  EXPECT_TRUE(t.control(v, u"txAddr")->isVisible()) << "it is being typed";
  t.poner(v, u"txAddr", u"19"_s);
  EXPECT_EQ(t.control(v, u"txAddr")->text(), u"1") << "the key is dropped";
  EXPECT_TRUE(esperar([&] { return v->tira().texto().contains(u"15"); }, 3000))
      << "and that is told";
  t.poner(v, u"txAddr", u"15"_s);
  t.elegir(v, u"lstAcceso", 2);
  t.elegir(v, u"lstCOM", 3);
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select remoto, canal, telef, Addr from GRUPOS where CODGPO=1"_s), u"2 4 - 15");
}

TEST(EditorGrupo, LasDireccionesDeLasCajas) {
  MesaDeGrupos t;
  auto* v = t.abrir(PuertaEdiCajas{{.codigo = 3}});
  t.ir(v, 1);
  t.tecla(Qt::Key_Insert);
  EXPECT_EQ(t.puestas(v), u"dir. 1 dir. 2") << "the first address that is free";
  for (const auto tecla : {Qt::Key_C, Qt::Key_Right, Qt::Key_V})
    QTest::keyClick(&t.sitios(v), tecla,
                    tecla == Qt::Key_Right ? Qt::NoModifier : Qt::ControlModifier);
  EXPECT_EQ(t.puestas(v), u"dir. 1 dir. 2 dir. 3") << "a copy takes one too";
  t.tecla(Qt::Key_Delete);
  t.ir(v, 1);
  t.poner(v, u"txDir", u"1"_s);
  t.responder(u"Acepto"_s);
  QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.textoModal, u"Alguna de las direcciones de las cajas está repetida: sitios 1, 2.");
  t.poner(v, u"txDir", u"7"_s);
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select NMBZA, Addr from BZAS where SUGPO=3 order by 1"_s), u"0 1 | 1 7");
}

// What is no address is neither stored nor forgotten in silence; nor is its first digit.
TEST(EditorGrupo, LaDireccionQueNoValeNoSeGuarda) {
  MesaDeGrupos t;
  auto* v = t.abrir(PuertaEdiCajas{{.codigo = 3}});
  t.ir(v, 1);
  t.tecla(Qt::Key_Insert);
  t.poner(v, u"txDir", u"99"_s);
  t.tecla(Qt::Key_Tab);
  auto* falta = t.control<QLabel>(v, u"faltatxDir");
  EXPECT_EQ(falta->text(),
            u"Las direcciones van del 1 al 16; la 0 sólo vale si hay una sola caja.");
  t.responder(u"Acepto"_s);
  QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.textoModal, u"Dirección de la caja: "_s + falta->text());
  t.activa(v);
  t.ir(v, 0);
  EXPECT_EQ(v->tira().texto(),
            u"La dirección «99» no vale: la caja del sitio 2 se queda con la que tenía, 2.");
  EXPECT_EQ(t.puestas(v), u"dir. 1 dir. 2");
  EXPECT_TRUE(falta->text().isEmpty());
  // A number that is wrong here: its register is named, and gone to.
  t.poner(v, u"txDir", u"0"_s);
  EXPECT_EQ(v->tira().texto(), QString());
  t.ir(v, 1);
  EXPECT_TRUE(falta->text().isEmpty()) << "this one is right";
  t.responder(u"Acepto"_s);
  QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
  const QString cual = u"Alguna de las direcciones de las cajas es incorrecta: sitio 1. Las "_s;
  EXPECT_TRUE(t.textoModal.startsWith(cual)) << t.textoModal.toStdString();
  EXPECT_EQ(t.sitios(v).currentRow(), 0);
  EXPECT_FALSE(falta->text().isEmpty());
  auto* bajoSitios = t.control<QLabel>(v, u"faltaSitios");
  EXPECT_TRUE(bajoSitios->text().startsWith(cual));
  t.activa(v);
  t.sitios(v).setFocus();
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.puestas(v), u"dir. 1 dir. 2");
  EXPECT_TRUE(bajoSitios->isHidden()) << "undone with its reason";
  EXPECT_TRUE(falta->text().isEmpty());
  ASSERT_TRUE(t.guardar(v));
  EXPECT_EQ(t.leer(u"select NMBZA, Addr from BZAS where SUGPO=3 order by 1"_s), u"0 1 | 1 2");
}

// The ticket head of group 1, by its machines.
void aceptada(MesaDeGrupos& t) {
  const auto envios =
      bien(configuracion::prepararEnvio(*t.db, t.ajustes, TipoTarea::TxTick, {.grupo = 1}));
  for (const auto& e : envios)
    bien(configuracion::anotarAceptado(*t.db, 1, TipoTarea::TxTick, e,
                                       momento("05/06/2018 22:15:00")));
}

// What the kinds of configuration say.
QString estadosDe(QWidget* v) {
  QString todo;
  for (const QLabel* l : v->findChild<QWidget*>(u"estados"_s)->findChildren<QLabel*>())
    todo += l->text() + u'|';
  return todo;
}

// Each kind of configuration tells in words whether the machines have what is stored.
TEST(EditorGrupo, LoQueTienenLasMaquinas) {
  MesaDeGrupos t;
  aceptada(t);
  auto* v = t.editor(1);
  EXPECT_TRUE(estadosDe(v).contains(u"Razón social: igual que aquí||05/06/2018 22:15") ||
              estadosDe(v).contains(u"Razón social: igual que aquí|05/06/2018 22:15"))
      << estadosDe(v).toStdString();
  EXPECT_TRUE(estadosDe(v).contains(u"Teclado: nunca enviado"));
  EXPECT_TRUE(v->descargar());
  t.sql(u"update BZAS set RZSOCIAL='C:0:OTRA' where SUGPO=1"_s);
  EXPECT_TRUE(estadosDe(t.editor(1)).contains(u"Razón social: cambió desde el último envío"));
}

// A machine that is added has received nothing, before it is stored and after.
TEST(EditorGrupo, LaMaquinaAnadidaNoTieneNada) {
  MesaDeGrupos t;
  aceptada(t);
  auto* v = t.editor(1);
  t.ir(v, 0);
  QTest::keyClick(&t.sitios(v), Qt::Key_C, Qt::ControlModifier);
  t.ir(v, 4);
  QTest::keyClick(&t.sitios(v), Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(estadosDe(v).contains(u"Razón social: sin enviar a 1 máquina añadida|"));
  t.envio() = 0;
  ASSERT_TRUE(t.guardar(v));
  v = t.editor(1);
  EXPECT_TRUE(estadosDe(v).contains(u"Razón social: igual que aquí en 2 de 3|"))
      << estadosDe(v).toStdString();
}

// F9 tries the access as it is typed, and stores nothing.
TEST(EditorGrupo, ProbarLoEscrito) {
  MesaDeGrupos t;
  conexion::registrarVentanasConexion(t.escritorio.ventanas(), {*t.gestor, t.enlaces, *t.db});
  t.ajustes.de<enlace::AjustesCables>().canales[1].Device = TipoAcceso::TcpIp;
  auto* v = t.editor(1);
  t.elegir(v, u"lstAcceso", 3);
  t.poner(v, u"txTelf", u"balanza"_s);
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_TRUE(v->tira().texto().startsWith(u"La dirección ha de llevar dos puntos"));
  EXPECT_EQ(t.control<QLabel>(v, u"faltatxTelf")->text(), v->tira().texto()) << "while it is typed";
  t.poner(v, u"txTelf", u"balanza:4101"_s);
  QString dicho;
  t.alAbrirse([&](QWidget* w) {
    auto& lista = *w->findChild<ventanas::Parrilla*>(u"lista"_s);
    for (int i = 0; i < lista.filas(); ++i) dicho += lista.texto(i, u"maquina") + u'|';
    w->close();
  });
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_EQ(dicho, u"Red, balanza:4101|1 · Rowan|2 · Cedar|");
  EXPECT_EQ(t.leer(u"select remoto from GRUPOS where CODGPO=1"_s), u"2");
  // In a test the engine dies before the windows.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(t.escritorio.ventanas().cargada(u"ProbarConexion"_s), nullptr);
}

}  // namespace tarvo::prueba
