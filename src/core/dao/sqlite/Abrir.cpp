// Opening a file: its kind, whether it is writable, and the connection's settings.
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include "core/dao/sqlite/Base.h"
#include "core/dao/sqlite/Errores.h"
#include "core/dao/sqlite/Funciones.h"

namespace tarvo::dao {

namespace {

using Con = std::shared_ptr<Conexion>;

// By the rights that apply when the file is opened.
bool puede(const QString& ruta, int que) {
  return ::faccessat(AT_FDCWD, QFile::encodeName(ruta).constData(), que, AT_EACCESS) == 0;
}

Resultado<> mirarFichero(const QString& ruta, const Apertura& como) {
  const QFileInfo f(ruta);
  if (!f.exists()) {
    if (como.crear && !como.soloLeer) return {};
    return fallo(Fallo::NoExiste, QStringLiteral("No se encuentra la base de datos: %1").arg(ruta),
                 3024);
  }
  if (!f.isFile())
    return fallo(Fallo::NoEsBaseDatos,
                 QStringLiteral("No es un fichero de base de datos: %1").arg(ruta));
  if (!puede(ruta, R_OK))
    return fallo(
        Fallo::SinPermiso,
        QStringLiteral("No hay permiso para leer la base de datos: compruebe los permisos de %1")
            .arg(ruta));
  return {};
}

Resultado<Con> conectar(const QString& ruta, int modo, bool inmutable) {
  QByteArray nombre = QFile::encodeName(ruta);
  if (inmutable) {
    nombre = QUrl::fromLocalFile(QFileInfo(ruta).absoluteFilePath()).toEncoded() + "?immutable=1";
    modo |= SQLITE_OPEN_URI;
  }
  sqlite3* db = nullptr;
  const int rc = sqlite3_open_v2(nombre.constData(), &db, modo | SQLITE_OPEN_NOMUTEX, nullptr);
  auto con = std::make_shared<Conexion>(db, ruta);
  if (rc != SQLITE_OK) return std::unexpected(con->error(rc));
  sqlite3_extended_result_codes(db, 1);
  return con;
}

// The first read of the file: it distinguishes a database from anything else.
Resultado<QString> modoDiario(Conexion& con) {
  TARVO_TOMAR(auto p, con.preparar(QStringLiteral("PRAGMA journal_mode")));
  TARVO_INTENTAR(p.paso());
  const QString modo =
      QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(p.cruda(), 0)));
  p.reponer();
  TARVO_INTENTAR(con.ejecutar(QStringLiteral("SELECT 1 FROM sqlite_master LIMIT 1")));
  return modo;
}

// Takes the write lock and releases it: a protected file, folder or disk is discovered now and not
// in the middle of the night. A lock held by another program proves as much.
Resultado<> probarEscritura(Conexion& con, int espera) {
  if (sqlite3_db_readonly(con.cruda(), "main") == 1)
    return std::unexpected(errorDe(nullptr, SQLITE_READONLY, con.ruta));
  sqlite3_busy_timeout(con.cruda(), 0);
  auto r = con.ejecutar(QStringLiteral("BEGIN IMMEDIATE"));
  sqlite3_busy_timeout(con.cruda(), espera);
  if (!r && r.error().clase != Fallo::Ocupado) return r;
  if (r) TARVO_INTENTAR(con.ejecutar(QStringLiteral("ROLLBACK")));
  return {};
}

Resultado<> ajustar(Conexion& con, const Apertura& como) {
  sqlite3_busy_timeout(con.cruda(), como.esperaOcupada);
  sqlite3_db_config(con.cruda(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  if (const int rc = registrarFunciones(con.cruda()); rc != SQLITE_OK)
    return std::unexpected(con.error(rc));
  TARVO_TOMAR(const auto diario, modoDiario(con));
  if (!como.soloLeer) {
    TARVO_INTENTAR(probarEscritura(con, como.esperaOcupada));
    if (diario == u"delete")
      TARVO_INTENTAR(con.ejecutar(QStringLiteral("PRAGMA journal_mode=WAL")));
  }
  TARVO_INTENTAR(con.ejecutar(QStringLiteral("PRAGMA synchronous=FULL")));
  return con.ejecutar(QStringLiteral("PRAGMA foreign_keys=ON"));
}

// In a protected folder the engine can't create its files beside the database: it reports "cannot
// open".
Error comoProteccion(Error e, const QString& ruta) {
  const QFileInfo f(ruta);
  const bool protegida = f.exists() && !(puede(ruta, W_OK) && puede(f.absolutePath(), W_OK));
  if (!protegida || (e.clase != Fallo::SinPermiso && e.clase != Fallo::NoExiste)) return e;
  return errorDe(nullptr, SQLITE_READONLY, ruta);
}

}  // namespace

Resultado<std::unique_ptr<Database>> Database::OpenDatabase(const QString& ruta,
                                                            const Apertura& como) {
  TARVO_INTENTAR(mirarFichero(ruta, como));
  int modo = como.soloLeer ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  if (como.crear && !como.soloLeer) modo |= SQLITE_OPEN_CREATE;
  auto con = conectar(ruta, modo, false);
  if (!con) return std::unexpected(con.error());
  auto r = ajustar(**con, como);
  if (!r && como.soloLeer &&
      (r.error().clase == Fallo::SinPermiso || r.error().clase == Fallo::SoloLectura)) {
    // A protected medium has no writers, so the file may be read without locks.
    con = conectar(ruta, modo, true);
    if (!con) return std::unexpected(con.error());
    r = ajustar(**con, como);
  }
  if (!r) return std::unexpected(como.soloLeer ? r.error() : comoProteccion(r.error(), ruta));
  return std::make_unique<Base>(std::move(*con));
}

}  // namespace tarvo::dao
