// A run killed and started again ends as if it had run once.
#include "automation/TiendaDeProcesos.h"

namespace tarvo::automation {
namespace {

using namespace Qt::StringLiterals;

// The second closing is an error: the run has problems.
const QString kNoche =
    u"N:%g,Grupo\r\nP:CREAR,5,01/03/2026,02/03/"
    u"2026,Aparte\r\nT:RXPLUS,%g\r\nT:RXGRTOT,ALL\r\nT:RXPLUS,2\r\nC:ESPERA,1,No\r\n"
    u"S:CERRAR,Ventas,Sí,Sí\r\nT:TX_ZERO,ALL\r\nC:ESPERA,1,No\r\nP:LIMPIAR\r\nP:SEL. "
    u"ULTIMO\r\nP:ACUMULAR,2\r\nP:SEL. ULTIMO\r\nP:STOCK\r\n"
    u"P:SEL. ULTIMO\r\nE:TOTALIZA,No,No,VENTAS\r\nS:CERRAR,otra,Sí,Sí\r\nS:ABRIR\r\n"_s;

struct Final {
  QStringList libros;
  QString exportado;
  Maquinas maquinas;
  ResultadoProceso fin = ResultadoProceso::Abortado;
  int preguntas = 0;
};

Final acabar(TiendaDeProcesos& tienda, const Programa& p) {
  return {tienda.libros(), tienda.texto(u"VENTAS.EXP"_s), maquinasDePrueba(),
          p.fin.value_or(ResultadoProceso::Abortado), tienda.respuestas.preguntas};
}

void esperarIgual(const Final& una, const Final& otra, const std::string& donde) {
  EXPECT_EQ(una.libros.join(u'\n').toStdString(), otra.libros.join(u'\n').toStdString()) << donde;
  EXPECT_EQ(una.exportado, otra.exportado) << donde;
  EXPECT_EQ(una.fin, otra.fin) << donde;
  EXPECT_EQ(una.maquinas.ceros, otra.maquinas.ceros) << donde;
  for (const int g : {1, 2}) EXPECT_EQ(una.maquinas.porGrupo.at(g).IMP, 0) << donde;
}

Final deUnTiron() {
  TiendaDeProcesos tienda;
  tienda.respuestas.numeros[u"%g"_s] = 1;
  const auto p = tienda.programa();
  p->correr(kNoche);
  EXPECT_TRUE(p->hastaElFin());
  return acabar(tienda, *p);
}

// Kills the run where `vivir` says, restarts the program and lets it end. False when it ended
// before it was killed.
template <class Vivir>
bool conCorte(Vivir vivir, int corteEn, Final& final) {
  TiendaDeProcesos tienda;
  tienda.respuestas.numeros[u"%g"_s] = 1;
  bool cortado = false;
  {
    const auto p = tienda.programa(corteEn);
    try {
      p->correr(kNoche);
      cortado = vivir(tienda, *p);
    } catch (const Corte&) {
      cortado = true;
    }
    if (p->fin) cortado = false;
  }
  if (!cortado) return false;
  const auto p = tienda.programa();
  p->correr(kNoche);
  EXPECT_TRUE(p->hastaElFin());
  final = acabar(tienda, *p);
  return true;
}

TEST(Reanudar, MuertaEntreDosTicsCualesquiera) {
  const Final limpia = deUnTiron();
  ASSERT_EQ(limpia.fin, ResultadoProceso::Problemas);
  int cortes = 0;
  for (int n = 0;; ++n) {
    Final f;
    const auto vivir = [n](TiendaDeProcesos& t, Programa& p) {
      for (int i = 0; i < n && !p.fin; ++i) t.reloj.siguiente();
      return true;
    };
    if (!conCorte(vivir, 0, f)) break;
    esperarIgual(f, limpia, "tic " + std::to_string(n));
    if (HasFailure()) return;
    ++cortes;
  }
  EXPECT_GT(cortes, 30);
}

// A shutdown warns the program first; when restarted it still resumes.
TEST(Reanudar, InterrumpidaDesdeFueraSigueDespues) {
  const Final limpia = deUnTiron();
  int cortes = 0;
  for (int n = 1;; n += 3) {
    TiendaDeProcesos tienda;
    tienda.respuestas.numeros[u"%g"_s] = 1;
    {
      const auto p = tienda.programa();
      p->correr(kNoche);
      for (int i = 0; i < n && !p->fin; ++i) tienda.reloj.siguiente();
      if (p->fin) break;
      p->automat().conservarAlAbortar = true;
      p->automat().abortar();
      ASSERT_TRUE(p->hastaElFin());
      ASSERT_EQ(p->fin, ResultadoProceso::Abortado);
    }
    const auto p = tienda.programa();
    p->correr(kNoche);
    ASSERT_TRUE(p->hastaElFin());
    esperarIgual(acabar(tienda, *p), limpia, "tic " + std::to_string(n));
    if (HasFailure()) return;
    ++cortes;
  }
  EXPECT_GT(cortes, 8);
}

// The clock is read throughout the rooms, inside their transactions as well.
TEST(Reanudar, MuertaDentroDeUnPaso) {
  const Final limpia = deUnTiron();
  int cortes = 0;
  for (int n = 1;; ++n) {
    Final f;
    if (!conCorte([](TiendaDeProcesos&, Programa& p) { return !p.hastaElFin(); }, n, f)) break;
    esperarIgual(f, limpia, "pregunta " + std::to_string(n));
    if (HasFailure()) return;
    ++cortes;
  }
  EXPECT_GT(cortes, 30);
}

class ConCorte : public testing::Test {
 protected:
  // The run is killed after `vivo` steps.
  void matar(const QString& proceso, int vivo) {
    const auto p = tienda_.programa();
    p->correr(proceso);
    for (int i = 0; i < 1000 && p->automat().pasoActual() < vivo; ++i) tienda_.reloj.siguiente();
    ASSERT_FALSE(p->fin);
  }
  std::unique_ptr<Programa> seguir(const QString& proceso) {
    auto p = tienda_.programa();
    p->correr(proceso);
    EXPECT_TRUE(p->hastaElFin());
    return p;
  }
  qint64 contar(Programa& p, const QString& sql) { return p.db().uno(sql)->entero(); }
  TiendaDeProcesos tienda_;
};

TEST_F(ConCorte, SeDiceYNoSePreguntaOtraVez) {
  tienda_.respuestas.numeros[u"%g"_s] = 1;
  matar(u"N:%g,Grupo\r\nS:ABRIR\r\nN:a\r\nN:b"_s, 3);
  const auto p = seguir(u"N:%g,Grupo\r\nS:ABRIR\r\nN:a\r\nN:b"_s);
  EXPECT_EQ(p->fin, ResultadoProceso::Bien);
  EXPECT_EQ(tienda_.respuestas.preguntas, 1);
  EXPECT_EQ(p->lineas.filter(u"Se reanuda la ejecución interrumpida el 04/03/2026 22:00"_s).size(),
            1);
  for (const auto& paso : p->automat().pasos())
    EXPECT_EQ(paso.estado, EstadoPaso::Hecho) << "also those of the life before";
}

// A refused task has been reported; it isn't retried.
TEST_F(ConCorte, LoRechazadoNoSeRepite) {
  const QString proceso = u"T:RXGRTOT,ALL\r\nN:a\r\nC:ESPERA,0,No"_s;
  tienda_.programa()->sql(u"UPDATE GRUPOS SET REMOTO=0 WHERE CODGPO=1"_s);
  matar(proceso, 2);
  const auto p = seguir(proceso);
  EXPECT_EQ(p->lineas.filter(u"recogido Gran Total"_s).size(), 1);
  EXPECT_TRUE(p->lineas.filter(u"al reanudar"_s).isEmpty()) << p->lineas.join(u'\n').toStdString();
}

TEST_F(ConCorte, LosGruposSinMemorizarSiguenSinPonerseACero) {
  {
    const auto p = tienda_.programa();
    ASSERT_TRUE(
        p->db().ejecutarGuion(u"CREATE TRIGGER no_mas BEFORE INSERT ON COLUMNA BEGIN SELECT "
                              u"RAISE(ABORT, 'sin sitio'); END;\n"));
  }
  const QString proceso =
      u"T:RXGRTOT,ALL\r\nC:ESPERA,0,Sí\r\nS:CERRAR,x,Sí,Sí\r\nN:a\r\nT:TX_ZERO,ALL\r\nC:ESPERA,0,Sí"_s;
  matar(proceso, 3);
  const auto p = seguir(proceso);
  EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
  EXPECT_EQ(maquinasDePrueba().ceros, 0);
}

const QString kLibros =
    u"T:RXGRTOT,ALL\r\nC:ESPERA,0,Sí\r\nS:CERRAR,x,Sí,Sí\r\nT:TX_ZERO,ALL\r\nP:SEL. "
    u"ULTIMO\r\nP:ACUMULAR,2\r\nP:SEL. ULTIMO\r\nP:BORRAR,1,01/01/2000,"
    u"01/01/2100\r\nE:TOTALIZA,No,No,VIEJA"_s;

struct CasoVieja {
  const char* nombre;
  int pasos;        // done when it was killed
  double dias;      // between the two starts
  bool otrosPasos;  // the process was edited meanwhile
  bool seCompleta;  // its bookkeeping is finished first
};
class ConDiarioViejo : public ConCorte, public testing::WithParamInterface<CasoVieja> {};

TEST_P(ConDiarioViejo, SusAnotacionesSiSusTareasNo) {
  const auto& caso = GetParam();
  matar(kLibros, caso.pasos);
  tienda_.reloj.saltarPared(caso.dias);
  const int ceros = maquinasDePrueba().ceros;
  const auto p = tienda_.programa();
  p->correr(caso.otrosPasos ? u"P:SEL. ULTIMO"_s : kLibros);  // the old run is settled at the start
  EXPECT_EQ(p->lineas.filter(u"no se puede reanudar"_s).size(), 1)
      << p->lineas.join(u'\n').toStdString();
  EXPECT_EQ(maquinasDePrueba().ceros, ceros);
  EXPECT_EQ(contar(*p, u"SELECT count(*) FROM COLUMNA WHERE TIPO=2"_s), caso.seCompleta);
  EXPECT_EQ(tienda_.texto(u"VIEJA.EXP"_s).isEmpty(), !caso.seCompleta);
  EXPECT_EQ(contar(*p, u"SELECT count(*) FROM COLUMNA WHERE TIPO=1"_s),
            caso.seCompleta);  // nothing was deleted
  EXPECT_EQ(contar(*p, u"SELECT count(*) FROM Proceso"_s), 1);
  EXPECT_TRUE(p->verTot().LosSelec().empty());  // the old run's last periods are not the new one's
}

INSTANTIATE_TEST_SUITE_P(Casos, ConDiarioViejo,
                         testing::Values(CasoVieja{"sin memorizar", 1, 0, true, false},
                                         CasoVieja{"memorizada", 3, 0, true, true},
                                         CasoVieja{"memorizada y antigua", 3, 1, false, true}),
                         [](const auto& c) { return std::to_string(c.index); });

// An old run memorised once and was interrupted before its second closing: the steps after that are
// about periods it never made.
TEST_F(ConCorte, LoQueSigueASuSegundoCierreNoSeCompleta) {
  const QString proceso =
      u"T:RXGRTOT,ALL\r\nC:ESPERA,0,Sí\r\nS:CERRAR,x,Sí,Sí\r\nN:a\r\nP:LIMPIAR\r\nP:SEL. "
      u"ULTIMO\r\nE:TOTALIZA,No,No,PRIMERA\r\nS:CERRAR,y,Sí,Sí\r\nP:SEL. "
      u"ULTIMO\r\nE:TOTALIZA,No,No,SEGUNDA"_s;
  matar(proceso, 3);
  tienda_.reloj.saltarPared(1);
  const auto p = tienda_.programa();
  p->correr(u"N:x"_s);
  EXPECT_EQ(tienda_.texto(u"PRIMERA.EXP"_s).count(u"*x"_s), 1);
  EXPECT_TRUE(tienda_.texto(u"SEGUNDA.EXP"_s).isEmpty());
}

TEST_F(ConCorte, ALas12HorasSeEmpiezaDeNuevo) {
  for (const double horas : {11.0, 13.0, -11.0, -13.0}) {
    matar(u"N:a\r\nN:b\r\nN:c"_s, 2);
    tienda_.reloj.saltarPared(horas / 24);
    const auto p = seguir(u"N:a\r\nN:b\r\nN:c"_s);
    EXPECT_EQ(p->lineas.filter(u"Se reanuda"_s).size(), std::abs(horas) < 12 ? 1 : 0) << horas;
  }
}

// Another process leaves this one's half-done run alone.
TEST_F(ConCorte, CadaProcesoTieneSuDiario) {
  matar(u"N:a\r\nN:b\r\nN:c"_s, 2);
  {
    const auto p = tienda_.programa();
    p->correr(u"N:x"_s, {}, u"OTRO"_s);
    EXPECT_TRUE(p->hastaElFin());
    EXPECT_EQ(contar(*p, u"SELECT count(*) FROM Proceso"_s), 1);
  }
  EXPECT_EQ(seguir(u"N:a\r\nN:b\r\nN:c"_s)->lineas.filter(u"Se reanuda"_s).size(), 1);
}

TEST_F(ConCorte, UnDiarioDanadoSeDice) {
  matar(u"N:a\r\nN:b\r\nN:c"_s, 2);
  for (const char16_t* dano : {u"SELECCION='1,x'", u"PASO=99", u"PARAMETROS='[{}]'"}) {
    const auto p = tienda_.programa();
    ASSERT_TRUE(p->db().ejecutar(QString(
        u"UPDATE Proceso SET PASO=1, SELECCION='', PARAMETROS='', "_s + QString::fromUtf16(dano))));
    p->correr(u"N:a\r\nN:b\r\nN:c"_s);
    ASSERT_TRUE(p->hastaElFin());
    EXPECT_EQ(p->fin, ResultadoProceso::Problemas);
    EXPECT_EQ(p->lineas.filter(u"No se puede llevar el diario"_s).size(), 1);
  }
}

}  // namespace
}  // namespace tarvo::automation
