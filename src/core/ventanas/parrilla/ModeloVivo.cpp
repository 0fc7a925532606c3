#include "core/ventanas/parrilla/ModeloVivo.h"

#include <algorithm>
#include <iterator>

#include "core/dao/Orden.h"

namespace tarvo::ventanas {

namespace {

constexpr size_t kUnaAUna = 100;  // changed rows; more are reported as one range

// Null first, then numbers, then texts in the order of names.
int comparar(const dao::Valor& a, const dao::Valor& b) {
  const auto clase = [](const dao::Valor& v) { return v.nulo() ? 0 : v.esTexto() ? 2 : 1; };
  if (clase(a) != clase(b)) return clase(a) - clase(b);
  if (a.esTexto()) return dao::compararOrden(a.texto().toUtf8(), b.texto().toUtf8());
  return a.real() < b.real() ? -1 : a.real() > b.real() ? 1 : 0;
}

}  // namespace

int ModeloVivo::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(filas_.size());
}

ModeloParrilla::Clave ModeloVivo::clave(int fila) const {
  return filas_[static_cast<size_t>(fila)].clave;
}

dao::Valor ModeloVivo::valor(int fila, int columna) const {
  const auto& valores = filas_[static_cast<size_t>(fila)].valores;
  return static_cast<size_t>(columna) < valores.size() ? valores[static_cast<size_t>(columna)]
                                                       : dao::Valor();
}

int ModeloVivo::filaDe(Clave clave) const {
  const auto hallada = donde_.find(clave);
  return hallada == donde_.end() ? -1 : hallada->second;
}

void ModeloVivo::indexar(size_t desde) {
  for (size_t i = desde; i < filas_.size(); ++i) donde_[filas_[i].clave] = static_cast<int>(i);
}

ModeloVivo::Columnas ModeloVivo::cambiar(int fila, FilaViva nueva) {
  FilaViva& vieja = filas_[static_cast<size_t>(fila)];
  Columnas c;
  for (int columna = 0; columna < columnCount(); ++columna) {
    const auto i = static_cast<size_t>(columna);
    const bool igual = i < vieja.valores.size() && i < nueva.valores.size() &&
                       vieja.valores[i] == nueva.valores[i];
    if (!igual) c.unir({columna, columna});
  }
  if (c.hay()) vieja = std::move(nueva);
  return c;
}

void ModeloVivo::poner(FilaViva fila) {
  if (const int i = filaDe(fila.clave); i >= 0) {
    if (const Columnas c = cambiar(i, std::move(fila)); c.hay()) {
      Q_EMIT dataChanged(index(i, c.primera), index(i, c.ultima));
      Q_EMIT recuento();
    }
  } else {
    const int fin = rowCount();
    beginInsertRows({}, fin, fin);
    filas_.push_back(std::move(fila));
    indexar(static_cast<size_t>(fin));
    endInsertRows();
    Q_EMIT recuento();
  }
  reordenar();
}

void ModeloVivo::quitar(Clave clave) {
  const int fila = filaDe(clave);
  if (fila < 0) return;
  beginRemoveRows({}, fila, fila);
  filas_.erase(filas_.begin() + fila);
  donde_.erase(clave);
  indexar(static_cast<size_t>(fila));
  endRemoveRows();
  Q_EMIT recuento();
}

// In few steps, however many rows are added and removed: the view counts all rows at each step.
void ModeloVivo::poner(std::vector<FilaViva> filas) {
  std::unordered_map<Clave, int> nuevas;
  for (size_t i = 0; i < filas.size(); ++i) nuevas[filas[i].clave] = static_cast<int>(i);
  bool otras = quitarLasDemas(nuevas);
  std::vector<FilaViva> llegan;
  std::vector<std::pair<int, Columnas>> cambiadas;
  for (FilaViva& f : filas) {
    const int i = filaDe(f.clave);
    if (i < 0)
      llegan.push_back(std::move(f));
    else if (const Columnas c = cambiar(i, std::move(f)); c.hay())
      cambiadas.emplace_back(i, c);
  }
  decirCambiadas(cambiadas);
  otras = otras || !llegan.empty() || !cambiadas.empty();
  if (!llegan.empty()) {
    const int fin = rowCount();
    beginInsertRows({}, fin, fin + static_cast<int>(llegan.size()) - 1);
    std::ranges::move(llegan, std::back_inserter(filas_));
    indexar(static_cast<size_t>(fin));
    endInsertRows();
  }
  if (otras) Q_EMIT recuento();
  if (columnaOrden_ >= 0) return reordenar();
  // Restores the order given.
  size_t i = 0;
  while (i < filas_.size() && nuevas.at(filas_[i].clave) == static_cast<int>(i)) ++i;
  if (i == filas_.size()) return;
  permutar([&] {
    std::vector<FilaViva> puestas(filas_.size());
    for (FilaViva& f : filas_) puestas[static_cast<size_t>(nuevas.at(f.clave))] = std::move(f);
    filas_ = std::move(puestas);
  });
}

// Moves the rows to be removed to the end first, to remove them in one step. True if there were
// any.
bool ModeloVivo::quitarLasDemas(const std::unordered_map<Clave, int>& quedan) {
  const auto queda = [&](const FilaViva& f) { return quedan.contains(f.clave); };
  const auto cuantas = std::ranges::count_if(filas_, queda);
  if (cuantas == std::ssize(filas_)) return false;
  Q_EMIT vanAQuitarse([&](int fila) { return !queda(filas_[static_cast<size_t>(fila)]); });
  if (!std::ranges::is_partitioned(filas_, queda))
    permutar([&] { std::ranges::stable_partition(filas_, queda); });
  const auto primera = static_cast<int>(cuantas);
  beginRemoveRows({}, primera, rowCount() - 1);
  for (auto f = filas_.begin() + cuantas; f != filas_.end(); ++f) donde_.erase(f->clave);
  filas_.erase(filas_.begin() + cuantas, filas_.end());
  endRemoveRows();
  return true;
}

void ModeloVivo::decirCambiadas(const std::vector<std::pair<int, Columnas>>& cambiadas) {
  if (cambiadas.size() <= kUnaAUna) {
    for (const auto& [fila, c] : cambiadas)
      Q_EMIT dataChanged(index(fila, c.primera), index(fila, c.ultima));
    return;
  }
  Columnas todas;
  int primera = rowCount(), ultima = 0;
  for (const auto& [fila, c] : cambiadas) {
    todas.unir(c);
    primera = std::min(primera, fila);
    ultima = std::max(ultima, fila);
  }
  Q_EMIT dataChanged(index(primera, todas.primera), index(ultima, todas.ultima));
}

void ModeloVivo::ordenar(int columna, Qt::SortOrder sentido) {
  columnaOrden_ = columna;
  sentido_ = sentido;
  reordenar();
}

void ModeloVivo::reordenar() {
  if (columnaOrden_ < 0) return;
  const auto c = static_cast<size_t>(columnaOrden_);
  const auto antes = [&](const FilaViva& a, const FilaViva& b) {
    const int r = comparar(a.valores[c], b.valores[c]);
    return sentido_ == Qt::AscendingOrder ? r < 0 : r > 0;
  };
  if (!std::is_sorted(filas_.begin(), filas_.end(), antes))
    permutar([&] { std::ranges::stable_sort(filas_, antes); });
}

// Reorders the rows and keeps the persistent indexes: selection, current row, scroll position.
void ModeloVivo::permutar(const std::function<void()>& mover) {
  Q_EMIT layoutAboutToBeChanged();
  const QModelIndexList viejos = persistentIndexList();
  std::vector<Clave> claves;
  claves.reserve(static_cast<size_t>(viejos.size()));
  for (const QModelIndex& i : viejos) claves.push_back(clave(i.row()));
  mover();
  indexar(0);
  QModelIndexList nuevos;
  for (qsizetype i = 0; i < viejos.size(); ++i)
    nuevos << index(filaDe(claves[static_cast<size_t>(i)]), viejos[i].column());
  changePersistentIndexList(viejos, nuevos);
  Q_EMIT layoutChanged();
}

void ModeloVivo::pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) {
  Sumas s(columnas_.size());
  for (size_t c = 0; c < columnas_.size(); ++c) {
    if (!columnas_[c].suma) continue;
    double suma = 0;
    bool entera = true;
    for (int f = 0; f < rowCount(); ++f) {
      const dao::Valor v = valor(f, static_cast<int>(c));
      entera = entera && !v.esReal();
      suma += v.real();
    }
    s[c] = entera ? dao::Valor(qRound64(suma)) : dao::Valor(suma);
  }
  respuesta(std::move(s));
}

}  // namespace tarvo::ventanas
