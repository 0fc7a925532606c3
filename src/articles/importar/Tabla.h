// A table of texts, from a CSV file or a sheet.
#pragma once

#include <QString>
#include <vector>

namespace tarvo::importar {

class Tabla {
 public:
  static constexpr qint64 kCeldasMayor = 4'000'000;

  // Cells of a row that was never begun, or beyond its end, are empty.
  void empezarFila(int linea);        // `linea`: its number in the file, from 1
  void anadir(const QString& celda);  // at the end of the row
  void poner(int columna, const QString& celda);
  void quitarFilasVacias();

  int filas() const { return static_cast<int>(inicio_.size()); }
  int columnas() const { return columnas_; }
  int linea(int fila) const { return lineas_[static_cast<size_t>(fila)]; }
  const QString& celda(int fila, int columna) const;
  qint64 celdas() const { return static_cast<qint64>(celdas_.size()); }
  bool llena() const { return celdas() > kCeldasMayor; }

 private:
  int ancho(size_t fila) const;

  std::vector<QString> celdas_;
  std::vector<size_t> inicio_;
  std::vector<int> lineas_;
  int columnas_ = 0;
};

}  // namespace tarvo::importar
