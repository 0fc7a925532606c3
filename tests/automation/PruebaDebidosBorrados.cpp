// What nights owe of a period that a process or a person deletes, or that a person exports; and
// what is told of a debt that can't be paid.
#include <QDir>

#include "automation/ConProceso.h"
#include "automation/historia/Pendientes.h"
#include "textos/TextosDePrueba.h"
#include "totals/intercambio/XporTot.h"
#include "totals/periodos/Papelera.h"

namespace tarvo::automation {
namespace {

// A shop with two periods; of the first one something may be owed.
class ConDebidos : public ConProceso {
 protected:
  using Que = Pendientes::Debido::Que;
  ConDebidos() {
    for (const int i : {0, 1})
      p_->periodo({.link = 7 + i,
                   .tipo = 5,
                   .desde = 43000 + 2 * i,
                   .hasta = 43001 + 2 * i,
                   .descr = i == 0 ? u"uno" : u"dos",
                   .stkABLE = 1})
          .total(u"TOTPLU", {.link = 7 + i, .grupo = 1 + i, .codi = 7, .con = 1, .pes = 1});
    EXPECT_TRUE(libro_.todos());
  }
  QStringList hacer(const QString& proceso) {
    p_->lineas.clear();
    return correr(proceso, *p_);
  }
  void deber(Que que) {
    if (que == Que::Exportar) {
      EXPECT_TRUE(libro_.anotarExporte({u"NOCHE"_s, u"VENTAS"_s, u"VENTAS.EXP"_s, {}},
                                       {u"1.1.7"_s, u"VENTAS.EXP"_s, 7, {}}));
    } else {
      const bool acumular = que == Que::Acumular;
      EXPECT_TRUE(libro_.anotar(
          {acumular ? VerboPeriodos::Acumular : VerboPeriodos::Stock, acumular ? 4 : 0}, {7}));
    }
  }
  size_t debidos() { return libro_.todos()->size(); }
  void atascar() { EXPECT_TRUE(QDir(tienda_.dir.path()).mkpath(u"VENTAS.EXP"_s)); }
  void desatascar() { EXPECT_TRUE(QDir(tienda_.dir.path()).rmdir(u"VENTAS.EXP"_s)); }

  std::unique_ptr<Programa> p_ = tienda_.programa();
  stock::Almacenes almacenes_{p_->db(), p_->reloj(), textosDePrueba()};
  totals::Periodos periodos_{p_->db(), p_->ajustes(), almacenes_, textosDePrueba()};
  Pendientes libro_{p_->db()};
};

const QString kTodos = u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\n"_s;

TEST_F(ConDebidos, UnProcesoNoBorraAquelloDeLoQueSeDebeAlgo) {
  static constexpr struct {
    Que que;
    const char16_t* dicho;
  } kCasos[] = {{Que::Exportar, u"exportarlo a VENTAS.EXP"},
                {Que::Acumular, u"acumularlo en el periodo ANUAL"},
                {Que::Descontar, u"descontarlo del stock"}};
  const QString borrar = u"P:BORRAR,5,01/01/2000,01/01/2100\r\n"_s;
  for (const auto& c : kCasos) {
    deber(c.que);
    const auto lineas = hacer(borrar).filter(u"No se borra, porque se debe algo todavía"_s);
    ASSERT_EQ(lineas.size(), 1);
    EXPECT_TRUE(lineas[0].contains(QStringView(c.dicho))) << lineas[0].toStdString();
    EXPECT_EQ(p_->fin, ResultadoProceso::Problemas);
    EXPECT_EQ(p_->uno(u"SELECT group_concat(LINK) FROM COLUMNA"_s).texto(), u"7");
    ASSERT_EQ(debidos(), 1U);
    EXPECT_TRUE(*libro_.olvidar(libro_.todos()->front()));
  }
  // What a person has done since isn't owed any more.
  deber(Que::Descontar);
  p_->sql(u"UPDATE COLUMNA SET stkADO=1"_s);
  hacer(borrar);
  EXPECT_EQ(p_->fin, ResultadoProceso::Bien);
  EXPECT_EQ(p_->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 0);
}

// The parts of a sum stay until it is made: its target was missing.
TEST_F(ConDebidos, NiLasPartesDeUnaSumaQueNoSeHizo) {
  hacer(kTodos + u"P:SUMAR\r\nP:BORRAR,5,01/01/2000,01/01/2100\r\n"_s);
  EXPECT_EQ(p_->uno(u"SELECT group_concat(LINK) FROM COLUMNA"_s).texto(), u"7,8");
  EXPECT_EQ(p_->fin, ResultadoProceso::Problemas);
  ASSERT_EQ(debidos(), 2U);
  EXPECT_EQ(libro_.todos()->front().que, Que::Sumar);
  hacer(kTodos + u"P:CREAR,2,18/09/2017,,t\r\nP:SUMAR\r\n"_s);
  EXPECT_EQ(p_->uno(u"SELECT sum(CON) FROM TOTPLU"_s).entero(), 4);
  EXPECT_EQ(debidos(), 0U);
}

// A night between the deletion and its undoing forgets nothing, until the period is gone for good.
TEST_F(ConDebidos, LoDebidoVuelveConElPeriodo) {
  for (const Que que : {Que::Exportar, Que::Acumular, Que::Descontar}) deber(que);
  totals::XporTot xporTot(periodos_);
  ASSERT_TRUE(xporTot.entregados().anotar(7, u"OTRO.EXP"_s));
  ASSERT_EQ(debidos(), 4U);
  totals::Papelera papelera(periodos_);
  const QString noche =
      u"P:ACUMULAR,4\r\nP:STOCK\r\nP:SELECCIONAR,5,24/09/2017,01/01/2100\r\n"
      u"E:TOTALIZA,No,No,VENTAS\r\n"_s;
  const auto cuantas = [this] {
    return p_
        ->uno(
            u"SELECT (SELECT count(*) FROM ExportesPendientes) + (SELECT count(*) FROM "
            u"PeriodosPendientes) + (SELECT count(*) FROM BorradosPendientes)"_s)
        .entero();
  };
  for (const auto& [vaciado, vuelve] : {std::pair{true, true}, {false, true}, {false, false}}) {
    const qint64 lote = *papelera.nuevoLote();
    ASSERT_TRUE(*(vaciado ? papelera.vaciar(lote, 7) : papelera.tirar(lote, 7)));
    EXPECT_EQ(debidos(), vaciado ? 4U : 0U) << "nobody tries it meanwhile";
    ASSERT_TRUE(xporTot.entregados().anotar(8, u"OTRO.EXP"_s));
    hacer(noche);
    EXPECT_FALSE(tienda_.texto(u"VENTAS.EXP"_s).contains(u"*uno"_s));
    if (vuelve) {
      EXPECT_EQ(*papelera.restaurar(lote), 1);
      EXPECT_EQ(debidos(), 4U);
      continue;
    }
    ASSERT_TRUE(papelera.vaciarla());
    p_->periodo({.link = 8, .tipo = 5, .desde = 43002, .hasta = 43003});
    hacer(noche);
    EXPECT_EQ(cuantas(), 0);
  }
}

// The block and what it pays are one: neither is there without the other.
TEST_F(ConDebidos, LoQueExportaUnaPersonaCuentaYPagaALaVez) {
  totals::XporTot xporTot(periodos_);
  for (const bool borrar : {false, true}) {
    deber(Que::Exportar);
    p_->sql(
        u"CREATE TRIGGER corte BEFORE DELETE ON ExportesPendientes BEGIN SELECT "
        u"RAISE(ABORT, 'corte'); END"_s);
    ASSERT_FALSE(xporTot.XportRemoto({7}, {.borrar = borrar}, u"VENTAS"_s, {}));
    EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"*uno"_s), borrar ? 1 : 0);
    EXPECT_EQ(debidos(), 1U);
    p_->sql(u"DROP TRIGGER corte"_s);
    if (borrar) {
      ASSERT_TRUE(xporTot.XportRemoto({7}, {.borrar = true}, u"VENTAS"_s, {}));
      EXPECT_FALSE(*periodos_.columna(7));
    } else {
      hacer(u"P:LIMPIAR\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s);
    }
    EXPECT_EQ(debidos(), 0U);
    EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"*uno"_s), borrar ? 2 : 1);
  }
}

// Owed for the same reason, that is told once; owed it is each night.
TEST_F(ConDebidos, ElMotivoDeLoQueSeDebeSeDiceUnaVez) {
  p_->sql(u"UPDATE TOTPLU SET CON=10000000 WHERE LINK=7"_s);
  const auto noche = [&](bool elegido) {
    const auto lineas =
        hacer((elegido ? kTodos : u"P:LIMPIAR\r\n"_s) + u"E:TOTALIZA,No,No,VENTAS\r\n"_s);
    EXPECT_EQ(p_->fin, ResultadoProceso::Problemas);
    return lineas;
  };
  const QString motivo = u"demasiado grande"_s;
  EXPECT_EQ(noche(true).filter(motivo).size(), 1);
  const QString dicho = libro_.todos()->front().motivo;
  EXPECT_TRUE(dicho.contains(motivo)) << dicho.toStdString();
  for (const bool elegido : {true, false}) {
    const auto lineas = noche(elegido);
    EXPECT_EQ(lineas.filter(motivo).size(), 0) << lineas.join(u'\n').toStdString();
    EXPECT_EQ(lineas.filter(u"por lo mismo"_s).size(), 1);
  }
  QFile::remove(tienda_.dir.filePath(u"VENTAS.EXP"_s));
  atascar();
  EXPECT_EQ(noche(false).filter(u"por lo mismo"_s).size(), 0) << "another reason";
  EXPECT_EQ(noche(false).filter(u"por lo mismo"_s).size(), 1);
  desatascar();
  EXPECT_EQ(noche(false).filter(motivo).size(), 1);
}

// One that can't be done holds the others back for one night.
// A period made anew with the dates of one that left with its block: both blocks count.
TEST_F(ConDebidos, OtroBloqueDeLasMismasFechasSeDice) {
  const QString exportar = kTodos + u"E:TOTALIZA,No,Sí,VENTAS\r\n"_s;
  EXPECT_TRUE(hacer(exportar).filter(u"de un periodo que se borró"_s).isEmpty());
  ASSERT_EQ(p_->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 0);
  p_->periodo({.link = 9, .tipo = 5, .desde = 43000, .hasta = 43001});
  const auto lineas = hacer(exportar);
  ASSERT_EQ(lineas.filter(u"de un periodo que se borró"_s).size(), 1)
      << lineas.join(u'\n').toStdString();
  EXPECT_EQ(p_->fin, ResultadoProceso::Problemas);
}

TEST_F(ConDebidos, UnoMaloNoRetieneALosDemas) {
  p_->sql(u"UPDATE GRUPOS SET SECCION=NULL WHERE CODGPO=2"_s);
  EXPECT_EQ(hacer(kTodos + u"P:STOCK\r\n"_s).filter(u"Queda pendiente"_s).size(), 2);
  EXPECT_EQ(p_->uno(u"SELECT sum(stkADO) FROM COLUMNA"_s).entero(), 0);
  const auto lineas = hacer(u"P:LIMPIAR\r\nP:STOCK\r\n"_s);
  EXPECT_EQ(lineas.filter(u"se ha hecho ahora"_s).size(), 1);
  EXPECT_EQ(lineas.filter(u"Sigue pendiente"_s).size(), 1);
  EXPECT_EQ(p_->uno(u"SELECT group_concat(LINK) FROM COLUMNA WHERE stkADO>0"_s).texto(), u"7");
}

}  // namespace
}  // namespace tarvo::automation
