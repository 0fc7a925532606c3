#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <set>

#include "Muestra.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

constexpr int kMuchas = 200'000;

// A grid of the articles in a window of its own.
struct Lista : Mesa {
  explicit Lista(int cuantos) : Mesa(kTextosMuestra) {
    llenarArticulos(*this, cuantos);
    p.resize(900, 500);
    p.preparar(contexto(), u"Prueba"_s, columnasArticulos());
    p.show();
    p.vista()->setFocus();
  }
  void abrir(dao::Origen o = {.desde = u"ART"_s, .clave = u"CODIGO"_s}) {
    bien(p.abrir(std::move(o)));
  }
  bool contada() {
    return esperar([this] { return !p.contando(); });
  }
  void teclear(const QString& texto) { QTest::keyClicks(p.vista(), texto); }
  bool quieta() {
    return esperar([this] { return !p.trabajando(); });
  }
  qint64 codigo(int fila) { return p.valor(fila, u"CODIGO").entero(); }

  Parrilla p;
};

dao::Origen agrupados() {
  return {.desde = u"ART"_s,
          .filtro = u"CODIGO<=?"_s,
          .parametros = {dao::Valor(300)},
          .agrupado = u"left(NOMBRE,4)"_s,
          .identidad = u"left(NOMBRE,4)"_s};
}

std::vector<Columna> columnasAgrupadas() {
  return {{.titulo = 9911, .campo = u"left(NOMBRE,4)"_s},
          {.titulo = 9912, .campo = u"sum(IMPORTE)"_s, .clase = Clase::Importe, .suma = true}};
}

QByteArray dentroDe(const QString& zip, const QString& parte) {
  QProcess p;
  p.start(u"python3"_s,
          {u"-c"_s,
           u"import sys,zipfile;sys.stdout.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2])"
           u".decode())"_s,
           zip, parte});
  p.waitForFinished();
  return p.readAllStandardOutput();
}

}  // namespace

// The first rows are shown at once, before all of them are counted and however many follow; a page
// costs the same anywhere.
TEST(Parrilla, MuchasFilasNoHacenEsperar) {
  Lista l(kMuchas);
  l.abrir();
  EXPECT_EQ(l.codigo(0), 1);
  EXPECT_LT(l.p.filas(), kMuchas);
  ASSERT_TRUE(l.contada());
  EXPECT_EQ(l.p.filas(), kMuchas);
  EXPECT_TRUE(esperar([&] { return l.p.pie()->text() == u"200.000 filas"; }));
}

TEST(Parrilla, InicioYFinVanALasFilasYConCtrlLasFlechasALasColumnas) {
  Lista l(5000);
  l.abrir();
  QTableView* v = l.p.vista();
  const auto tecla = [&](Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) {
    QTest::keyClick(v, k, m);
    return std::pair(v->currentIndex().row(), v->currentIndex().column());
  };
  l.p.irA(3);
  int ultima = v->model()->columnCount() - 1;
  while (v->isColumnHidden(ultima)) --ultima;
  using Celda = std::pair<int, int>;
  tecla(Qt::Key_Right);
  EXPECT_EQ(tecla(Qt::Key_End), Celda(4999, 1)) << "even before all rows are counted";
  EXPECT_EQ(l.p.filasParaActuar(), std::vector<int>{4999});
  EXPECT_EQ(tecla(Qt::Key_Home), Celda(0, 1));
  EXPECT_EQ(tecla(Qt::Key_Right, Qt::ControlModifier), Celda(0, ultima));
  EXPECT_EQ(tecla(Qt::Key_Left, Qt::ControlModifier), Celda(0, 0));
  EXPECT_EQ(tecla(Qt::Key_End, Qt::ControlModifier), Celda(4999, ultima));
  EXPECT_EQ(tecla(Qt::Key_Home, Qt::ControlModifier), Celda(0, 0));
  l.p.irA(2);
  tecla(Qt::Key_Down);
  tecla(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_EQ(l.p.filasParaActuar(), (std::vector<int>{0, 1, 2, 3}));
}

TEST(Parrilla, ElegirTodasDondeSeEligeUna) {
  Lista l(5);
  l.abrir();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&l.p));
  const auto* aviso = l.p.findChild<QLabel*>(u"aviso"_s);
  QTest::keyClick(l.p.vista(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(l.p.filasParaActuar().size(), 5U);
  EXPECT_EQ(aviso->text(), u"");
  l.p.ponerUnaSola(true);
  l.p.irA(2);
  QTest::keyClick(l.p.vista(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(l.p.filasParaActuar(), std::vector<int>{2});
  EXPECT_EQ(aviso->text(), u"En esta lista se elige una sola fila.");
}

// The other keys are read by another connection, which doesn't see uncommitted changes of this one;
// it may or may not see changes committed in between, but no row appears twice.
TEST(Parrilla, LoQueCambiaMientrasSeCuenta) {
  constexpr int kFilas = 5000;
  for (const bool sinConfirmar : {true, false}) {
    Lista l(kFilas);
    if (sinConfirmar) bien(l.db->BeginTrans());
    l.sql(u"DELETE FROM ART WHERE CODIGO>4000"_s);
    l.abrir();
    l.sql(u"DELETE FROM ART WHERE CODIGO=1"_s);
    ASSERT_TRUE(l.contada());
    std::set<qint64> codigos;
    for (int f = 0; f < l.p.filas(); ++f) codigos.insert(l.p.clave(f));
    EXPECT_EQ(std::ssize(codigos), l.p.filas());
    EXPECT_EQ(*codigos.rbegin(), 4000);
    EXPECT_LE(*codigos.begin(), 2);
    EXPECT_TRUE(esperar([&] { return !l.p.sumas().value(4).isEmpty(); }));
    if (sinConfirmar) l.db->Rollback();
  }
}

TEST(Parrilla, OrdenaPorLaCabeceraEnLosDosSentidos) {
  Lista l(1000);
  l.abrir();
  l.p.elegir({7});
  l.p.irA(l.p.filaDe(7));
  QHeaderView* h = l.p.vista()->horizontalHeader();
  const auto pulsar = [&](int columna) {
    QTest::mouseClick(h->viewport(), Qt::LeftButton, {},
                      QPoint(h->sectionViewportPosition(columna) + 20, h->height() / 2));
  };
  pulsar(1);
  // Accents and case are ignored, and Ñ comes after N.
  EXPECT_EQ(l.p.texto(0, u"NOMBRE"), u"Árbol 000002");
  EXPECT_EQ(l.p.texto(l.p.filas() - 1, u"NOMBRE"), u"Ñora 001000");
  // The selection is the same row, wherever it is now.
  ASSERT_EQ(l.p.filasElegidas().size(), 1U);
  EXPECT_EQ(l.codigo(l.p.filasElegidas()[0]), 7);
  EXPECT_EQ(l.codigo(l.p.filaActual()), 7);
  pulsar(1);
  EXPECT_EQ(l.p.texto(0, u"NOMBRE"), u"Ñora 001000");
}

// Rows added or removed around them don't affect the selected ones; removed rows are deselected.
TEST(Parrilla, LaSeleccionSobreviveAlRefresco) {
  Lista l(5000);
  l.abrir();
  ASSERT_TRUE(l.contada());
  l.p.irA(l.p.filaDe(4000));
  l.p.elegir({10, 11, 4000});
  const int desplazada = l.p.vista()->verticalScrollBar()->value();
  l.sql(u"DELETE FROM ART WHERE CODIGO=11 OR CODIGO=3"_s);
  QTest::keyClick(l.p.vista(), Qt::Key_F5);
  std::vector<qint64> codigos;
  for (const int f : l.p.filasElegidas()) codigos.push_back(l.codigo(f));
  EXPECT_EQ(codigos, (std::vector<qint64>{10, 4000}));
  EXPECT_EQ(l.codigo(l.p.filaActual()), 4000);
  EXPECT_EQ(l.p.filas(), 4998);
  EXPECT_NEAR(l.p.vista()->verticalScrollBar()->value(), desplazada, 3);
}

// Letters jump within the current column; Ctrl+F searches all columns, wrapping round the end.
TEST(Parrilla, BuscaSinAcentosNiMayusculas) {
  Lista l(kMuchas);
  l.abrir();
  l.p.irA(0);
  QTest::keyClick(l.p.vista(), Qt::Key_Right);
  l.teclear(u"arbol 15"_s);
  ASSERT_TRUE(l.quieta());
  EXPECT_EQ(l.p.texto(l.p.filaActual(), u"NOMBRE"), u"Árbol 150002");
  QTest::keyClick(l.p.vista(), Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(l.p.campoBusca(), u"ARBOL 000011"_s);
  QTest::keyClick(l.p.campoBusca(), Qt::Key_Return);
  ASSERT_TRUE(l.quieta());
  EXPECT_EQ(l.codigo(l.p.filaActual()), 11);
  QTest::keyClick(l.p.campoBusca(), Qt::Key_Escape);
  EXPECT_TRUE(l.p.vista()->hasFocus());
  l.p.buscar(u"no hay"_s);
  ASSERT_TRUE(l.quieta());
  EXPECT_EQ(l.codigo(l.p.filaActual()), 11);
  const auto* aviso = l.p.findChild<QLabel*>(u"aviso"_s);
  EXPECT_EQ(aviso->text(), u"«no hay» no está en la lista.");
  EXPECT_TRUE(esperar([&] { return aviso->text().isEmpty(); })) << "it disappears by itself";
}

TEST(Parrilla, CopiaYSumaLoQueSeVe) {
  Lista l(100);
  l.abrir();
  l.p.elegir({5, 6});
  QTest::keyClick(l.p.vista(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            u"0000005\tÁrbol 000005\t06/01/2005\t35\t0,00\n"
            u"0000006\tJamón 000006\t07/01/2005\t0,042\t0,06\n");
  EXPECT_TRUE(esperar([&] { return l.p.sumas().value(4) == u"40,00"; }));
  bien(l.p.filtrar(u"CODIGO<?"_s, {dao::Valor(4)}));
  EXPECT_EQ(l.p.filas(), 3);
  EXPECT_TRUE(esperar([&] { return l.p.sumas().value(4) == u"0,06"; }));
  EXPECT_EQ(l.p.pie()->text(), u"3 filas");
}

// A query without a key of its own is shown, sorted, summed and refreshed like any other.
TEST(Parrilla, MuestraGrupos) {
  Lista l(1000);
  l.p.preparar(l.contexto(), u"Prueba"_s, columnasAgrupadas());
  l.abrir(agrupados());
  ASSERT_EQ(l.p.filas(), 3);
  bien(l.p.ordenar(0, Qt::AscendingOrder));
  EXPECT_EQ(l.p.texto(0, u"left(NOMBRE,4)"), u"Árbo");
  l.p.elegir({l.p.clave(2)});
  bien(l.p.ordenar(1, Qt::DescendingOrder));
  const auto elegidas = l.p.filasElegidas();
  ASSERT_EQ(elegidas.size(), 1U);
  EXPECT_EQ(l.p.texto(elegidas[0], u"left(NOMBRE,4)"), u"Ñora");
  EXPECT_TRUE(esperar([&] { return l.p.sumas().value(1) == u"360,00"; }));
  l.sql(u"DELETE FROM ART WHERE NOMBRE LIKE 'Jam*'"_s);
  bien(l.p.refrescar());
  EXPECT_EQ(l.p.filas(), 2);
  EXPECT_EQ(l.p.filasElegidas().size(), 1U);
  const auto mala = l.p.abrir({.desde = u"NADA"_s});
  ASSERT_FALSE(mala);
  EXPECT_EQ(l.p.filas(), 2) << "the former rows stay if the query fails";
}

// A list is sorted with keys alone, by the column of the current cell, and says how.
TEST(Parrilla, SeOrdenaConTeclas) {
  Lista l(50);
  auto columnas = columnasArticulos();
  columnas[2].ordenable = false;
  l.p.preparar(l.contexto(), u"Prueba"_s, columnas);
  l.abrir();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&l.p));
  const auto* aviso = l.p.findChild<QLabel*>(u"aviso"_s);
  const auto por = [&](int columna) {
    l.p.vista()->setCurrentIndex(l.p.modelo()->index(l.p.filaDe(7), columna));
    QTest::keyClick(l.p.vista(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    return aviso->toolTip();
  };
  const QString codigo = l.textos(columnas[0].titulo).trimmed();
  EXPECT_EQ(por(0), u"Ordenada por «%1»"_s.arg(codigo));
  EXPECT_EQ(l.codigo(0), 1);
  EXPECT_EQ(por(0), u"Ordenada por «%1», de mayor a menor"_s.arg(codigo));
  EXPECT_EQ(l.codigo(0), 50);
  EXPECT_EQ(l.p.clave(l.p.filaActual()), 7) << "the current row stays";
  EXPECT_TRUE(por(2).endsWith(u"no se puede ordenar."));
  EXPECT_EQ(l.codigo(0), 50);
  EXPECT_EQ(l.p.vista()->horizontalHeader()->sortIndicatorSection(), 0);
}

TEST(Parrilla, ExportaEnRebanadasLoQueSeVe) {
  Lista l(3000);
  l.sql(u"UPDATE ART SET NOMBRE='con \"; dos' WHERE CODIGO=1"_s);
  l.abrir();
  for (const char* nombre : {"lista.csv", "lista.xlsx"}) {
    l.p.exportarEn(l.ruta(QString::fromLatin1(nombre)));
    EXPECT_TRUE(l.p.trabajando());
    ASSERT_TRUE(l.quieta());
  }
  QFile csv(l.ruta(u"lista.csv"_s));
  ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
  const QByteArray texto = csv.readAll();
  EXPECT_TRUE(
      texto.startsWith("\xEF\xBB\xBF"
                       "Código;Artículo;Fecha;Cantidad;Importe\r\n"
                       "0000001;\"con \"\"; dos\";02/01/2005;0,007;0,01\r\n"));
  EXPECT_EQ(texto.count('\n'), 3001);
  const QByteArray hoja = dentroDe(l.ruta(u"lista.xlsx"_s), u"xl/worksheets/sheet1.xml"_s);
  EXPECT_EQ(hoja.count("<row "), 3001);
  // Row 7, article 6: a code, a day, kilograms and money as numbers.
  for (const char* celda : {"<c r=\"A7\" s=\"2\"><v>6</v>", "Jam\xC3\xB3n 000006", "<v>38359</v>",
                            "<v>0.042", "<v>0.06"})
    EXPECT_TRUE(hoja.contains(celda)) << celda;
}

TEST(Parrilla, UnaExportacionParadaNoDejaNada) {
  Lista l(20'000);
  l.abrir();
  for (const char* nombre : {"p.csv", "p.xlsx"}) {
    l.p.exportarEn(l.ruta(QString::fromLatin1(nombre)));
    QApplication::processEvents();
    ASSERT_TRUE(l.p.trabajando());
    l.p.findChild<QPushButton*>(u"parar"_s)->click();
    EXPECT_FALSE(l.p.trabajando());
  }
  QStringList quedan = QDir(l.carpeta.path()).entryList({u"p.*"_s});
  EXPECT_EQ(quedan.join(u' ').toStdString(), "");
  bool dicho = false;
  QObject::connect(&l.p, &Parrilla::fallo, [&](const Error&) { dicho = true; });
  l.p.exportarEn(u"/proc/no/se/puede.csv"_s);
  EXPECT_TRUE(dicho);
}

TEST(Parrilla, ExportarSinNombreSeDice) {
  Lista l(5);
  l.abrir();
  for (const QString& ruta : {l.carpeta.path(), l.ruta(u".xlsx"_s), QString()}) {
    QString dicho;
    const auto oido =
        QObject::connect(&l.p, &Parrilla::fallo, [&](const Error& e) { dicho = e.texto; });
    l.p.exportarEn(ruta);
    EXPECT_TRUE(dicho.startsWith(u"Falta el nombre del fichero")) << ruta.toStdString();
    QObject::disconnect(oido);
  }
}

// The dialog that asks for a file cuts no heading.
TEST(Parrilla, LaCajaDeFicherosSeLeeEntera) {
  Lista l(5);
  l.abrir();
  int vistas = 0;
  l.alAbrirse([&](QWidget* w) {
    const auto* cabecera = w->findChild<QTreeView*>(u"treeView"_s)->header();
    for (int c = 0; c < cabecera->count(); ++c, ++vistas)
      EXPECT_GE(cabecera->sectionSize(c), cabecera->sectionSizeHint(c)) << c;
    w->close();
  });
  l.p.exportar();
  EXPECT_GE(vistas, 4);
}

// Where space is short, columns with a rank are hidden, but never the current one.
TEST(Parrilla, LaColumnaActualNoSeEsconde) {
  Lista l(5);
  auto columnas = columnasArticulos();
  columnas.push_back({.titulo = 9916, .campo = u"'Una marca'"_s, .ancho = 200});
  columnas[2].rango = 1;
  columnas[3].rango = 2;
  l.p.preparar(l.contexto(), u"Anchas"_s, columnas);
  l.abrir();
  const auto ancho = [&](int en) {
    l.p.resize(en, 500);
    QApplication::processEvents();
  };
  const auto oculta = [&](int columna) { return l.p.vista()->isColumnHidden(columna); };
  ancho(640);
  EXPECT_TRUE(oculta(3));
  ancho(1900);
  l.p.vista()->setCurrentIndex(l.p.modelo()->index(0, 3));
  ancho(640);
  EXPECT_FALSE(oculta(3));
  EXPECT_TRUE(oculta(2));
}

// Unreadable rows are reported, not silently shown as empty ones.
TEST(Parrilla, DiceQueNoPuedeLeer) {
  Lista l(5000);
  l.abrir();
  ASSERT_TRUE(l.contada());
  QString dicho;
  QObject::connect(&l.p, &Parrilla::fallo, [&](const Error& e) { dicho = e.texto; });
  l.sql(u"DROP TABLE ART"_s);
  l.p.irA(4000);
  EXPECT_TRUE(esperar([&] { return !dicho.isEmpty(); }));
  dicho.clear();
  QTest::keyClick(l.p.vista(), Qt::Key_F5);
  EXPECT_TRUE(esperar([&] { return !dicho.isEmpty(); }));
}

// Widths, order and visibility are restored in the next window of that name.
TEST(Parrilla, RecuerdaLasColumnas) {
  Lista l(10);
  l.abrir();
  QHeaderView* h = l.p.vista()->horizontalHeader();
  h->resizeSection(1, 333);
  h->moveSection(h->visualIndex(4), 0);
  h->hideSection(2);
  l.p.preparar(l.contexto(), u"Prueba"_s, columnasArticulos());
  l.abrir();
  EXPECT_NEAR(h->sectionSize(1), 333, 2);
  EXPECT_EQ(h->logicalIndex(0), 4);
  EXPECT_TRUE(h->isSectionHidden(2));
  EXPECT_TRUE(h->isSectionHidden(6)) << "a column for data only is never shown";
  l.p.preparar(l.contexto(), u"Otra"_s, columnasArticulos());
  l.abrir();
  EXPECT_FALSE(h->isSectionHidden(2));
}

// On a wide screen the text columns share the spare width in proportion to their own, and no width
// is left over; a width set by the user stays.
TEST(Parrilla, LosTextosSeRepartenElSitio) {
  Lista l(0);
  l.p.preparar(l.contexto(), u"Ancha"_s,
               {{.titulo = 9916, .campo = u"ID"_s, .clase = Clase::Codigo, .cifras = 3},
                {.titulo = 9911, .campo = u"NOMBRE"_s, .ancho = 150},
                {.titulo = 9912, .campo = u"IMPORTE"_s, .clase = Clase::Importe},
                {.titulo = 9917, .campo = u"MOTIVO"_s, .ancho = 300}});
  l.p.vivas();
  l.p.resize(800, 400);
  l.p.show();
  QHeaderView* h = l.p.vista()->horizontalHeader();
  ASSERT_TRUE(esperar([&] { return h->length() == l.p.vista()->viewport()->width(); }));
  const int codigo = h->sectionSize(0), antes = h->sectionSize(1);
  l.p.resize(1200, 400);
  ASSERT_TRUE(esperar([&] { return h->length() == l.p.vista()->viewport()->width(); }));
  EXPECT_EQ(h->sectionSize(0), codigo);
  EXPECT_GT(h->sectionSize(1), antes + 100);
  EXPECT_NEAR(h->sectionSize(3), 2 * h->sectionSize(1), 3);
  l.p.resize(800, 400);
  EXPECT_TRUE(esperar([&] { return std::abs(h->sectionSize(1) - antes) < 2; }));
  h->resizeSection(1, 222);
  l.p.resize(1200, 400);
  QTest::qWait(20);
  EXPECT_EQ(h->sectionSize(1), 222);
}

// Live rows: only changed cells are repainted; the selection and the order are kept.
TEST(Parrilla, LasFilasVivasCambianSolas) {
  Lista l(0);
  l.p.preparar(l.contexto(), u"Vivas"_s,
               {{.titulo = 9916, .campo = u"ID"_s, .clase = Clase::Codigo, .cifras = 3},
                {.titulo = 9917, .campo = u"ESTADO"_s}});
  ModeloVivo& m = l.p.vivas();
  const auto fila = [](int id, const char16_t* estado) {
    return FilaViva{id, {dao::Valor(id), dao::Valor(estado)}};
  };
  m.poner({fila(1, u"Espera"), fila(2, u"Espera"), fila(3, u"Espera")});
  l.p.elegir({2});
  int cambios = 0, celdas = 0;
  QObject::connect(&m, &QAbstractItemModel::dataChanged,
                   [&](const QModelIndex& a, const QModelIndex& b) {
                     ++cambios;
                     celdas += b.column() - a.column() + 1;
                   });
  m.poner({fila(1, u"Espera"), fila(2, u"Acabada"), fila(4, u"Nueva")});
  EXPECT_EQ(cambios, 1);
  EXPECT_EQ(celdas, 1);
  EXPECT_EQ(l.p.filas(), 3);
  EXPECT_EQ(l.p.filasElegidas(), (std::vector<int>{1}));
  bien(l.p.ordenar(1, Qt::AscendingOrder));
  EXPECT_EQ(l.p.filasElegidas(), (std::vector<int>{0}));
  m.poner({fila(4, u"Nueva"), fila(1, u"Zas"), fila(2, u"Acabada")});
  EXPECT_EQ(l.p.texto(2, u"ESTADO"), u"Zas");
  EXPECT_EQ(l.p.clave(l.p.filasElegidas().at(0)), 2);
  // The row that the keys act on is the highlighted one.
  m.quitar(2);
  EXPECT_EQ(l.p.filasElegidas(), std::vector{l.p.filaActual()});
  l.p.elegir({4});
  EXPECT_EQ(l.p.filaActual(), m.filaDe(4));
}

// A filter that leaves few of many rows, and then restores them all: the selection is kept, and the
// view is notified in a handful of steps, since it counts all rows at each.
TEST(Parrilla, MuchasFilasVivasVanYVienen) {
  Lista l(0);
  l.p.preparar(l.contexto(), u"Vivas"_s,
               {{.titulo = 9916, .campo = u"ID"_s, .clase = Clase::Codigo, .cifras = 3}});
  ModeloVivo& m = l.p.vivas();
  const auto cada = [](int paso, int valor) {
    std::vector<FilaViva> filas;
    for (int i = 0; i < 20'000; i += paso) filas.push_back({i, {dao::Valor(i + valor)}});
    return filas;
  };
  m.poner(cada(1, 0));
  l.p.elegir({7, 14});
  int pasos = 0;
  const auto contar = [&] { ++pasos; };
  QObject::connect(&m, &QAbstractItemModel::rowsRemoved, contar);
  QObject::connect(&m, &QAbstractItemModel::rowsInserted, contar);
  QObject::connect(&m, &QAbstractItemModel::dataChanged, contar);
  QObject::connect(&m, &ModeloParrilla::recuento, contar);
  m.poner(cada(7, 1));
  EXPECT_EQ(l.p.filas(), 2858);
  EXPECT_EQ(l.p.filasElegidas(), (std::vector<int>{1, 2}));
  EXPECT_EQ(l.p.valor(1, u"ID"), dao::Valor(8));
  m.poner(cada(1, 0));
  EXPECT_EQ(l.p.filas(), 20'000);
  EXPECT_EQ(l.p.filasElegidas(), (std::vector<int>{7, 14}));
  EXPECT_EQ(m.filaDe(13), 13);
  EXPECT_LE(pasos, 6);
}

}  // namespace tarvo::prueba
