// What a process may tell a machine to forget, and what it may forget itself.
#include "automation/ConProceso.h"

namespace tarvo::automation {
namespace {

// What a process reads and forgets is in the machine alone, and stays there.
TEST_F(ConProceso, LoQueUnProcesoOlvidaNoSePoneACero) {
  const QString olvida =
      u"T:RXGRTOT,1\r\nC:ESPERA,0,Sí\r\nS:OLVIDAR\r\nT:TX_ZERO,1\r\nC:ESPERA,0,Sí"_s;
  const auto lineas = correr(olvida);
  EXPECT_EQ(fin_, ResultadoProceso::Problemas);
  EXPECT_EQ(lineas.filter(u"olvidó sus ventas sin memorizarlas"_s).size(), 1)
      << lineas.join(u'\n').toStdString();
  EXPECT_EQ(maquinasDePrueba().ceros, 0);
  correr(kNoche);
  EXPECT_EQ(fin_, ResultadoProceso::Bien);
  EXPECT_EQ(maquinasDePrueba().ceros, 2);
}

// A process zeroes a group only when it knows what the group sold of each article; each row is a
// process, the amount that the machine has more than its articles, and the outcome.
TEST_F(ConProceso, LoQueUnProcesoPuedePonerACero) {
  const auto con = [](const QString& lecturas) {
    return lecturas + u"\r\nC:ESPERA,0,Sí\r\nS:CERRAR,x,Sí,Sí\r\nT:TX_ZERO,1\r\nC:ESPERA,0,Sí"_s;
  };
  struct Caso {
    QString lecturas;
    qint64 fueraDelCatalogo;
    int ceros;
    QString dice;
  };
  for (const Caso& c :
       {Caso{u"T:RXGRTOT,1"_s, 0, 0, u"pero no sus totales por artículos"_s},
        Caso{u"T:RXPLUS,1\r\nT:RXGRTOT,1"_s, 0, 1, u""_s}, Caso{u"T:RXPLUS,1"_s, 0, 1, u""_s},
        Caso{u"N:nada"_s, 0, 1, u""_s}, Caso{u"T:RXPLUS,1"_s, 777, 0, u"ha vendido"_s}}) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    maquinasDePrueba().alPreguntar = [&, n = 0]() mutable {
      if (++n == 2) maquinasDePrueba().porGrupo[1].IMP += c.fueraDelCatalogo;
    };
    const auto lineas = correr(con(c.lecturas), *p);
    maquinasDePrueba().alPreguntar = {};
    EXPECT_EQ(maquinasDePrueba().ceros, c.ceros) << c.lecturas.toStdString();
    EXPECT_EQ(p->fin, c.dice.isEmpty() && c.lecturas != u"N:nada" ? ResultadoProceso::Bien
                                                                  : ResultadoProceso::Problemas);
    EXPECT_FALSE(lineas.filter(c.dice).isEmpty()) << lineas.join(u'\n').toStdString();
  }
}

// A zeroing before the memorisation leaves the session as the only copy of the day.
TEST_F(ConProceso, LoQueSoloEstaEnLaBandejaNoLoOlvidaUnProceso) {
  const auto p = tienda_.programa();
  const auto lineas =
      correr(u"T:RXPLUS,1\r\nT:RXGRTOT,1\r\nC:ESPERA,0,Sí\r\nT:TX_ZERO,1\r\nC:ESPERA,0,Sí"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);
  EXPECT_EQ(lineas.filter(u"puesto a cero; sin memorizar 25,00"_s).size(), 1)
      << lineas.join(u'\n').toStdString();
  correr(u"S:OLVIDAR"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(p->lineas.filter(u"El proceso no olvida la sesión"_s).size(), 1);
  ASSERT_EQ(p->sesion().estado(), 2);
  correr(u"S:CERRAR,x,Sí,Sí\r\nS:OLVIDAR"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);
  EXPECT_EQ(p->uno(u"SELECT SUM(IMP) FROM TOTPLU WHERE LINK>0"_s).entero(), 2500);
}

TEST_F(ConProceso, LoQueNoSeMemorizaNoSePoneACero) {
  const auto p = tienda_.programa();
  ASSERT_TRUE(
      p->db().ejecutarGuion(u"CREATE TRIGGER no_mas BEFORE INSERT ON COLUMNA BEGIN SELECT "
                            u"RAISE(ABORT, 'sin sitio'); END;\n"));
  const auto lineas = correr(
      u"T:RXGRTOT,ALL\r\nC:ESPERA,0,Sí\r\nS:CERRAR,x,Sí,Sí\r\nT:TX_ZERO,ALL\r\nC:ESPERA,0,Sí"_s,
      *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_TRUE(lineas.contains(u"    No se pudo establecer un único intervalo de tiempo"_s))
      << lineas.join(u'\n').toStdString();
  EXPECT_EQ(lineas.filter(u"E22"_s).size(), 2);
  EXPECT_EQ(maquinasDePrueba().ceros, 0);
  EXPECT_EQ(p->sesion().estado(), 2);
}

// A reading waiting for its memorisation blocks the next one: later sales are only in the machine.
TEST_F(ConProceso, LoQueNoSePudoLeerNoSePoneACero) {
  const auto p = tienda_.programa();
  correr(u"T:RXGRTOT,1\r\nT:RXPLUS,1\r\nC:ESPERA,0,No\r\nT:TX_ZERO,1\r\nC:ESPERA,0,No"_s, *p);
  ASSERT_EQ(maquinasDePrueba().ceros, 1);
  maquinasDePrueba().porGrupo[1] = {3, 0, 900, 0};
  correr(u"T:RXGRTOT,1\r\nC:ESPERA,0,No\r\nS:CERRAR,x,Sí,Sí\r\nT:TX_ZERO,1\r\nC:ESPERA,0,No"_s, *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(maquinasDePrueba().ceros, 1);
  EXPECT_EQ(maquinasDePrueba().porGrupo[1].IMP, 900);
}

// Neither readings nor memorisation are possible: after reading nothing, nothing may be forgotten.
TEST_F(ConProceso, SinLasSesionesNadieOlvida) {
  const auto p = tienda_.programa();
  ASSERT_TRUE(p->db().ejecutarGuion(u"DROP TABLE Sesiones;\nCREATE TABLE Sesiones (x INTEGER);\n"));
  for (const QString& proceso : {kNoche, u"T:TX_ZERO,ALL\r\nC:ESPERA,1,No"_s}) {
    const auto lineas = correr(proceso, *p);
    EXPECT_EQ(p->fin, ResultadoProceso::Problemas) << lineas.join(u'\n').toStdString();
    EXPECT_EQ(maquinasDePrueba().ceros, 0) << lineas.join(u'\n').toStdString();
  }
}

}  // namespace
}  // namespace tarvo::automation
