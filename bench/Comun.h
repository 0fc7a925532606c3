// Shared by the measurements: a failure in the measured code ends the program, and a shop to
// measure on.
#pragma once

#include <sqlite3.h>

#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "core/dao/Database.h"

namespace tarvo::banco {

[[noreturn]] inline void morir(const QString& texto) {
  std::fprintf(stderr, "%s\n", qPrintable(texto));
  std::exit(2);
}

template <class T>
T bien(Resultado<T>&& r) {
  if (!r) morir(r.error().texto);
  if constexpr (!std::is_void_v<T>) return std::move(*r);
}

inline int bien(int rc, int esperado = SQLITE_OK) {
  if (rc != esperado) morir(QString::fromUtf8(sqlite3_errstr(rc)));
  return rc;
}

// The engine's own connection to a file, configured like the program's.
class Crudo {
 public:
  explicit Crudo(const QString& ruta) {
    bien(sqlite3_open_v2(ruta.toUtf8().constData(), &c, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                         nullptr));
    for (const char* s : {"PRAGMA synchronous=FULL", "PRAGMA foreign_keys=ON"}) ejecutar(s);
  }
  ~Crudo() { sqlite3_close_v2(c); }
  Crudo(const Crudo&) = delete;

  void ejecutar(const char* sql) { bien(sqlite3_exec(c, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* preparar(const char* sql) {
    sqlite3_stmt* s = nullptr;
    bien(sqlite3_prepare_v3(c, sql, -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr));
    return s;
  }

  sqlite3* c = nullptr;
};

// A database of this version with `grupos` groups of one scale each on the connectors "G1",
// "G2"..., and `articulos` articles of one section.
std::unique_ptr<dao::Database> hacerTienda(const QString& ruta, int grupos, int articulos);

}  // namespace tarvo::banco
