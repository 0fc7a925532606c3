// Rows of a query, however many. The first page is shown at once; the keys of the others are read
// in another thread, and their values are fetched in pages when they are needed. A page costs the
// same anywhere in the list.
#pragma once

#include <memory>
#include <unordered_map>

#include "core/dao/Database.h"
#include "core/dao/Origen.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

class ModeloSql final : public ModeloParrilla {
  Q_OBJECT
 public:
  ModeloSql(std::vector<Columna> columnas, const Contexto& contexto, QObject* padre);
  ~ModeloSql() override;

  // Shows other rows; an error keeps the former ones.
  Resultado<> abrir(dao::Origen origen);
  Resultado<> refrescar();
  Resultado<> ordenar(int columna, Qt::SortOrder sentido);  // -1: the order of the origin
  const dao::Origen& origen() const { return origen_; }
  // Reads all keys now.
  Resultado<> contarTodo();

  int rowCount(const QModelIndex& padre = {}) const override;
  Clave clave(int fila) const override;
  dao::Valor valor(int fila, int columna) const override;
  int filaDe(Clave clave) const override;
  bool contando() const override { return contando_; }
  void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) override;

  // What identifies rows for the user, and the rows with those identities now (see
  // dao::Origen::identidad).
  std::vector<dao::Valor> identidades(const std::vector<int>& filas) const;
  std::vector<int> filasDe(const std::vector<dao::Valor>& identidades) const;

 private:
  struct Pagina;
  // The origin as it is read: `tabla` is the name of the temporary copy of an origin without a key.
  struct Lectura {
    dao::Origen origen;
    QString tabla;
    QString orden;  // with its ORDER BY
  };

  Resultado<> leer(dao::Origen nuevo, int columna, Qt::SortOrder sentido, bool todas);
  Resultado<> releer(dao::Origen nuevo, int columna, Qt::SortOrder sentido, bool todas);
  Resultado<Lectura> copiar(const dao::Origen& origen);
  Resultado<> soltar(const QString& tabla);
  void soltarCopia();
  QString ordenDe(const Lectura& l, int columna, Qt::SortOrder sentido) const;
  QString campoDe(const Lectura& l, int columna) const;
  QString listaColumnas(const Lectura& l) const;
  bool aparte() const;
  void contarAparte();
  Resultado<> contadas(Resultado<std::vector<Clave>> todas);
  const Pagina& pagina(int fila) const;
  Pagina leerPagina(int numero) const;
  void releerFila(int fila) override;

  dao::Database& db_;
  dao::Origen origen_;  // as given to abrir()
  Lectura lectura_;
  int columnaOrden_ = -1;
  Qt::SortOrder sentido_ = Qt::AscendingOrder;
  std::vector<Clave> claves_;
  bool contando_ = false;
  int serie_ = 0;  // number of the last copy
  mutable std::unordered_map<int, std::unique_ptr<Pagina>> paginas_;
  mutable std::vector<int> recientes_;  // pages, the most recently used last
  mutable std::unordered_map<Clave, int> donde_;
  Aparte cuenta_, suma_;
};

}  // namespace tarvo::ventanas
