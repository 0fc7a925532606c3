// Rows copied out of the engine into flat cells, so that no statement stays open between two calls.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "core/dao/Valor.h"

struct sqlite3_stmt;

namespace tarvo::dao {

class Pagina {
 public:
  // Drops the rows, keeps the memory.
  void vaciar(int columnas);
  // Copies the statement's present row, which has that many columns.
  void anadir(sqlite3_stmt* s);
  int filas() const { return filas_; }

  bool nulo(int fila, int columna) const { return celda(fila, columna).tipo == Tipo::Nula; }
  qint64 entero(int fila, int columna) const;
  double real(int fila, int columna) const;
  QString texto(int fila, int columna) const;
  Valor valor(int fila, int columna) const;
  void poner(int fila, int columna, const Valor& valor);

 private:
  enum class Tipo : quint8 { Nula, Entera, Real, Texto };
  struct Trozo {
    quint32 desde, largo;
  };
  struct Celda {
    Tipo tipo = Tipo::Nula;
    union {
      qint64 n = 0;
      double x;
      Trozo t;
    };
  };

  const Celda& celda(int fila, int columna) const {
    return celdas_[static_cast<size_t>(fila) * static_cast<size_t>(columnas_) +
                   static_cast<size_t>(columna)];
  }
  Celda textoNuevo(const char* s, size_t largo);
  QString leer(Trozo t) const;

  int columnas_ = 0;
  int filas_ = 0;
  std::vector<Celda> celdas_;
  std::string textos_;  // UTF-8
};

}  // namespace tarvo::dao
