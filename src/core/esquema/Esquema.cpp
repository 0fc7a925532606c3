#include "core/esquema/Esquema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

namespace {

constexpr qint64 kCabecera =
    100;  // bytes; a shorter file has no database, and may pass for a new one

QString buscarPlantilla(const QStringList& carpetas) {
  for (const QString& carpeta : carpetas) {
    const QDir d(carpeta);
    for (const QString& f : d.entryList(QDir::Files))
      if (kPlantilla.compare(f, Qt::CaseInsensitive) == 0) return d.filePath(f);
  }
  return {};
}

Resultado<> copiarPlantilla(const QString& ruta, const QStringList& carpetas) {
  const QString plantilla = buscarPlantilla(carpetas);
  if (plantilla.isEmpty())
    return fallo(Fallo::NoExiste,
                 QStringLiteral("No existe base de datos vacía: %1").arg(kPlantilla), 3024);
  TARVO_TOMAR(const auto vacia, dao::Database::OpenDatabase(plantilla, {.soloLeer = true}));
  auto copia = vacia->copiarEn(ruta);
  if (!copia) {
    Error e = copia.error();
    e.texto = QStringLiteral("No se encuentra la base de datos: %1\n%2").arg(ruta, e.texto);
    return std::unexpected(e);
  }
  return {};
}

Resultado<> rehacerQLink(dao::Database& db, const QString& condicion) {
  return db.ejecutarGuion(
      dao::conMarcas(u"drop view if exists QLINK;\n"
                     u"create view QLINK as SELECT * FROM TOTPLU WHERE {condicion};\n",
                     {{u"condicion", condicion}}));
}

}  // namespace

dao::TablasDeSala tablasComunes() {
  return {.sala = QStringLiteral("esquema"), .pasos = pasos(), .copias = {}};
}

Resultado<> crearEsquema(dao::Database& db) {
  return dao::darPasos(db, {tablasComunes()});
}

Resultado<> escribirPlantilla(const QString& ruta) {
  const QString taller = ruta + QStringLiteral(".taller");
  QFile::remove(taller);
  Resultado<> r;
  {
    TARVO_TOMAR(auto db, dao::Database::OpenDatabase(taller, {.crear = true}));
    r = crearEsquema(*db);
    if (r) r = db->copiarEn(ruta);
  }
  QFile::remove(taller);
  return r;
}

Resultado<std::unique_ptr<dao::Database>> abrirBase(const QString& ruta,
                                                    const QStringList& carpetasPlantilla, Fecha hoy,
                                                    const std::vector<dao::TablasDeSala>& salas,
                                                    Version version) {
  // A new one is copied whole: this program never leaves an empty file.
  if (const QFileInfo f(ruta); f.isFile() && f.size() < kCabecera)
    return fallo(Fallo::NoEsBaseDatos,
                 QStringLiteral("La base de datos está vacía: recupere una copia de seguridad o, "
                                "para empezar de nuevo, borre %1")
                     .arg(ruta));
  auto db = dao::Database::OpenDatabase(ruta);
  if (!db && db.error().clase == Fallo::NoExiste) {
    TARVO_INTENTAR(copiarPlantilla(ruta, carpetasPlantilla));
    db = dao::Database::OpenDatabase(ruta);
  }
  if (!db) return db;
  TARVO_INTENTAR(ponerAlDia(**db, hoy, salas, version));
  return db;
}

Resultado<> QLinkDePeriodo(dao::Database& db, qint64 link) {
  return rehacerQLink(db, dao::conMarcas(u"LINK={link}", {{u"link", QString::number(link)}}));
}

Resultado<> QLinkDeArticulo(dao::Database& db, qint64 codigo) {
  return rehacerQLink(
      db, dao::conMarcas(u"(LINK>0) and (CODI={codigo})", {{u"codigo", QString::number(codigo)}}));
}

}  // namespace tarvo::esquema
