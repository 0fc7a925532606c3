// The smallest possible program of this kind: an event loop object and an open database. The start
// of `tarvo` is compared with it.
#include <sqlite3.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
  const QCoreApplication bucle(argc, argv);
  if (argc < 2) return 64;
  sqlite3* db = nullptr;
  int rc = sqlite3_open_v2(argv[1], &db, SQLITE_OPEN_READWRITE, nullptr);
  if (rc == SQLITE_OK)
    rc = sqlite3_exec(db, "PRAGMA journal_mode=WAL; SELECT count(*) FROM GRUPOS", nullptr, nullptr,
                      nullptr);
  sqlite3_close_v2(db);
  return rc == SQLITE_OK ? 0 : 4;
}
