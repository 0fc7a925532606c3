// Jobs on the tray: memorising with a choice of periods, discarding and restoring.
#include <QListWidget>

#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace totals;

namespace {

// The reading of one group, with its own span of sales.
void recibir(MesaDeTotales& t, int grupo, const char* desde, const char* hasta) {
  t.fila(u"Sesiones", {{u"CODGPO", grupo}, {u"PZERO", momento(desde)}});
  std::vector<Aviso> avisos;
  Lectura l;
  l.maquinas[0][{grupo, 0}] = {3, 1000, 1500, 0};
  bien(t.sesion.PrepararRecepcion(grupo, TipoTotal::GranTotal));
  bien(t.sesion.guardarLectura(grupo, TipoTotal::GranTotal, l, avisos));
  t.sql(u"update Sesiones set DD_GRT=?, HT_GRT=? where CODGPO=?"_s, momento(desde), momento(hasta),
        grupo);
}

void recibirDosDias(MesaDeTotales& t) {
  recibir(t, 1, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  recibir(t, 2, "04/06/2018 21:00:00", "05/06/2018 21:30:00");
}

}  // namespace

TEST(VentanaSesion, MemorizaEnElPeriodoQueSeElige) {
  MesaDeTotales t;
  recibirDosDias(t);
  auto* v = t.abrir(u"CerrSes"_s);
  auto* periodo = v->findChild<QLabel*>(u"lbPerio"_s);
  EXPECT_EQ(periodo->text(), u"4 junio 2018    (DIARIO)");
  QTest::keyClicks(v->findChild<QLineEdit*>(u"Descrip"_s), u"Feria"_s);
  // "Memorizar" in this dialog memorises at once: no further button is needed.
  t.alAbrirse([](QWidget* w) {
    w->findChild<QListWidget*>(u"LstPer"_s)->setCurrentRow(1);
    QTest::mouseClick(w->findChild<QPushButton*>(u"Memorizar"_s), Qt::LeftButton);
  });
  QTest::mouseClick(v->findChild<QPushButton*>(u"detalles"_s), Qt::LeftButton);
  EXPECT_EQ(t.leer(u"select FECHA1, DESCR from COLUMNA"_s), u"43256 Feria");
  EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTGRT where LINK=1"_s), u"3000");
  EXPECT_EQ(t.sesion.estado(), 0);
}

// The name of the night that was stopped is proposed, and what is typed takes its place.
TEST(VentanaSesion, ElNombreDeLaNocheParada) {
  for (const QString& otro : {QString(), u"Feria"_s}) {
    MesaDeTotales t;
    recibirDosDias(t);
    bien(t.sesion.ponerNombre(u"Ventas 04"_s));
    auto* v = t.abrir(u"CerrSes"_s);
    QTest::keyClicks(v->findChild<QLineEdit*>(u"Descrip"_s), otro);
    QTest::mouseClick(v->findChild<QPushButton*>(u"Guardar"_s), Qt::LeftButton);
    EXPECT_EQ(t.leer(u"select DESCR from COLUMNA"_s), otro.isEmpty() ? u"Ventas 04"_s : otro);
    EXPECT_EQ(bien(t.sesion.nombre()), u"");
  }
}

// Before memorising: the amount, and the groups whose sales will be missing.
TEST(VentanaSesion, DiceCuantoYQuienFalta) {
  MesaDeTotales t;
  t.sql(u"update GRUPOS set REMOTO=3"_s);
  recibir(t, 2, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  auto* v = t.abrir(u"CerrSes"_s);
  auto* faltan = v->findChild<QLabel*>(u"faltan"_s);
  EXPECT_TRUE(
      v->findChild<QLabel*>(u"resumen"_s)->text().startsWith(u"Recibidos de 1 grupo. Son 15,00"))
      << v->findChild<QLabel*>(u"resumen"_s)->text().toStdString();
  EXPECT_TRUE(faltan->isVisible());
  EXPECT_TRUE(faltan->text().contains(u"0001 Mostrador 1"));
  EXPECT_TRUE(faltan->text().endsWith(
      u"Sin totales por artículos: 0002 Mostrador 2. No consta qué artículos se vendieron."))
      << faltan->text().toStdString();
  recibir(t, 1, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  t.abrir(u"CerrSes"_s);
  EXPECT_FALSE(faltan->text().contains(u"Faltan grupos"));
}

// Two machines are read one after the other. In the middle of the day their spans aren't calendar
// days; those of one round make one period, those of two rounds make two.
TEST(VentanaSesion, UnaRondaEsUnPeriodo) {
  static constexpr struct {
    const char *desde, *hasta;
    int periodos;
  } kSegunda[] = {{"03/06/2018 21:00:01", "04/06/2018 12:00:01", 1},
                  {"03/06/2018 20:40:00", "04/06/2018 12:50:00", 1},
                  {"03/06/2018 21:00:01", "04/06/2018 14:30:00", 2}};
  for (const auto& c : kSegunda) {
    MesaDeTotales t;
    recibir(t, 1, "03/06/2018 21:00:00", "04/06/2018 12:00:00");
    recibir(t, 2, c.desde, c.hasta);
    CerrSes motor(t.sesion, t.periodos);
    std::vector<Aviso> avisos;
    bien(motor.AnalizarScratch(avisos));
    ASSERT_EQ(motor.propuestos().size(), static_cast<size_t>(c.periodos)) << c.hasta;
    if (c.periodos > 1) continue;
    const Periodo& p = motor.propuestos()[0].periodo;
    EXPECT_EQ(p.hasta, momento(c.hasta)) << "it contains both";
    EXPECT_EQ(p.desde, std::min(momento(c.desde), momento("03/06/2018 21:00:00")));
  }
}

// Data received while the window is open isn't memorised before it has been shown in the count.
TEST(VentanaSesion, LoQueLlegaMientrasTantoSeVeAntes) {
  MesaDeTotales t;
  recibir(t, 1, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  auto* v = t.abrir(u"CerrSes"_s);
  auto* resumen = v->findChild<QLabel*>(u"resumen"_s);
  EXPECT_TRUE(resumen->text().contains(u"1 grupo"));
  recibir(t, 2, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  auto* guardar = v->findChild<QPushButton*>(u"Guardar"_s);
  QTest::mouseClick(guardar, Qt::LeftButton);
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 0);
  EXPECT_TRUE(resumen->text().contains(u"2 grupos")) << resumen->text().toStdString();
  QTest::mouseClick(guardar, Qt::LeftButton);
  EXPECT_EQ(t.leer(u"select count(distinct GRUPO) from TOTGRT where LINK>0"_s), u"2");
}

TEST(VentanaSesion, CadaUnoASuPeriodo) {
  MesaDeTotales t;
  recibirDosDias(t);
  auto* v = t.abrir(u"CerrSes"_s);
  t.alAbrirse([](QWidget* w) {
    w->findChild<QAbstractButton*>(u"CadaUno"_s)->click();
    QTest::mouseClick(w->findChild<QPushButton*>(u"Memorizar"_s), Qt::LeftButton);
  });
  QTest::mouseClick(v->findChild<QPushButton*>(u"detalles"_s), Qt::LeftButton);
  EXPECT_EQ(t.leer(u"select LINK, sum([IMP]) from TOTGRT where LINK>0 group by LINK"_s),
            u"1 1500 | 2 1500");
}

// A machine in doubt: the meaning of each answer is shown, Return alone does nothing, and the
// answer lets the waiting reading into the books.
TEST(VentanaSesion, UnaDudaSeRespondePorSuNombre) {
  MesaDeTotales t;
  recibir(t, 1, "03/06/2018 21:00:00", "04/06/2018 21:30:00");
  t.sql(u"update Sesiones set SS_GRT=false"_s);
  t.sql(u"update Lecturas set ESTADO=4"_s);
  bien(t.sesion.ponerEstado(0));
  t.fila(u"Dudas", {{u"GRUPO", 1},
                    {u"ADDR", 0},
                    {u"CLASES", u"17"},
                    {u"DESDE", momento("03/06/2018 21:00:00")},
                    {u"IMP_SI", 1500},
                    {u"IMP_NO", 300}});
  auto* v = t.abrir(u"DudasCero"_s);
  auto* lista = v->findChild<ventanas::Parrilla*>(u"Lista"_s);
  ASSERT_EQ(lista->filas(), 1);
  EXPECT_EQ(lista->texto(0, u"maquina"), u"0001  Mostrador 1");
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Return); });
  QTest::keyClick(v->findChild<QPushButton*>(u"No"_s), Qt::Key_Space);
  EXPECT_TRUE(t.textoModal.contains(lista->texto(0, u"no"))) << t.textoModal.toStdString();
  EXPECT_EQ(lista->filas(), 1);
  t.responder(u"Acepto"_s);
  QTest::keyClick(v->findChild<QPushButton*>(u"Si"_s), Qt::Key_Space);
  EXPECT_EQ(lista->filas(), 0);
  EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTGRT where LINK>0"_s), u"1500");
  EXPECT_TRUE(v->tira().texto().contains(u"memorizados")) << v->tira().texto().toStdString();
}

TEST(VentanaSesion, OlvidaYRecupera) {
  MesaDeTotales t;
  recibirDosDias(t);
  auto* v = t.abrir(u"CerrSes"_s);
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  QTest::mouseClick(v->findChild<QPushButton*>(u"Olvidar"_s), Qt::LeftButton);
  EXPECT_EQ(t.sesion.estado(), 2) << "Return doesn't forget it";
  t.responder(u"Acepto"_s);
  QTest::mouseClick(v->findChild<QPushButton*>(u"Olvidar"_s), Qt::LeftButton);
  EXPECT_TRUE(t.textoModal.startsWith(u"Los datos recibidos serán DEFINITIVAMENTE olvidados"));
  EXPECT_TRUE(t.textoModal.contains(u"Son 30,00")) << t.textoModal.toStdString();
  EXPECT_TRUE(t.textoModal.endsWith(u"hasta entonces «Deshacer» los trae de vuelta."));
  EXPECT_EQ(t.sesion.estado(), 0);
  EXPECT_FALSE(v->findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
  QTest::keyClick(v->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.sesion.estado(), 2);
  EXPECT_TRUE(v->findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
}

// Asked for from another window: it asks at once, goes away if nothing is forgotten, and otherwise
// stays with the way back.
TEST(VentanaSesion, OlvidaSiSePideDesdeFuera) {
  for (const bool acepta : {false, true}) {
    MesaDeTotales t;
    recibirDosDias(t);
    bool dicho = false;
    t.alAbrirse([&](QWidget* w) {
      dicho = true;
      if (!acepta) return QTest::keyClick(w->focusWidget(), Qt::Key_Return);
      QTest::mouseClick(w->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    });
    t.escritorio.ventanas().abrir(PuertaCerrSes{.olvidar = true});
    ASSERT_TRUE(esperar([&] { return dicho && !QApplication::activeModalWidget(); }));
    EXPECT_TRUE(t.textoModal.startsWith(u"Los datos recibidos serán DEFINITIVAMENTE olvidados"));
    EXPECT_EQ(t.sesion.estado(), acepta ? 0 : 2);
    auto* v = t.escritorio.ventanas().cargada(u"CerrSes"_s);
    EXPECT_EQ(v != nullptr, acepta);
    if (!v) continue;
    QTest::mouseClick(v->findChild<QPushButton*>(u"Recuperar"_s), Qt::LeftButton);
    EXPECT_EQ(t.sesion.estado(), 2);
  }
}

// A Return too many memorises nothing; where the window was opened on purpose, the next one does.
TEST(VentanaSesion, UnIntroDeMasNoMemoriza) {
  for (const bool alSalir : {true, false}) {
    MesaDeTotales t;
    recibirDosDias(t);
    auto* v = t.abrir(PuertaCerrSes{.alSalir = alSalir});
    QTest::keyClick(v->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(t.sesion.estado(), 2);
    if (alSalir) continue;
    QTest::keyClick(v->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 1);
  }
}

// Before another window closes: "Cerrar" lets it close, and Escape, of the question, doesn't.
TEST(VentanaSesion, EscapeNoCierraLaQueLaAbre) {
  for (const bool cierra : {true, false}) {
    MesaDeTotales t;
    recibirDosDias(t);
    t.alAbrirse([&](QWidget* w) {
      cierra ? QTest::mouseClick(w->findChild<QPushButton*>(u"Cancelar"_s), Qt::LeftButton)
             : QTest::keyClick(w, Qt::Key_Escape);
    });
    EXPECT_EQ(t.escritorio.ventanas().preguntar(PuertaCerrSes{.alSalir = true}, nullptr), cierra);
    EXPECT_EQ(t.sesion.estado(), 2);
  }
}

TEST(VentanaSesion, DiceEnQueEsta) {
  MesaDeTotales t;
  recibirDosDias(t);
  auto* v = t.abrir(u"CerrSes"_s);
  auto* estado = v->findChild<QLabel*>(u"estado"_s);
  const Pintados pintados(*estado);
  QTest::mouseClick(v->findChild<QPushButton*>(u"Guardar"_s), Qt::LeftButton);
  EXPECT_EQ(pintados.textos, (QStringList{u"Analizando los últimos totales..."_s,
                                          u"Incorporando totales a periodos..."_s}));
  EXPECT_FALSE(estado->isVisible());
  EXPECT_TRUE(v->tira().texto().startsWith(u"Totales incorporados con éxito"));
  QTest::keyClick(v->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Lo memorizado no se deshace aquí"))
      << v->tira().texto().toStdString();
}

// What a night would only note is nowhere else for whoever memorises here: it is shown, and the
// window stays.
TEST(VentanaSesion, LoQueNoVaDondeSeEsperaSeDice) {
  static constexpr struct {
    const char *desde, *hasta;
    const char16_t* aviso;
  } kCasos[] = {
      {"03/06/2018 21:00:00", "10/06/2018 21:30:00", u"sólo suma otros"},
      {"03/06/2018 21:00:00", "04/06/2018 21:30:00", u"no se descuenta del stock"},
      {"03/06/2018 21:00:00", "05/06/2018 12:00:00", u"sus totales son de 2 días"},
      {"04/06/2018 21:00:00", "05/06/2018 21:30:00", nullptr},
  };
  for (const auto& c : kCasos) {
    MesaDeTotales t;
    const qint64 lunes = t.dia("04/06/2018");
    ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(lunes)))));
    t.sql(u"update COLUMNA set stkABLE=false where LINK=?"_s, lunes);
    t.sql(u"delete from TOTGRT where GRUPO=1"_s);
    recibir(t, 1, c.desde, c.hasta);
    auto* v = t.abrir(u"CerrSes"_s);
    QTest::mouseClick(v->findChild<QPushButton*>(u"Guardar"_s), Qt::LeftButton);
    ASSERT_EQ(t.sesion.estado(), 0);
    const QString dicho = v->tira().texto();
    EXPECT_TRUE(dicho.startsWith(u"Totales incorporados con éxito"));
    EXPECT_TRUE(!c.aviso || dicho.contains(QStringView(c.aviso))) << dicho.toStdString();
    EXPECT_EQ(v->tira().estado(), c.aviso ? ventanas::Estado::Duda : ventanas::Estado::Bien);
    EXPECT_EQ(v->findChild<QWidget*>(u"cierre"_s)->isVisible(), c.aviso == nullptr);
  }
}

TEST(VentanaSesion, BandejaVacia) {
  MesaDeTotales t;
  auto* v = t.abrir(u"CerrSes"_s);
  for (const char16_t* b : {u"Guardar", u"Olvidar", u"detalles"})
    EXPECT_FALSE(v->findChild<QPushButton*>(QString::fromUtf16(b))->isEnabled());
  EXPECT_TRUE(v->findChild<QLabel*>(u"LbVacia"_s)->isVisible());
  QTest::keyClick(v->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(v->tira().texto(), u"Nada que deshacer");
}

}  // namespace tarvo::prueba
