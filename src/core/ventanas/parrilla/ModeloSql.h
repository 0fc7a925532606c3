// Rows of a query, as many as there are. The first page shows at once; the keys of the others are
// gathered aside, and their values are fetched in pages when they are looked at. A page costs the
// same anywhere in the list.
#pragma once

#include <memory>
#include <unordered_map>

#include "core/dao/Database.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "core/ventanas/parrilla/ModeloParrilla.h"
#include "core/ventanas/parrilla/Origen.h"

namespace tarvo::ventanas {

class ModeloSql final : public ModeloParrilla {
  Q_OBJECT
 public:
  ModeloSql(std::vector<Columna> columnas, const Contexto& contexto, QObject* padre);
  ~ModeloSql() override;

  // Shows other rows; an error leaves those that were.
  Resultado<> abrir(Origen origen);
  Resultado<> refrescar();
  Resultado<> ordenar(int columna, Qt::SortOrder sentido);  // -1: the origin's own order
  const Origen& origen() const { return origen_; }
  // Gathers all keys now.
  Resultado<> contarTodo();

  int rowCount(const QModelIndex& padre = {}) const override;
  Clave clave(int fila) const override;
  dao::Valor valor(int fila, int columna) const override;
  int filaDe(Clave clave) const override;
  bool contando() const override { return contando_; }
  void pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) override;

  // What a row is for the person, and the rows that are that now (see Origen::identidad).
  std::vector<dao::Valor> identidades(const std::vector<int>& filas) const;
  std::vector<int> filasDe(const std::vector<dao::Valor>& identidades) const;

 private:
  struct Pagina;
  // The origin as it is read: `tabla` names the copy that stands in place of what has no key.
  struct Lectura {
    Origen origen;
    QString tabla;
    QString orden;  // with its ORDER BY
  };

  Resultado<> leer(Origen nuevo, int columna, Qt::SortOrder sentido, bool todas);
  Resultado<> releer(Origen nuevo, int columna, Qt::SortOrder sentido, bool todas);
  Resultado<Lectura> copiar(const Origen& origen);
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
  Origen origen_;  // as it was given
  Lectura lectura_;
  int columnaOrden_ = -1;
  Qt::SortOrder sentido_ = Qt::AscendingOrder;
  std::vector<Clave> claves_;
  bool contando_ = false;
  int serie_ = 0;  // of copies
  mutable std::unordered_map<int, std::unique_ptr<Pagina>> paginas_;
  mutable std::vector<int> recientes_;  // pages, the latest last
  mutable std::unordered_map<Clave, int> donde_;
  Aparte cuenta_, suma_;
};

}  // namespace tarvo::ventanas
