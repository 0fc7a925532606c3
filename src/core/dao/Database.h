// The store. One object is the one connection of the program; it lives on one thread.
//
// SQL is written in the Jet dialect (see docs/formatos.md, "The SQL dialect"): #m/d/yyyy#, iif,
// switch, isnull, format, int, ucase, val, &, [name], DELETE ALL * FROM, SELECT ALL, distinctrow,
// like 'abc*'. It is translated once for each text and the prepared statement is kept. `?` marks a
// parameter; values are bound, never pasted. Another engine could be put behind these classes:
// nothing here is specific to one.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/dao/Marcas.h"
#include "core/dao/Recordset.h"
#include "core/dao/Recorrido.h"

namespace tarvo::dao {

// A kept statement for the hot paths: prepared once, run many times.
class Sentencia {
 public:
  virtual ~Sentencia() = default;
  virtual void ligar(int parametro, qint64 valor) = 0;  // parameters count from 0
  virtual void ligar(int parametro, double valor) = 0;
  virtual void ligar(int parametro, const Valor& valor) = 0;
  virtual Resultado<qint64> ejecutar() = 0;  // rows changed
};

struct Apertura {
  bool crear = false;  // create an empty file if there is none
  bool soloLeer = false;
  int esperaOcupada = 5000;  // ms to wait for another program's lock
};

class Database {
 public:
  virtual ~Database() = default;

  // Opens the file. Errors: NoExiste (Jet 3024), SinPermiso, SoloLectura, Ocupado (3260),
  // NoEsBaseDatos, DiscoLleno.
  static Resultado<std::unique_ptr<Database>> OpenDatabase(const QString& ruta,
                                                           const Apertura& como = {});

  virtual Resultado<std::unique_ptr<Recordset>> OpenTable(QStringView tabla,
                                                          QStringView indice) = 0;
  virtual Resultado<std::unique_ptr<Recordset>> OpenQuery(
      QStringView sql, std::span<const Valor> parametros = {}) = 0;
  // Rows changed.
  virtual Resultado<qint64> Execute(QStringView sql, std::span<const Valor> parametros = {}) = 0;
  virtual Resultado<std::unique_ptr<Sentencia>> preparar(QStringView sql) = 0;
  // A list of engine-neutral DDL or DML statements, separated by ";" at line ends and run as one
  // transaction.
  virtual Resultado<> ejecutarGuion(QStringView guion) = 0;

  template <class... P>
  Resultado<qint64> ejecutar(QStringView sql, const P&... p) {
    const std::array<Valor, sizeof...(P)> v{Valor(p)...};
    return Execute(sql, std::span<const Valor>(v));
  }
  template <class... P>
  Resultado<std::unique_ptr<Recordset>> consultar(QStringView sql, const P&... p) {
    const std::array<Valor, sizeof...(P)> v{Valor(p)...};
    return OpenQuery(sql, std::span<const Valor>(v));
  }
  // The first column of the first row, or Null if there is no row.
  template <class... P>
  Resultado<Valor> uno(QStringView sql, const P&... p) {
    TARVO_TOMAR(auto rs, consultar(sql, p...));
    return rs->Eof() ? Valor() : rs->valor(0);
  }

  // --- transactions ---
  // Nest freely: an inner Transaccion is a savepoint of the outer one.
  virtual Resultado<> BeginTrans() = 0;
  virtual Resultado<> CommitTrans() = 0;
  virtual void Rollback() = 0;
  virtual int profundidad() const = 0;

  // --- schema ---
  virtual bool existeTabla(QStringView nombre) = 0;
  virtual bool existeColumna(QStringView tabla, QStringView columna) = 0;
  // In their order; empty if there is no such table.
  virtual QStringList columnas(QStringView tabla) = 0;
  // Gives the table `copia` a column of `origen`, of the same kind; existing rows take its default.
  // NoExiste.
  virtual Resultado<> copiarColumna(QStringView origen, QStringView columna, QStringView copia) = 0;

  // The file.
  virtual const QString& ruta() const = 0;
  // A consistent copy of the database in use, by the engine's online backup.
  virtual Resultado<> copiarEn(const QString& ruta) = 0;
  // Moves committed changes from the engine's journal into the file itself, as far as readers
  // allow, and flushes it; done before a machine is told to forget what the books hold. Does
  // nothing within a transaction.
  virtual Resultado<> asentar() = 0;
  // Counts every change made through this connection; equal values mean that no row changed in
  // between.
  virtual qint64 cambios() const = 0;
};

// Rolls back at the end of its scope unless confirmar() has succeeded.
class Transaccion {
 public:
  static Resultado<Transaccion> empezar(Database& db);
  Transaccion(Transaccion&& otra) noexcept : db_(std::exchange(otra.db_, nullptr)) {}
  Transaccion& operator=(Transaccion&&) = delete;
  ~Transaccion() {
    if (db_) db_->Rollback();
  }
  Resultado<> confirmar();

 private:
  explicit Transaccion(Database& db) : db_(&db) {}
  Database* db_;
};

// What it does in one transaction: all of it, or none when it fails.
Resultado<> todoONada(Database& db, const std::function<Resultado<>()>& hacer);

}  // namespace tarvo::dao
