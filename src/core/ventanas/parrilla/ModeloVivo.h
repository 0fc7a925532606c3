// Rows held in memory and updated one by one, for live lists: tasks, channels, sessions. Only cells
// that have really changed are repainted; the selection and the scroll position stay.
#pragma once

#include <algorithm>
#include <unordered_map>

#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

struct FilaViva {
  ModeloParrilla::Clave clave = 0;
  std::vector<dao::Valor> valores;  // one per column, in the order of the columns
  bool operator==(const FilaViva&) const = default;
};

class ModeloVivo final : public ModeloParrilla {
  Q_OBJECT
 public:
  using ModeloParrilla::ModeloParrilla;

  // Replaces the contents of the list: rows missing from `filas` are removed, new ones added, and
  // those with other values changed. REQUIRES unique keys. An order chosen by the user is kept.
  void poner(std::vector<FilaViva> filas);
  // Changes a row, or adds it at the end.
  void poner(FilaViva fila);
  void quitar(Clave clave);
  void ordenar(int columna, Qt::SortOrder sentido);  // -1: the order given

  int rowCount(const QModelIndex& padre = {}) const override;
  Clave clave(int fila) const override;
  dao::Valor valor(int fila, int columna) const override;
  int filaDe(Clave clave) const override;
  void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) override;

 Q_SIGNALS:
  // Rows are about to be removed, perhaps from a place that they are moved to first.
  void vanAQuitarse(const std::function<bool(int fila)>& seVa);

 private:
  // The range of columns in which a row differs.
  struct Columnas {
    int primera = -1, ultima = -1;
    bool hay() const { return primera >= 0; }
    void unir(Columnas otras) {
      primera = hay() ? std::min(primera, otras.primera) : otras.primera;
      ultima = std::max(ultima, otras.ultima);
    }
  };
  Columnas cambiar(int fila, FilaViva nueva);
  bool quitarLasDemas(const std::unordered_map<Clave, int>& quedan);
  void decirCambiadas(const std::vector<std::pair<int, Columnas>>& cambiadas);
  void permutar(const std::function<void()>& mover);
  void reordenar();
  void indexar(size_t desde);

  std::vector<FilaViva> filas_;
  std::unordered_map<Clave, int> donde_;
  int columnaOrden_ = -1;
  Qt::SortOrder sentido_ = Qt::AscendingOrder;
};

}  // namespace tarvo::ventanas
