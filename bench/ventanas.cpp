// The main window on a large shop, compared with an empty window in the same style: the time until
// it is painted, and its memory once the morning's data are shown.
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <algorithm>

#include "Comun.h"
#include "Razones.h"
#include "automation/Resumen.h"
#include "automation/historia/TablasHistoria.h"
#include "comm/tareas/Repertorio.h"
#include "core/tiempo/Trabajo.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::banco {
namespace {

constexpr int kArticulosTienda = 100'000, kPeriodos = 250, kFilasPeriodo = 2'000;
constexpr int kPintados = 15, kLecturas = 9;
constexpr double kVecesTiempo = 2.5, kVecesMemoria = 2;

QString junto(const char* nombre) {
  const QString yo = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
  return yo.left(yo.lastIndexOf(u'/') + 1) + QLatin1String(nombre);
}

// KiB if asked for memory.
double pintar(const QString& ruta, const QStringList& argumentos, const char* que) {
  QProcess p;
  QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
  entorno.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  entorno.insert(QStringLiteral("TARVO_BANCO"), QLatin1String(que));
  p.setProcessEnvironment(entorno);
  p.start(ruta, argumentos);
  if (!p.waitForFinished(60'000) || p.exitCode() != 0)
    morir(ruta + QStringLiteral(": ") + QString::fromUtf8(p.readAllStandardError()));
  return p.readAllStandardOutput().trimmed().toDouble();
}

struct TiendaGrande {
  TiendaGrande() {
    const auto db =
        hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), 10, kArticulosTienda);
    bien(automation::asegurarTablasHistoria(*db));
    bien(db->ejecutar(
        u"CREATE TABLE IF NOT EXISTS Proceso (NOMBRE TEXT PRIMARY KEY, EJECUCION INTEGER)"));
    bien(db->BeginTrans());
    bien(
        db->ejecutar(u"with recursive n(i) as (select 1 union all select i+1 from n where i<?) "
                     u"insert into COLUMNA (LINK, TIPO, FECHA1, FECHAF) select i, 1, 45000+i, "
                     u"45000.999988425926+i from n",
                     kPeriodos));
    bien(db->ejecutar(
        u"with recursive n(i) as (select 1 union all select i+1 from n where i<?) "
        u"insert into TOTPLU (LINK, GRUPO, CODI, CON, [IMP]) select c.LINK, 1+i-10*int(i/10), "
        u"100+i, 3, 250 from n, COLUMNA c",
        kFilasPeriodo));
    bien(
        db->ejecutar(u"insert into TOTGRT (LINK, GRUPO, CODI, CON, [IMP]) select c.LINK, CODGPO, "
                     u"0, 600, 50000 from GRUPOS, COLUMNA c"));
    automation::Historial historial(*db, textosDePrueba());
    const Fecha ayer = RelojReal().ahora() - 0.4;
    bien(historial.empezar(1, QStringLiteral("NOCHE"), ayer, QStringLiteral("NOCHE.TZA")));
    bien(
        db->ejecutar(u"insert into ProcesoTareas (EJECUCION, PASO, GRUPO, CLASE, HECHA) select 1, "
                     u"0, CODGPO, 17, 1 from GRUPOS"));
    bien(historial.periodosHechos(1, {kPeriodos}));
    bien(historial.acabar(1, automation::FinEjecucion::Bien, ayer + 0.01));
    bien(db->CommitTrans());
    pintar(tarvo, orden, "tiempo");  // the settings file is written, the database is at rest
  }
  QTemporaryDir carpeta;
  QString tarvo = junto("tarvo-banco-ventana"), vacia = junto("tarvo-banco-vacia");
  QStringList orden{QStringLiteral("--carpeta"), carpeta.path(), QStringLiteral("--tema"),
                    QStringLiteral("claro")};
};

double primerPintado() {
  const TiendaGrande t;
  return kVecesTiempo * razon([&] { pintar(t.tarvo, t.orden, "tiempo"); },
                              [&] { pintar(t.vacia, {}, "tiempo"); }, kPintados);
}

double memoriaVentana() {
  const TiendaGrande t;
  return kVecesMemoria * razonDeCifras([&] { return pintar(t.tarvo, t.orden, "memoria"); },
                                       [&] { return pintar(t.vacia, {}, "memoria"); });
}

// The longest step of the morning's reading, compared with the longest allowed wait of the event
// loop.
double rebanada() {
  const TiendaGrande t;
  const auto db =
      bien(dao::Database::OpenDatabase(t.carpeta.filePath(QStringLiteral("TARVO.MDB"))));
  const Ajustes ajustes(t.carpeta.path(), Idioma::Espanol,
                        {totals::ajustesSesion(), totals::ajustesPeriodos()});
  const motor::RepertorioTareas repertorio = tareas::repertorio();
  const automation::Lenguaje lenguaje(repertorio, ajustes, textosDePrueba());
  const auto peorPaso = [&] {
    automation::LectorResumen lector({.db = *db,
                                      .ajustes = ajustes,
                                      .textos = textosDePrueba(),
                                      .lenguaje = lenguaje,
                                      .ahora = RelojReal().ahora()});
    double mayor = 0;
    for (bool sigue = true; sigue;) {
      QElapsedTimer paso;
      paso.start();
      sigue = bien(lector.paso());
      mayor = std::max(mayor, static_cast<double>(paso.nsecsElapsed()) * 1e-6);
    }
    return mayor;
  };
  return Trabajo::kRebanada / medianaDe(kLecturas, peorPaso);
}

const AltaMedida kMedidasVentanas[] = {{"ventana.primer_pintado", 1.0, primerPintado},
                                       {"ventana.memoria", 1.0, memoriaVentana},
                                       {"ventana.rebanada", 1.0, rebanada}};

}  // namespace
}  // namespace tarvo::banco
