// The runner on the real rooms: steps, messages, trace, phases.
#include <QDir>

#include "automation/ConProceso.h"

namespace tarvo::automation {
namespace {

TEST_F(ConProceso, UnaNocheEntera) {
  const auto lineas = correr(kNoche);
  EXPECT_EQ(fin_, ResultadoProceso::Bien) << lineas.join(u'\n').toStdString();
  ASSERT_EQ(lineas.size(), 5) << lineas.join(u'\n').toStdString();
  EXPECT_EQ(lineas[0], u"Ejecución iniciada: 04/03/2026 22:00:00");
  EXPECT_EQ(
      lineas[1],
      u"    Grupo 0001 Tienda: recogido Totales por artículos, Gran Total; memorizado 25,00 en 4 "
      u"de marzo de 2026; puesto a cero");
  EXPECT_EQ(lineas[3], u"    Exportado en VENTAS.EXP: 1 periodo");
  EXPECT_TRUE(lineas[4].startsWith(u"Ejecución finalizada: 04/03/2026 22:0"));
  EXPECT_EQ(tienda_.texto(u"NOCHE.TZA"_s), lineas.join(u"\r\n") + u"\r\n"_s);
  EXPECT_EQ(maquinasDePrueba().ceros, 2);
  const auto libros = tienda_.libros();
  EXPECT_EQ(libros.filter(u"2500"_s).size(), 4)
      << libros.join(u'\n').toStdString();  // day and week, two kinds
  EXPECT_EQ(tienda_.texto(u"VENTAS.EXP"_s).count(u"\r\n"_s), 6);
  EXPECT_TRUE(libros.contains(u"MovsAlm: 1|7|1500"_s)) << libros.join(u'\n').toStdString();
}

// A line reported to any listener, another program included, is already in the file.
TEST_F(ConProceso, LoQueSeDiceEstaYaEnElFichero) {
  const auto p = tienda_.programa();
  QStringList faltan;
  int dichas = 0;
  p->automat().alEscribir = [&](const QString& l) {
    ++dichas;
    if (!tienda_.texto(u"NOCHE.TZA"_s).contains(l + u"\r\n"_s)) faltan += l;
  };
  correr(kNoche, *p);
  EXPECT_EQ(dichas, 5);
  EXPECT_TRUE(faltan.isEmpty()) << faltan.join(u'\n').toStdString();
}

struct CasoPaso {
  const char16_t* proceso;
  const char16_t* mensaje;  // under the header of the first step; empty for none
  ResultadoProceso fin;
};
class ConPaso : public ConProceso, public testing::WithParamInterface<CasoPaso> {};

TEST_P(ConPaso, DiceSuFallo) {
  const auto lineas = correr(QString::fromUtf16(GetParam().proceso));
  EXPECT_EQ(fin_, GetParam().fin);
  const QString mensaje = QString::fromUtf16(GetParam().mensaje);
  if (mensaje.isEmpty()) {
    EXPECT_EQ(lineas.size(), 2) << lineas.join(u'\n').toStdString();
    return;
  }
  ASSERT_GE(lineas.size(), 4);
  EXPECT_TRUE(lineas[1].startsWith(u"001:")) << lineas[1].toStdString();
  EXPECT_EQ(lineas[2].toStdString(), (u"    "_s + mensaje).toStdString());
}

constexpr auto kMal = ResultadoProceso::Problemas;
constexpr auto kBien = ResultadoProceso::Bien;
INSTANTIATE_TEST_SUITE_P(
    Mensajes, ConPaso,
    testing::Values(
        CasoPaso{u"T:RXGRTOT,9", u"Grupo de destino no existe o destino mal configurado", kMal},
        CasoPaso{u"T:RXGRTOT,70000", u"Grupo de destino no existe o destino mal configurado", kMal},
        CasoPaso{u"T:RXGRTOT,%1", u"Grupo de destino no existe o destino mal configurado", kMal},
        CasoPaso{u"T:TXPLUS,1,Sí,%1,%2", u"Grupo de destino no existe o destino mal configurado",
                 kMal},
        CasoPaso{u"S:CERRAR,x,Sí,Sí", u"La sesión está ya cerrada", kMal},
        CasoPaso{u"S:OLVIDAR", u"", kBien},
        CasoPaso{u"S:ABRIR\r\nS:ABRIR\r\nS:CERRAR,x,Sí,Sí", u"", kBien},
        CasoPaso{u"C:ESPERA,3,No", u"", kBien},
        CasoPaso{u"C:ESPERA,%1,No",
                 u"El número de reintentos \"%1\" no es un número: se ha esperado sin reintentos.",
                 kMal},
        CasoPaso{u"P:CREAR,5,02/03/2026,03/03/2026,x",
                 u"El periodo acaba el 03/03/2026 a las 00:00, y ese día no entra; si debe entrar, "
                 u"escriba 23:59:59 detrás de la fecha.",
                 kBien},
        CasoPaso{u"P:CREAR,5,02/03/2026,03/03/2026 23:59:59,x", u"", kBien},
        CasoPaso{u"P:CREAR,5,05/03/2026,05/03/2026,x", u"No se pudo crear el intervalo", kMal},
        CasoPaso{u"P:CREAR,5,05/03/2026,02/03/2026,x", u"No se pudo crear el intervalo", kMal},
        CasoPaso{u"P:CREAR,4,01/01/1500,01/01/1500,x", u"No se pudo crear el intervalo", kMal},
        CasoPaso{u"P:CREAR,1,05/03/2026,,x", u"", kBien},
        CasoPaso{u"C:ESPERA,-1,No", u"No puede haber -1 reintentos: se ha esperado con 0.", kMal},
        CasoPaso{u"P:BORRAR,1,01/01/2020,02/01/2020", u"No se encontró el intervalo a borrar",
                 kMal},
        CasoPaso{u"P:SELECCIONAR,1,#f,#f", u"No se encontraron intervalos a seleccionar", kMal},
        CasoPaso{u"P:LIMPIAR", u"", kBien}, CasoPaso{u"P:SEL. ULTIMO", u"", kBien},
        CasoPaso{u"P:ACUMULAR,2", u"No había intervalos, o no eran acumulables", kMal},
        CasoPaso{u"P:DESACUMULAR,2", u"No había intervalos, o no eran acumulables", kMal},
        CasoPaso{u"P:STOCK", u"No había intervalos seleccionados", kMal},
        CasoPaso{u"P:SUMAR", u"No había intervalos seleccionados", kMal},
        CasoPaso{u"P:NADA", u"La orden no existe: el paso no hace nada.", kMal},
        CasoPaso{u"E:TOTALIZA,No,No,X", u"No había intervalos, o no se pudo abrir el fichero",
                 kMal},
        CasoPaso{u"N:un comentario", u"", kBien}));

// A kind that can't be sent, or that the group doesn't take, is not the group's fault.
TEST_F(ConProceso, LoQueNadieSabeEnviarSeDiceComoEs) {
  const auto p = tienda_.programa();
  p->sql(u"UPDATE GRUPOS SET TIPO=9 WHERE CODGPO=1"_s);
  const auto lineas = correr(u"T:TXTECLA,2\r\nT:RXGRTOT,1\r\nT:RXGRTOT,8\r\nC:ESPERA,0,No"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  const auto bajo = [&](const QString& cabecera) {
    return lineas.value(static_cast<int>(lineas.indexOf(cabecera)) + 1);
  };
  EXPECT_EQ(bajo(u"001:TAREA"_s), u"    Esta versión todavía no lo sabe hacer.");
  EXPECT_EQ(bajo(u"002:TAREA"_s), u"    Esta versión todavía no lo sabe hacer.");
  EXPECT_EQ(bajo(u"003:TAREA"_s), u"    Grupo de destino no existe o destino mal configurado");
}

// Manual mode would block a process's wait for ever.
TEST_F(ConProceso, MientrasEsperaNadiePasaAManual) {
  const auto p = tienda_.programa();
  p->correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nN:a"_s);
  p->motor().CambioAModo(false);
  EXPECT_TRUE(p->motor().ModoAutomatico());
  ASSERT_TRUE(p->hastaElFin(1));
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);
  p->motor().CambioAModo(false);
  EXPECT_FALSE(p->motor().ModoAutomatico());
  // A held run leaves the tasks to the person.
  p->correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nN:a"_s);
  p->automat().retener();
  p->motor().CambioAModo(false);
  EXPECT_FALSE(p->motor().ModoAutomatico());
  p->automat().ejecutar();
  EXPECT_TRUE(p->motor().ModoAutomatico());
  EXPECT_TRUE(p->hastaElFin(1));
}

TEST_F(ConProceso, LoQueYaExisteNoSeCreaOtraVez) {
  const auto p = tienda_.programa();
  const QString crear = u"P:CREAR,5,02/03/2026,03/03/2026,x\r\n"_s;
  const auto lineas = correr(crear + crear, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 1);
  EXPECT_EQ(lineas.filter(u"ya existía y se toma como está"_s).size(), 1);
}

TEST_F(ConProceso, UnProcesoSinPasosAcabaBien) {
  const auto lineas = correr(u""_s);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_EQ(lineas.size(), 2);
}

TEST_F(ConProceso, TodosLosGruposMenosLosRechazados) {
  const auto p = tienda_.programa();
  p->sql(u"UPDATE GRUPOS SET REMOTO=0 WHERE CODGPO=1"_s);
  const auto lineas = correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,0,No"_s, *p);
  ASSERT_EQ(lineas.size(), 7) << lineas.join(u'\n').toStdString();
  EXPECT_EQ(lineas[4], u"    Grupo 0001 Tienda: sin hacer Gran Total");
  EXPECT_EQ(lineas[5], u"    Grupo 0002 Tienda: recogido Gran Total");
  EXPECT_EQ(lineas[1], u"001:TAREA");
  EXPECT_EQ(lineas[2], u"    Grupo de destino no existe o destino mal configurado");
  EXPECT_EQ(lineas[3], u"    Grupos rechazados: 0001");
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM TOTGRT WHERE LINK=0 AND GRUPO=2"_s).entero(), 1);
}

// The session and the periods after a step that reports success.
TEST_F(ConProceso, LosPasosHacenLoQueDicen) {
  struct Caso {
    const char16_t* proceso;
    const char16_t* queda;
  };
  const QString dos =
      u"P:CREAR,5,02/03/2026,03/03/2026,a\r\nP:CREAR,5,03/03/2026,04/03/2026,b\r\n"
      u"P:CREAR,5,02/03/2026,04/03/2026,t\r\nP:SELECCIONAR,5,02/03/2026,04/03/2026\r\n"_s;
  const Caso casos[] = {
      {u"S:ABRIR", u"1 "},
      {u"P:SUMAR", u"0 a5:1 b5:2 t5:6"},  // t is in the selection and already has three
      {u"P:ACUMULAR,2", u"0 a5:1* b5:2* t5:3* 2:6"},
      {u"P:ACUMULAR,2\r\nP:SELECCIONAR,5,02/03/2026,04/03/2026\r\nP:DESACUMULAR,2",
       u"0 a5:1 b5:2 t5:3 2:0"},
  };
  for (const Caso& c : casos) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    const QString paso = QString::fromUtf16(c.proceso);
    const bool periodos = paso.startsWith(u'P');
    if (periodos) {
      correr(dos, *p);
      p->sql(u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON) SELECT LINK, 1, 1, LINK FROM COLUMNA"_s);
    }
    correr(periodos ? u"P:SELECCIONAR,5,02/03/2026,04/03/2026\r\n"_s + paso : paso, *p);
    QString queda = QString::number(p->sesion().estado()) + u' ';
    const auto rs = p->db().consultar(
        u"SELECT DESCR, TIPO, CON, ACUM2 FROM COLUMNA c INNER JOIN TOTGRT t ON t.LINK=c.LINK "
        u"ORDER BY c.LINK");
    ASSERT_TRUE(rs);
    QStringList filas;
    for (; !(*rs)->Eof();) {
      filas << u"%1%2:%3%4"_s.arg((*rs)->texto(0))
                   .arg((*rs)->entero(1))
                   .arg((*rs)->entero(2))
                   .arg((*rs)->logico(3) ? u"*"_s : QString());
      ASSERT_TRUE((*rs)->MoveNext());
    }
    EXPECT_EQ(queda + filas.join(u' '), QString::fromUtf16(c.queda)) << paso.toStdString();
  }
}

// A process that sums runs every night: what its target has is added once, whether the target is
// selected with it or not.
TEST_F(ConProceso, LoYaSumadoNoSeSumaOtraVez) {
  const auto p = tienda_.programa();
  correr(
      u"P:CREAR,5,02/03/2026,03/03/2026,a\r\nP:CREAR,5,03/03/2026,04/03/2026,b\r\n"
      u"P:CREAR,5,02/03/2026,04/03/2026,t"_s,
      *p);
  p->sql(
      u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON) SELECT LINK, 1, 1, LINK FROM COLUMNA "
      u"WHERE DESCR<>'t'"_s);
  const auto enT = [&] {
    return p->uno(u"SELECT CON FROM TOTGRT WHERE LINK=(SELECT LINK FROM COLUMNA WHERE DESCR='t')"_s)
        .entero();
  };
  const QString aYb =
      u"P:LIMPIAR\r\nP:SELECCIONAR,5,02/03/2026,03/03/2026\r\nP:SELECCIONAR,5,03/03/2026,04/03/2026"
      u"\r\nP:SUMAR"_s;
  const QString todos = u"P:LIMPIAR\r\nP:SELECCIONAR,5,02/03/2026,04/03/2026\r\nP:SUMAR"_s;
  for (const QString& proceso : {aYb, aYb, todos}) {
    p->lineas.clear();
    const auto lineas = correr(proceso, *p);
    EXPECT_EQ(enT(), 3) << proceso.toStdString();
    const auto dichas = lineas.filter(u"no se suma otra vez"_s).size();
    const bool primera = dichas == 0;
    EXPECT_TRUE(primera || dichas == 2) << lineas.join(u'\n').toStdString();
    EXPECT_TRUE(primera || p->fin == ResultadoProceso::Problemas);
  }
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM Sumados"_s).entero(), 2);
}

// What is deleted while the machines hold it doesn't come back, which is reported.
TEST_F(ConProceso, LoQueSeBorraSinCeroSeDice) {
  for (const bool aCero : {false, true}) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    correr(u"T:RXGRTOT,1\r\nT:RXPLUS,1\r\nC:ESPERA,0,No\r\nS:CERRAR,,Si,Si\r\n"_s +
               (aCero ? u"T:TX_ZERO,1\r\nC:ESPERA,0,No\r\n"_s : QString()),
           *p);
    p->lineas.clear();
    const auto lineas = correr(u"P:BORRAR,1,01/01/2020,31/12/2030"_s, *p);
    EXPECT_EQ(p->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 0);
    EXPECT_EQ(lineas.filter(u"ventas de lo que se borra: 1. "_s).size(), aCero ? 0 : 1)
        << lineas.join(u'\n').toStdString();
  }
}

// Sales of a part and of its sum that are taken off the stock, or go into a week, twice are
// reported. Each row: what follows once the periods were created and a was discounted. An empty sum
// holds nothing twice, whatever dates it has in common with its parts.
TEST_F(ConProceso, LoQueSeCuentaDosVecesSeDice) {
  const auto elegir = [](const char16_t* dias) { return u"P:SELECCIONAR,5,%1\r\n"_s.arg(dias); };
  const QString a = elegir(u"02/03/2026,03/03/2026"), b = elegir(u"03/03/2026,04/03/2026");
  const QString total = u"P:LIMPIAR\r\n"_s + elegir(u"02/03/2026,04/03/2026");
  const QString suma = u"P:LIMPIAR\r\n"_s + a + b + u"P:SUMAR\r\n"_s;
  const struct {
    QString pasos;
    int stock, semana, solapa;
  } casos[] = {
      {total + u"P:STOCK\r\n"_s + suma, 2, 0, 0},
      {suma, 0, 0, 0},
      {suma + total + u"P:STOCK\r\n"_s, 2, 0, 0},
      {suma + total + u"P:ACUMULAR,2\r\n"_s, 0, 2, 0},
      {suma + u"P:LIMPIAR\r\n"_s + a + b + u"P:ACUMULAR,2\r\n"_s + total + u"P:ACUMULAR,2\r\n"_s, 0,
       2, 0},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.pasos.toStdString());
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    correr(u"P:CREAR,5,02/03/2026,03/03/2026,a\r\nP:CREAR,5,03/03/2026,04/03/2026,b\r\n"_s + a +
               u"P:STOCK\r\nP:CREAR,5,02/03/2026,04/03/2026,t"_s,
           *p);
    p->sql(
        u"INSERT INTO TOTGRT (LINK, GRUPO, CODI, CON) SELECT LINK, 1, 1, LINK FROM COLUMNA "
        u"WHERE DESCR<>'t'"_s);
    p->lineas.clear();
    const auto lineas = correr(c.pasos, *p);
    EXPECT_EQ(lineas.filter(u"se descuentan del stock dos veces"_s).size(), c.stock)
        << lineas.join(u'\n').toStdString();
    EXPECT_EQ(lineas.filter(u"se acumulan dos veces"_s).size(), c.semana)
        << lineas.join(u'\n').toStdString();
    EXPECT_EQ(lineas.filter(u"La suma cuenta dos veces"_s).size(), c.solapa)
        << lineas.join(u'\n').toStdString();
  }
}

// A sum names what it added, and why it added nothing. Each row: the periods created and selected
// by their days of March, the outcome and its sentence.
TEST_F(ConProceso, LaSumaDiceLoQueSuma) {
  const auto crear = [](const char16_t* dias) { return u"P:CREAR,5,%1,x\r\n"_s.arg(dias); };
  const auto elegir = [](const char16_t* dias) { return u"P:SELECCIONAR,5,%1\r\n"_s.arg(dias); };
  const auto* a = u"02/03/2026,03/03/2026";
  const auto* b = u"03/03/2026,04/03/2026";
  const auto* todo = u"02/03/2026,04/03/2026";
  const struct {
    QString pasos;
    ResultadoProceso fin;
    const char16_t* dice;
  } casos[] = {
      {crear(a) + crear(b) + elegir(todo), kMal,
       u"No se ha sumado nada: no existe el periodo 02/03/26 00:00:00 --- 04/03/26 00:00:00 "
       u"(OTROS), que reúne 02/03/26 00:00:00 --- 03/03/26 00:00:00 (OTROS), 03/03/26"},
      {u"P:CREAR,1,02/03/2026,,x\r\nP:SELECCIONAR,1,02/03/2026,02/03/2026\r\n"_s, kMal,
       u"No se ha sumado nada: sólo está elegido 2 marzo 2026 (DIARIO), que es la suma misma."},
      {crear(a) + crear(b) + crear(todo) + elegir(a) + elegir(b), kBien,
       u"Sumado en 02/03/26 00:00:00 --- 04/03/26 00:00:00 (OTROS): 02/03/26"},
  };
  for (const auto& c : casos) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    const auto lineas = correr(c.pasos + u"P:SUMAR"_s, *p);
    EXPECT_EQ(p->fin, c.fin);
    EXPECT_EQ(lineas.filter(QString::fromUtf16(c.dice)).size(), 1)
        << lineas.join(u'\n').toStdString();
  }
}

TEST_F(ConProceso, AbrirConDatosDentro) {
  const auto lineas = correr(u"T:RXGRTOT,1\r\nC:ESPERA,0,No\r\nS:ABRIR"_s);
  EXPECT_TRUE(lineas.contains(u"003:SESIÓN"_s)) << lineas.join(u'\n').toStdString();
  EXPECT_TRUE(lineas.contains(u"    La sesión está ya abierta"_s));
}

// A silent machine: reported, dropped, its zeroing not sent; and the run ends without any wait.
TEST_F(ConProceso, UnGrupoMudo) {
  maquinasDePrueba().mudas = {2};
  const auto p = tienda_.programa();
  const auto lineas =
      correr(u"T:RXGRTOT,ALL\r\nT:RXPLUS,1\r\nC:ESPERA,1,No\r\nT:TX_ZERO,ALL\r\n"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_TRUE(lineas.contains(u"003:CONTROL"_s)) << lineas.join(u'\n').toStdString();
  EXPECT_TRUE(lineas.contains(u"   Gran Total:G0002   Se reintenta la tarea"_s));
  EXPECT_TRUE(lineas.contains(u"   Gran Total:G0002   Se abandona la tarea"_s));
  const auto informe = lineas.filter(u"   Gran Total:G0002  E26  C"_s);
  ASSERT_FALSE(informe.isEmpty());
  EXPECT_EQ(informe[0], u"   Gran Total:G0002  E26  C000000000  [Estableciendo conexión]");
  EXPECT_TRUE(lineas.contains(u"    No se encuentra el HOST especificado"_s));
  EXPECT_EQ(p->automat().pasos()[2].motivo,
            u"Gran Total, grupo 0002: No se encuentra el HOST especificado")
      << "in words; the codes are in the trace";
  EXPECT_FALSE(lineas.filter(u"E22"_s).isEmpty());
  EXPECT_EQ(maquinasDePrueba().ceros, 1);
  EXPECT_EQ(maquinasDePrueba().porGrupo[2].IMP, 1100);
}

// Only a line of its own letter is a comment: a step without one looks like it.
TEST_F(ConProceso, UnaLineaQueNoEsPasoSeDice) {
  struct Caso {
    const char16_t* proceso;
    const char16_t* dice;  // empty: nothing, and all is well
  };
  const Caso casos[] = {
      {u"t:RXGRTOT,1\r\nN:x", u"Línea 1: no es ningún paso y se pasa por alto"},
      {u"Q:RXGRTOT,1", u"Línea 1: no es ningún paso y se pasa por alto"},
      {u"Noche de la tienda: todos los días\r\nN:x", u""},
      {u"RXGRTOT,ALL\r\nN:x", u"Línea 1: no es ningún paso y se pasa por alto"},
      {u"@INICIO BATCH", u"Línea 1: abre un bloque que no se cierra y no tiene ningún paso"},
      {u"N:x\r\nbasura\r\nT:RXGRTOT,1", u"Línea 2: no es ningún paso, y los que vienen detrás"},
      {u"N:x\r\nhecho por Ana\r\nen marzo", u"Línea 2: no es ningún paso y se pasa por alto"}};
  for (const Caso& c : casos) {
    const auto lineas = correr(QString::fromUtf16(c.proceso));
    const QString dice = QString::fromUtf16(c.dice);
    EXPECT_EQ(fin_, dice.isEmpty() ? ResultadoProceso::Bien : ResultadoProceso::Problemas);
    EXPECT_EQ(lineas.size(), dice.isEmpty() ? 2 : 3) << lineas.join(u'\n').toStdString();
    EXPECT_TRUE(dice.isEmpty() || lineas.value(1).startsWith(dice))
        << lineas.value(1).toStdString();
  }
}

// A zeroing dated by a clock set to another century.
TEST_F(ConProceso, UnaFechaImposibleNoDaLaVueltaAlPeriodo) {
  const auto p = tienda_.programa();
  p->sql(u"UPDATE Sesiones SET PZERO=#1/1/2099#"_s);
  correr(kNoche, *p);
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM COLUMNA WHERE FECHA1>FECHAF"_s).entero(), 0);
  EXPECT_EQ(p->uno(u"SELECT sum(IMP) FROM TOTGRT t, COLUMNA c WHERE c.LINK=t.LINK AND TIPO<>2"_s)
                .entero(),
            3600);
}

// A number of retries that would take years.
TEST_F(ConProceso, SinNadieNoSeReintentaSinFin) {
  maquinasDePrueba().mudas = {2};
  const auto lineas = correr(u"T:RXGRTOT,2\r\nC:ESPERA,99999999,No"_s);
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_EQ(lineas.filter(u"Se reintenta"_s).size(), 100);
}

TEST_F(ConProceso, LaSeleccionDeUnaEjecucionNoPasaALaSiguiente) {
  const auto p = tienda_.programa();
  correr(u"P:CREAR,1,02/03/2026,,x\r\nP:SELECCIONAR,1,02/03/2026,02/03/2026"_s, *p);
  ASSERT_EQ(p->verTot().LosSelec().size(), 1u);
  correr(u"P:STOCK"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
}

TEST_F(ConProceso, LaTrazaRetardadaLlevaElProceso) {
  const auto p = tienda_.programa();
  p->correr(u"S:CERRAR,x,Sí,Sí"_s, u"horario.CRO"_s, u"DIA"_s);
  ASSERT_TRUE(p->hastaElFin());
  const auto lineas = tienda_.texto(u"horario.TZC"_s).split(u"\r\n"_s, Qt::SkipEmptyParts);
  ASSERT_EQ(lineas.size(), 4);
  EXPECT_EQ(lineas[2], u"DIA:        La sesión está ya cerrada");
}

TEST_F(ConProceso, SinTrazaElProcesoSigue) {
  ASSERT_TRUE(QDir(tienda_.dir.path()).mkdir(u"NOCHE.TZA"_s));
  const auto lineas = correr(u"S:ABRIR\r\nS:ABRIR"_s);
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_EQ(lineas.filter(u"No se puede escribir la traza"_s).size(), 1);
  EXPECT_TRUE(tienda_.libros().contains(u"EstadoTarvo: 1"_s) || lineas.size() == 3);
}

// --- buttons ------------------------------------------------------------------------------------

TEST_F(ConProceso, RetenerPasoASeguir) {
  const auto p = tienda_.programa();
  p->correr(u"N:a\r\nS:CERRAR,x,Sí,Sí\r\nN:b\r\nN:c"_s);
  p->automat().retener();
  tienda_.reloj.avanzar(5000);
  EXPECT_EQ(p->automat().fase(), kDetenidoEnPaso);
  EXPECT_EQ(p->automat().pasoActual(), 1);
  p->automat().paso();
  tienda_.reloj.avanzar(5000);
  EXPECT_EQ(p->automat().pasoActual(), 2);
  EXPECT_EQ(p->automat().resultado(), ResultadoProceso::Problemas);
  p->automat().ejecutar();
  ASSERT_TRUE(p->hastaElFin());
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);  // resuming by hand forgets earlier failures
  EXPECT_EQ(p->lineas.filter(u"Ejecución retenida: "_s).size(), 2);
}

TEST_F(ConProceso, AbortarVaciaLaColaYSePuedeVolverAEjecutar) {
  maquinasDePrueba().mudas = {1};
  const auto p = tienda_.programa();
  p->automat().desatendido = false;
  p->correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,99,No"_s);
  tienda_.reloj.avanzar(3000);
  p->automat().confirmando(true);
  EXPECT_EQ(p->automat().fase(), kConfirmando);
  p->automat().abortar();
  ASSERT_TRUE(p->hastaElFin(1));
  EXPECT_EQ(p->fin, ResultadoProceso::Abortado);
  EXPECT_EQ(p->motor().CuantosQuedan().total, 0);
  p->fin.reset();
  p->automat().ejecutar();
  EXPECT_EQ(p->automat().fase(), kEjecutando);
  EXPECT_EQ(p->lineas.filter(u"Se reanuda"_s).size(), 0);
}

// With somebody there a wait that drops no failures lasts until that person removes the task.
TEST_F(ConProceso, AtendidoElGrupoMudoEsperaAUnaPersona) {
  maquinasDePrueba().mudas = {2};
  const auto p = tienda_.programa();
  p->automat().desatendido = false;
  p->correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,2,No\r\nN:a"_s);
  EXPECT_FALSE(p->hastaElFin(24));
  EXPECT_EQ(p->lineas.filter(u"Gran Total:G0002   Se reintenta la tarea"_s).size(), 2);
  ASSERT_EQ(p->motor().tareas().size(), 1U);
  p->motor().EliminarTarea(p->motor().tareas().front().datos.Id);
  ASSERT_TRUE(p->hastaElFin(1));
  EXPECT_TRUE(p->lineas.contains(u"    Grupo 0002 Tienda: sin hacer Gran Total"_s))
      << p->lineas.join(u'\n').toStdString();
}

TEST_F(ConProceso, SinDiarioNoSeEjecutaNada) {
  const auto p = tienda_.programa();
  ASSERT_TRUE(p->db().ejecutarGuion(u"CREATE VIEW Proceso AS SELECT 1 AS NOMBRE;\n"));
  p->correr(u"S:ABRIR"_s);
  ASSERT_TRUE(p->hastaElFin(1));
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(p->sesion().estado(), 0);
}

// The record of a step can't be written: the step is undone, the run ends, and nothing more
// happens.
TEST_F(ConProceso, SinRegistroDeUnPasoNoHayPaso) {
  const auto p = tienda_.programa();
  correr(u"N:a"_s, *p);
  ASSERT_TRUE(
      p->db().ejecutarGuion(u"CREATE TRIGGER lleno BEFORE UPDATE ON Proceso WHEN NEW.PASO=2 BEGIN "
                            u"SELECT RAISE(ABORT, 'disco lleno'); END;\n"));
  correr(u"N:a\r\nP:CREAR,1,02/03/2026,,x\r\nP:CREAR,1,03/03/2026,,x"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM COLUMNA"_s).entero(), 0);
  EXPECT_EQ(p->lineas.filter(u"No se puede anotar el avance del proceso"_s).size(), 1);
  EXPECT_EQ(p->uno(u"SELECT count(*) FROM Proceso"_s).entero(),
            1);  // the next run resumes it
}

}  // namespace
}  // namespace tarvo::automation
