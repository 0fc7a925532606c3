// Which period a reading goes into, and the effect on the week and the stock.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using totals::kDiario, totals::kOtros, totals::kSemanal, totals::Descuento;

namespace {

class ConPeriodosDeLibros : public testing::Test {
 protected:
  ConPeriodosDeLibros() : t(Fecha::de(QDate(2026, 11, 20), QTime(21, 0))) {  // a Friday
    t.grupo(1);
    t.grupo(2);
    t.desdeCero();
  }
  void dia(qint64 importe = 500) {
    t.amanecer();
    t.avisos.clear();
    for (const int g : {1, 2}) t.grupos.at(g).at(0).vender(11, importe, 0);
  }
  void leerTodo() {
    for (const int g : {1, 2}) t.leer(g);
  }
  // A warehouse for the groups, and the article they sell.
  void conAlmacen() {
    t.almacen(1, u"A").articulo({.codigo = 11, .cada = 2});
    t.sql(u"UPDATE GRUPOS SET ALMACEN=1"_s);
  }
  totals::Columna columna(qint64 link) { return **t.periodos().columna(link); }
  Fecha hoy() const { return t.reloj.ahora(); }
  qint64 crear(int tipo, Fecha desde, Fecha hasta) {
    return *t.periodos().CrearPeriodo(tipo, desde, hasta, false, u"a mano"_s);
  }
  qint64 semana() { return t.uno(u"SELECT LINK FROM COLUMNA WHERE TIPO=2"_s).entero(); }
  TiendaDeLibros t;
};

}  // namespace

// A collection interrupted on Sunday, partly read, and forgotten until Monday night.
TEST_F(ConPeriodosDeLibros, LoQueSeLeeDeNuevoTerminaCuandoSeLee) {
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g));
  dia();
  t.leer(1);
  t.cortar();
  dia();
  leerTodo();
  const auto links = t.memorizar();
  ASSERT_EQ(links.size(), 1U);
  const auto p = columna(links[0]).periodo;
  EXPECT_EQ(p.tipo, kOtros);
  EXPECT_EQ(p.desde.qdate(), QDate(2026, 11, 21));
  EXPECT_EQ(p.hasta, hoy());
  EXPECT_TRUE(t.textoAvisos().contains(u"son de 2 días")) << t.textoAvisos().toStdString();
  for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g));
  dia();
  leerTodo();
  const auto martes = columna(t.memorizar().at(0)).periodo;
  EXPECT_EQ(martes.tipo, kDiario);
  EXPECT_EQ(martes.desde.qdate(), QDate(2026, 11, 24));
}

// One machine was out of reach yesterday; the others make the day.
TEST_F(ConPeriodosDeLibros, DosDiasEnUnoSeDicen) {
  t.grupo(3);
  t.grupos[3][0].vender(11, 100, 0);
  dia();
  t.leer(1);
  t.memorizar();
  EXPECT_TRUE(t.ponerACero(1));
  t.sql(u"INSERT INTO Sesiones (CODGPO, PZERO) SELECT 3, PZERO FROM Sesiones WHERE CODGPO=1"_s);
  dia();
  for (const int g : {1, 2, 3}) t.leer(g);
  const auto links = t.memorizar();
  EXPECT_EQ(columna(links.at(0)).periodo.tipo, kDiario);
  EXPECT_TRUE(t.textoAvisos().contains(u"Grupo 2: sus totales son de 2 días"));
  EXPECT_FALSE(t.textoAvisos().contains(u"Grupo 1: sus totales son"));
  EXPECT_EQ(std::ranges::count_if(t.avisos, &totals::Aviso::grave), 1);
}

// The readings of one collection end together, however long it lasts; an unclosed session gets a
// new end.
TEST_F(ConPeriodosDeLibros, LasLecturasDeUnaRecogidaTerminanALaVez) {
  struct Caso {
    qint64 minutos;
    bool otra, suelta, juntas;
  };
  for (const Caso& c :
       {Caso{120, false, false, true}, Caso{10, true, false, false}, Caso{30, false, true, true},
        Caso{90, false, true, false}, Caso{13 * 60, false, false, false}}) {
    SCOPED_TRACE(c.minutos);
    dia();
    if (c.suelta) t.sesion().ponerEjecucion(t.ejecucion = 0, false);
    t.leer(1);
    t.reloj.avanzar(c.minutos * 60'000);
    if (c.otra) t.sesion().ponerEjecucion(++t.ejecucion, false);
    t.leer(2);
    EXPECT_EQ(t.uno(u"SELECT count(DISTINCT HT_PLU) FROM Sesiones"_s).entero(), c.juntas ? 1 : 2);
    t.memorizar();
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g));
    t.reloj.avanzar((24 * 60 - c.minutos) * 60'000);
    t.ejecucion += 10;
  }
}

// A period made by hand receives the readings of its days.
TEST_F(ConPeriodosDeLibros, UnPeriodoHechoAManoRecibeLaLectura) {
  struct Caso {
    int tipo;
    bool sustituir, conFilas, recibe, descontable;
    const char16_t* dicho;
  };
  const Caso casos[] = {
      {kDiario, true, false, true, true, nullptr},
      {kDiario, true, true, true, false, u"se hizo a mano y no se descuenta"},
      {kDiario, false, false, true, true, nullptr},
      {kOtros, true, false, true, true, nullptr},
      {kOtros, false, true, true, false, u"se hizo a mano"},
      {kSemanal, true, false, true, true, nullptr},
      {kSemanal, true, true, false, false, u"sólo suma otros"},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(testing::Message() << c.tipo << c.sustituir << c.conFilas);
    TiendaDeLibros otra(Fecha::de(QDate(2026, 11, 29), QTime(21, 0)));  // a Sunday
    otra.grupo(1);
    otra.leer(1);
    otra.memorizar();
    EXPECT_TRUE(otra.ponerACero(1));
    const Fecha cero = otra.reloj.ahora();
    otra.amanecer(c.tipo == kSemanal ? 5 : c.tipo == kOtros ? 2 : 1);
    otra.grupos.at(1).at(0).vender(11, 500, 0);
    const Fecha fin = otra.reloj.ahora();
    const Fecha dentro = fin - 0.5;
    const qint64 link = *otra.periodos().CrearPeriodo(c.tipo, c.tipo == kOtros ? cero : dentro,
                                                      c.tipo == kOtros ? fin : dentro, false, {});
    if (c.conFilas) otra.total(u"TOTPLU", {link, 9, 11, 1, 0, 70, 0});
    otra.avisos.clear();
    otra.leer(1);
    otra.cierre().Descrip = u"Cierre"_s;
    const auto links = otra.memorizar(c.sustituir);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ((*otra.periodos().columna(links[0]))->DESCR == u"Cierre", c.sustituir || !c.recibe);
    EXPECT_EQ(links[0] == link, c.recibe) << otra.textoAvisos().toStdString();
    EXPECT_EQ(otra.enPeriodo(links[0], TipoTotal::PLUs), c.recibe && c.conFilas ? 570 : 500);
    EXPECT_EQ((*otra.periodos().columna(link))->stkABLE, c.descontable);
    EXPECT_TRUE(c.dicho ? otra.textoAvisos().contains(QString::fromUtf16(c.dicho))
                        : !otra.textoAvisos().contains(u"a mano"))
        << otra.textoAvisos().toStdString();
  }
}

// A day with rows of unknown origin: replaced only by as many sales or more.
TEST_F(ConPeriodosDeLibros, LoDeOrigenDesconocidoSeSustituyeSiNoSonMenos) {
  struct Caso {
    bool sustituir;
    int antes, ahora;
    bool sustituye;
  };
  for (const Caso& c : {Caso{true, 1, 1, true}, Caso{true, 1, 2, true}, Caso{true, 2, 1, false},
                        Caso{false, 1, 1, false}}) {
    SCOPED_TRACE(testing::Message() << c.sustituir << c.antes << c.ahora);
    dia();
    for (int n = 1; n < c.ahora; ++n) t.grupos.at(1).at(0).vender(11, 500, 0);
    const qint64 link = *t.periodos().CrearPeriodo(kDiario, hoy(), hoy(), true, u"Noche"_s);
    t.total(u"TOTPLU", {link, 1, 11, c.antes, 0, 70, 0});
    t.leerSolo(1, TipoTotal::PLUs);
    const auto links = t.memorizar(c.sustituir);
    EXPECT_EQ((*t.periodos().columna(links.at(0)))->DESCR, u"Noche") << "no other name was given";
    EXPECT_EQ(t.enPeriodo(links.at(0), TipoTotal::PLUs), 500 * c.ahora + (c.sustituye ? 0 : 70));
    EXPECT_TRUE(t.ponerACero(1));
    for (auto& [addr, m] : t.grupos.at(2)) m.ponerACero();
  }
}

// Sales added to a day go into its week and out of stock at once.
TEST_F(ConPeriodosDeLibros, LaSemanaYElStockSiguenALoQueSeSumaAUnDia) {
  conAlmacen();
  dia();
  leerTodo();
  const auto link = t.memorizar();
  ASSERT_TRUE(*t.verTot().SelecHnd(link[0]));
  ASSERT_TRUE(*t.verTot().AcumularEn(kSemanal));
  ASSERT_EQ(*t.periodos().DescontarPeriodo(columna(link[0])), Descuento::Hecho);
  const auto vendidas = [&] { return t.uno(u"SELECT SUM(Venta) FROM MovsAlm"_s).entero(); };
  EXPECT_EQ(vendidas(), 2);
  t.grupos.at(1).at(0).vender(11, 450, 0);
  t.leer(1);
  EXPECT_EQ(t.memorizar(false), link);
  EXPECT_EQ(t.enPeriodo(semana(), TipoTotal::PLUs), t.enPeriodo(link[0], TipoTotal::PLUs));
  EXPECT_EQ(vendidas(), 3);
}

// A replaced day that is only in the stock leaves it once.
TEST_F(ConPeriodosDeLibros, UnDiaSoloDescontadoQueSeSustituyeSaleDelStockUnaVez) {
  conAlmacen();
  dia();
  const qint64 link = *t.periodos().CrearPeriodo(kDiario, hoy(), hoy(), true, {});
  t.total(u"TOTPLU", {link, 1, 11, 1, 0, 70, 0});
  ASSERT_EQ(*t.periodos().DescontarPeriodo(columna(link)), Descuento::Hecho);
  leerTodo();
  const auto links = t.memorizar();
  EXPECT_EQ(columna(links.at(0)).stkADO, 0);
  ASSERT_EQ(*t.periodos().DescontarPeriodo(columna(links[0])), Descuento::Hecho);
  EXPECT_EQ(t.uno(u"SELECT SUM(Venta) FROM MovsAlm"_s).entero(), 2);
}

// Each group and kind in its own period: the later sales of a machine that was not zeroed belong to
// the day they were made.
TEST_F(ConPeriodosDeLibros, LaDiferenciaVaASuPropioDia) {
  for (const qint64 importe : {500, 300, 200}) {
    dia(importe);
    leerTodo();
    const auto links = t.memorizar(true, false);
    ASSERT_FALSE(links.empty());
    for (const qint64 l : links) {
      EXPECT_EQ(columna(l).periodo.desde.qdate(), hoy().qdate());
      EXPECT_EQ(t.enPeriodo(l, TipoTotal::PLUs), 2 * importe);
    }
    EXPECT_TRUE(t.ponerACero(2));
  }
}

// The disk is full at the very end: nothing of the memorisation remains, not even the session in
// memory.
TEST_F(ConPeriodosDeLibros, SiSoloFallaLaConfirmacionNadaSeHaMemorizado) {
  dia();
  leerTodo();
  t.sql(
      u"CREATE TABLE Lleno (X INTEGER REFERENCES SECCS (NMSECC) DEFERRABLE INITIALLY DEFERRED)"_s);
  t.nadaSeMemoriza(u"AFTER INSERT ON COLUMNA BEGIN INSERT INTO Lleno VALUES (77777); END"_s);
}

// What a reading brought is noted, not what it held: the later ones hold the first as well.
TEST(Origenes, DicenLoQueEntroEnElPeriodo) {
  TiendaDeLibros t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0)));
  t.grupo(1);
  t.desdeCero();
  auto& m = t.grupos.at(1).at(0);
  for (const qint64 vendido : {1000, 300, -200}) {
    t.masTarde(5);
    m.vender(vendido < 0 ? 10 : 12, vendido, 0, vendido < 0 ? -1 : 1);
    for (int codigo = 10; vendido == 1000 && codigo < 30; ++codigo) m.vender(codigo, 200, 0);
    const auto antes = t.enPeriodos(1, TipoTotal::PLUs).IMP;
    t.leer(1);
    t.memorizar();
    EXPECT_EQ(bien(t.db().uno(u"SELECT [IMP] FROM Origenes WHERE CLASE=? ORDER BY rowid DESC LIMIT "
                              u"1",
                              numeroDe(TipoTotal::PLUs)))
                  .entero(),
              t.enPeriodos(1, TipoTotal::PLUs).IMP - antes);
  }
  EXPECT_EQ(t.enPeriodos(1, TipoTotal::PLUs).IMP, 5100);
}

}  // namespace tarvo::prueba
