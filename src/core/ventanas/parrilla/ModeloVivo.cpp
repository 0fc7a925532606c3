#include "core/ventanas/parrilla/ModeloVivo.h"

#include <algorithm>

#include "core/dao/Orden.h"

namespace tarvo::ventanas {

namespace {

// Null first, numbers next, texts as names sort.
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

void ModeloVivo::cambiar(int fila, FilaViva nueva) {
  FilaViva& vieja = filas_[static_cast<size_t>(fila)];
  int primera = -1, ultima = -1;
  for (int c = 0; c < columnCount(); ++c) {
    const auto i = static_cast<size_t>(c);
    const bool igual = i < vieja.valores.size() && i < nueva.valores.size() &&
                       vieja.valores[i] == nueva.valores[i];
    if (igual) continue;
    if (primera < 0) primera = c;
    ultima = c;
  }
  if (primera < 0) return;
  vieja = std::move(nueva);
  Q_EMIT dataChanged(index(fila, primera), index(fila, ultima));
  Q_EMIT recuento();
}

void ModeloVivo::poner(FilaViva fila) {
  if (const int i = filaDe(fila.clave); i >= 0) {
    cambiar(i, std::move(fila));
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

void ModeloVivo::poner(std::vector<FilaViva> filas) {
  std::unordered_map<Clave, int> nuevas;
  for (size_t i = 0; i < filas.size(); ++i) nuevas[filas[i].clave] = static_cast<int>(i);
  for (int i = rowCount() - 1; i >= 0; --i)
    if (const Clave c = clave(i); !nuevas.contains(c)) quitar(c);
  for (FilaViva& f : filas) {
    const Clave c = f.clave;
    const int i = filaDe(c);
    if (i >= 0) {
      cambiar(i, std::move(f));
      continue;
    }
    const int fin = rowCount();
    beginInsertRows({}, fin, fin);
    filas_.push_back(std::move(f));
    donde_[c] = fin;
    endInsertRows();
    Q_EMIT recuento();
  }
  if (columnaOrden_ >= 0) return reordenar();
  // As they were put.
  const auto bien = [&](size_t i) { return nuevas[filas_[i].clave] == static_cast<int>(i); };
  size_t i = 0;
  while (i < filas_.size() && bien(i)) ++i;
  if (i == filas_.size()) return;
  permutar([&](const FilaViva& a, const FilaViva& b) { return nuevas[a.clave] < nuevas[b.clave]; });
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
  if (!std::is_sorted(filas_.begin(), filas_.end(), antes)) permutar(antes);
}

// Moves rows with all that stands on them: selection, current row, scroll.
void ModeloVivo::permutar(const std::function<bool(const FilaViva&, const FilaViva&)>& antes) {
  Q_EMIT layoutAboutToBeChanged();
  const QModelIndexList viejos = persistentIndexList();
  std::vector<Clave> claves;
  claves.reserve(static_cast<size_t>(viejos.size()));
  for (const QModelIndex& i : viejos) claves.push_back(clave(i.row()));
  std::ranges::stable_sort(filas_, antes);
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
