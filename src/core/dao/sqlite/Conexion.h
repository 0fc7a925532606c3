// The engine's connection and its kept statements. Everything that uses it holds it by shared
// pointer, so that a recordset may outlive its Database.
#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

#include "core/dao/Database.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tarvo::dao {

class Conexion;

// A prepared statement. A caller that steps it resets it before returning: no statement stays open.
// REQUIRES that its connection, which keeps it for the next use of its text, outlives it.
class Preparada {
 public:
  Preparada() = default;
  Preparada(Conexion* con, sqlite3_stmt* s) : con_(con), s_(s) {}
  Preparada(Preparada&& otra) noexcept : con_(otra.con_), s_(std::exchange(otra.s_, nullptr)) {}
  Preparada& operator=(Preparada&& otra) noexcept;
  ~Preparada();

  explicit operator bool() const { return s_ != nullptr; }
  sqlite3_stmt* cruda() const { return s_; }

  // Parameters count from 0.
  void ligar(int parametro, qint64 n);
  void ligar(int parametro, double x);
  void ligar(int parametro, const QString& s);
  void ligar(int parametro, const Valor& v);
  void ligar(std::span<const Valor> valores, int desde = 0);

  // True on a row, false at the end.
  Resultado<bool> paso();
  void reponer();
  // Runs to the end and resets.
  Resultado<> ejecutar();

 private:
  void soltar();

  Conexion* con_ = nullptr;
  sqlite3_stmt* s_ = nullptr;
};

class Conexion {
 public:
  Conexion(sqlite3* db, const QString& fichero) : ruta(fichero), db_(db) {}
  ~Conexion();
  Conexion(const Conexion&) = delete;

  sqlite3* cruda() const { return db_; }
  Error error(int codigo) const;

  // One statement of the engine's own SQL; Formato if there is none or more than one.
  Resultado<Preparada> preparar(const QString& sql);
  Resultado<> ejecutar(const QString& sql);
  // Takes a statement that is no longer in use.
  void guardar(sqlite3_stmt* s);

  // --- transactions: depth 1 is the engine's transaction, deeper ones are savepoints ---
  Resultado<> empezar();
  Resultado<> confirmar();
  void deshacer();
  int profundidad() const { return profundidad_; }
  // Fails if the engine gave up the transaction (a full disk does that) that the caller believes
  // open: later writes must not land outside it.
  Resultado<> puedeEscribir() const;

  qint64 cambios() const;
  // Records a change that the engine's own count does not show.
  void contarCambio() { ++otrosCambios_; }

  const QString ruta;

 private:
  Resultado<> ejecutarGuardada(Preparada& p, const QString& sql);
  void vaciarLibres();

  sqlite3* db_;
  int profundidad_ = 0;
  qint64 otrosCambios_ = 0;
  Preparada begin_, commit_, rollback_;
  // By text. Recordsets come and go, and preparing a statement anew costs more than using it.
  QHash<QByteArray, sqlite3_stmt*> libres_;
};

}  // namespace tarvo::dao
