#include <QDir>
#include <QFileInfo>

#include "app/AjustesSalas.h"
#include "app/Aplicacion.h"
#include "app/Tablas.h"
#include "app/TextosApp.h"
#include "comm/configuracion/Aceptado.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/tareas/Repertorio.h"
#include "core/esquema/Esquema.h"
#include "devices/PrimerGrupo.h"
#include "totals/libros/Grupos.h"
#include "totals/libros/TablasLibros.h"

namespace tarvo::app {

namespace {

// Where the empty database may be: the program's folder, beside the executable, the installed data.
QStringList carpetasPlantilla(const QString& carpeta) {
  const QString ejecutable = carpetaEjecutable();
  return {carpeta, ejecutable, QDir::cleanPath(ejecutable + QStringLiteral("/../share/tarvo"))};
}

QString motivoCerrojo(const Error& error, const QString& base, const Textos& t) {
  switch (error.clase) {
    case Fallo::Ocupado:
      return t(kTxBaseOcupada).arg(base);
    case Fallo::NoExiste:
      return t(kTxBaseNoAbierta).arg(base, t(kTxSinSuCarpeta));
    default:
      return t(kTxCarpetaSinPermiso).arg(QFileInfo(base).path(), error.texto);
  }
}

// The lowest code of a group that no room keeps rows of.
Resultado<int> codigoLibre(dao::Database& db) {
  std::vector<totals::TablaDeGrupo> tablas = totals::tablasDeGrupo();
  for (const auto& suyas :
       {envios::tablasDeGrupo(), configuracion::tablasDeGrupo(), tareas::tablasDeGrupo()})
    for (const QString& t : suyas) tablas.push_back({t, {}});
  tablas.push_back({QStringLiteral("[Cross]"), {}});
  const auto usado = [&](int codigo) -> Resultado<bool> {
    for (const auto& t : tablas) {
      TARVO_TOMAR(const auto fila,
                  db.uno(dao::conMarcas(u"SELECT 1 FROM {tabla} WHERE "
                                        u"{donde}GRUPO=? LIMIT 1",
                                        {{u"tabla", t.tabla}, {u"donde", t.donde}}),
                         codigo));
      if (!fila.nulo()) return true;
    }
    TARVO_TOMAR(const auto sesion, db.uno(u"SELECT 1 FROM Sesiones WHERE CODGPO=?", codigo));
    return !sesion.nulo();
  };
  for (int codigo = 1;; ++codigo) {
    TARVO_TOMAR(const bool ocupado, usado(codigo));
    if (!ocupado) return codigo;
  }
}

Resultado<std::unique_ptr<dao::Database>> abrirBase(const Ajustes& ajustes, Fecha hoy) {
  auto db = esquema::abrirBase(ajustes.BaseDatos, carpetasPlantilla(ajustes.carpeta), hoy,
                               tablasDeLasSalas());
  if (!db) return db;
  TARVO_INTENTAR(devices::asegurarPrimerGrupo(**db, ajustes, codigoLibre));
  return db;
}

// All stored money is in this currency. Settings without it, or with an unreadable one, must not
// divide a shop's prices by a hundred.
const QString kMonedaNativa = QStringLiteral("MonedaNativa");

Resultado<dao::Valor> seguirMoneda(dao::Database& db, Ajustes& ajustes) {
  TARVO_TOMAR(auto ultima, totals::EstadoBase(db).leer(kMonedaNativa));
  if (!ultima.nulo() && !ajustes.monedaLeida)
    ajustes.ponerMonedaNativa(static_cast<int>(ultima.entero()));
  return ultima;
}

Resultado<> recordarMoneda(dao::Database& db, Ajustes& ajustes) {
  TARVO_TOMAR(const auto ultima, seguirMoneda(db, ajustes));
  if (!ultima.nulo() && ultima.entero() == ajustes.MonedaNativa) return {};
  return totals::EstadoBase(db).poner(kMonedaNativa, ajustes.MonedaNativa);
}

}  // namespace

Fondo::Fondo(Cerrojo cerrojo, Ajustes losAjustes, const Textos& losTextos)
    : textos(losTextos), cerrojo_(std::move(cerrojo)), ajustes(std::move(losAjustes)) {}

// Label texts that come from the program itself: words of the table, and units in the currency of
// the stored prices.
static void fijarTextosEtiquetas(Ajustes& a, const Textos& textos) {
  static constexpr int kFijos = 20, kUnidades = 3;
  static constexpr size_t kPrimeraUnidad = 2;
  for (int i = 0; i < kFijos; ++i)
    a.TextoEtiquetas[static_cast<size_t>(i) + 1] = textos(kTxEtiquetaFija + i);
  if (a.MonedaNativa != 0) return;
  for (int i = 0; i < kUnidades; ++i)
    a.TextoEtiquetas[static_cast<size_t>(i) + kPrimeraUnidad] = textos(kTxEtiquetaLocal + i);
}

Resultado<Ajustes> Fondo::leerAjustes(const QString& carpeta, Idioma idioma, const Textos& textos,
                                      Reloj& reloj) {
  Ajustes ajustes(carpeta, idioma, ajustesDeLasSalas(reloj.ahora()));
  if (const auto leidos = ajustes.LeerConfig(); !leidos)
    return fallo(leidos.error().clase, textos(kTxAjustesIlegibles).arg(leidos.error().texto));
  fijarTextosEtiquetas(ajustes, textos);
  return ajustes;
}

QStringList dudasDe(const Ajustes& ajustes, const Textos& textos) {
  QStringList frases;
  for (const Ajustes::Duda& d : ajustes.dudas)
    frases << (d.vale.isEmpty() ? textos(kTxLineaPasada, {d.linea})
                                : textos(kTxLineaDudosa, {d.linea, d.vale}));
  return frases;
}

bool baseFuera(const Ajustes& ajustes) {
  const QString carpeta = QFileInfo(ajustes.carpeta).canonicalFilePath() + u'/';
  return !ficheroReal(ajustes.BaseDatos).startsWith(carpeta);
}

Resultado<Fondo::Vista> Fondo::mirar(const QString& carpeta, Idioma idioma, const Textos& textos,
                                     Reloj& reloj) {
  TARVO_TOMAR(auto ajustes, leerAjustes(carpeta, idioma, textos, reloj));
  const auto abrirla = [&]() -> Resultado<std::unique_ptr<dao::Database>> {
    TARVO_TOMAR(auto db, dao::Database::OpenDatabase(ajustes.BaseDatos, {.soloLeer = true}));
    TARVO_INTENTAR(seguirMoneda(*db, ajustes));
    return db;
  };
  auto db = abrirla();
  if (!db)
    return fallo(db.error().clase,
                 textos(kTxBaseNoAbierta).arg(ajustes.BaseDatos, db.error().texto));
  return Vista{std::move(ajustes), std::move(*db)};
}

// Another database, traces or exports.
bool huboTienda(const QString& carpeta) {
  QStringList rastros = QDir(carpeta).entryList({QStringLiteral("*.MDB"), QStringLiteral("*.TZA"),
                                                 QStringLiteral("*.TZC"), QStringLiteral("*.EXP")},
                                                QDir::Files);
  rastros.removeAll(esquema::kPlantilla.toString());
  return !rastros.isEmpty();
}

bool faltaLaBase(const Ajustes& ajustes) {
  const QFileInfo base(ajustes.BaseDatos);
  return ajustes.baseNombrada && !base.exists() && QFileInfo(base.path()).isDir() &&
         (huboTienda(ajustes.carpeta) || huboTienda(ajustes.HomeDir));
}

Resultado<std::unique_ptr<Fondo>> Fondo::abrir(const QString& carpeta, Idioma idioma,
                                               const Textos& textos, Reloj& reloj,
                                               SiFaltaLaBase siFalta) {
  // The settings name the database to lock; the rest of them counts once it is locked, as its
  // previous holder may have written them meanwhile.
  TARVO_TOMAR(const auto antes, leerAjustes(carpeta, idioma, textos, reloj));
  const auto conMotivo = [&](const Error& e) {
    return fallo(e.clase, motivoCerrojo(e, antes.BaseDatos, textos));
  };
  if (siFalta == SiFaltaLaBase::Negarse && faltaLaBase(antes))
    return fallo(Fallo::NoExiste, textos(kTxBaseNoEsta).arg(antes.BaseDatos));
  auto cerrojo = Cerrojo::tomar(antes.BaseDatos);
  if (!cerrojo) return conMotivo(cerrojo.error());
  TARVO_TOMAR(auto ajustes, antes.sigueIgual() ? Resultado<Ajustes>(antes)
                                               : leerAjustes(carpeta, idioma, textos, reloj));
  if (ficheroReal(ajustes.BaseDatos) != ficheroReal(antes.BaseDatos))
    return conMotivo({Fallo::Ocupado, 0, {}});
  std::unique_ptr<Fondo> fondo(new Fondo(std::move(*cerrojo), std::move(ajustes), textos));
  // Opening it may write: not into a file that another program holds by another name.
  const QString& base = fondo->ajustes.BaseDatos;
  if (QFileInfo::exists(base))
    if (const auto suyo = fondo->cerrojo_.tomarFichero(base);
        !suyo && suyo.error().clase == Fallo::Ocupado)
      return conMotivo(suyo.error());
  auto db = abrirBase(fondo->ajustes, reloj.ahora().dia());
  if (!db)
    return fallo(db.error().clase,
                 textos(kTxBaseNoAbierta).arg(fondo->ajustes.BaseDatos, db.error().texto));
  fondo->db = std::move(*db);
  if (const auto suyo = fondo->cerrojo_.tomarFichero(base); !suyo) return conMotivo(suyo.error());
  if (const auto hecho = recordarMoneda(*fondo->db, fondo->ajustes); !hecho)
    return fallo(hecho.error().clase, textos(kTxSinArranque).arg(hecho.error().texto));
  fijarTextosEtiquetas(fondo->ajustes, textos);  // in the effective currency
  return fondo;
}

}  // namespace tarvo::app
