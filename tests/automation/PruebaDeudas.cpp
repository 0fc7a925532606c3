// Operations on a period that failed one night are owed, done once, and can be dropped.
#include <QDir>

#include "automation/ConProceso.h"
#include "automation/historia/Pendientes.h"
#include "textos/TextosDePrueba.h"
#include "totals/intercambio/XporTot.h"

namespace tarvo::automation {
namespace {

class ConDeudas : public ConProceso {};

// A discount that fails tonight because of one group is made once the group is corrected.
TEST_F(ConDeudas, LoQueNoSeDescontoSeDescuentaLaNocheSiguiente) {
  const auto noche = [&](const QString& arreglo) {
    const auto p = tienda_.programa();
    EXPECT_TRUE(p->db().ejecutar(arreglo));
    const auto lineas = correr(kNoche, *p);
    fin_ = p->fin.value_or(ResultadoProceso::Abortado);
    tienda_.reloj.avanzar(24LL * 3600 * 1000);
    maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
    return lineas;
  };
  EXPECT_FALSE(noche(u"UPDATE GRUPOS SET SECCION=NULL WHERE CODGPO=2"_s)
                   .filter(u"falta la sección o el almacén de estos grupos: 2."_s)
                   .isEmpty());
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_FALSE(noche(u"UPDATE GRUPOS SET NOMGPO='x'"_s).filter(u"Sigue pendiente"_s).isEmpty());
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_TRUE(tienda_.libros().filter(u"MovsAlm"_s).isEmpty());
  EXPECT_EQ(noche(u"UPDATE GRUPOS SET SECCION=1"_s).filter(u"se ha hecho ahora"_s).size(), 2);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_TRUE(tienda_.libros().contains(u"MovsAlm: 1|7|1700"_s))
      << tienda_.libros().join(u'\n').toStdString();
  EXPECT_TRUE(noche(u"UPDATE GRUPOS SET NOMGPO='y'"_s).filter(u"se ha hecho ahora"_s).isEmpty());
}

// A file that can't be written tonight gets this night's block tomorrow, once, before tomorrow's.
TEST_F(ConDeudas, LoQueNoSeExportoSeExportaLaNocheSiguiente) {
  const QString exportado = tienda_.dir.filePath(u"VENTAS.EXP"_s);
  const auto noche = [&](const QString& destino) {
    const auto lineas = correr(QString(kNoche).replace(u"VENTAS"_s, destino));
    tienda_.reloj.avanzar(24LL * 3600 * 1000);
    maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
    return lineas;
  };
  ASSERT_TRUE(QDir().mkpath(exportado));
  for (const int nueva : {0, 1}) {
    EXPECT_EQ(noche(u"VENTAS"_s).filter(u"Sigue pendiente"_s).size(), nueva);
    EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  }
  ASSERT_TRUE(QDir(exportado).removeRecursively());
  // Another file is not the one that waits.
  EXPECT_TRUE(noche(u"OTRO"_s).filter(u"pendiente"_s).isEmpty());
  EXPECT_EQ(tienda_.texto(u"OTRO.EXP"_s).count(u"*Ventas"_s), 1);
  EXPECT_EQ(noche(u"VENTAS"_s).filter(u"se ha hecho ahora"_s).size(), 2);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"*Ventas"_s), 3);
  EXPECT_TRUE(noche(u"VENTAS"_s).filter(u"se ha hecho ahora"_s).isEmpty());
  EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"*Ventas"_s), 4);
}

// A debt is paid into its own file only, by whoever exports there, and only once.
TEST_F(ConDeudas, LaDeudaEsDelFicheroYNoDelPaso) {
  const auto p = tienda_.programa();
  p->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"lunes"});
  const auto exportar = [&](const QString& pasos, const QString& proceso = u"NOCHE"_s) {
    p->lineas.clear();
    p->correr(u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\n"_s + pasos, {}, proceso);
    EXPECT_TRUE(p->hastaElFin());
    return p->lineas;
  };
  const auto veces = [&](const QString& fichero) {
    return tienda_.texto(fichero).count(u"*lunes"_s);
  };
  const QString a = u"E:TOTALIZA,No,No,A\r\n"_s, b = u"E:TOTALIZA,No,No,B\r\n"_s;
  ASSERT_TRUE(QDir(tienda_.dir.path()).mkpath(u"A.EXP"_s));
  exportar(a + b);
  EXPECT_EQ(veces(u"B.EXP"_s), 1);
  // The first step is gone: the second doesn't take over its debt.
  EXPECT_TRUE(exportar(u"P:LIMPIAR\r\n"_s + b).filter(u"pendiente"_s).isEmpty());
  EXPECT_EQ(veces(u"B.EXP"_s), 1);
  EXPECT_EQ(Pendientes(p->db()).todos()->size(), 1U);
  // A period that another file waits for isn't deleted.
  EXPECT_EQ(exportar(u"E:TOTALIZA,No,Sí,C\r\n"_s).filter(u"Se borrará cuando"_s).size(), 1);
  EXPECT_EQ(veces(u"C.EXP"_s), 1);
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 1);
  ASSERT_TRUE(QDir(tienda_.dir.path()).rmdir(u"A.EXP"_s));
  EXPECT_EQ(exportar(u"P:LIMPIAR\r\n"_s + a, u"OTRO"_s).filter(u"se ha hecho ahora"_s).size(), 1);
  EXPECT_EQ(veces(u"A.EXP"_s), 1);
  exportar(u"P:LIMPIAR\r\n"_s + a);
  EXPECT_EQ(veces(u"A.EXP"_s), 1);
}

// A shop with a period that VENTAS.EXP waits for, because it can't be written yet.
class ConBorrado : public ConDeudas {
 protected:
  void SetUp() override {
    p_ = tienda_.programa();
    p_->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"lunes"})
        .total(u"TOTPLU", {.link = 7, .codi = 7, .con = 1, .pes = 1});
    atascar();
  }
  void atascar() {
    QFile::remove(tienda_.dir.filePath(u"VENTAS.EXP"_s));
    ASSERT_TRUE(QDir(tienda_.dir.path()).mkpath(u"VENTAS.EXP"_s));
  }
  void desatascar() { QDir(tienda_.dir.path()).rmdir(u"VENTAS.EXP"_s); }
  QStringList exportar(const QString& opciones, const QString& fichero, bool elegido = true) {
    p_->lineas.clear();
    correr((elegido ? u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\n"_s : u"P:LIMPIAR\r\n"_s) +
               u"E:TOTALIZA,No,%1,%2\r\n"_s.arg(opciones, fichero),
           *p_);
    return p_->lineas;
  }
  qint64 periodos() { return p_->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(); }
  std::unique_ptr<Programa> p_;
};

// An export that deletes lets the period wait for all that is owed of it, and it goes with the last
// debt, however that is paid.
TEST_F(ConBorrado, SeBorraAlPagarseLoUltimoQueSeDebe) {
  exportar(u"No"_s, u"VENTAS"_s);
  EXPECT_EQ(exportar(u"Sí"_s, u"OTRO"_s).filter(u"Se borrará cuando"_s).size(), 1);
  EXPECT_EQ(periodos(), 1);
  EXPECT_EQ(Pendientes(p_->db()).todos()->back().que, Pendientes::Debido::Que::Borrar);
  desatascar();
  EXPECT_EQ(exportar(u"No"_s, u"VENTAS"_s, false).filter(u"se borra como se pidió"_s).size(), 1);
  EXPECT_EQ(p_->fin, ResultadoProceso::Problemas) << "nothing was selected";
  EXPECT_EQ(periodos(), 0);
  for (const QString& fichero : {u"VENTAS.EXP"_s, u"OTRO.EXP"_s})
    EXPECT_EQ(tienda_.texto(fichero).count(u"*lunes"_s), 1) << fichero.toStdString();
  EXPECT_TRUE(Pendientes(p_->db()).todos()->empty());
}

TEST_F(ConBorrado, TambienEsperaALaSemana) {
  Pendientes libro(p_->db());
  exportar(u"No"_s, u"OTRO"_s);
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Acumular, 4}, {7}));
  exportar(u"Sí"_s, u"OTRO"_s);
  EXPECT_EQ(periodos(), 1);
  p_->lineas.clear();
  correr(u"P:LIMPIAR\r\nP:ACUMULAR,4\r\n"_s, *p_);
  EXPECT_EQ(p_->lineas.filter(u"se borra como se pidió"_s).size(), 1);
  EXPECT_EQ(p_->uno(u"SELECT group_concat(TIPO) FROM COLUMNA"_s).texto(), u"4");
}

// A person who pays without deleting leaves that to the next night, and can take it off the list.
TEST_F(ConBorrado, LoQuePagaUnaPersonaLoBorraLaNoche) {
  stock::Almacenes almacenes(p_->db(), p_->reloj(), textosDePrueba());
  totals::Periodos motor(p_->db(), p_->ajustes(), almacenes, textosDePrueba());
  for (const bool olvida : {true, false}) {
    atascar();
    exportar(u"Sí"_s, u"VENTAS"_s);
    EXPECT_TRUE(Pendientes(p_->db()).todos()->front().luegoSeBorra);
    desatascar();
    ASSERT_TRUE(totals::XporTot(motor).XportRemoto({7}, {}, u"VENTAS"_s, {}));
    EXPECT_EQ(periodos(), 1);
    Pendientes libro(p_->db());
    const auto todos = libro.todos();
    ASSERT_EQ(todos->size(), 1U);
    EXPECT_EQ(todos->front().que, Pendientes::Debido::Que::Borrar);
    if (olvida) {
      EXPECT_TRUE(*libro.olvidar(todos->front()));
    }
    exportar(u"No"_s, u"OTRO"_s, false);
    EXPECT_EQ(periodos(), olvida ? 1 : 0);
  }
}

// Only a period that somebody wants deleted is, and only with the sales that the file got.
TEST_F(ConBorrado, NoSeBorraLoQueNadiePidioNiLoQueHaCambiado) {
  exportar(u"No"_s, u"VENTAS"_s);
  desatascar();
  exportar(u"Sí"_s, u"VENTAS"_s, false);
  EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"*lunes"_s), 1);
  EXPECT_EQ(periodos(), 1) << "the step would delete its own periods, and has none";
  atascar();
  exportar(u"No"_s, u"VENTAS"_s);
  exportar(u"Sí"_s, u"OTRO"_s);
  p_->sql(u"UPDATE TOTPLU SET PES=2"_s);
  exportar(u"Sí"_s, u"OTRO"_s);
  desatascar();
  EXPECT_EQ(exportar(u"No"_s, u"VENTAS"_s, false).filter(u"han cambiado después"_s).size(), 1);
  EXPECT_EQ(periodos(), 1) << "OTRO.EXP has a block without the correction";
}

// A period that waits for its deletion goes into its file once, however often it is selected.
TEST_F(ConBorrado, LoQueEsperaNoSeEscribeOtraVez) {
  exportar(u"No"_s, u"VENTAS"_s);
  for (int noche = 0; noche < 3; ++noche)
    EXPECT_EQ(exportar(u"Sí"_s, u"OTRO"_s).filter(u"Ya está en OTRO.EXP"_s).size(),
              noche == 0 ? 0 : 1);
  EXPECT_EQ(tienda_.texto(u"OTRO.EXP"_s).count(u"*lunes"_s), 1);
  p_->sql(u"UPDATE TOTPLU SET PES=2"_s);
  exportar(u"Sí"_s, u"OTRO"_s);
  EXPECT_EQ(tienda_.texto(u"OTRO.EXP"_s).count(u"*lunes"_s), 2) << "it holds something else";
}

// Nothing is promised of a period that an earlier step has deleted.
TEST_F(ConBorrado, LoQueBorroElPasoAnteriorNoSeDebe) {
  p_->lineas.clear();
  correr(
      u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,Sí,OTRO\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s,
      *p_);
  EXPECT_EQ(p_->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(p_->lineas.filter(u"un paso anterior lo borró"_s).size(), 1);
  EXPECT_EQ(p_->lineas.filter(u"Queda pendiente"_s).size(), 0);
}

// Killed at any moment of the export that deletes or of the one that pays, and started again.
TEST(Deudas, UnCorteNoPierdeElBorradoNiElPeriodo) {
  int cortes = 0;
  for (bool cortado = true; cortado; ++cortes) {
    TiendaDeProcesos tienda;
    const auto vida = [&tienda](const QString& proceso, int corteEn) {
      const auto p = tienda.programa(corteEn);
      try {
        p->correr(proceso);
        return !p->hastaElFin();
      } catch (const Corte&) {
        return true;
      }
    };
    ASSERT_TRUE(QDir(tienda.dir.path()).mkpath(u"VENTAS.EXP"_s));
    tienda.programa()->periodo(
        {.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"lunes"});
    const QString elegir = u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\n"_s;
    ASSERT_FALSE(vida(elegir + u"E:TOTALIZA,No,No,VENTAS\r\n"_s, 0));
    ASSERT_TRUE(QDir(tienda.dir.path()).rmdir(u"VENTAS.EXP"_s));
    const QString proceso =
        elegir + u"E:TOTALIZA,No,Sí,OTRO\r\nP:LIMPIAR\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s;
    cortado = vida(proceso, cortes + 1);
    if (cortado) {
      ASSERT_FALSE(vida(proceso, 0));
    }
    EXPECT_EQ(tienda.programa()->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 0) << cortes;
    for (const QString& fichero : {u"VENTAS.EXP"_s, u"OTRO.EXP"_s})
      EXPECT_EQ(tienda.texto(fichero).count(u"*lunes"_s), 1) << cortes << fichero.toStdString();
  }
  EXPECT_GT(cortes, 10);
}

// Killed at any moment of an export that deletes at once, and started again: nothing is amiss.
TEST(Deudas, UnCorteDeLoQueSeBorraNoAcusaANadie) {
  int cortes = 0;
  for (bool cortado = true; cortado; ++cortes) {
    TiendaDeProcesos tienda;
    tienda.programa()->periodo(
        {.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"lunes"});
    const QString proceso = u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,Sí,OTRO\r\n"_s;
    cortado = false;
    try {
      const auto p = tienda.programa(cortes + 1);
      p->correr(proceso);
      EXPECT_TRUE(p->hastaElFin());
    } catch (const Corte&) {
      cortado = true;
    }
    const auto p = tienda.programa();
    if (cortado) {
      p->correr(proceso);
      EXPECT_TRUE(p->hastaElFin());
      EXPECT_EQ(p->fin, ResultadoProceso::Bien) << p->lineas.join(u'\n').toStdString();
    }
    EXPECT_EQ(tienda.texto(u"OTRO.EXP"_s).count(u"*lunes"_s), 1) << cortes;
  }
  EXPECT_GT(cortes, 5);
}

// A name that contains the date means another file every night: the debt goes to that of its night.
TEST_F(ConDeudas, UnNombreConFechaPagaEnElFicheroDeSuDia) {
  const QString proceso =
      QString(kNoche).replace(u"E:TOTALIZA,No,No,VENTAS"_s, u"E:TOTALIZA,No,No"_s);
  ASSERT_TRUE(QDir(tienda_.dir.path()).mkpath(u"EX260304.EXP"_s));
  correr(proceso);
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  tienda_.reloj.avanzar(24LL * 3600 * 1000);
  maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
  ASSERT_TRUE(QDir(tienda_.dir.path()).rmdir(u"EX260304.EXP"_s));
  EXPECT_EQ(correr(proceso).filter(u"se ha hecho ahora"_s).size(), 1);
  for (const QString& fichero : {u"EX260304.EXP"_s, u"EX260305.EXP"_s})
    EXPECT_EQ(tienda_.texto(fichero).count(u"*Ventas"_s), 1) << fichero.toStdString();
}

// Corrected dates change nothing about what is owed; exporting by hand to that file pays it.
TEST_F(ConDeudas, LaDeudaSigueAlPeriodoYLaPagaUnaPersona) {
  const auto p = tienda_.programa();
  p->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"x"})
      .periodo({.link = 8, .tipo = 5, .desde = 43010, .hasta = 43011, .descr = u"y"});
  stock::Almacenes almacenes(p->db(), p->reloj(), textosDePrueba());
  totals::Periodos periodos(p->db(), p->ajustes(), almacenes, textosDePrueba());
  totals::XporTot xporTot(periodos);
  correr(u"N:x"_s, *p);
  Pendientes libro(p->db());
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Acumular, 2}, {7}));
  ASSERT_TRUE(QDir(tienda_.dir.path()).mkpath(u"VENTAS.EXP"_s));
  correr(u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  ASSERT_TRUE(
      periodos.CambiarPeriodo(7, 5, Fecha::de(QDate(2017, 9, 24)), Fecha::de(QDate(2017, 9, 25))));
  ASSERT_TRUE(libro.limpiar());
  EXPECT_EQ(libro.todos()->size(), 3U);
  EXPECT_EQ(periodos.debidosDe(7)->size(), 2);
  // Nor does a new version of the period.
  const auto nuevo = periodos.sustituir(**periodos.columna(7), u"x"_s);
  ASSERT_TRUE(nuevo && *nuevo != 7);
  ASSERT_TRUE(libro.limpiar());
  EXPECT_EQ(periodos.debidosDe(*nuevo)->size(), 2);
  ASSERT_TRUE(QDir(tienda_.dir.path()).rmdir(u"VENTAS.EXP"_s));
  // By hand into another file: it isn't the one owed, and the period stays.
  const auto otro = xporTot.XportRemoto({*nuevo}, {.borrar = true}, u"OTRO"_s, {});
  ASSERT_FALSE(otro);
  EXPECT_EQ(otro.error().clase, Fallo::Restriccion);
  EXPECT_EQ(periodos.debidosDe(*nuevo)->size(), 2);
  ASSERT_TRUE(xporTot.XportRemoto({*nuevo}, {}, u"VENTAS"_s, {}));
  EXPECT_EQ(periodos.debidosDe(*nuevo)->size(), 1);
  p->lineas.clear();
  correr(u"P:LIMPIAR\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  const QString ventas = tienda_.texto(u"VENTAS.EXP"_s);
  EXPECT_EQ(ventas.count(u"*x"_s), 1);
  EXPECT_EQ(ventas.count(u"*y"_s), 1);
}

// The mark of an export goes with the record of its run, but that of a debt stays.
TEST_F(ConDeudas, LasMarcasDeLosExportesViejosSeBorran) {
  const auto p = tienda_.programa();
  correr(u"N:x"_s, *p);
  p->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"x"});
  for (const char16_t* marca : {u"1.3.7", u"2.3.7", u"51.3.7", u"52.3.7"})
    p->sql(u"INSERT INTO Exportes (MARCA, RUTA, HECHO) VALUES ('%1', 'x', 1)"_s.arg(
        QString::fromUtf16(marca)));
  p->sql(
      u"INSERT INTO ExportesPendientes (PROCESO, ORDEN, MARCA, LINK, FECHA1, FECHAF) VALUES "
      u"('OTRO', 1, '2.3.7', 7, 43000, 43001)"_s);
  p->sql(u"INSERT OR REPLACE INTO EstadoTarvo (CLAVE, VALOR) VALUES ('Ejecucion', 150)"_s);
  correr(u"N:x"_s, *p);
  EXPECT_EQ(p->uno(u"SELECT group_concat(MARCA, ' ') FROM (SELECT MARCA FROM Exportes ORDER BY "
                   u"MARCA)"_s)
                .texto(),
            u"2.3.7 52.3.7");
}

// Owed once however often it was tried, and whichever step exports it into that file.
TEST_F(ConDeudas, UnPeriodoSeDebeUnaSolaVez) {
  for (const bool borrar : {false, true}) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    p->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .descr = u"x"})
        .periodo({.link = 8, .tipo = 5, .desde = 43002, .hasta = 43003, .descr = u"y"})
        .total(u"TOTGRT", {.link = 7, .codi = 1, .con = 10000000});
    const QString proceso =
        u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,%1,VENTAS\r\n"_s.arg(
            borrar ? u"Sí"_s : u"No"_s);
    for (int vez = 0; vez < 3; ++vez) {
      p->lineas.clear();
      correr(vez < 2 ? proceso : proceso + u"N:editado\r\n"_s, *p);
      EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
      EXPECT_EQ(p->lineas.filter(u"Queda pendiente"_s).size(), vez == 0 ? 1 : 0);
      EXPECT_EQ(p->lineas.filter(u"Sigue pendiente"_s).size(), vez == 0 ? 0 : 1);
    }
    p->correr(proceso, {}, u"OTRO"_s);
    EXPECT_TRUE(p->hastaElFin());
    // Deleted, it would take its debt along.
    p->lineas.clear();
    p->correr(u"P:BORRAR,5,21/09/2017,23/09/2017\r\n"_s, {}, u"LIMPIA"_s);
    EXPECT_TRUE(p->hastaElFin());
    EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
    EXPECT_EQ(p->lineas.filter(u"No se borra, porque se debe algo todavía"_s).size(), 1);
    p->sql(u"UPDATE TOTGRT SET CON=1"_s);
    const auto antes = tienda.texto(u"VENTAS.EXP"_s);
    EXPECT_FALSE(antes.contains(u"*x"_s));
    EXPECT_EQ(antes.count(u"*y"_s), borrar ? 1 : 4) << "the other period is not held back";
    for (int vez = 0; vez < 2; ++vez) {
      p->lineas.clear();
      correr(u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nE:TOTALIZA,No,%1,VENTAS\r\n"_s.arg(
                 borrar ? u"Sí"_s : u"No"_s),
             *p);
      if (vez == 0) {
        EXPECT_EQ(p->fin, ResultadoProceso::Bien) << p->lineas.join(u'\n').toStdString();
      }
      EXPECT_EQ(tienda.texto(u"VENTAS.EXP"_s).count(u"*x"_s), borrar ? 1 : 1 + vez);
    }
    EXPECT_EQ(p->uno(u"SELECT count(*) FROM ExportesPendientes"_s).entero(), 0);
  }
}

// A period that is selected again is tried once.
TEST_F(ConDeudas, LoElegidoDeNuevoSeIntentaUnaVez) {
  const auto p = tienda_.programa();
  p->periodo({.link = 7, .tipo = 5, .desde = 43000, .hasta = 43001, .stkABLE = 1})
      .total(u"TOTPLU", {.link = 7, .codi = 7, .con = 1, .pes = 1});
  p->sql(u"UPDATE GRUPOS SET SECCION=NULL WHERE CODGPO=1"_s);
  for (int vez = 0; vez < 2; ++vez) {
    p->lineas.clear();
    correr(u"P:SELECCIONAR,5,01/01/2000,01/01/2100\r\nP:STOCK\r\n"_s, *p);
    EXPECT_EQ(p->lineas.filter(u"Queda pendiente"_s).size(), 1);
    EXPECT_EQ(p->lineas.filter(u"Sigue pendiente"_s).size(), 0);
  }
}

// The number of a deleted period was given to another one, for which nothing is owed.
TEST_F(ConDeudas, UnNumeroDadoDeNuevoNoHeredaDeudas) {
  const auto p = tienda_.programa();
  correr(u"N:x"_s, *p);
  const auto periodo = [&](int dia) {
    p->sql(u"DELETE FROM COLUMNA"_s);
    p->periodo({.link = 7, .desde = dia, .hasta = dia + 0.9, .stkABLE = 1});
  };
  periodo(43000);
  p->total(u"TOTPLU", {.link = 7, .codi = 7, .con = 1, .pes = 1});
  Pendientes libro(p->db());
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Stock, 0}, {7}));
  ASSERT_TRUE(libro.anotarExporte({u"NOCHE"_s, u"x"_s, u"x.EXP"_s, {}}, {u"1.1.7"_s, {}, 7, {}}));
  periodo(43001);
  EXPECT_TRUE(libro.todos()->empty());
  p->lineas.clear();
  correr(u"P:STOCK\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  EXPECT_TRUE(p->lineas.filter(u"pendiente"_s).isEmpty()) << p->lineas.join(u'\n').toStdString();
  EXPECT_TRUE(tienda_.texto(u"VENTAS.EXP"_s).isEmpty());
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM MovsAlm"_s).entero(), 0);
}

TEST_F(ConDeudas, LoQueNoPuedeHacerseLoOlvidaUnaPersona) {
  const auto p = tienda_.programa();
  p->periodo({.link = 7, .desde = 43000, .hasta = 43000 + Fecha::kUltimoSegundo, .descr = u"x"})
      .total(u"TOTGRT", {.link = 7, .codi = 1, .con = 10000000});
  correr(u"P:SELECCIONAR,1,22/09/2017,22/09/2017\r\nE:TOTALIZA,No,No,VENTAS\r\n"_s, *p);
  Pendientes libro(p->db());
  ASSERT_TRUE(libro.anotar({VerboPeriodos::Acumular, 2}, {7}));
  auto todos = libro.todos();
  ASSERT_TRUE(todos);
  ASSERT_EQ(todos->size(), 2U);
  EXPECT_EQ(todos->at(0).proceso, u"NOCHE");
  EXPECT_EQ(todos->at(0).fichero, u"VENTAS.EXP");
  EXPECT_EQ(todos->at(1).que, Pendientes::Debido::Que::Acumular);
  EXPECT_EQ(todos->at(1).mayor, 2);
  for (const auto& debido : *todos) {
    EXPECT_EQ(debido.descripcion, u"x");
    EXPECT_TRUE(*libro.olvidar(debido));
    EXPECT_FALSE(*libro.olvidar(debido));
  }
  p->lineas.clear();
  correr(u"P:LIMPIAR\r\nE:TOTALIZA,No,No,VENTAS\r\nP:ACUMULAR,2\r\n"_s, *p);
  EXPECT_TRUE(p->lineas.filter(u"pendiente"_s).isEmpty()) << p->lineas.join(u'\n').toStdString();
}

}  // namespace
}  // namespace tarvo::automation
