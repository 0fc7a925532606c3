#include "core/dao/sqlite/Funciones.h"

#include <sqlite3.h>

#include <QString>

#include "core/dao/Orden.h"

namespace tarvo::dao {

namespace {

QString argumento(sqlite3_value* v) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(v));
  return QString::fromUtf8(bytes, sqlite3_value_bytes(v));
}

bool algunoNulo(int n, sqlite3_value** v) {
  for (int i = 0; i < n; ++i)
    if (sqlite3_value_type(v[i]) == SQLITE_NULL) return true;
  return false;
}

void responder(sqlite3_context* c, const QString& s) {
  const QByteArray utf8 = s.toUtf8();
  sqlite3_result_text64(c, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
}

void ucase(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!algunoNulo(n, v)) responder(c, argumento(v[0]).toUpper());
}

void lcase(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!algunoNulo(n, v)) responder(c, argumento(v[0]).toLower());
}

void like(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!algunoNulo(n, v)) sqlite3_result_int(c, casaPatron(argumento(v[0]), argumento(v[1])));
}

int comparar(void*, int na, const void* a, int nb, const void* b) {
  return compararOrden({static_cast<const char*>(a), na}, {static_cast<const char*>(b), nb});
}

}  // namespace

int registrarFunciones(sqlite3* db) {
  constexpr int kTipo = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  int rc = sqlite3_create_function_v2(db, "tarvo_ucase", 1, kTipo, nullptr, ucase, nullptr, nullptr,
                                      nullptr);
  if (rc == SQLITE_OK)
    rc = sqlite3_create_function_v2(db, "tarvo_lcase", 1, kTipo, nullptr, lcase, nullptr, nullptr,
                                    nullptr);
  if (rc == SQLITE_OK)
    rc = sqlite3_create_function_v2(db, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                    like, nullptr, nullptr, nullptr);
  if (rc == SQLITE_OK)
    rc = sqlite3_create_collation_v2(db, "tarvo_orden", SQLITE_UTF8, nullptr, comparar, nullptr);
  return rc;
}

}  // namespace tarvo::dao
