// Rows held in memory and brought up to date one by one, for lists that live: tasks, channels,
// sessions. Only cells that really changed are painted anew; selection and scroll stay.
#pragma once

#include <algorithm>
#include <unordered_map>

#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

struct FilaViva {
  ModeloParrilla::Clave clave = 0;
  std::vector<dao::Valor> valores;  // one a column, in the order of the columns
  bool operator==(const FilaViva&) const = default;
};

class ModeloVivo final : public ModeloParrilla {
  Q_OBJECT
 public:
  using ModeloParrilla::ModeloParrilla;

  // Makes the list these rows in this order: those that are gone go, those that are new come, those
  // whose values differ change. REQUIRES different keys. An order chosen by the person holds.
  void poner(std::vector<FilaViva> filas);
  // One row: changes it, or adds it at the end.
  void poner(FilaViva fila);
  void quitar(Clave clave);
  void ordenar(int columna, Qt::SortOrder sentido);  // -1: as they were put

  int rowCount(const QModelIndex& padre = {}) const override;
  Clave clave(int fila) const override;
  dao::Valor valor(int fila, int columna) const override;
  int filaDe(Clave clave) const override;
  void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) override;

 private:
  // The columns of a row that differ, from the first to the last.
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
