// A user reads a trace while it is being written.
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

#include "MesaDeProcesos.h"
#include "automation/ventanas/FicheroTraza.h"

namespace tarvo::automation {
namespace {

struct Visor : MesaDeProcesos {
  Visor() { fichero(u"T.TZC"_s, {}); }
  void escribir(const QString& texto) const {
    QFile f(ruta(u"T.TZC"_s));
    EXPECT_TRUE(f.open(QIODevice::Append));
    f.write(ficheros::codificar1252(texto));
  }
  ventanas::Ventana* ver() {
    auto* v = todas().abrir(PuertaVeoLog{ruta(u"T.TZC"_s)});
    lineas = pieza<QTableView>(v, u"Lineas"_s);
    pasar(1);
    return v;
  }
  int actual() const { return lineas->currentIndex().row(); }
  bool alFinal() const {
    return lineas->verticalScrollBar()->value() == lineas->verticalScrollBar()->maximum();
  }
  QString linea(int n) const { return lineas->model()->index(n, 0).data().toString(); }
  QTableView* lineas = nullptr;
};

TEST(VeoLog, SigueElFicheroSinMoverAQuienLee) {
  Visor s;
  ventanas::Ventana* v = s.ver();
  EXPECT_FALSE(s.lineas->isVisible()) << "an empty file shows a hint instead";
  s.escribir(u"uno\r\ndo"_s);
  s.pasar(1);
  EXPECT_EQ(s.linea(1), u"do");
  s.escribir(u"s\r\n"_s + u"más\r\n"_s.repeated(300));
  s.pasar(1);
  EXPECT_EQ(s.linea(1), u"dos");
  EXPECT_EQ(s.lineas->model()->rowCount(), 302);
  EXPECT_TRUE(s.alFinal());
  s.lineas->verticalScrollBar()->setValue(5);
  s.escribir(u"otra\r\n"_s);
  s.pasar(1);
  EXPECT_EQ(s.lineas->verticalScrollBar()->value(), 5);
  QTest::keyClick(v, Qt::Key_End, Qt::ControlModifier);
  s.escribir(u"otra\r\n"_s);
  s.pasar(1);
  EXPECT_TRUE(s.alFinal());
  // The file is deleted and created again.
  s.fichero(u"T.TZC"_s, u"nueva\r\n"_s);
  s.pasar(1);
  ASSERT_EQ(s.lineas->model()->rowCount(), 1);
  EXPECT_EQ(s.linea(0), u"nueva");
}

TEST(VeoLog, BuscaSaltaACadaProblemaYCopia) {
  Visor s;
  s.escribir(
      u"NOCHE:  Ejecución iniciada: hoy\r\n"
      u"NOCHE:  001:TAREA\r\n"
      u"NOCHE:      La SESIÓN está ya cerrada\r\n"
      u"NOCHE:  Ejecución finalizada: hoy\r\n"
      u"NOCHE:  Ejecución iniciada: hoy\r\n"
      u"NOCHE:  Ejecución interrumpida: hoy\r\n"_s);
  ventanas::Ventana* v = s.ver();
  s.lineas->setCurrentIndex(s.lineas->model()->index(0, 0));
  QTest::keyClicks(pieza<QLineEdit>(v, u"Buscar"_s), u"ejecucion INI"_s);
  const struct {
    Qt::KeyboardModifier con;
    int linea;
    bool sigue;
  } pasos[] = {{Qt::NoModifier, 4, false},
               {Qt::NoModifier, 0, true},
               {Qt::ShiftModifier, 4, true},
               {Qt::ShiftModifier, 0, false}};
  for (const auto& p : pasos) {
    QTest::keyClick(v, Qt::Key_F3, p.con);
    EXPECT_EQ(s.actual(), p.linea);
    EXPECT_EQ(!v->tira().texto().isEmpty() && v->tira().isVisible(), p.sigue);
  }
  QTest::keyClick(v, Qt::Key_F4);
  EXPECT_EQ(s.actual(), 1);
  QTest::keyClick(v, Qt::Key_F4);
  EXPECT_EQ(s.actual(), 5);
  QTest::keyClick(v, Qt::Key_F4);
  EXPECT_EQ(v->tira().texto(), u"No hay más problemas desde aquí hasta el final.");
  s.lineas->selectRow(2);
  pieza<QAction>(v, u"copiar"_s)->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"NOCHE:      La SESIÓN está ya cerrada");
}

// A match is shown from the beginning of its line, however wide the widest line is; a match far to
// the right is scrolled into view.
TEST(VeoLog, LoHalladoSeVe) {
  Visor s;
  s.escribir(u"uno\r\n"_s + u"relleno\r\n"_s.repeated(200) + u"NOCHE:  001:TAREA\r\n"_s +
             u"x"_s.repeated(1500) + u" FARO\r\n"_s);
  ventanas::Ventana* v = s.ver();
  v->resize(700, 400);
  s.pasar(1);
  const auto* lado = s.lineas->horizontalScrollBar();
  ASSERT_GT(lado->maximum(), 0);
  s.lineas->setCurrentIndex(s.lineas->model()->index(0, 0));
  QTest::keyClick(v, Qt::Key_F4);
  EXPECT_EQ(s.actual(), 201);
  EXPECT_EQ(lado->value(), 0);
  auto* busca = pieza<QLineEdit>(v, u"Buscar"_s);
  QTest::keyClicks(busca, u"faro"_s);
  QTest::keyClick(v, Qt::Key_F3);
  EXPECT_EQ(s.actual(), 202);
  EXPECT_GT(lado->value(), 0);
  busca->clear();
  QTest::keyClicks(busca, u"uno"_s);
  QTest::keyClick(v, Qt::Key_F3);
  EXPECT_EQ(s.actual(), 0);
  EXPECT_EQ(lado->value(), 0);
}

// Blocks end at line ends, so a text near their boundary is found too.
TEST(FicheroTraza, UnoMuyGrande) {
  QTemporaryDir dir;
  const QString ruta = dir.filePath(u"GRANDE.TZA"_s);
  constexpr int kLineas = 800'000;
  {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    QByteArray bytes;
    for (int i = 0; i < kLineas; ++i)
      bytes += "    G0001  E00  C000000000 [en espera de la linea] " +
               QByteArray::number(i).rightJustified(10, '0') + "\r\n";
    f.write(bytes);
  }
  FicheroTraza f(ruta, textosDePrueba());
  int veces = 0;
  do {
    EXPECT_EQ(f.leer(1'000'003), FicheroTraza::Cambio::Crecio);
    ++veces;
  } while (f.quedaMas());
  EXPECT_GT(veces, 40);
  ASSERT_EQ(f.lineas(), kLineas);
  for (const int n : {0, 1, 16'643, 16'644, 400'000, kLineas - 1}) {
    const QString cifra = u"%1"_s.arg(n, 10, 10, QLatin1Char('0'));
    EXPECT_TRUE(f.linea(n).endsWith(cifra));
    EXPECT_EQ(f.buscar(cifra, 0, false), n);
    EXPECT_EQ(f.buscar(cifra, kLineas - 1, true), n);
  }
  EXPECT_EQ(f.leer(1000), FicheroTraza::Cambio::Ninguno);
}

}  // namespace
}  // namespace tarvo::automation
