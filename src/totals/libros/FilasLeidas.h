// The rows of one machine's answer, ordered by key. Machines nearly always answer in ascending
// order, so rows are added at the end of one block of memory; a row out of order is put in its
// place.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "totals/periodos/Clases.h"

namespace tarvo::totals {

class FilasLeidas {
 public:
  using Clave = std::pair<qint64, int>;  // CODI and HORA (0 for kinds without one)
  using Fila = std::pair<Clave, Contadores>;
  using const_iterator = std::vector<Fila>::const_iterator;

  FilasLeidas() = default;
  FilasLeidas(std::initializer_list<Fila> filas) {
    for (const auto& [clave, c] : filas) (*this)[clave] = c;
  }

  // The counters of a key, zeros for a new one. The reference holds until the next call.
  Contadores& operator[](const Clave& clave) {
    if (filas_.empty() || filas_.back().first < clave)
      return filas_.emplace_back(clave, Contadores{}).second;
    const auto sitio = filas_.begin() + (lugar(clave) - filas_.cbegin());
    if (sitio->first == clave) return sitio->second;
    return filas_.emplace(sitio, clave, Contadores{})->second;
  }
  const_iterator find(const Clave& clave) const {
    const auto sitio = lugar(clave);
    return sitio != end() && sitio->first == clave ? sitio : end();
  }
  const_iterator begin() const { return filas_.cbegin(); }
  const_iterator end() const { return filas_.cend(); }
  bool empty() const { return filas_.empty(); }
  std::size_t size() const { return filas_.size(); }
  void reserve(std::size_t n) { filas_.reserve(n); }
  void clear() { filas_.clear(); }

 private:
  const_iterator lugar(const Clave& clave) const {
    return std::ranges::lower_bound(filas_, clave, {}, &Fila::first);
  }

  std::vector<Fila> filas_;
};

}  // namespace tarvo::totals
