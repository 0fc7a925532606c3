// Jobs on periods that a user may want to undo, and the viewer by operator and hour.
#include <QToolButton>

#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace totals;

namespace {

const QString kFilas =
    u"select LINK, GRUPO, CODI, CON, PES, [IMP] from TOTPLU order by LINK, GRUPO, CODI"_s;
const QString kPeriodos =
    u"select LINK, TIPO, FECHA1, FECHAF, ACUM2, stkABLE from COLUMNA order by LINK"_s;
const QString kSemana =
    u"select LINK, CODI, sum(CON), sum(PES), sum([IMP]) from TOTPLU where [IMP]<>0 and LINK in (select LINK from COLUMNA where TIPO=2) group by LINK, CODI order by LINK, CODI"_s;
const QString kStock =
    u"select c.LINK, c.stkADO, (select coalesce(sum(Venta), 0) from MovsAlm) from COLUMNA as c order by c.LINK"_s;

struct Lista : MesaDeTotales {
  ventanas::Ventana* abrirLista() {
    auto* v = abrir(u"VerTot"_s);
    grid = &lista(v);
    return v;
  }
  // Sends the key to the list, and accepts its question.
  void tecla(Qt::Key t, Qt::KeyboardModifiers m = {}) {
    grid->window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(grid->window()));
    QTest::keyClick(grid->vista(), t, m);
  }
  void aceptarY(Qt::Key t, Qt::KeyboardModifiers m = {}) {
    responder(u"Acepto"_s);
    tecla(t, m);
  }
  ventanas::Parrilla* grid = nullptr;
};

}  // namespace

// An emptying followed by a deletion is undone step by step, the last first.
TEST(VentanaAcciones, VaciaBorraYDeshaceLosDos) {
  Lista t;
  t.dia("04/06/2018");
  const QString antes = t.leer(kFilas);
  auto* v = t.abrirLista();
  t.aceptarY(Qt::Key_Delete, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"TOTPLU"_s) == 0; }));
  EXPECT_TRUE(t.textoModal.startsWith(u"ATENCIÓN: Vaciará 1 periodo de totalización"))
      << t.textoModal.toStdString();
  EXPECT_TRUE(esperar([&] { return v->tira().texto() == u"1 periodo vaciado"; }));
  EXPECT_EQ(t.grid->filas(), 1) << "the period itself is kept";
  EXPECT_EQ(t.cuenta(u"TOTGRT"_s), 0);
  t.aceptarY(Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return t.grid->filas() == 0; }));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return t.grid->filas() == 1; }));
  EXPECT_EQ(t.leer(kFilas), u"");
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(esperar([&] { return t.leer(kFilas) == antes; }));
  EXPECT_FALSE(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
}

// Restored periods are selected, in the list of their kind.
TEST(VentanaAcciones, LoQueVuelveQuedaElegido) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018");
  t.dia("06/06/2018");
  auto* v = t.abrirLista();
  t.grid->elegir({lunes, martes}, false);
  t.aceptarY(Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return t.grid->filas() == 1; }));
  auto* tipos = v->findChild<QComboBox*>(u"ListaTpos"_s);
  tipos->setCurrentIndex(tipos->findData(kMensual));
  Q_EMIT tipos->activated(tipos->currentIndex());
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return t.grid->filas() == 3; }));
  std::vector<qint64> elegidos;
  for (const int fila : t.grid->filasElegidas()) elegidos.push_back(t.grid->clave(fila));
  std::ranges::sort(elegidos);
  EXPECT_EQ(elegidos, (std::vector{lunes, martes}));
}

TEST(VentanaAcciones, BorrarSeNiegaConCancelar) {
  Lista t;
  t.dia("04/06/2018");
  const QString antes = t.leer(kFilas);
  t.abrirLista();
  t.responder(u"Cancelo"_s);
  t.tecla(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(t.leer(kFilas), antes);
}

// What a night still owes of a period would go with it: it is named, and Return keeps the period.
TEST(VentanaAcciones, BorrarNombraLoQueSeDebe) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  for (const char16_t* tabla : {u"ExportesPendientes", u"PeriodosPendientes"})
    t.sql(
        u"create table %1 (NUMERO integer, LINK integer, FECHA1 real, FECHAF real, RUTA text, "
        u"VERBO integer, TIPO integer)"_s.arg(QString::fromUtf16(tabla)));
  t.sql(u"create table if not exists Lecturas (GRUPO integer, CLASE integer, LINK integer)"_s);
  t.sql(u"insert into Lecturas (GRUPO, CLASE, LINK) values (7, 16, ?), (9, 16, -1)"_s, lunes);
  t.sql(
      u"insert into ExportesPendientes select 1, LINK, FECHA1, FECHAF, 'VENTAS.EXP', 0, 0 from "
      u"COLUMNA where LINK=?"_s,
      lunes);
  t.sql(
      u"insert into PeriodosPendientes select 1, LINK, FECHA1, FECHAF, '', 6, 2 from COLUMNA "
      u"where LINK=?"_s,
      lunes);
  const QString antes = t.leer(kFilas);
  t.abrirLista();
  QString pregunta;
  QTimer::singleShot(0, qApp, [&] {
    QWidget* caja = QApplication::activeModalWidget();
    pregunta = caja->findChild<QLabel*>(u"Mensaje"_s)->text();
    QTest::keyClick(caja, Qt::Key_Return);
  });
  t.tecla(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_TRUE(pregunta.contains(u"exportarlo a VENTAS.EXP"_s)) << pregunta.toStdString();
  EXPECT_TRUE(pregunta.contains(u"tienen todavía esas ventas: 7. Aunque"_s))
      << pregunta.toStdString();
  EXPECT_TRUE(pregunta.contains(u"acumularlo en el periodo SEMANAL"_s)) << pregunta.toStdString();
  EXPECT_EQ(t.leer(kFilas), antes);
}

// A period not created by a reception is asked about; its sales are never deducted from stock,
// whichever the answer, and that is reported. The others are deducted once, and restored by undo.
TEST(VentanaAcciones, DescuentaSoloLoQueVinoDeLasBalanzas) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018");
  t.sql(u"update COLUMNA set stkABLE=0 where LINK=?"_s, martes);
  auto* v = t.abrirLista();
  for (const auto* boton : {u"Cancelar", u"Procesar"}) {
    t.grid->elegir({lunes, martes});
    QString lineas;
    t.alAbrirse([&](QWidget* pregunta) {
      QTest::mouseClick(pregunta->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
      t.alAbrirse([&](QWidget* w) {
        for (const char16_t* l : {u"linea1", u"linea2", u"linea3"})
          lineas += w->findChild<QLabel*>(QString::fromUtf16(l))->text() + u' ';
        QTest::mouseClick(w->findChild<QPushButton*>(QString::fromUtf16(boton)), Qt::LeftButton);
      });
    });
    t.tecla(Qt::Key_F8);
    ASSERT_TRUE(esperar([&] { return v->tira().estado() == ventanas::Estado::Duda; }));
    EXPECT_EQ(lineas,
              u"El periodo a procesar no ha sido creado por recepción de datos, por lo que está "
              u"marcado como NO PROCESABLE EN STOCK. ");
    EXPECT_EQ(t.leer(kStock), u"1 1 30000 | 2 0 30000") << v->tira().texto().toStdString();
    const auto sitio = [v](const QString& cual) {
      return v->tira().findChild<QToolButton*>(cual)->geometry();
    };
    QApplication::processEvents();
    EXPECT_FALSE(sitio(u"copiar"_s).intersects(sitio(u"deshacer"_s)));
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(esperar([&] { return t.leer(kStock) == u"1 0 0 | 2 0 0"; }))
        << t.leer(kStock).toStdString();
  }
}

// What couldn't be put back into the stock is told as that.
TEST(VentanaAcciones, LoQueNoSeIncorporaSeDice) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  t.sql(u"update COLUMNA set stkABLE=0"_s);
  auto* v = t.abrirLista();
  t.grid->elegir({lunes});
  t.alAbrirse([&](QWidget* pregunta) {
    QTest::mouseClick(pregunta->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    t.responder(u"Procesar"_s);
  });
  t.tecla(Qt::Key_F8, Qt::ShiftModifier);
  ASSERT_TRUE(esperar([&] { return v->tira().estado() == ventanas::Estado::Duda; }));
  EXPECT_TRUE(v->tira().texto().startsWith(u"1 periodo sin incorporar al stock"))
      << v->tira().texto().toStdString();
}

// What was selected stays so after an export that was called off.
TEST(VentanaAcciones, CancelarLaExportacionDejaLosElegidos) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018");
  t.abrirLista();
  t.grid->elegir({lunes, martes});
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.grid->filasElegidas().size(), 2U);
}

// An import may replace a period while its deduction can still be undone.
TEST(VentanaAcciones, LoQueYaNoEstaNoSeDeshaceYSeDice) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  auto* v = t.abrirLista();
  t.aceptarY(Qt::Key_F8);
  ASSERT_TRUE(esperar([&] { return t.leer(kStock) == u"1 1 30000"; }));
  bien(t.periodos.BorrarPeriodo(lunes));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Esos periodos se borraron"_s))
      << v->tira().texto().toStdString();
  EXPECT_FALSE(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
}

// The strip names the larger period, and undoing takes the sales out of it again, to the cent,
// together with a week that was made for them.
TEST(VentanaAcciones, LoAcumuladoSeDiceYSeDeshace) {
  for (const bool conOtro : {false, true}) {
    Lista t;
    const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
    if (conOtro) bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(lunes))));
    const QString antes = t.leer(kPeriodos), filas = t.leer(kSemana);
    auto* v = t.abrirLista();
    t.grid->elegir({martes});
    v->findChild<QMenu*>(u"MnuAcu"_s)->actions().front()->trigger();
    ASSERT_TRUE(esperar([&] { return v->tira().estado() == ventanas::Estado::Bien; }));
    EXPECT_EQ(v->tira().texto(), u"1 periodo acumulado en Semana 4 06 18 (SEMANAL)");
    EXPECT_TRUE(v->tira().findChild<QToolButton*>(u"deshacer"_s)->isVisible());
    EXPECT_NE(t.leer(kSemana), filas);
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.leer(kPeriodos), antes) << v->tira().texto().toStdString();
    EXPECT_EQ(t.leer(kSemana), filas);
    EXPECT_EQ(t.grid->clave(t.grid->filaActual()), martes);
  }
}

// The sales of an earlier version of the day are gone for good, and this is reported.
TEST(VentanaAcciones, LaVersionAnteriorNoVuelveYSeDice) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(lunes))));
  const qint64 nuevo = bien(t.periodos.sustituir(*bien(t.periodos.columna(lunes)), {}));
  auto* v = t.abrirLista();
  t.grid->elegir({nuevo});
  v->findChild<QMenu*>(u"MnuAcu"_s)->actions().front()->trigger();
  ASSERT_TRUE(esperar([&] { return v->tira().estado() == ventanas::Estado::Bien; }));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(v->tira().estado(), ventanas::Estado::Duda);
  EXPECT_TRUE(v->tira().texto().endsWith(u"versión anterior no vuelve."_s))
      << v->tira().texto().toStdString();
}

TEST(VentanaAcciones, LoDesacumuladoVuelve) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(lunes))));
  const QString antes = t.leer(kPeriodos), filas = t.leer(kSemana);
  auto* v = t.abrirLista();
  t.grid->elegir({lunes});
  v->findChild<QMenu*>(u"MnDesAcu"_s)->actions().front()->trigger();
  ASSERT_TRUE(esperar([&] { return v->tira().estado() == ventanas::Estado::Bien; }));
  EXPECT_EQ(v->tira().texto(), u"1 periodo desacumulado de Semana 4 06 18 (SEMANAL)");
  EXPECT_NE(t.leer(kPeriodos), antes);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(kPeriodos), antes);
  EXPECT_EQ(t.leer(kSemana), filas);
}

// A new period goes away again, with the totals keyed in for it; not with those that came later.
TEST(VentanaAcciones, UnPeriodoNuevoSeDeshaceMientrasNoTieneOtraCosa) {
  for (const bool conVentas : {false, true}) {
    Lista t;
    t.dia("04/06/2018");
    auto* v = t.abrirLista();
    t.alAbrirse([](QWidget* w) {
      w->findChild<QLineEdit*>(u"Fecha1"_s)->setText(u"05/06/2018"_s);
      w->findChild<QComboBox*>(u"LstGrupos"_s)->setCurrentIndex(1);
      w->findChild<QLineEdit*>(u"txImp"_s)->setText(u"12,34"_s);
      QTest::mouseClick(w->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
    });
    t.tecla(Qt::Key_Insert);
    ASSERT_EQ(t.leer(u"select GRUPO, [IMP] from TOTGRT where LINK=2"_s), u"2 1234");
    EXPECT_EQ(t.grid->clave(t.grid->filaActual()), 2);
    if (conVentas) t.total(u"TOTGRT", {2, 1, 0, 1, 0, 100, 0});
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.cuenta(u"COLUMNA"_s), conVentas ? 2 : 1) << v->tira().texto().toStdString();
    EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTGRT where LINK=2"_s), conVentas ? u"1334" : u"-");
    EXPECT_EQ(v->tira().texto().startsWith(u"El periodo 5 junio 2018 (DIARIO) ya tiene otros"_s),
              conVentas)
        << v->tira().texto().toStdString();
  }
}

// Dates go back with what they moved: out of the week that was made for them, into the one that
// they left.
TEST(VentanaAcciones, LasFechasCambiadasVuelven) {
  static constexpr struct {
    int tipo;
    const char *desde, *hasta;
  } kCambios[] = {{kDiario, "12/06/2018", ""}, {kOtros, "09/06/2018", "12/06/2018"}};
  for (const auto& c : kCambios) {
    Lista t;
    const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
    for (const qint64 link : {lunes, martes})
      bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(link))));
    const QString antes = t.leer(kPeriodos), filas = t.leer(kSemana);
    auto* v = t.abrirLista();
    t.grid->elegir({lunes});
    t.grid->irA(t.grid->filaDe(lunes));
    t.alAbrirse([&](QWidget* w) {
      auto* tipos = w->findChild<QComboBox*>(u"LstTipo"_s);
      tipos->setCurrentIndex(tipos->findData(c.tipo));
      Q_EMIT tipos->activated(tipos->currentIndex());
      w->findChild<QLineEdit*>(u"Fecha1"_s)->setText(QString::fromLatin1(c.desde));
      w->findChild<QLineEdit*>(u"FechaF"_s)->setText(QString::fromLatin1(c.hasta));
      if (c.tipo == kOtros) t.responder(u"Acepto"_s);  // the sales may leave the week
      QTest::mouseClick(w->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
    });
    t.tecla(Qt::Key_F2);
    ASSERT_NE(t.leer(kPeriodos), antes) << v->tira().texto().toStdString();
    ASSERT_NE(t.leer(kSemana), filas);
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.leer(kPeriodos), antes) << v->tira().texto().toStdString();
    EXPECT_EQ(t.leer(kSemana), filas);
  }
}

// A period whose new date puts it at the end of a long list is shown there, above the strip's
// report.
TEST(VentanaAcciones, ElPeriodoCambiadoSeVe) {
  Lista t;
  qint64 ultimo = 0;
  for (int i = 1; i <= 28; ++i) {
    ultimo = t.dia(u"%1/06/2018"_s.arg(i, 2, 10, QChar(u'0')).toLatin1().constData(), i);
  }
  auto* v = t.abrirLista();
  v->resize(900, 480);
  QTest::qWait(20);
  for (const char* fecha : {"01/01/2017", "01/01/2019"}) {
    t.grid->irA(t.grid->filaDe(ultimo));
    t.alAbrirse([&](QWidget* w) {
      w->findChild<QLineEdit*>(u"Fecha1"_s)->setText(QString::fromLatin1(fecha));
      QTest::mouseClick(w->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
    });
    t.tecla(Qt::Key_F2);
    ASSERT_EQ(v->tira().texto(), u"Periodo modificado");
    QTest::qWait(20);  // for the layout
    const auto& vista = *t.grid->vista();
    EXPECT_EQ(t.grid->clave(t.grid->filaActual()), ultimo);
    EXPECT_TRUE(vista.viewport()->rect().contains(vista.visualRect(vista.currentIndex()).center()))
        << fecha;
    v->tira().quitar();
    QTest::qWait(20);
  }
}

// Another period has the former dates: the step stays until they are free again.
TEST(VentanaAcciones, LasFechasVuelvenCuandoEstanLibres) {
  Lista t;
  t.dia("04/06/2018");
  auto* v = t.abrirLista();
  t.alAbrirse([](QWidget* w) {
    w->findChild<QLineEdit*>(u"Fecha1"_s)->setText(u"05/06/2018"_s);
    QTest::mouseClick(w->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
  });
  t.tecla(Qt::Key_F2);
  const qint64 otro = t.dia("04/06/2018");
  const QString cambiado = t.leer(kPeriodos);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(kPeriodos), cambiado);
  EXPECT_EQ(v->tira().estado(), ventanas::Estado::Mal);
  EXPECT_TRUE(v->tira().texto().contains(u"4 junio 2018")) << v->tira().texto().toStdString();
  bien(t.periodos.BorrarPeriodo(otro));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select FECHA1 from COLUMNA"_s), u"43255");
}

// Saved as it was, there is nothing to take back.
TEST(VentanaAcciones, LoQueNoCambiaNoSeDeshace) {
  Lista t;
  t.dia("04/06/2018");
  auto* v = t.abrirLista();
  t.responder(u"SalvBoton"_s);
  t.tecla(Qt::Key_F2);
  EXPECT_FALSE(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
}

// Why nothing can be compared, and whose bar it is.
TEST(VentanaAcciones, UnPeriodoHechoAManoDiceLoQueTiene) {
  struct Caso {
    const char16_t *tabla, *dicho;
  };
  static constexpr Caso kCasos[] = {
      {u"TOTGRT", u"Hay Gran Total, pero no otros totales con los que se pueda comparar."},
      {u"TOTPLU", u"No viene de las balanzas y no tiene Gran Total: no hay nada que comparar."},
      {nullptr, u"Sin totales"}};
  for (const Caso& c : kCasos) {
    Lista t;
    bien(t.periodos.CrearPeriodo(kDiario, momento("04/06/2018"), momento("04/06/2018"), false, {}));
    if (c.tabla) t.total(c.tabla, {1, 2, 0, 1, 0, 1234, 0});
    auto* v = t.abrirLista();
    const auto* detalle = v->findChild<QLabel*>(u"detalle"_s);
    EXPECT_TRUE(esperar([&] { return detalle->text().endsWith(QString::fromUtf16(c.dicho)); }))
        << detalle->text().toStdString();
    if (c.tabla != kCasos[0].tabla) continue;
    const auto* grafica = v->findChild<QWidget*>(u"grafica"_s);
    EXPECT_TRUE(grafica->accessibleDescription().startsWith(u"Mostrador 2 "))
        << grafica->accessibleDescription().toStdString();
  }
}

TEST(VentanaAcciones, LoQueCuadraSinArticulosSeDice) {
  Lista t;
  t.dia("04/06/2018");
  t.sql(u"delete from TOTPLU where GRUPO=2"_s);
  const auto* detalle = t.abrirLista()->findChild<QLabel*>(u"detalle"_s);
  EXPECT_TRUE(esperar([&] {
    return detalle->text().endsWith(
        u"cuadran entre sí. Sin totales por artículos: 0002 Mostrador "
        u"2. No consta qué artículos se vendieron.");
  })) << detalle->text().toStdString();
}

// What isn't there can't disagree: the groups without anything are named, and those without a grand
// total.
TEST(VentanaAcciones, LosGruposQueFaltanSeNombran) {
  const struct {
    const char16_t *tabla, *dice;
  } casos[] = {
      {u"TOTGRT", u"De estos grupos no hay Gran Total con el que comparar: 0002 Mostrador 2."},
      {u"", u"En este periodo no hay nada de estos grupos: 0002 Mostrador 2."}};
  for (const auto& c : casos) {
    Lista t;
    t.sql(u"update GRUPOS set REMOTO=3"_s);
    t.dia("04/06/2018");
    for (const QString& tabla : {u"TOTGRT"_s, u"TOTPLU"_s, u"TOTHOR"_s})
      if (!*c.tabla || tabla == c.tabla) t.sql(u"delete from %1 where GRUPO=2"_s.arg(tabla));
    const auto* detalle = t.abrirLista()->findChild<QLabel*>(u"detalle"_s);
    EXPECT_TRUE(esperar([&] { return detalle->text().endsWith(c.dice); }))
        << detalle->text().toStdString();
  }
}

TEST(VentanaAcciones, OperadorYHora) {
  Lista t;
  const qint64 lunes = t.dia("04/06/2018");
  t.operador(6, u"Luis");
  for (const int g : {1, 2})
    for (const int oper : {5, 6})
      for (int h = 9; h < 12; ++h)
        t.total(u"TOTOPHOR", {.link = lunes,
                              .grupo = g,
                              .codi = oper,
                              .con = 2,
                              .pes = 1500,
                              .imp = 100 * oper,
                              .sco = 0,
                              .hora = h});
  auto* v = t.abrirLista();
  auto* menu = v->findChild<QMenu*>(u"MnuVer"_s);
  menu->actions().back()->trigger();
  auto* visor = t.escritorio.ventanas().cargada(u"V_ColOpH#1"_s);
  ASSERT_NE(visor, nullptr);
  EXPECT_TRUE(visor->windowTitle().contains(u"4 junio 2018")) << visor->windowTitle().toStdString();
  auto& grid = t.lista(visor);
  EXPECT_EQ(grid.filas(), 12);
  EXPECT_EQ(grid.texto(0, u"t.HORA"), u"09");
  const auto elegir = [&](const char16_t* lista, int codigo) {
    auto* c = visor->findChild<QComboBox*>(QString::fromUtf16(lista));
    c->setCurrentIndex(c->findData(codigo));
    Q_EMIT c->activated(c->currentIndex());
  };
  elegir(u"LstOper", 6);
  EXPECT_EQ(grid.filas(), 6);
  elegir(u"AllGrp", 2);
  EXPECT_EQ(grid.filas(), 3);
  EXPECT_TRUE(esperar([&] { return grid.sumas().contains(u"18,00"); }))
      << grid.sumas().join(u'|').toStdString();
  const auto* grafica = visor->findChild<QWidget*>(u"grafica"_s);
  EXPECT_TRUE(esperar([&] { return grafica->accessibleDescription().startsWith(u"9 6,00"); }))
      << grafica->accessibleDescription().toStdString();
  EXPECT_FALSE(visor->findChild<QWidget*>(u"LstClase"_s)->isVisible());
  // Deleting its period closes it.
  t.aceptarY(Qt::Key_Delete);
  EXPECT_TRUE(esperar([&] { return !t.escritorio.ventanas().cargada(u"V_ColOpH#1"_s); }));
}

}  // namespace tarvo::prueba
