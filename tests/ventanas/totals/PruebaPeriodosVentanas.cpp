// Jobs on the list of periods: summing, deleting and undoing, exporting and importing.
#include <QScrollBar>

#include "MesaDeTotales.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::prueba {

using namespace totals;

TEST(VentanaPeriodos, BorraDosYLosRecuperaIguales) {
  MesaDeTotales t;
  t.dia("04/06/2018");
  const qint64 martes = t.dia("05/06/2018");
  bien(t.periodos.AcumularPeriodo(kSemanal, *bien(t.periodos.columna(martes))));
  const QString filas =
      u"select LINK, GRUPO, CODI, CON, PES, [IMP], SCO from TOTPLU order by LINK, GRUPO, CODI"_s;
  const QString columnas =
      u"select LINK, TIPO, FECHA1, FECHAF, ACUM2, stkABLE from COLUMNA order by LINK"_s;
  const QString antes = t.leer(filas), periodosAntes = t.leer(columnas);
  auto* v = t.abrir(u"VerTot"_s);
  auto& grid = t.lista(v);
  ASSERT_EQ(grid.filas(), 3);
  grid.elegir({1, martes});
  t.responder(u"Acepto"_s);
  QTest::keyClick(grid.vista(), Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 1; }));
  EXPECT_TRUE(
      t.textoModal.startsWith(u"ATENCIÓN: Borrará 2 periodos de totalización\nLos datos que va a "
                              u"borrar pueden ser valiosos: ¿Está seguro?"))
      << t.textoModal.toStdString();
  EXPECT_TRUE(t.textoModal.contains(u"4 junio 2018 (DIARIO): 2 grupos, 144 totales"))
      << t.textoModal.toStdString();
  EXPECT_EQ(t.cuenta(u"TOTGRT"_s), 2);  // the week's
  v->activateWindow();
  ASSERT_TRUE(esperar([&] { return v->isActiveWindow(); }));
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 3; })) << v->tira().texto().toStdString();
  EXPECT_EQ(t.leer(filas), antes);
  EXPECT_EQ(t.leer(columnas), periodosAntes);
}

// The first Escape after noticing a mistake must not close the window, which would lose the undo of
// the deletion.
TEST(VentanaPeriodos, EscapeParaElBorradoYLoBorradoSeRecupera) {
  MesaDeTotales t;
  for (int i = 1; i <= 9; ++i) t.dia(qPrintable(u"0%1/06/2018"_s.arg(i)));
  auto* v = t.abrir(u"VerTot"_s);
  auto& grid = t.lista(v);
  QTest::keyClick(grid.vista(), Qt::Key_A, Qt::ControlModifier);
  t.responder(u"Acepto"_s);
  QTest::keyClick(grid.vista(), Qt::Key_Delete);
  ASSERT_TRUE(v->trabajo().enMarcha());
  QTest::keyClick(v, Qt::Key_Escape);
  ASSERT_TRUE(v->isVisible());
  EXPECT_FALSE(v->trabajo().enMarcha());
  EXPECT_TRUE(v->tira().texto().endsWith(u"de los 9 elegidos."_s));
  if (t.cuenta(u"COLUMNA"_s) < 9) QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 9; }));
  const QPointer<QWidget> cerrada(v);
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_TRUE(esperar([&] { return !cerrada; }));
}

TEST(VentanaPeriodos, AlCerrarNoQuedaNadaQueRecuperar) {
  MesaDeTotales t;
  t.dia("04/06/2018");
  auto* v = t.abrir(u"VerTot"_s);
  t.responder(u"Acepto"_s);
  t.accion(v, "Borro");
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"PapeleraFilas"_s) == 72; }));
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_EQ(t.cuenta(u"PapeleraFilas"_s), 0);
  EXPECT_EQ(t.cuenta(u"PapeleraPer"_s), 0);
}

TEST(VentanaPeriodos, SumaDosDiasEnUnoNuevo) {
  MesaDeTotales t;
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
  auto* v = t.abrir(u"VerTot"_s);
  auto& grid = t.lista(v);
  grid.elegir({lunes, martes});
  t.alAbrirse([](QWidget* w) {
    auto* descr = w->findChild<QLineEdit*>(u"Descrip"_s);
    ASSERT_NE(descr, nullptr);
    QTest::keyClicks(descr, u"Dos dias"_s);
    QTest::mouseClick(w->findChild<QPushButton*>(u"Hacerlo"_s), Qt::LeftButton);
  });
  QTest::keyClick(grid.vista(), Qt::Key_F7);
  EXPECT_EQ(t.leer(u"select DESCR, stkABLE from COLUMNA where LINK=3"_s), u"Dos dias 0");
  EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTPLU where LINK=3"_s), u"279000");
  EXPECT_EQ(v->tira().texto(), u"2 periodos sumados");
  ASSERT_TRUE(esperar([v] { return v->isActiveWindow(); })) << "it must receive the keys";
  QTest::keyClick(grid.vista(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 2; }));
  EXPECT_EQ(t.cuenta(u"TOTPLU where LINK=3"_s), 0);
}

// One period is its own sum; a day and the week that contains it overlap, and aren't added without
// asking.
TEST(VentanaPeriodos, DiceLoQueUnaSumaContariaDosVeces) {
  MesaDeTotales t;
  const qint64 lunes = t.dia("04/06/2018");
  bien(t.periodos.AcumularPeriodo(2, *bien(t.periodos.columna(lunes))));
  auto* v = t.abrir(u"VerTot"_s);
  auto& grid = t.lista(v);
  grid.elegir({lunes});
  QTest::keyClick(grid.vista(), Qt::Key_F7);
  EXPECT_EQ(v->tira().texto(), u"No hay nada que sumar: elija al menos dos periodos.");
  grid.elegir({lunes, 2});
  QString dicho, titulo;
  const auto sumar = [&] {
    ASSERT_TRUE(esperar([v] { return v->isActiveWindow(); }));
    t.alAbrirse([&](QWidget* w) {
      const auto* solapes = w->findChild<QLabel*>(u"solapes"_s);
      dicho = solapes->text();
      titulo = w->windowTitle();
      EXPECT_GE(solapes->height(), solapes->heightForWidth(solapes->width())) << "it is cut";
      EXPECT_TRUE(w->findChild<QLabel*>(u"resumen"_s)->text().contains(u"uno de los elegidos"));
      QTest::keyClick(w->focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(grid.vista(), Qt::Key_F7);
  };
  const qint64 martes = t.dia("05/06/2018", 3);
  bien(t.periodos.AcumularPeriodo(2, *bien(t.periodos.columna(martes))));
  ASSERT_TRUE(grid.refrescar());
  grid.elegir({lunes, martes, 2});
  sumar();
  EXPECT_EQ(titulo, u"Suma de 3 Intervalos");
  grid.elegir({lunes, 2});
  sumar();
  EXPECT_EQ(titulo, u"Suma de dos Intervalos");
  EXPECT_EQ(dicho,
            u"ATENCIÓN: se contarán dos veces las ventas que tienen en común:\n4 junio 2018 "
            u"(DIARIO) y Semana 4 06 18 (SEMANAL)");
  EXPECT_EQ(t.cuenta(u"Sumados"_s), 0) << "Return means no";
}

// The key of a menu opens it ready for Return, and each of its entries has a letter of its own.
TEST(VentanaPeriodos, LosMenusSeManejanConTeclas) {
  MesaDeTotales t;
  t.dia("04/06/2018");
  auto* v = t.abrir(u"VerTot"_s);
  static constexpr struct {
    const char16_t* menu;
    QKeyCombination tecla;
  } kMenus[] = {
      {u"MnuAcu", Qt::Key_F6}, {u"MnDesAcu", Qt::SHIFT | Qt::Key_F6}, {u"MnuVer", Qt::Key_F4}};
  for (const auto& c : kMenus) {
    QTest::keyClick(t.lista(v).vista(), c.tecla.key(), c.tecla.keyboardModifiers());
    auto* menu = v->findChild<QMenu*>(QString::fromUtf16(c.menu));
    ASSERT_TRUE(menu->isVisible());
    EXPECT_TRUE(menu->activeAction());
    QSet<QKeySequence> letras;
    for (const QAction* a : menu->actions()) letras << QKeySequence::mnemonic(a->text());
    EXPECT_FALSE(letras.contains(QKeySequence()));
    EXPECT_EQ(letras.size(), menu->actions().size());
    menu->hide();
  }
}

TEST(VentanaPeriodos, AcumulaYAvisaDeLoRepetido) {
  MesaDeTotales t;
  t.dia("04/06/2018");
  auto* v = t.abrir(u"VerTot"_s);
  auto* semanal = v->findChild<QMenu*>(u"MnuAcu"_s)->actions().front();
  semanal->trigger();
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA where ACUM2=1"_s) == 1; }));
  t.lista(v).irA(t.lista(v).filaDe(1));
  t.responder(u"Acepto"_s);
  semanal->trigger();
  ASSERT_TRUE(esperar([&] { return !t.textoModal.isEmpty(); }));
  EXPECT_EQ(t.textoModal, u"El Periodo ya se acumuló: No es posible acumularlo nuevamente");
}

TEST(VentanaPeriodos, ExportaYVuelveAImportar) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
  const QString suma =
      u"select FECHA1, sum([IMP]), count(*) from TOTPLU, COLUMNA where TOTPLU.LINK=COLUMNA.LINK group by FECHA1 order by FECHA1"_s;
  const QString antes = t.leer(suma);
  auto* i = t.abrir(u"ImpTot"_s);
  EXPECT_TRUE(i->tira().texto().startsWith(u"En esta carpeta no hay ningún fichero"));
  i->descargar();
  auto* x = t.abrir(PuertaXporTot{{lunes, martes}});
  auto* salida = x->findChild<QPushButton*>(u"Cancelar"_s);
  EXPECT_EQ(salida->text(), u"&Cancelar");
  // A name is proposed: Return writes a file.
  auto* destino = x->findChild<QComboBox*>(u"destino"_s);
  EXPECT_EQ(destino->currentText(),
            u"EX%1.EXP"_s.arg(t.reloj.ahora().qdate().toString(u"yyMMdd"_s)));
  destino->setCurrentText(u"VENTAS"_s);
  x->findChild<QAbstractButton*>(u"borrar"_s)->click();
  t.responder(u"Acepto"_s);
  QTest::mouseClick(x->findChild<QPushButton*>(u"TodosOK"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 0; }));
  ASSERT_TRUE(QFile::exists(t.ruta(u"VENTAS.EXP"_s)));
  EXPECT_EQ(salida->text(), u"&Cerrar") << "nothing is left to cancel";
  const QString fin = u"Borrados: 4 junio 2018 (DIARIO), 5 junio 2018 (DIARIO)."_s;
  EXPECT_TRUE(esperar([&] { return x->tira().texto().endsWith(fin); }, 5'000));
  x->descargar();
  i = t.abrir(u"ImpTot"_s);
  auto* ficheros = i->findChild<QListWidget*>(u"LstFich"_s);
  ASSERT_EQ(ficheros->count(), 1);
  QTest::keyClick(ficheros, Qt::Key_Return);
  EXPECT_EQ(i->findChild<QLabel*>(u"LbFecha"_s)->text(), u"4 junio 2018");
  t.responder(u"Acepto"_s);
  QTest::mouseClick(i->findChild<QPushButton*>(u"hazTodos"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 2; }));
  EXPECT_EQ(i->findChild<QLabel*>(u"mensaje"_s)->text(), u"Importación realizada con éxito");
  EXPECT_EQ(t.leer(suma), antes);
}

// A period that comes back without a group foots all the same: whoever imports is told.
TEST(VentanaPeriodos, ImportarDiceQueGruposFaltan) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  t.sql(u"update GRUPOS set REMOTO=3"_s);
  QFile f(t.ruta(u"CORTO.EXP"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("*Lunes\r\n*04/06/2018 00:00:00  04/06/2018 23:59:59\r\n01010001" + QByteArray(33, '0') +
          "1\r\n");
  f.close();
  auto* i = t.abrir(u"ImpTot"_s);
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  QTest::mouseClick(i->findChild<QPushButton*>(u"Haz"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 1 && !i->trabajo().enMarcha(); }));
  EXPECT_TRUE(i->tira().texto().endsWith(
      u"4 junio 2018 (DIARIO): En este periodo no hay nada de estos grupos: 0002 Mostrador 2."))
      << i->tira().texto().toStdString() << t.leer(u"select * from TOTGRT"_s).toStdString();
}

// Each state is seen: also that the period is being emptied, which goes on without a pause.
TEST(VentanaPeriodos, ImportarDiceEnQueEsta) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  const qint64 lunes = t.dia("04/06/2018");
  auto* x = t.abrir(PuertaXporTot{{lunes}});
  x->findChild<QComboBox*>(u"destino"_s)->setCurrentText(u"VENTAS"_s);
  QTest::mouseClick(x->findChild<QPushButton*>(u"XporYA"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return QFile::exists(t.ruta(u"VENTAS.EXP"_s)); }));
  x->descargar();
  auto* i = t.abrir(u"ImpTot"_s);
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  auto* mensaje = i->findChild<QLabel*>(u"mensaje"_s);
  const Pintados pintados(*mensaje);
  // What is there isn't replaced by two Returns: it would not come back.
  auto* lanzar = i->findChild<QPushButton*>(u"Haz"_s);
  t.responder(u"Cancelo"_s);
  QTest::keyClick(lanzar, Qt::Key_Return);
  EXPECT_TRUE(t.textoModal.contains(u"ya existe. Lo que tiene se borra"_s));
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 1);
  EXPECT_EQ(pintados.textos.indexOf(u"Se está borrando el Periodo existente"_s), -1);
  t.responder(u"Acepto"_s);
  QTest::mouseClick(lanzar, Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return mensaje->text() == u"Importación realizada con éxito"; }));
  const qsizetype borra = pintados.textos.indexOf(u"Se está borrando el Periodo existente"_s);
  ASSERT_GE(borra, 0) << pintados.textos.join(u'|').toStdString();
  EXPECT_EQ(pintados.textos.value(borra + 1), u"En proceso de lectura...");
}

// A file that is imported again would count its sales twice: that is asked, and "all blocks" stops
// before such a period.
TEST(VentanaPeriodos, AcumularLoQueYaEstaSePregunta) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  const qint64 lunes = t.dia("04/06/2018"), martes = t.dia("05/06/2018", 2);
  auto* x = t.abrir(PuertaXporTot{{lunes, martes}});
  x->findChild<QComboBox*>(u"destino"_s)->setCurrentText(u"VENTAS"_s);
  QTest::mouseClick(x->findChild<QPushButton*>(u"TodosOK"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return !x->trabajo().enMarcha(); }));
  x->descargar();
  bien(t.periodos.BorrarPeriodo(lunes));
  const QString suma = u"select sum([IMP]) from TOTPLU"_s, antes = t.leer(suma);
  auto* i = t.abrir(u"ImpTot"_s);
  i->findChild<QAbstractButton*>(u"Acumular"_s)->click();
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  QTest::mouseClick(i->findChild<QPushButton*>(u"hazTodos"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 2 && !i->trabajo().enMarcha(); }));
  const QString elLunes = t.leer(suma);
  EXPECT_NE(elLunes, antes);
  EXPECT_EQ(i->findChild<QLabel*>(u"LbFecha"_s)->text(), u"5 junio 2018") << "it stops before it";
  auto* lanzar = i->findChild<QPushButton*>(u"Haz"_s);
  t.responder(u"Cancelo"_s);
  QTest::keyClick(lanzar, Qt::Key_Return);
  EXPECT_TRUE(t.textoModal.contains(u"se contarán dos veces"_s));
  EXPECT_EQ(t.leer(suma), elLunes);
}

// Stopped between two blocks, it says so, and what was read stays.
TEST(VentanaPeriodos, ImportarSePara) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  QFile f(t.ruta(u"MUCHOS.EXP"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  for (int d = 4; d < 9; ++d)
    f.write(u"*x\r\n*0%1/06/2018 00:00:00  0%1/06/2018 23:59:59\r\n"_s.arg(d).toLatin1());
  f.close();
  auto* i = t.abrir(u"ImpTot"_s);
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  auto* alto = i->findChild<QPushButton*>(u"Alto"_s);
  const auto* hechos = i->findChild<QLabel*>(u"Conta"_s);
  t.responder(u"Acepto"_s);
  QTest::mouseClick(i->findChild<QPushButton*>(u"hazTodos"_s), Qt::LeftButton);
  QTest::mouseClick(alto, Qt::LeftButton);
  EXPECT_EQ(i->findChild<QLabel*>(u"mensaje"_s)->text(), u"Proceso interrumpido por el usuario");
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s) > 0, !hechos->text().isEmpty());
  EXPECT_FALSE(i->trabajo().enMarcha());
}

TEST(VentanaPeriodos, UnFicheroMaloSeDiceConSuLinea) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  QFile f(t.ruta(u"MALO.EXP"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("*Lunes\r\n*04/06/2018 00:00:00  04/06/2018 23:59:59\r\nbasura\r\n");
  f.close();
  auto* i = t.abrir(u"ImpTot"_s);
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  QTest::mouseClick(i->findChild<QPushButton*>(u"Haz"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] {
    return i->findChild<QLabel*>(u"mensaje"_s)->text() ==
           u"ERROR: El fichero contiene líneas no reconocibles";
  }));
  EXPECT_EQ(t.cuenta(u"COLUMNA"_s), 0);
  // The strip with that error takes no letter from the window's own buttons.
  QTest::keyClick(i, Qt::Key_O, Qt::AltModifier);
  EXPECT_TRUE(esperar([&] {
    return i->findChild<QLabel*>(u"mensaje"_s)->text() ==
           u"Seleccione (DbClick) un fichero de la lista";
  }));
  EXPECT_EQ(i->tira().texto(), QString()) << "it referred to the other file";
}

TEST(VentanaPeriodos, LoQuePuedeSerDeUnGrupoQueYaNoEstaSeCuenta) {
  MesaDeTotales t;
  t.ajustes.HomeDir = t.carpeta.path();
  QFile f(t.ruta(u"CORTO.EXP"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("*Lunes\r\n*04/06/2018 00:00:00  04/06/2018 23:59:59\r\n03990209" + QByteArray(33, '0') +
          "1\r\n");
  f.close();
  auto* i = t.abrir(u"ImpTot"_s);
  QTest::keyClick(i->findChild<QListWidget*>(u"LstFich"_s), Qt::Key_Return);
  QTest::mouseClick(i->findChild<QPushButton*>(u"Haz"_s), Qt::LeftButton);
  ASSERT_TRUE(esperar([&] { return t.cuenta(u"COLUMNA"_s) == 1 && !i->trabajo().enMarcha(); }));
  EXPECT_EQ(i->tira().texto(), u"Se ha leído 1 línea como de otro sistema");
  EXPECT_TRUE(i->findChild<QLabel*>(u"Conta"_s)->text().contains(i->tira().texto()));
}

TEST(VentanaPeriodos, CreaUnPeriodoConTotalesAMano) {
  MesaDeTotales t;
  auto* v = t.abrir(totals::PuertaEditIntv{});
  const auto campo = [v](const char16_t* n) {
    return v->findChild<QLineEdit*>(QString::fromUtf16(n));
  };
  campo(u"Fecha1")->setText(u"no es fecha"_s);
  t.responder(u"Acepto"_s);
  QTest::mouseClick(v->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
  EXPECT_EQ(
      t.textoModal,
      u"Alguna de las fechas entradas no es válida. Escríbala como 24/12/2018, o con su hora, "
      u"como 24/12/2018 06:30.");
  campo(u"Fecha1")->setText(u"04/06/2018"_s);
  t.responder(u"Acepto"_s);
  QTest::mouseClick(v->findChild<QPushButton*>(u"Anadir"_s), Qt::LeftButton);
  EXPECT_EQ(t.textoModal, u"Debe especificar un grupo de balanzas");
  v->findChild<QComboBox*>(u"LstGrupos"_s)->setCurrentIndex(1);
  v->findChild<QAbstractButton*>(u"SubsTot"_s)->click();
  campo(u"txCon")->setText(u"3"_s);
  campo(u"txPes")->setText(u"1,250"_s);
  campo(u"txImp")->setText(u"12,34"_s);
  campo(u"txImp")->setFocus();
  const struct {
    const char16_t *donde, *malo, *dicho;
  } malos[] = {{u"txImp", u"abc", u"Eso no es un número"},
               {u"txImp", u"1,2,3", u"Eso no es un número"},
               {u"txImp", u"99999999999999", u"Eso no es un número"},
               {u"txImp", u"1.239", u"«1.239» se puede leer de dos modos"},
               {u"txDct", u"1,005", u"«1,005» tiene más decimales"},
               {u"txCon", u"12.5", u"«12.5» tiene más decimales de los que caben (0)"},
               {u"txPes", u"1.239", u"«1.239» se puede leer de dos modos: escriba 1239 o 1,239."}};
  for (const auto& c : malos) {
    QLineEdit* donde = campo(c.donde);
    const QString antes = donde->text(), malo = QString::fromUtf16(c.malo);
    donde->setText(malo);
    QTest::keyClick(donde, Qt::Key_Return);
    EXPECT_TRUE(v->tira().texto().startsWith(QString::fromUtf16(c.dicho)))
        << malo.toStdString() << ": " << v->tira().texto().toStdString();
    EXPECT_EQ(donde->text(), malo) << "it isn't added as another number";
    donde->setText(antes);
  }
  QTest::keyClick(campo(u"txImp"), Qt::Key_Return);
  ASSERT_TRUE(v->isVisible()) << "Return only adds here";
  t.responder(u"Cancelo"_s);
  QTest::keyClick(v, Qt::Key_Escape);
  ASSERT_TRUE(v->isVisible());
  EXPECT_EQ(t.textoModal, u"¿Desechar también los totales manuales entrados?");
  QTest::mouseClick(v->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
  EXPECT_EQ(t.leer(u"select GRUPO, CODI, CON, PES, [IMP], SCO from TOTGRT"_s),
            u"2 0 -3 -1250 -1234 0");
  EXPECT_EQ(t.leer(u"select TIPO, FECHA1, stkABLE from COLUMNA"_s), u"1 43255 0");
}

// Numbers typed but not yet added count: "Salvar" takes them, or reports why it can't.
TEST(VentanaPeriodos, SalvarTomaLoEscritoAMano) {
  MesaDeTotales t;
  auto* v = t.abrir(totals::PuertaEditIntv{});
  const auto campo = [v](const char16_t* n) {
    return v->findChild<QLineEdit*>(QString::fromUtf16(n));
  };
  campo(u"Fecha1")->setText(u"04/06/2018"_s);
  v->findChild<QComboBox*>(u"LstGrupos"_s)->setCurrentIndex(1);
  campo(u"txImp")->setText(u"1x75"_s);
  QTest::mouseClick(v->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Eso no es un número"_s));
  ASSERT_TRUE(v->isVisible());
  EXPECT_EQ(t.leer(u"select count(*) from COLUMNA"_s), u"0");
  campo(u"txCon")->setText(u"1"_s);
  campo(u"txImp")->setText(u"1,75"_s);
  t.responder(u"Cancelo"_s);
  QTest::keyClick(v, Qt::Key_Escape);
  ASSERT_TRUE(v->isVisible()) << "it asks before discarding them";
  QTest::mouseClick(v->findChild<QPushButton*>(u"SalvBoton"_s), Qt::LeftButton);
  EXPECT_EQ(t.leer(u"select CON, [IMP] from TOTGRT"_s), u"1 175");
}

// The smallest screen needs no horizontal scrolling, for any kind listed.
TEST(VentanaPeriodos, LasColumnasCabenEnLaPantallaMenor) {
  MesaDeTotales t;
  for (int tipo = kDiario; tipo <= kOtros; ++tipo)
    bien(t.periodos.CrearPeriodo(tipo, momento("24/09/2018 09:30:00"),
                                 momento("25/09/2018 10:00:00"), true, u"Vendimia"_s));
  auto* v = t.abrir(u"VerTot"_s);
  v->resize(1366, 704);
  auto* tipos = v->findChild<QComboBox*>(u"ListaTpos"_s);
  for (int i = 0; i < tipos->count(); ++i) {
    tipos->setCurrentIndex(i);
    Q_EMIT tipos->activated(i);
    EXPECT_TRUE(esperar([&] { return t.lista(v).vista()->horizontalScrollBar()->maximum() == 0; }))
        << i << ": " << t.lista(v).vista()->horizontalScrollBar()->maximum();
  }
}

}  // namespace tarvo::prueba
