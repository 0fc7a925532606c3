#include "articles/importar/Tabla.h"

#include <algorithm>

namespace tarvo::importar {

void Tabla::empezarFila(int linea) {
  inicio_.push_back(celdas_.size());
  lineas_.push_back(linea);
}

void Tabla::anadir(const QString& celda) {
  celdas_.push_back(celda);
  columnas_ = std::max(columnas_, ancho(inicio_.size() - 1));
}

// REQUIRES the last row; the gap is filled with empty cells.
void Tabla::poner(int columna, const QString& celda) {
  const size_t sitio = inicio_.back() + static_cast<size_t>(columna);
  if (sitio >= celdas_.size()) celdas_.resize(sitio + 1);
  celdas_[sitio] = celda;
  columnas_ = std::max(columnas_, columna + 1);
}

int Tabla::ancho(size_t fila) const {
  const size_t fin = fila + 1 < inicio_.size() ? inicio_[fila + 1] : celdas_.size();
  return static_cast<int>(fin - inicio_[fila]);
}

const QString& Tabla::celda(int fila, int columna) const {
  static const QString nada;
  const auto f = static_cast<size_t>(fila);
  if (columna >= ancho(f)) return nada;
  return celdas_[inicio_[f] + static_cast<size_t>(columna)];
}

void Tabla::quitarFilasVacias() {
  std::vector<size_t> inicio;
  std::vector<int> lineas;
  std::vector<QString> celdas;
  int columnas = 0;
  celdas.reserve(celdas_.size());
  for (size_t f = 0; f < inicio_.size(); ++f) {
    const auto desde = celdas_.begin() + static_cast<std::ptrdiff_t>(inicio_[f]);
    const auto hasta = desde + ancho(f);
    if (std::all_of(desde, hasta, [](const QString& c) { return c.trimmed().isEmpty(); })) continue;
    columnas = std::max(columnas, ancho(f));
    inicio.push_back(celdas.size());
    lineas.push_back(lineas_[f]);
    celdas.insert(celdas.end(), std::make_move_iterator(desde), std::make_move_iterator(hasta));
  }
  celdas_ = std::move(celdas);
  inicio_ = std::move(inicio);
  lineas_ = std::move(lineas);
  columnas_ = columnas;
}

}  // namespace tarvo::importar
