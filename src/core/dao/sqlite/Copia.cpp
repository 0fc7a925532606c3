#include "core/dao/sqlite/Copia.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <memory>

#include "core/dao/sqlite/Errores.h"

namespace tarvo::dao {

namespace {

struct Cerrar {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Abierta = std::unique_ptr<sqlite3, Cerrar>;

Resultado<Abierta> abrir(const QString& ruta, int modo) {
  sqlite3* db = nullptr;
  const int rc = sqlite3_open_v2(QFile::encodeName(ruta).constData(), &db,
                                 modo | SQLITE_OPEN_NOMUTEX, nullptr);
  Abierta a(db);
  if (rc != SQLITE_OK) return std::unexpected(errorDe(db, rc, ruta));
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, 5000);
  return a;
}

Resultado<> copiarPaginas(const QString& origen, const QString& destino) {
  TARVO_TOMAR(auto de, abrir(origen, SQLITE_OPEN_READONLY));
  TARVO_TOMAR(auto a, abrir(destino, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
  sqlite3_backup* copia = sqlite3_backup_init(a.get(), "main", de.get(), "main");
  if (!copia) return std::unexpected(errorDe(a.get(), sqlite3_errcode(a.get()), destino));
  const int paso = sqlite3_backup_step(copia, -1);
  const int fin = sqlite3_backup_finish(copia);
  if (paso != SQLITE_DONE)
    return std::unexpected(errorDe(a.get(), fin != SQLITE_OK ? fin : paso, destino));
  const int rc = sqlite3_exec(a.get(), "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return std::unexpected(errorDe(a.get(), rc, destino));
  return {};
}

bool volcar(const QString& ruta, int modo) {
  const int fd = ::open(QFile::encodeName(ruta).constData(), modo | O_CLOEXEC);
  if (fd < 0) return false;
  const bool bien = ::fsync(fd) == 0;
  ::close(fd);
  return bien;
}

void quitarAcompanantes(const QString& ruta) {
  for (const char* cola : {"-wal", "-shm", "-journal"}) QFile::remove(ruta + QLatin1String(cola));
}

}  // namespace

Resultado<> copiarBase(const QString& origen, const QString& destino) {
  const QString nueva = destino + QStringLiteral(".nueva");
  QFile::remove(nueva);
  quitarAcompanantes(nueva);
  auto copiada = copiarPaginas(origen, nueva);
  if (!copiada) {
    QFile::remove(nueva);
    quitarAcompanantes(nueva);
    return copiada;
  }
  if (!volcar(nueva, O_RDWR)) {
    QFile::remove(nueva);
    return fallo(
        Fallo::DiscoLleno,
        QStringLiteral("No se ha podido escribir la copia de la base de datos: %1").arg(destino));
  }
  // Companions of an earlier file of that name must not be taken for parts of the new one.
  quitarAcompanantes(destino);
  if (std::rename(QFile::encodeName(nueva).constData(), QFile::encodeName(destino).constData()) !=
      0) {
    QFile::remove(nueva);
    return fallo(Fallo::SinPermiso,
                 QStringLiteral("No se ha podido poner la copia en su sitio: %1").arg(destino));
  }
  volcar(QFileInfo(destino).absolutePath(), O_RDONLY | O_DIRECTORY);
  return {};
}

}  // namespace tarvo::dao
