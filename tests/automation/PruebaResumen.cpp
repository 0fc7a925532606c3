// The history of runs and the morning's summary, read after nights on the real rooms.
#include <QFile>

#include "automation/ProximaVez.h"
#include "automation/Resumen.h"
#include "automation/TiendaDeProcesos.h"
#include "automation/historia/TablasHistoria.h"
#include "stock/Almacenes.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::automation {
namespace {

using namespace Qt::StringLiterals;

const QString kNoche =
    u"T:RXPLUS,ALL\r\nT:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,Ventas #D,Sí,Sí\r\n"
    u"T:TX_ZERO,ALL\r\nT:TX_HORA,1\r\nC:ESPERA,1,No\r\nS:ABRIR\r\n"_s;

Resumen leer(Programa& p) {
  auto r = leerResumen({.db = p.db(),
                        .ajustes = p.ajustes(),
                        .textos = textosDePrueba(),
                        .lenguaje = p.lenguaje(),
                        .ahora = p.reloj().ahora(),
                        .curso = p.automat().curso()});
  EXPECT_TRUE(r) << (r ? "" : r.error().texto.toStdString());
  return r ? *r : Resumen{};
}

void correr(Programa& p, const QString& proceso = kNoche) {
  p.correr(proceso);
  EXPECT_TRUE(p.hastaElFin());
}

// The same weekday, some weeks before: the sales of groups 1 and 2.
void semanaAntes(Programa& p, int semanas, int uno, int dos) {
  const Fecha dia = Fecha::de(QDate(2026, 3, 4)) - 7.0 * semanas;
  const int link = 900 + semanas;
  p.periodo({.link = link, .desde = dia, .hasta = dia + Fecha::kUltimoSegundo, .descr = u"x"})
      .total(u"TOTGRT", {.link = link, .grupo = 1, .codi = 1, .con = 1, .imp = uno})
      .total(u"TOTGRT", {.link = link, .grupo = 2, .codi = 2, .con = 1, .imp = dos});
}

TEST(Resumen, UnGrupoMudoEnLaNoche) {
  TiendaDeProcesos tienda;
  maquinasDePrueba().mudas = {2};
  const auto p = tienda.programa();
  p->grupo({.codigo = 3, .nombre = u"Almacén", .remoto = 0});
  semanaAntes(*p, 1, 2000, 700'000);
  semanaAntes(*p, 3, 1000, 700'000);
  QFile horario(tienda.dir.filePath(u"TIENDA.CRO"_s));
  ASSERT_TRUE(horario.open(QIODevice::WriteOnly));
  horario.write("23:30:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
  horario.close();
  correr(*p);
  const Resumen r = leer(*p);

  ASSERT_EQ(r.ejecuciones.size(), 1U);
  EXPECT_EQ(r.ejecuciones[0].nombre, u"NOCHE");
  EXPECT_EQ(r.ejecuciones[0].fin, FinEjecucion::Problemas);
  EXPECT_EQ(r.ejecuciones[0].traza, u"NOCHE.TZA");
  EXPECT_TRUE(r.ejecuciones[0].final.has_value());

  ASSERT_EQ(r.grupos.size(), 3U);
  EXPECT_EQ(r.grupos[0].estado, EstadoGrupo::Bien) << r.grupos[0].motivo.toStdString();
  EXPECT_EQ(r.grupos[0].importe, 2500);
  EXPECT_EQ(r.grupos[0].cuadran, 1);
  EXPECT_EQ(r.grupos[0].motivo, u"Recogido y puesto a cero. Sus totales cuadran.");
  EXPECT_EQ(r.grupos[1].estado, EstadoGrupo::Fallido);
  EXPECT_EQ(r.grupos[1].motivo, u"No se recogió nada: No se encuentra el HOST especificado.");
  EXPECT_EQ(r.grupos[1].importe, std::nullopt);
  EXPECT_EQ(r.grupos[2].estado, EstadoGrupo::SinIntentar);
  EXPECT_EQ(r.grupos[2].motivo, u"No tiene comunicación: nadie lo recoge.");

  ASSERT_EQ(r.periodos.size(), 1U);
  EXPECT_EQ(r.periodos[0].importe, 2500);
  EXPECT_EQ(r.periodos[0].descripcion, u"Ventas 04");
  EXPECT_EQ(r.periodos[0].media(), 1500) << "of the groups that this night has";
  EXPECT_EQ(r.sesion, 1);
  EXPECT_TRUE(r.bandeja.empty());
  ASSERT_TRUE(r.proxima);
  EXPECT_EQ(r.proxima->proceso, u"NOCHE");
  EXPECT_EQ(r.proxima->cuando, Fecha::de(QDate(2026, 3, 4), QTime(23, 30)));
  EXPECT_FALSE(r.proxima->activo);
}

// Steps without anything to work on make the result 1, but leave no doubt when nothing was
// memorised and nothing else happened.
TEST(Resumen, UnaNocheSinNadaQueAcumular) {
  const QString acumular =
      u"P:SEL. ULTIMO\r\nP:ACUMULAR,2\r\nP:SEL. ULTIMO\r\nP:STOCK\r\n"
      u"P:SEL. ULTIMO\r\nE:TOTALIZA,No,No,V\r\n"_s;
  const struct {
    QString proceso;
    int mudo;
    qsizetype sinQueHacer;
    size_t avisos;
  } casos[] = {
      {u"T:TX_HORA,ALL\r\nC:ESPERA,1,No\r\n"_s + acumular, 0, 1, 0},
      {u"T:TX_HORA,ALL\r\nC:ESPERA,1,No\r\n"_s + acumular, 2, 0, 0},
      {u"T:TX_HORA,ALL\r\nC:ESPERA,1,No\r\nP:ACUMULAR,2\r\n"_s, 0, 0, 1},
      {u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,x,Sí,Sí\r\nP:ACUMULAR,2\r\n"_s + acumular, 0, 0,
       1},
      {u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,x,Sí,Sí\r\n"_s + acumular, 0, 0, 0},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.proceso.toStdString());
    TiendaDeProcesos tienda;
    if (c.mudo > 0) maquinasDePrueba().mudas = {c.mudo};
    const auto p = tienda.programa();
    correr(*p, c.proceso);
    const Resumen r = leer(*p);
    EXPECT_EQ(r.sinQueHacer.size(), c.sinQueHacer);
    EXPECT_EQ(r.avisos.size(), c.avisos);
    EXPECT_EQ(r.grupos[0].estado, EstadoGrupo::Bien);
    const bool bien = c.sinQueHacer == 0 && c.avisos == 0 && c.mudo == 0;
    EXPECT_EQ(p->fin, bien ? ResultadoProceso::Bien : ResultadoProceso::Problemas);
  }
}

// An import or memorisation that replaces the night's period gives it another number, and its
// former number to another.
TEST(Resumen, ElPeriodoDeLaNocheSeReconocePorSusFechas) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  const qint64 link = leer(*p).periodos.at(0).link;
  p->sql(u"UPDATE COLUMNA SET LINK=50 WHERE LINK=%1"_s.arg(link));
  p->sql(u"UPDATE TOTGRT SET LINK=50 WHERE LINK=%1"_s.arg(link));
  p->periodo({.link = link, .desde = 40000, .hasta = 40000.9, .descr = u"otro"});
  Resumen r = leer(*p);
  ASSERT_EQ(r.periodos.size(), 1U);
  EXPECT_EQ(r.periodos[0].link, 50);
  EXPECT_TRUE(r.grupos.at(0).importe.has_value());
  p->sql(u"DELETE FROM COLUMNA WHERE LINK=50"_s);
  r = leer(*p);
  EXPECT_TRUE(r.periodos.empty());
  EXPECT_EQ(r.perdidos, 1);
}

TEST(Resumen, ArregladoPorLaManana) {
  TiendaDeProcesos tienda;
  maquinasDePrueba().mudas = {2};
  correr(*tienda.programa());
  maquinasDePrueba().mudas.clear();
  tienda.reloj.avanzar(10 * 3600 * 1000);
  const auto p = tienda.programa();
  correr(*p, u"T:RXPLUS,2\r\nT:RXGRTOT,2\r\nC:ESPERA,1,No\r\n"_s);
  const Resumen r = leer(*p);
  EXPECT_EQ(r.ejecuciones.size(), 2U);
  EXPECT_EQ(r.cuantos(EstadoGrupo::Bien), 1);
  EXPECT_EQ(r.grupos[1].estado, EstadoGrupo::Dudoso) << "read, and still not zeroed";
  ASSERT_EQ(r.bandeja.size(), 1U) << "nobody has memorised it";
  EXPECT_EQ(r.sesion, 2);
  EXPECT_EQ(r.bandeja[0].grupo, 2);
  EXPECT_EQ(r.bandeja[0].clases, (std::vector{TipoTotal::PLUs, TipoTotal::GranTotal}));
  tienda.reloj.avanzar(26 * 3600 * 1000);
  EXPECT_EQ(leer(*p).noche, 1U) << "it is the last night until the next one";
  correr(*p);
  EXPECT_EQ(leer(*p).ejecuciones.size(), 1U) << "the night before the last is over";
}

// Neither a small process nor one that is stopped during the day takes the night's place.
TEST(Resumen, LoDelDiaNoEsLaNoche) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  tienda.reloj.avanzar(10 * 3600 * 1000);
  p->correr(u"T:TX_HORA,1\r\nC:ESPERA,1,No\r\n"_s, {}, u"HORA"_s);
  ASSERT_TRUE(p->hastaElFin());
  Resumen r = leer(*p);
  ASSERT_EQ(r.ejecuciones.size(), 2U);
  EXPECT_EQ(r.noche, 1U);
  p->correr(u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\n"_s, {}, u"TARDE"_s);
  p->automat().abortar();
  ASSERT_TRUE(p->hastaElFin());
  r = leer(*p);
  EXPECT_EQ(r.ejecuciones[0].fin, FinEjecucion::Abortada);
  EXPECT_EQ(r.ejecuciones[r.noche].numero, 1);
  EXPECT_FALSE(r.grupos[0].arreglado);
  tienda.reloj.avanzar(13 * 3600 * 1000);
  p->correr(kNoche);
  EXPECT_EQ(leer(*p).noche, 0U) << "the next one is under way";
}

// What the night failed to read and a person read at a window since is well, and says so.
TEST(Resumen, LoRecogidoAManoCuenta) {
  TiendaDeProcesos tienda;
  maquinasDePrueba().mudas = {2};
  correr(*tienda.programa());
  maquinasDePrueba().mudas.clear();
  tienda.reloj.avanzar(10 * 3600 * 1000);
  const auto p = tienda.programa();
  const auto aMano = [&](std::initializer_list<TipoTarea> clases) {
    for (const TipoTarea c : clases) p->motor().NuevaTarea(2, true, 0, 9999999, c);
    for (int i = 0; i < 600 && p->motor().CuantosQuedan().total > 0; ++i) tienda.reloj.avanzar(500);
    return leer(*p).grupos[1];
  };
  EXPECT_EQ(leer(*p).grupos[1].estado, EstadoGrupo::Fallido);
  GrupoResumen g = aMano({TipoTarea::RxPlus});
  EXPECT_EQ(g.estado, EstadoGrupo::Fallido) << "the grand total is still missing";
  g = aMano({TipoTarea::RxGrTot});
  EXPECT_EQ(g.estado, EstadoGrupo::Dudoso) << "not zeroed";
  EXPECT_TRUE(g.arreglado);
  g = aMano({TipoTarea::TxZero});
  EXPECT_EQ(g.estado, EstadoGrupo::Bien) << g.motivos.join(u' ').toStdString();
  EXPECT_TRUE(g.motivo.startsWith(u"Se recogió después, el 05/03/2026 08:0"))
      << g.motivo.toStdString();
}

// A night that was stopped after it had read, and memorised by a person since: it is told.
TEST(Resumen, LoMemorizadoAManoTrasPararLaNocheCuenta) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  maquinasDePrueba().alPreguntar = [&] { p->automat().retener(); };  // at the end of the wait
  p->correr(kNoche);
  tienda.reloj.avanzar(60'000);
  maquinasDePrueba().alPreguntar = nullptr;
  p->automat().abortar();
  ASSERT_TRUE(p->hastaElFin());
  tienda.reloj.avanzar(10 * 3600 * 1000);
  EXPECT_FALSE(leer(*p).grupos[0].arreglado);
  stock::Almacenes almacenes(p->db(), p->reloj(), textosDePrueba());
  totals::Periodos periodos(p->db(), p->ajustes(), almacenes, textosDePrueba());
  totals::CerrSes cerrar(p->sesion(), periodos);
  std::vector<totals::Aviso> avisos;
  prueba::bien(cerrar.AnalizarScratch(avisos));
  ASSERT_EQ(prueba::bien(cerrar.LaSesion(true, 0, avisos)).size(), 1U);
  const Resumen r = leer(*p);
  EXPECT_EQ(r.ejecuciones[r.noche].fin, FinEjecucion::Abortada);
  ASSERT_EQ(r.periodos.size(), 1U) << "it is the night's";
  for (const GrupoResumen& g : r.grupos) {
    EXPECT_TRUE(g.arreglado);
    EXPECT_EQ(g.estado, EstadoGrupo::Bien) << g.motivos.join(u' ').toStdString();
    EXPECT_TRUE(g.motivo.startsWith(u"Recogido. Después se memorizó, en 4 de marzo de 2026."))
        << g.motivo.toStdString();
    EXPECT_TRUE(g.importe);
  }
}

TEST(Resumen, LoRecogidoSinArticulosSeDice) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p, u"T:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,x,Sí,Sí\r\n"_s);
  EXPECT_EQ(leer(*p).grupos[1].motivo,
            u"Recogido. Sin totales por artículos: 0002 Tienda. No consta "
            u"qué artículos se vendieron.");
}

// The next night is under way: nothing from the previous one is reported for a group that it reads.
TEST(Resumen, UnaNocheEnMarchaNoHablaDeLaAnterior) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  EXPECT_EQ(leer(*p).grupos[0].motivo, u"Recogido y puesto a cero. Sus totales cuadran.");
  tienda.reloj.avanzar(20 * 3600 * 1000);
  maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
  p->correr(kNoche);
  ASSERT_TRUE(p->automat().ejecucion());
  const Resumen r = leer(*p);
  for (const GrupoResumen& g : r.grupos) {
    EXPECT_EQ(g.estado, EstadoGrupo::EnMarcha) << g.motivos.join(u' ').toStdString();
    EXPECT_EQ(g.motivos.size(), 1) << g.motivos.join(u' ').toStdString();
    EXPECT_FALSE(g.importe) << "the period is another night's";
  }
}

// What the board tells of a group while a night is under way, asked after each step of the run and
// while each of its tasks is transferring.
class Mirador final : public ObservadorAutomat {
 public:
  Mirador(Programa& p, int grupo) : p_(p), grupo_(grupo) {
    p_.automat().observar(*this);
    maquinasDePrueba().alPreguntar = [this] { automatCambiado(); };
  }
  ~Mirador() {
    p_.automat().dejarDeObservar(*this);
    maquinasDePrueba().alPreguntar = nullptr;
  }
  QStringList dicho;

 private:
  void automatCambiado() override {
    if (!p_.automat().enMarcha()) return;
    const GrupoResumen g = leer(p_).grupos.at(static_cast<size_t>(grupo_ - 1));
    const QString linea =
        u"%1|%2|%3"_s.arg(static_cast<int>(g.estado))
            .arg(g.motivos.join(u' '), g.importe ? QString::number(*g.importe) : QString());
    if (dicho.isEmpty() || dicho.last() != linea) dicho << linea;
  }
  Programa& p_;
  int grupo_;
};

TEST(Resumen, UnaNocheCuentaPasoAPasoLoQueLleva) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  tienda.reloj.avanzar(20 * 3600 * 1000);
  maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
  const Mirador mirador(*p, 1);
  correr(*p, u"T:TX_HORA,2\r\nC:ESPERA,1,No\r\n"_s + kNoche);
  const QString enMarcha = QString::number(static_cast<int>(EstadoGrupo::EnMarcha)) + u'|';
  QStringList dicho = mirador.dicho;
  for (QString& l : dicho) {
    EXPECT_TRUE(l.startsWith(enMarcha)) << l.toStdString();
    l.remove(0, enMarcha.size());
  }
  EXPECT_EQ(
      dicho,
      QStringList(
          {u"Espera su turno.|"_s, u"En espera: Totales por artículos.|"_s,
           u"En espera: Totales por artículos, Gran Total.|"_s,
           u"En marcha: Totales por artículos. En espera: Gran Total.|"_s,
           u"Ya recogido: Totales por artículos. En marcha: Gran Total.|"_s,
           u"Recogido. El proceso sigue.|"_s, u"Recogido y memorizado. El proceso sigue.|300"_s,
           u"Recogido y memorizado. En espera: Puesta a CERO.|300"_s,
           u"Recogido y memorizado. En espera: Puesta a CERO, Fecha y Hora de Sistema.|300"_s,
           u"Recogido y memorizado. En marcha: Puesta a CERO. En espera: Fecha y Hora de Sistema.|300"_s,
           u"Recogido, memorizado y puesto a cero. En marcha: Fecha y Hora de Sistema.|300"_s,
           u"Recogido, memorizado y puesto a cero. El proceso sigue.|300"_s}))
      << dicho.join(u'\n').toStdString();
  EXPECT_EQ(leer(*p).grupos[0].motivo, u"Recogido y puesto a cero. Sus totales cuadran.");
}

// What goes wrong tonight is reported with tonight's reason; a group that isn't asked keeps last
// night's word.
TEST(Resumen, UnaNocheEnMarchaDiceSusPropiosFallos) {
  TiendaDeProcesos tienda;
  correr(*tienda.programa());
  tienda.reloj.avanzar(20 * 3600 * 1000);
  maquinasDePrueba().mudas = {2};
  const auto p = tienda.programa();
  const Mirador mudo(*p, 2);
  correr(*p, u"T:RXPLUS,2\r\nT:RXGRTOT,2\r\nC:ESPERA,1,No\r\nS:CERRAR,x,Sí,Sí\r\n"_s);
  ASSERT_FALSE(mudo.dicho.isEmpty());
  EXPECT_EQ(mudo.dicho.first(), u"4|Espera su turno.|");
  EXPECT_TRUE(mudo.dicho.contains(
      u"2|No se recogió Totales por artículos: No se encuentra el HOST especificado. En espera: Gran Total.|"_s))
      << mudo.dicho.join(u'\n').toStdString();
  EXPECT_EQ(mudo.dicho.last(), u"2|No se recogió nada: No se encuentra el HOST especificado.|");
  p->correr(u"T:RXGRTOT,2\r\nC:ESPERA,1,No\r\n"_s);
  EXPECT_EQ(leer(*p).grupos[0].motivo, u"Recogido y puesto a cero. Sus totales cuadran.");
}

// Read again and not zeroed since: the zeroing of the night is older.
TEST(Resumen, UnCeroAnteriorALaLecturaNoCuenta) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  tienda.reloj.avanzar(10 * 3600 * 1000);
  maquinasDePrueba().porGrupo[1] = {1, 100, 300, 0};
  correr(*p, u"T:RXPLUS,1\r\nT:RXGRTOT,1\r\nC:ESPERA,1,No\r\n"_s);
  Resumen r = leer(*p);
  EXPECT_EQ(r.grupos[0].motivo, u"Recogido. Sus totales cuadran.");
  EXPECT_FALSE(r.grupos[0].importe) << "what the night memorised is not what was read now";
  EXPECT_EQ(r.grupos[1].motivo, u"Recogido y puesto a cero. Sus totales cuadran.");
  EXPECT_EQ(r.grupos[1].importe, 1100);
  correr(*p, u"S:CERRAR,x,Sí,Sí\r\n"_s);
  r = leer(*p);
  EXPECT_EQ(r.grupos[0].importe, 300);
}

TEST(Resumen, LoQueNoCuadra) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p);
  p->sql(u"UPDATE TOTPLU SET [IMP]=[IMP]-1 WHERE GRUPO=1 AND LINK>0"_s);
  const Resumen r = leer(*p);
  EXPECT_EQ(r.grupos[0].estado, EstadoGrupo::Dudoso);
  EXPECT_EQ(r.grupos[0].motivo, u"Sus totales no cuadran: 1 no da lo mismo que el gran total.");
  EXPECT_EQ(r.grupos[1].estado, EstadoGrupo::Bien);
}

// A night without any sales on a weekday with usual sales is not a good one.
TEST(Resumen, UnaNocheSinVentas) {
  for (const bool seVende : {true, false}) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    if (seVende) semanaAntes(*p, 1, 2000, 3000);
    for (const int g : {1, 2}) maquinasDePrueba().porGrupo[g] = {0, 0, 0, 0};
    correr(*p);
    const Resumen r = leer(*p);
    ASSERT_EQ(r.avisos.size(), seVende ? 1U : 0U);
    if (!seVende) continue;
    EXPECT_TRUE(r.avisos[0].texto.startsWith(u"No se recogió ninguna venta de 4 de"));
  }
}

// A timetable's hour passed without a run: reported for a process used by this shop, until it runs,
// however often another one has run since.
TEST(Resumen, LoQueDebiaEjecutarseYNadieEjecuto) {
  static constexpr struct {
    int horas;  // since the run
    int otras;  // runs of another process since
    bool falta;
  } kDespues[] = {{1, 0, false}, {20, 0, false}, {27, 0, true}, {20, 40, false}, {27, 120, true}};
  for (const auto& c : kDespues) {
    TiendaDeProcesos tienda;
    const auto p = tienda.programa();
    correr(*p);  // on the 4th at 22:00
    QFile horario(tienda.dir.filePath(u"TIENDA.CRO"_s));
    ASSERT_TRUE(horario.open(QIODevice::WriteOnly));
    horario.write("22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,S\xED;NOCHE\r\n");
    horario.flush();
    horario.setFileTime(QDateTime(QDate(2026, 3, 1), QTime(0, 0)),
                        QFileDevice::FileModificationTime);
    horario.close();
    for (int i = 0; i < c.otras; ++i) {
      p->correr(u"C:ESPERA,0,No\r\n"_s, {}, u"HORAS"_s);
      ASSERT_TRUE(p->hastaElFin());
    }
    tienda.reloj.avanzar(c.horas * 3600 * 1000LL);
    const Resumen r = leer(*p);
    ASSERT_EQ(r.avisos.size(), c.falta ? 1U : 0U) << c.horas << " " << c.otras;
    if (c.horas < 24) {
      EXPECT_EQ(r.cuantos(EstadoGrupo::Bien), 2) << c.otras;
    }
    if (!c.falta) continue;
    EXPECT_TRUE(r.avisos[0].texto.startsWith(u"NOCHE debía ejecutarse el 05/03/2026 22:00:00"));
  }
}

TEST(Resumen, MuertaAMitad) {
  TiendaDeProcesos tienda;
  {
    const auto p = tienda.programa();
    p->correr(kNoche);
    EXPECT_EQ(leer(*p).ejecuciones[0].fin, FinEjecucion::EnMarcha);
    EXPECT_EQ(leer(*p).grupos[0].estado, EstadoGrupo::EnMarcha) << "under way";
  }
  const auto p = tienda.programa();
  const Resumen r = leer(*p);
  EXPECT_EQ(r.ejecuciones[0].fin, FinEjecucion::Interrumpida);
  EXPECT_EQ(r.grupos[0].estado, EstadoGrupo::Fallido);
  correr(*p);
  const Resumen despues = leer(*p);
  ASSERT_EQ(despues.ejecuciones.size(), 1U) << "gone on with, not begun anew";
  EXPECT_EQ(despues.ejecuciones[0].fin, FinEjecucion::Bien);
  EXPECT_EQ(despues.cuantos(EstadoGrupo::Bien), 2);
}

// The tables of a version without a history.
TEST(Historial, UnaBaseAntigua) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  p->sql(
      u"CREATE TABLE ProcesoTareas (EJECUCION INTEGER NOT NULL, PASO INTEGER NOT NULL, GRUPO INTEGER NOT NULL, HECHA INTEGER DEFAULT 0, PRIMARY KEY (EJECUCION, PASO, GRUPO))"_s);
  ASSERT_TRUE(asegurarTablasHistoria(p->db()));
  EXPECT_EQ(leer(*p).grupos[0].motivo, u"Todavía no se ha ejecutado ningún proceso.");
  correr(*p);
  EXPECT_EQ(leer(*p).cuantos(EstadoGrupo::Bien), 2);
}

TEST(Historial, GuardaLasUltimasCien) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  for (int i = 0; i < kEjecucionesGuardadas + 3; ++i)
    correr(*p, u"T:RXGRTOT,9\r\nC:ESPERA,0,No\r\n"_s);  // no such group
  for (const char16_t* tabla : {u"Ejecuciones", u"ProcesoTareas"})
    EXPECT_EQ(
        p->db().uno(QString(u"SELECT count(*) FROM "_s + QString::fromUtf16(tabla)))->entero(),
        kEjecucionesGuardadas);
  const auto avisos = Historial(p->db(), textosDePrueba()).avisos(kEjecucionesGuardadas);
  ASSERT_TRUE(avisos);
  ASSERT_EQ(avisos->size(), 2U);
  EXPECT_EQ((*avisos)[1].texto, u"Grupos rechazados: 0009");
}

// A newer program may have run here: its actions are not reported as something else.
TEST(Historial, UnaClaseDeTareaDesconocidaSeDice) {
  TiendaDeProcesos tienda;
  const auto p = tienda.programa();
  correr(*p, u"T:RXGRTOT,9\r\nC:ESPERA,0,No\r\n"_s);
  EXPECT_TRUE(Historial(p->db(), textosDePrueba()).tareas(1));
  p->sql(u"UPDATE ProcesoTareas SET CLASE=99"_s);
  const auto tareas = Historial(p->db(), textosDePrueba()).tareas(1);
  ASSERT_FALSE(tareas);
  EXPECT_TRUE(tareas.error().texto.contains(u"99"));
}

TEST(Horario, LaProximaVez) {
  LineaActivacion l;
  l.hora = *Fecha::leerHora(u"06:15");
  l.dias = {true, false, false, false, false, false, false};  // Mondays; 2 March 2026 is one
  const auto a = [](int dia, int h, int m) { return Fecha::de(QDate(2026, 3, dia), QTime(h, m)); };
  EXPECT_EQ(proximaVez(l, a(2, 6, 14)), a(2, 6, 15));
  EXPECT_EQ(proximaVez(l, a(2, 6, 15)), a(9, 6, 15));
  l.dias = {};
  EXPECT_EQ(proximaVez(l, a(2, 0, 0)), std::nullopt);
}

}  // namespace
}  // namespace tarvo::automation
