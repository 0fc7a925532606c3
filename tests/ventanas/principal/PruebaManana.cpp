// What the board tells a shop manager in the morning.
#include "MesaPrincipal.h"
#include "articles/Lotes.h"
#include "automation/historia/Historial.h"

namespace tarvo::prueba {

using namespace ventanas;

void MesaPrincipal::nocheMala() {
  sql(u"DELETE FROM GRUPOS"_s);
  grupo({.codigo = 1, .nombre = u"FRUTERIA", .remoto = 3});
  grupo({.codigo = 2, .nombre = u"PESCADERIA", .remoto = 3});
  const Fecha ahora = reloj.ahora();
  periodo({.link = 7,
           .desde = ahora.dia() - 1.0,
           .hasta = ahora.dia() - 1.0 + Fecha::kUltimoSegundo,
           .descr = u"Noche"});
  total(u"TOTGRT", {.link = 7, .codi = 1, .con = 9, .imp = 123456});
  automation::Historial historial(*fondo->db, fondo->textos);
  sql(u"CREATE TABLE IF NOT EXISTS Proceso (NOMBRE TEXT PRIMARY KEY, EJECUCION INTEGER)"_s);
  bien(historial.empezar(1, u"NOCHE"_s, ahora - 0.3, u"NOCHE.TZA"_s));
  for (const int g : {1, 2})
    fila(u"ProcesoTareas",
         {{u"EJECUCION", 1}, {u"PASO", 0}, {u"GRUPO", g}, {u"CLASE", 17}, {u"HECHA", g == 1}});
  bien(historial.tareaFallida(1, 2, TipoTarea::RxGrTot, u"No se encuentra el HOST especificado"_s));
  bien(historial.periodosHechos(1, {7}));
  bien(historial.acabar(1, automation::FinEjecucion::Problemas, ahora - 0.29));
}

// The failed group is on top with its reason, and Enter opens the window for collecting it again.
TEST(Manana, TrasUnGrupoFallido) {
  MesaPrincipal t;
  t.nocheMala();
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"La noche tuvo problemas"_s));
  EXPECT_TRUE(pieza(*v, u"1.234,56"_s)) << "the amount of the night";
  auto* linea =
      pieza(*v, u"Fallido. 0002 PESCADERIA. No se recogió nada: No se encuentra el HOST"_s);
  ASSERT_TRUE(linea);
  EXPECT_EQ(linea->objectName(), u"Linea0");
  linea->setFocus();
  QTest::keyClick(linea, Qt::Key_Return);
  ASSERT_TRUE(t.suplente(u"VeoLog"_s));
  EXPECT_EQ(t.suplente(u"VeoLog"_s)->dueno(), v);
  QTest::mouseClick(pieza(*v, u"Bien. 0001 FRUTERIA"_s), Qt::LeftButton);
  ASSERT_TRUE(t.suplente(u"VerCols#7"_s)) << "its sales in that period";
  EXPECT_EQ(t.suplente(u"VerCols#7"_s)->como<totals::PuertaVerCols>().grupo, 1);
  QTest::mouseClick(pieza(*v, u"La noche tuvo problemas"_s), Qt::LeftButton);
  EXPECT_TRUE(
      t.suplente(u"VeoLog"_s)->como<automation::PuertaVeoLog>().fichero.endsWith(u"/NOCHE.TZA"));
}

// A failed group opens what tells of it: never a queue without its tasks while there is anything
// else.
TEST(Manana, UnGrupoFallidoAbreLoQueLoExplica) {
  const struct {
    bool duda, tarea, traza, bandeja;
    const char16_t* abre;
  } casos[] = {{true, true, true, true, u"DudasCero"},
               {false, true, true, true, u"gestcomm"},
               {false, false, true, true, u"VeoLog"},
               {false, false, false, true, u"CerrSes"},
               {false, false, false, false, u"gestcomm"}};
  for (const auto& c : casos) {
    MesaPrincipal t({u"gestcomm"_s, u"CerrSes"_s, u"VeoLog"_s, u"DudasCero"_s});
    t.nocheMala();
    if (c.duda) t.sql(u"INSERT INTO Dudas (GRUPO, ADDR) VALUES (2, 0)"_s);
    if (c.tarea) {
      EXPECT_EQ(t.aplicacion.gestcomm().NuevaTarea(2, true, 0, 0, TipoTarea::RxGrTot),
                motor::Pedida::EnCola);
    }
    if (!c.traza) t.sql(u"UPDATE Ejecuciones SET TRAZA=''"_s);
    if (c.bandeja) {
      bien(t.aplicacion.sesion().ponerEstado(2));
      t.sql(u"DELETE FROM Sesiones"_s);
      t.sql(u"INSERT INTO Sesiones (CODGPO, SS_GRT) VALUES (2, 1)"_s);
    }
    auto* v = t.conManana();
    auto* linea = pieza(*v, u"Fallido. 0002 PESCADERIA"_s);
    ASSERT_TRUE(linea);
    QTest::mouseClick(linea, Qt::LeftButton);
    EXPECT_TRUE(t.suplente(QString::fromUtf16(c.abre))) << QString::fromUtf16(c.abre).toStdString();
  }
}

// A process of the day is told after the night, and so is what has been mended.
TEST(Manana, CuentaLoDeDespues) {
  MesaPrincipal t;
  t.nocheMala();
  automation::Historial historial(*t.fondo->db, t.fondo->textos);
  const Fecha ahora = t.reloj.ahora();
  bien(historial.empezar(2, u"PRECIOS"_s, ahora - 0.1, {}));
  bien(historial.acabar(2, automation::FinEjecucion::Abortada, ahora - 0.09));
  auto* v = t.conManana();
  EXPECT_TRUE(
      pieza(*v, u"La noche tuvo problemas"_s)->accessibleName().contains(u"Después, PRECIOS"));
  t.sql(u"INSERT INTO Lecturas (GRUPO, CLASE, ESTADO, FIN) VALUES (2, 17, 2, ?)"_s, ahora - 0.2);
  EXPECT_TRUE(
      esperar([&] { return pieza(*v, u"La noche tuvo problemas, ya resueltos"_s) != nullptr; }));
  EXPECT_TRUE(pieza(*v, u"Bien. 0002 PESCADERIA. Se recogió después"_s));
}

// A night that was stopped isn't red any more once a person has memorised what it had read.
TEST(Manana, LaNocheParadaYMemorizadaSeResuelve) {
  MesaPrincipal t;
  t.nocheMala();
  const Fecha ahora = t.reloj.ahora();
  t.sql(u"UPDATE ProcesoTareas SET HECHA=1"_s);
  t.sql(u"UPDATE Ejecuciones SET RESULTADO=2, PERIODOS=''"_s);
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"La noche tuvo problemas"_s));
  t.sql(u"INSERT INTO Origenes (LINK, GRUPO, CLASE, LEIDO) VALUES (7, 1, 17, ?)"_s, ahora - 0.2);
  EXPECT_TRUE(
      esperar([&] { return pieza(*v, u"La noche tuvo problemas, ya resueltos"_s) != nullptr; }));
}

// Tab follows the eye, and begins at what can be used.
TEST(Manana, ElTabuladorVaComoSeLee) {
  MesaPrincipal t;
  t.nocheMala();
  t.sql(u"INSERT INTO EjecucionAvisos (EJECUCION, GRUPO, TEXTO, GRAVE) VALUES (1, 0, 'Ojo', 1)"_s);
  auto* v = t.principal();
  EXPECT_EQ(v->focusWidget()->objectName(), u"EnviarRecibir") << "the others have no window";
  ASSERT_TRUE(esperar([&] { return v->findChild<app::Manana*>()->leida(); }));
  QTest::qWait(20);
  QStringList orden;
  const QWidget* primera = pieza(*v, u"La noche tuvo problemas"_s);
  const QWidget* w = primera;
  do {
    if (w->isVisible() && qobject_cast<const app::Pieza*>(w)) orden << w->accessibleName();
    w = w->nextInFocusChain();
  } while (w != primera);
  const auto sitio = [&](const QString& texto) {
    return orden.indexOf(orden.filter(texto).value(0));
  };
  for (const auto& [antes, despues] : {std::pair{u"Ojo"_s, u"Ventas"_s},
                                       {u"Ventas"_s, u"Próximo"_s},
                                       {u"Próximo"_s, u"0002"_s},
                                       {u"0002"_s, u"0001"_s}})
    EXPECT_LT(sitio(antes), sitio(despues)) << orden.join(u'|').toStdString();
}

// The hour of another day says which.
TEST(Manana, LaProximaDiceSuDia) {
  MesaPrincipal t;
  const Fecha ahora = Fecha::de(QDate(2026, 3, 4), QTime(12, 0));  // a Wednesday
  static constexpr struct {
    int dias;
    const char16_t* dice;
  } kCasos[] = {
      {0, u"22:00"}, {1, u"mañana 22:00"}, {3, u"sábado 22:00"}, {9, u"13/03/2026 22:00"}};
  for (const auto& c : kCasos) {
    automation::Resumen r;
    r.ahora = ahora;
    r.proxima = automation::ProximaResumen{u"NOCHE"_s, {}, ahora.dia() + c.dias + 22.0 / 24, true};
    EXPECT_EQ(app::vistaDe(r, t.textos, t.fondo->ajustes).proxima.valor,
              QString::fromUtf16(c.dice));
  }
}

// Changes made in another window are shown when it closes.
TEST(Manana, LaProximaCambiaAlCerrarOtraVentana) {
  MesaPrincipal t;
  auto* v = t.conManana();
  EXPECT_FALSE(pieza(*v, u"HORARIO"_s));
  t.fichero(u"NOCHE.AUT"_s, "N:nada\r\n");
  t.fichero(u"HORARIO.CRO"_s, "22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
  t.todas().abrir(u"VerTot"_s, v);
  t.todas().descargar(u"VerTot"_s);
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"HORARIO"_s) != nullptr; }, 30'000));
}

// The board is updated by itself when rows change; the focus is kept.
TEST(Manana, SigueALaBase) {
  MesaPrincipal t;
  t.nocheMala();
  auto* v = t.conManana();
  auto* linea = pieza(*v, u"0002 PESCADERIA"_s);
  linea->setFocus();
  t.sql(u"UPDATE ProcesoTareas SET HECHA=1"_s);
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"Bien. 0002 PESCADERIA"_s) != nullptr; }));
  EXPECT_EQ(v->focusWidget()->objectName(), u"Linea0"_s) << "the focus stays where it is";
}

// Amounts in a column belong to one period, reasons take one line, and data missing in the machines
// is reported with a way to send it.
TEST(Manana, NoMezcla) {
  MesaPrincipal t;
  t.nocheMala();
  const Fecha dia = t.reloj.ahora().dia();
  t.sql(u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR) VALUES (8, 5, ?, ?, '')"_s,
        dia - 0.9, dia - 0.1);
  t.sql(u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON, [IMP]) VALUES (8, 2, 0, 1, 4321)"_s);
  automation::Historial historial(*t.fondo->db, t.fondo->textos);
  bien(historial.periodosHechos(1, {7, 8}));
  t.sql(u"UPDATE ProcesoTareas SET HECHA=1"_s);
  for (const char* porque : {"Uno.", "Dos.", "Tres."})
    bien(historial.aviso(1, {2, QString::fromUtf8(porque), automation::PesoAviso::Grave}));
  t.sql(u"DELETE FROM PLUSES"_s);
  t.sql(u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU) VALUES (1, 10, 'Pera')"_s);
  for (const int g : {1, 2}) t.sql(u"INSERT INTO EnviosGrupo (GRUPO, SECCION) VALUES (?, 1)"_s, g);
  t.sql(u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) VALUES (1, 11, 2, 0)"_s);
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"0001 FRUTERIA. 1.234,56"_s));
  auto* otro = pieza(*v, u"0002 PESCADERIA. Uno."_s);
  ASSERT_TRUE(otro);
  EXPECT_TRUE(
      otro->accessibleName().contains(u"Y 3 motivos más. Tiene 43,21 en otro periodo (del "))
      << otro->accessibleName().toStdString();
  EXPECT_TRUE(otro->toolTip().contains(u"Tres."));
  EXPECT_TRUE(esperar([&] { return pieza(*v, u"sin ningún artículo"_s) != nullptr; }));
  EXPECT_TRUE(pieza(*v, u"sin ningún artículo, porque se les borraron: 0001 FRUTERIA."_s));
  EXPECT_TRUE(pieza(*v, u"no tienen al día: 0002 PESCADERIA: 1 artículo"_s));
}

// The row of a group without a period, because nothing of its sales was asked for, opens that
// group.
TEST(Manana, LaFilaDeUnGrupoAbreEseGrupo) {
  MesaPrincipal t({u"EstadoEnvio"_s, u"VerTot"_s});
  t.sql(u"DELETE FROM GRUPOS"_s);
  t.grupo({.codigo = 7, .nombre = u"FRUTERIA", .remoto = 3});
  automation::Historial historial(*t.fondo->db, t.fondo->textos);
  const Fecha ahora = t.reloj.ahora();
  bien(historial.empezar(1, u"NOCHE"_s, ahora - 0.3, u"NOCHE.TZA"_s));
  t.fila(u"ProcesoTareas", {{u"EJECUCION", 1},
                            {u"PASO", 0},
                            {u"GRUPO", 7},
                            {u"CLASE", numeroDe(TipoTarea::TxPlus)},
                            {u"HECHA", true}});
  bien(historial.acabar(1, automation::FinEjecucion::Bien, ahora - 0.29));
  auto* v = t.conManana();
  auto* fila = pieza(*v, u"Bien. 0007 FRUTERIA"_s);
  ASSERT_TRUE(fila);
  QTest::mouseClick(fila, Qt::LeftButton);
  ASSERT_TRUE(t.suplente(u"EstadoEnvio"_s));
  EXPECT_EQ(t.suplente(u"EstadoEnvio"_s)->como<comm::PuertaEstadoEnvio>().grupo, 7);
}

// A change of many articles that was cut off comes before everything else, with its section, and
// leads to where it is resolved: where it can be finished, or else to the list of that section.
TEST(Manana, LoQueSeCortoSeDiceLoPrimero) {
  for (const bool seTermina : {true, false}) {
    MesaPrincipal t({u"BrowPLUs"_s, u"CambioLote"_s});
    t.seccion(3, u"PESCADO").en(3).articulo({.codigo = 10}).articulo({.codigo = 11});
    articles::Lotes lotes(t.aplicacion.catalogo());
    const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
    if (seTermina)
      bien(lotes.apuntar(lote, u"D 2"_s, std::vector<articles::ClaveArticulo>{{3, 10}, {3, 11}}));
    bien(lotes.guardar(lote, {3, 10}));
    auto* v = t.conManana();
    EXPECT_TRUE(pieza(*v, u"Hay un cambio de artículos a medias"_s));
    auto* aviso = pieza(*v, u"Sección 003 PESCADO. Un cambio de muchos artículos se cortó"_s);
    ASSERT_TRUE(aviso);
    EXPECT_EQ(aviso->objectName(), u"Linea0");
    QTest::mouseClick(aviso, Qt::LeftButton);
    auto* abierta = t.suplente(seTermina ? u"CambioLote"_s : u"BrowPLUs"_s);
    ASSERT_TRUE(abierta);
    EXPECT_EQ(seTermina ? abierta->como<precios::PuertaCambioLote>().seccion
                        : abierta->como<articles::PuertaBrowPLUs>().seccion,
              3);
  }
}

// The board reports faults of the start itself before anything else.
TEST(Manana, DiceLoQueFallaAlEmpezar) {
  const QTemporaryDir otra;
  MesaPrincipal t(
      {}, "TimeACK= 0\r\nBaseDatos= " + QFile::encodeName(otra.filePath(u"X.MDB"_s)) + "\r\n");
  auto* v = t.conManana();
  EXPECT_TRUE(pieza(*v, u"Los datos están fuera de la carpeta"_s));
  EXPECT_TRUE(pieza(*v, u"«TimeACK= 0»; vale 2000"_s));
}

}  // namespace tarvo::prueba
