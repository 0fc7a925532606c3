// A reader of the database file, independent of the program's store, and the disk below it: when it
// is full, and at which commit the power fails.
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace tarvo::noches {

class Lector {
 public:
  explicit Lector(const QString& ruta);
  ~Lector();
  Lector(const Lector&) = delete;
  Lector& operator=(const Lector&) = delete;

  class Fila {
   public:
    explicit Fila(sqlite3_stmt* s) : s_(s) {}
    qint64 entero(int columna) const;
    double real(int columna) const;
    QByteArray texto(int columna) const;
    int columnas() const;

   private:
    sqlite3_stmt* s_;
  };
  // Statements without rows run as well. A failed statement ends the program, since the query is
  // wrong.
  void filas(const QByteArray& sql, const std::function<void(const Fila&)>& cada = {});
  qint64 uno(const QByteArray& sql);
  // All rows of all tables as text, for comparing two runs.
  QByteArray todo();

 private:
  sqlite3* db_ = nullptr;
  std::map<QByteArray, sqlite3_stmt*> consultas_;
};

// The disk as seen by every connection that isn't a Lector's. One for each process, since SQLite's
// hooks are.
struct Disco {
  qint64 confirmaciones = 0;  // commits so far
  qint64 cortarEn = -1;       // the commit with this number is the program's last action
  qint64 fallarEn = -1;       // only the commit with this number fails
  bool cortado = false;       // nothing gets through any more, not even on wires
  sqlite3* conexion = nullptr;
  void llenar();  // no page may be added
  void vaciar();
  void soltar();  // the program is gone
};
Disco& disco();

}  // namespace tarvo::noches
