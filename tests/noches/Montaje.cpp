// The shop of a seed: its database, settings, machines and wires.
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "app/AjustesSalas.h"
#include "comm/cables/AjustesCables.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/Repertorio.h"
#include "core/esquema/Esquema.h"
#include "noches/Mundo.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::noches {

using simulador::Tipo;

namespace {

// In memory if possible, since a night commits often.
QString sitio() {
  const QFileInfo memoria(QStringLiteral("/dev/shm"));
  return (memoria.isWritable() ? memoria.filePath() : QDir::tempPath()) +
         QStringLiteral("/noches-XXXXXX");
}

// The database as a first start leaves it.
Resultado<> hacerPlantilla(const QString& ruta) {
  TARVO_INTENTAR(esquema::escribirPlantilla(ruta));
  const auto db = esquema::abrirBase(ruta, {}, Fecha::de(QDate(2026, 1, 1)));
  if (!db) return std::unexpected(db.error());
  TARVO_INTENTAR(totals::asegurarTablasTotales(**db));
  TARVO_INTENTAR(totals::asegurarTablasLibros(**db));
  return tareas::asegurarTablasTareas(**db);
}

// An empty database, made once.
const QString& plantilla() {
  static const QTemporaryDir carpeta(sitio());
  static const QString ruta = [] {
    const QString r = carpeta.filePath(QStringLiteral("voidTarvo.mdb"));
    if (auto hecha = hacerPlantilla(r); !hecha) qFatal("%s", qPrintable(hecha.error().texto));
    return r;
  }();
  return ruta;
}

QByteArray texto(const QString& s) {
  return '\'' + s.toUtf8() + '\'';
}
QByteArray n(qint64 x) {
  return QByteArray::number(x);
}

void insertarGrupo(Lector& base, const PlanGrupo& g, double pzero) {
  QByteArray columnas =
      "INSERT INTO GRUPOS (CODGPO, NOMGPO, SECCION, tarifa, Almacen, remoto, canal, TELEF, "
      "Baudios, ADDR, TIPO";
  QByteArray valores = ") VALUES (" + n(g.codigo) + ", 'G" + n(g.codigo) + "', 1, 0, " +
                       n(g.almacen) + ", " + n(g.remoto) + ", " + n(g.canal) + ", " +
                       texto(g.acceso) + ", 0, " + n(g.addr) + ", " + n(static_cast<int>(g.tipo));
  for (std::size_t i = 0; i < g.operadores.size(); ++i) {
    columnas += ", OP" + n(static_cast<int>(i) + 1).rightJustified(2, '0') + "_C";
    valores += ", " + n(g.operadores[i]);
  }
  base.filas(columnas + valores + ")");
  for (std::size_t i = 0; i < g.direcciones.size(); ++i)
    base.filas("INSERT INTO BZAS (SUGPO, NMBZA, ADDR, TIPO) VALUES (" + n(g.codigo) + ", " +
               n(static_cast<int>(i) + 1) + ", " + n(g.direcciones[i]) + ", 1)");
  // Zeroed at the end of the day before the first.
  base.filas("INSERT INTO Sesiones (CODGPO, PZERO) VALUES (" + n(g.codigo) + ", " +
             QByteArray::number(pzero, 'f', 10) + ")");
}

void insertarTienda(const Plan& plan, const QString& ruta) {
  Lector base(ruta);
  base.filas("BEGIN");
  base.filas("INSERT OR IGNORE INTO SECCS (NMSECC, NOMSEC) VALUES (1, 'S')");
  base.filas("INSERT OR IGNORE INTO ALMACEN (CODALM, NOMALM) VALUES (0, 'A0')");
  base.filas("INSERT OR IGNORE INTO ALMACEN (CODALM, NOMALM) VALUES (1, 'A1')");
  base.filas("INSERT OR IGNORE INTO ALMACEN (CODALM, NOMALM) VALUES (2, 'A2')");
  base.filas(
      "INSERT OR IGNORE INTO PLUSES (SECCION, CODPLU, NOMPLU, CADA) VALUES (1, 1, 'Uno', 2)");
  base.filas(
      "INSERT OR IGNORE INTO PLUSES (SECCION, CODPLU, NOMPLU, CADA) VALUES (1, 2, 'Dos', 2)");
  for (const auto& [codigo, a] : plan.articulos)
    base.filas(
        "INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU, CADA, PRECIO_00, DEPTO, PFX_BAR) VALUES "
        "(1, " +
        n(codigo) + ", 'A" + n(codigo) + "', " + n(a.unidad) + ", " + n(a.precio) + ", " +
        n(a.departamento) + ", '20')");
  for (const auto& g : plan.grupos)
    insertarGrupo(base, g, (Fecha::de(plan.primerDia) - 2.5 / 24).dias());
  base.filas("COMMIT");
}

Resultado<> escribirAjustes(const Plan& plan, const QString& carpeta) {
  Ajustes a(carpeta, Idioma::Espanol, app::ajustesDeLasSalas(Fecha::de(plan.primerDia)));
  auto& canales = a.de<enlace::AjustesCables>().canales;
  for (int i = 0; i < 4; ++i) {
    canales[static_cast<std::size_t>(i)].Device = i < 2 ? TipoAcceso::Directo : TipoAcceso::TcpIp;
    canales[static_cast<std::size_t>(i)].Puerto = i + 1;
  }
  a.de<motor::AjustesMotor>().IntentosManual = plan.reintentos;
  return a.GuardarConfig();
}

}  // namespace

Mundo::Mundo(const Plan& plan, std::function<void(const QString&)> alTrazar)
    : plan_(plan),
      alTrazar_(std::move(alTrazar)),
      carpeta_(sitio()),
      reloj_(Fecha::de(plan.primerDia)),
      hilos_(reloj_, plan.semilla + 1),
      azar_(plan.semilla + 2),
      notas_(plan.semilla + 3),
      gente_(plan.semilla + 4) {
  for (const auto& [codigo, a] : plan_.articulos) codigos_.push_back(codigo);
  montar();
}

void Mundo::montar() {
  const QString base = carpeta_.filePath(QStringLiteral("TARVO.MDB"));
  if (!QFile::copy(plantilla(), base)) qFatal("no se puede copiar la base de datos");
  insertarTienda(plan_, base);
  if (auto r = escribirAjustes(plan_, carpeta_.path()); !r)
    qFatal("%s", qPrintable(r.error().texto));
  for (auto& g : plan_.grupos) {
    vivos_.push_back(&g);
    for (const int direccion : g.direcciones) montarMaquina(g, direccion);
  }
  oraculo_ = std::make_unique<Oraculo>(plan_, maquinas_, carpeta_.path());
  if (!alTrazar_) return;
  for (const auto& g : plan_.grupos)
    alTrazar_(QStringLiteral("grupo %1: tipo %2, %3, %4 máquinas")
                  .arg(g.codigo)
                  .arg(static_cast<int>(g.tipo))
                  .arg(g.linea())
                  .arg(g.direcciones.size()));
  for (const auto& l : plan_.proceso) alTrazar_(QStringLiteral("  ") + l);
  hilos_.alPasar = [this](char sentido, const QByteArray& b) {
    QString s;
    for (const char c : b.left(120))
      s += c >= 32 && c < 127 ? QString(QLatin1Char(c))
                              : QStringLiteral("<%1>").arg(static_cast<unsigned char>(c));
    alTrazar_(
        QStringLiteral("    %1 %2 %3").arg(reloj_.monotono()).arg(QLatin1Char(sentido)).arg(s));
  };
}

void Mundo::montarMaquina(PlanGrupo& g, int direccion) {
  simulador::OpcionesMaquina o;
  o.tipo = g.tipo;
  o.grupo = g.codigo;
  o.direccion = direccion;
  o.balanzas = {1, 2, 3};
  o.borra = g.borra;
  o.registrosPorTrama = azar_.entero(1, 8);
  MaquinaViva m;
  m.grupo = &g;
  m.maquina = simulador::crearMaquina(o, reloj_);
  m.maquina->memoria().catalogo = plan_.articulos;
  m.maquina->memoria().operadores = g.operadores;
  hilos_.cables[g.linea()].poner(*m.maquina);
  maquinas_.push_back(std::move(m));
}

}  // namespace tarvo::noches
