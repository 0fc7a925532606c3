// Deleted periods are restored as they were; queries for display; changes with larger periods
// updated.
#include <gtest/gtest.h>

#include "totals/TiendaDeTotales.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/ConsultaFilas.h"
#include "totals/periodos/Manuales.h"
#include "totals/periodos/Papelera.h"
#include "totals/periodos/Sumas.h"

namespace tarvo::prueba {

using namespace totals;
using namespace Qt::StringLiterals;

namespace {

struct ConPapelera : TiendaDeTotales {
  ConPapelera() { bien(asegurarTablasLibros(*db)); }
  Papelera papelera{periodos};
  QString todo() {
    QString texto;
    for (const char16_t* t :
         {u"COLUMNA", u"TOTPLU", u"TOTOPHOR", u"Origenes", u"Sustituidos", u"TotSusti"})
      texto +=
          leer(u"select * from %1 order by 1, 2, 3, 4, 5"_s.arg(QString::fromUtf16(t))) + u'\n';
    return texto;
  }
};

}  // namespace

TEST(Papelera, DevuelveLosPeriodosConTodoLoSuyo) {
  ConPapelera t;
  const qint64 dia = t.crear(kDiario, "05/06/2018");
  t.plu(dia, 7, 3);
  t.operHora(dia, 5, 10, 2);
  ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kSemanal, t.col(dia))));
  // The week holds an earlier version of the day as well.
  const qint64 nuevo = bien(t.periodos.sustituir(t.col(dia), u"otra"_s));
  t.fila(u"Origenes", {{u"LINK", nuevo}, {u"GRUPO", 1}, {u"CLASE", 16}, {u"CON", 3}});
  const QString antes = t.todo();
  const qint64 lote = bien(t.papelera.nuevoLote());
  const auto semana =
      *bien(t.periodos.BuscarPeriodo(kSemanal, momento("05/06/2018"), momento("05/06/2018")));
  for (const qint64 link : {nuevo, semana.LINK}) ASSERT_TRUE(bien(t.papelera.tirar(lote, link)));
  EXPECT_EQ(t.leer(u"select count(*) from COLUMNA"_s), u"0");
  EXPECT_EQ(t.leer(u"select count(*) from Origenes"_s), u"0");
  EXPECT_EQ(t.leer(u"select count(*) from TotSusti"_s), u"0");
  EXPECT_EQ(bien(t.papelera.restaurar(lote)), 2);
  EXPECT_EQ(t.todo(), antes);
  EXPECT_EQ(bien(t.papelera.restaurar(lote)), 0);
  // A period replaced while the week is deleted gets no number of the week's versions.
  const qint64 otro = t.crear(kDiario, "12/06/2018");
  t.plu(otro, 7, 1);
  ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kSemanal, t.col(otro))));
  ASSERT_TRUE(bien(t.papelera.tirar(lote, semana.LINK)));
  bien(t.periodos.sustituir(t.col(otro), u"otra"_s));
  EXPECT_EQ(bien(t.papelera.restaurar(lote)), 1);
  EXPECT_EQ(t.leer(u"select ID, count(*) from TotSusti group by ID"_s), u"1 2 | 2 1");
}

// What a deleted week held can be accumulated again, and is marked again when the week comes back.
TEST(Papelera, LaSemanaBorradaSueltaSusDias) {
  ConPapelera t;
  const auto imp = [&](const Columna& c) {
    return t.leer(u"select sum([IMP]) from TOTPLU where LINK=%1"_s.arg(c.LINK));
  };
  const auto semana = [&] {
    return bien(t.periodos.BuscarPeriodo(kSemanal, momento("05/06/2018"), momento("05/06/2018")));
  };
  const qint64 lunes = t.crear(kDiario, "04/06/2018"), martes = t.crear(kDiario, "05/06/2018");
  const auto acumular = [&] {
    t.verTot.ClrSelec();
    for (const qint64 dia : {lunes, martes}) bien(t.verTot.SelecHnd(dia));
    return bien(t.verTot.AcumularIntv(kSemanal, 1));
  };
  for (const qint64 dia : {lunes, martes}) {
    t.plu(dia, 7, 3);
    ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kMensual, t.col(dia))));
  }
  ASSERT_TRUE(acumular());
  EXPECT_EQ(imp(*semana()), u"600");
  ASSERT_TRUE(bien(t.verTot.BorrarIntvalo(kSemanal, momento("04/06/2018"), momento("10/06/2018"))));
  ASSERT_TRUE(acumular());
  EXPECT_EQ(imp(*semana()), u"600");
  EXPECT_TRUE(t.col(lunes).ACUM2 && t.col(lunes).ACUM3);

  // Deleted by a person, each alone and in either order, and brought back.
  const QString antes = t.todo();
  const qint64 deSemana = bien(t.papelera.nuevoLote()), suya = semana()->LINK;
  ASSERT_TRUE(bien(t.papelera.tirar(deSemana, suya)));
  EXPECT_FALSE(t.col(lunes).ACUM2);
  EXPECT_TRUE(t.col(lunes).ACUM3);
  const qint64 deDia = bien(t.papelera.nuevoLote());
  ASSERT_TRUE(bien(t.papelera.tirar(deDia, lunes)));
  EXPECT_EQ(bien(t.papelera.restaurar(deSemana)), 1);
  EXPECT_EQ(bien(t.papelera.restaurar(deDia)), 1);
  EXPECT_EQ(t.todo(), antes);
  ASSERT_TRUE(bien(t.papelera.tirar(deDia, lunes)));
  ASSERT_TRUE(bien(t.papelera.tirar(deSemana, suya)));
  EXPECT_EQ(bien(t.papelera.restaurar(deDia)), 1);
  EXPECT_FALSE(t.col(lunes).ACUM2);
  EXPECT_EQ(bien(t.papelera.restaurar(deSemana)), 1);
  EXPECT_EQ(t.todo(), antes);

  // A day that sold more in the meantime is not what the week holds.
  ASSERT_TRUE(bien(t.papelera.tirar(deSemana, suya)));
  t.plu(martes, 9, 1);
  const auto r = t.papelera.restaurar(deSemana);
  ASSERT_FALSE(r);
  EXPECT_TRUE(r.error().texto.contains(u"5 junio 2018"_s)) << r.error().texto.toStdString();
  EXPECT_FALSE(semana());
  EXPECT_FALSE(t.col(lunes).ACUM2);
  ASSERT_TRUE(acumular());
  EXPECT_EQ(imp(*semana()), u"700");

  // Exported and deleted it has left with its days: they don't make it again.
  ASSERT_TRUE(bien(t.xporTot.XportRemoto({semana()->LINK}, {false, true}, u"x"_s, QString())));
  ASSERT_TRUE(acumular());
  EXPECT_FALSE(semana());
}

TEST(Papelera, NoPisaLoQueOcupoSuSitio) {
  ConPapelera t;
  const qint64 uno = t.crear(kDiario, "04/06/2018"), dia = t.crear(kDiario, "05/06/2018");
  t.plu(dia, 7, 3);
  const qint64 lote = bien(t.papelera.nuevoLote());
  for (const qint64 link : {uno, dia}) ASSERT_TRUE(bien(t.papelera.tirar(lote, link)));
  const qint64 otro = t.crear(kDiario, "05/06/2018");
  EXPECT_GT(otro, dia);  // the number is reserved for its period
  const auto r = t.papelera.restaurar(lote);
  ASSERT_FALSE(r);
  EXPECT_EQ(r.error().clase, Fallo::Duplicado);
  EXPECT_EQ(t.leer(u"select LINK from COLUMNA"_s), QString::number(otro));
  bien(t.periodos.BorrarPeriodo(otro));
  EXPECT_EQ(bien(t.papelera.restaurar(lote)), 2);
  EXPECT_EQ(t.plus(dia), u"1 7 3 30 300 3000");
}

TEST(Papelera, VaciaYLlenaDeNuevo) {
  ConPapelera t;
  const qint64 dia = t.crear(kDiario, "05/06/2018");
  t.plu(dia, 7, 3);
  const qint64 lote = bien(t.papelera.nuevoLote());
  ASSERT_TRUE(bien(t.papelera.vaciar(lote, dia)));
  EXPECT_EQ(t.plus(dia), u"");
  t.plu(dia, 8, 1);
  EXPECT_FALSE(t.papelera.restaurar(lote));
  t.sql(u"delete from TOTPLU"_s);
  EXPECT_EQ(bien(t.papelera.restaurar(lote)), 1);
  EXPECT_EQ(t.plus(dia), u"1 7 3 30 300 3000");
  EXPECT_FALSE(bien(t.papelera.tirar(lote, 99)));
}

// A sum whose period went in any way: brought back it knows what it holds, and in no case is a
// later sum mixed up with it.
TEST(Papelera, UnaSumaSeDeshaceAunqueSuPeriodoSeHayaIdo) {
  enum Como { kBorrado, kVaciado, kDelTodo, kSustituido };
  for (const Como como : {kBorrado, kVaciado, kDelTodo, kSustituido}) {
    SCOPED_TRACE(como);
    ConPapelera t;
    const qint64 dias[] = {t.crear(kDiario, "04/06/2018"), t.crear(kDiario, "05/06/2018")};
    for (const int i : {0, 1}) t.plu(dias[i], 7, i + 1);
    qint64 suma = 0;
    const auto sumar = [&] {
      t.verTot.ClrSelec();
      for (const qint64 dia : dias) bien(t.verTot.SelecHnd(dia));
      const auto destino = *bien(t.verTot.destinoDeSuma());
      suma = bien(t.verTot.CrearIntvalo(destino.periodo, {})).link;
      const qint64 lote = bien(t.papelera.nuevoLote());
      EXPECT_TRUE(bien(t.verTot.SumarIntv(lote)));
      return std::pair(lote, destino.solapes.size());
    };
    const auto con = [&] {
      return t.leer(u"select sum(CON) from TOTPLU where LINK=%1"_s.arg(suma));
    };
    const qint64 primera = sumar().first;
    ASSERT_EQ(con(), u"3");
    const bool vuelve = como == kBorrado || como == kVaciado;
    if (vuelve) {
      const qint64 lote = bien(t.papelera.nuevoLote());
      bien(como == kBorrado ? t.papelera.tirar(lote, suma) : t.papelera.vaciar(lote, suma));
      ASSERT_EQ(bien(t.papelera.restaurar(lote)), 1);
      EXPECT_EQ(bien(Sumas(t.periodos).contenido(t.col(suma))).size(), 2U);
    } else if (como == kDelTodo) {
      bien(t.periodos.BorrarPeriodo(suma));
    } else {
      bien(t.periodos.VaciarPeriodo(bien(t.periodos.sustituir(t.col(suma), {}))));
    }
    const auto [segunda, solapes] = sumar();
    EXPECT_NE(segunda, primera);
    EXPECT_EQ(solapes, vuelve ? 2U : 0U);
    EXPECT_EQ(con(), vuelve ? u"6" : u"3");
    bien(Sumas(t.periodos).deshacer(suma, segunda));
    EXPECT_EQ(con(), vuelve ? u"3" : u"-");
    EXPECT_EQ(Sumas(t.periodos).deshacer(suma, primera).has_value(), vuelve);
    EXPECT_EQ(con(), u"-");
  }
}

TEST(Periodos, LosMayoresSiguenAlQueCambiaDeFechaODeTotales) {
  ConPapelera t;
  const qint64 dia = t.crear(kDiario, "05/06/2018");
  t.plu(dia, 7, 3);
  ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kSemanal, t.col(dia))));
  bien(aplicarManuales(
      t.periodos, dia,
      {{TipoTotal::PLUs, 1, 7, 0, {1, 0, 50, 0}}, {TipoTotal::OperHora, 1, 5, 9, {2, 0, 20, 0}}}));
  EXPECT_EQ(t.plus(dia + 1), u"1 7 4 30 350 3000");
  bien(t.periodos.CambiarPeriodo(dia, kDiario, momento("12/06/2018"), momento("12/06/2018")));
  EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTPLU where LINK=2"_s), u"0");
  EXPECT_EQ(t.leer(u"select sum([IMP]) from TOTPLU where LINK=3"_s), u"350");
  EXPECT_EQ(t.leer(u"select HORA, CON from TOTOPHOR where LINK=3"_s), u"9 2");
  t.crear(kDiario, "13/06/2018");
  const auto r =
      t.periodos.CambiarPeriodo(dia, kDiario, momento("13/06/2018"), momento("13/06/2018"));
  ASSERT_FALSE(r);
  EXPECT_EQ(r.error().clase, Fallo::Duplicado);
}

// A week at other dates holds none of the days of its former ones: adding them out again would make
// a week of negative rows.
TEST(Periodos, LaSemanaQueCambiaDeFechasSueltaSusDias) {
  for (const bool cambiado : {false, true}) {
    SCOPED_TRACE(cambiado);
    ConPapelera t;
    const qint64 dia = t.crear(kDiario, "05/06/2018");
    t.plu(dia, 7, 3);
    ASSERT_TRUE(bien(t.periodos.AcumularPeriodo(kSemanal, t.col(dia))));
    const qint64 semana = bien(t.periodos.BuscarPeriodo(kSemanal, momento("05/06/2018"), {}))->LINK;
    const Periodo otra = LimitesPeriodo(kSemanal, momento("12/06/2018"), momento("12/06/2018"));
    const auto g = bien(guardarConManuales(t.periodos, semana, otra, {}));
    EXPECT_FALSE(bien(t.periodos.DesacumularPeriodo(kSemanal, t.col(dia))));
    EXPECT_EQ(t.leer(u"select count(*) from COLUMNA"_s), u"2");
    if (cambiado) t.sql(u"update TOTPLU set CON=4 where LINK=1"_s);
    const auto vuelta = deshacerGuardado(t.periodos, g);
    EXPECT_EQ(vuelta.has_value(), !cambiado);
    EXPECT_EQ(t.col(dia).ACUM2, !cambiado);
    EXPECT_EQ(t.col(semana).periodo == otra, cambiado);
  }
}

TEST(ConsultaFilas, SeriesYResumen) {
  ConPapelera t;
  t.articulo({.codigo = 9, .nombre = u"Pan"});
  const qint64 dia = t.crear(kDiario, "05/06/2018"), otro = t.crear(kDiario, "06/06/2018");
  for (const auto& [codigo, n, grupo] : {std::tuple{7, 3, 1}, {9, 2, 1}, {9, 4, 2}})
    t.plu(dia, codigo, n, grupo);
  t.plu(otro, 9, 1);
  for (const int hora : {10, 9}) t.operHora(dia, 5, hora, hora);
  FiltroFilas f;
  f.link = dia, f.clase = TipoTotal::PLUs;
  auto puntos = bien(serie(*t.db, f, 5));
  ASSERT_EQ(puntos.size(), 2U);
  EXPECT_EQ(puntos[0].nombre, u"Pan");
  EXPECT_EQ(puntos[0].importe, 600);
  f.grupo = 1, f.hasta = 8;
  puntos = bien(serie(*t.db, f, 5));
  ASSERT_EQ(puntos.size(), 1U);
  EXPECT_EQ(puntos[0].importe, 300);
  FiltroFilas horas;
  horas.link = dia, horas.clase = TipoTotal::OperHora;
  puntos = bien(serie(*t.db, horas, 1));
  ASSERT_EQ(puntos.size(), 2U);
  EXPECT_EQ(puntos[0].codigo, 9);
  FiltroCodigo c;
  c.codigo = 9, c.seccion = 3;
  const auto dias = bien(evolucion(t.periodos, c));
  ASSERT_EQ(dias.size(), 2U);
  EXPECT_EQ(dias[0].importe, 600);
  const Resumen r = bien(resumir(t.periodos, {dia, otro}));
  EXPECT_EQ(r.grupos, 2);
  EXPECT_EQ(r.filas, 6);
  EXPECT_EQ(r.importe, 1000);
}

TEST(Importacion, SeVeCadaBloqueAntesDeQueEntre) {
  ConPapelera t;
  const qint64 dia = t.crear(kDiario, "05/06/2018");
  t.plu(dia, 7, 3);
  const QByteArray bytes = t.bloque(dia).value();
  const auto f = Importacion::deBytes(t.impTot, bytes + bytes, u"VENTAS.EXP"_s);
  const auto primero = bien(f->siguiente());
  ASSERT_TRUE(primero && primero->existente);
  EXPECT_EQ(primero->existente->LINK, dia);
  EXPECT_EQ(t.plus(dia), u"1 7 3 30 300 3000");
  EXPECT_EQ(bien(f->incorporar(SiExiste::Acumularlo)).lineas, 1);
  EXPECT_EQ(t.plus(dia), u"1 7 6 60 600 6000");
  EXPECT_TRUE(bien(f->siguiente()));
  bien(f->incorporar(SiExiste::Borrarlo));
  EXPECT_FALSE(bien(f->siguiente()));
  EXPECT_EQ(f->leidos(), f->tamano());
}

}  // namespace tarvo::prueba
