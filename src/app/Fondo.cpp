#include <QDir>
#include <QFileInfo>

#include "app/Aplicacion.h"
#include "app/Tablas.h"
#include "app/TextosApp.h"
#include "core/esquema/Esquema.h"
#include "devices/PrimerGrupo.h"

namespace tarvo::app {

namespace {

// Where the empty database may be: the program's folder, beside the executable, the installed data.
QStringList carpetasPlantilla(const QString& carpeta) {
  const QString ejecutable = carpetaEjecutable();
  return {carpeta, ejecutable, QDir::cleanPath(ejecutable + QStringLiteral("/../share/tarvo"))};
}

QString motivoCerrojo(const Error& error, const QString& carpeta, const Textos& t) {
  return error.clase == Fallo::Ocupado ? t(kTxCarpetaOcupada).arg(carpeta)
                                       : t(kTxCarpetaSinPermiso).arg(carpeta, error.texto);
}

Resultado<std::unique_ptr<dao::Database>> abrirBase(const Ajustes& ajustes, Fecha hoy) {
  auto db = esquema::abrirBase(ajustes.BaseDatos, carpetasPlantilla(ajustes.carpeta), hoy,
                               tablasDeLasSalas());
  if (!db) return db;
  TARVO_INTENTAR(devices::asegurarPrimerGrupo(**db, ajustes));
  return db;
}

}  // namespace

Fondo::Fondo(Cerrojo cerrojo, const QString& carpeta, Idioma idioma, const Textos& losTextos,
             Fecha ahora)
    : textos(losTextos), ajustes(carpeta, idioma, ahora), cerrojo_(std::move(cerrojo)) {}

Resultado<std::unique_ptr<Fondo>> Fondo::abrir(const QString& carpeta, Idioma idioma,
                                               const Textos& textos, Reloj& reloj) {
  auto cerrojo = Cerrojo::tomar(carpeta);
  if (!cerrojo)
    return fallo(cerrojo.error().clase, motivoCerrojo(cerrojo.error(), carpeta, textos));
  std::unique_ptr<Fondo> fondo(
      new Fondo(std::move(*cerrojo), carpeta, idioma, textos, reloj.ahora()));
  if (const auto leidos = fondo->ajustes.LeerConfig(); !leidos)
    return fallo(leidos.error().clase, textos(kTxAjustesIlegibles).arg(leidos.error().texto));
  auto db = abrirBase(fondo->ajustes, reloj.ahora().dia());
  if (!db)
    return fallo(db.error().clase,
                 textos(kTxBaseNoAbierta).arg(fondo->ajustes.BaseDatos, db.error().texto));
  fondo->db = std::move(*db);
  return fondo;
}

}  // namespace tarvo::app
