// Changes due to the machines. A row of Cross means that a group holds an article as it is here
// (`borra` 0), or that it must get it again or delete it (`borra` 1); no row, that it must get it.
// Which kind of change marks what: docs/decisiones.md.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles {

class Cambios {
 public:
  // REQUIRES that the database outlives it.
  explicit Cambios(dao::Database& db) : db_(db) {}

  // The article has changed: all groups must get it. Who changed it calls recordar() or marks the
  // section.
  Resultado<> ArticuloCambiado(int seccion, qint64 codigo);
  // The article is gone or has another code: every group of kind 1 or 4 of the section must delete
  // it (`borra`), or no longer need to.
  Resultado<> MarcarArticuloBorrado(int seccion, qint64 codigo, bool borra);
  // The same for an article that leaves its section without a row being written for it: groups
  // known to hold it must delete it.
  Resultado<> ArticuloSale(int seccion, qint64 codigo);
  // A code gets a new article: what depended on the code (offers, its price history, what groups
  // were noted to hold) belonged to another article, and is deleted. To be called whenever an
  // article gets a code, before its own data is written.
  Resultado<> ArticuloLlega(ClaveArticulo clave);
  // The same for many: `claves` is a query that returns SECCION, CODPLU.
  Resultado<> ArticulosLlegan(QStringView claves, std::span<const dao::Valor> parametros = {});
  // As ArticuloSale, for all articles of a department.
  Resultado<> SaleDepartamento(int seccion, int departamento);

  // The sections changed since they were last sent or dismissed, in that order, each once. Kept for
  // the program's lifetime.
  void MarcarSeccion(int seccion);
  // The same for a batch, until that was taken back as a whole.
  void MarcarSeccion(int seccion, qint64 lote);
  void loteDevuelto(qint64 lote);
  // Batches begun since then: what their undoing brings back is as it was.
  void loteEmpezado(qint64 lote);
  bool esReciente(qint64 lote) const { return empezados_.contains(lote); }
  // The same for one article, with how it was before (nothing: there was none): what is as it was
  // again isn't a change, see Catalogo::seccionesQueDifieren().
  void recordar(ClaveArticulo clave, const std::optional<Articulo>& antes);
  const std::vector<int>& SeccionesModificadas() const { return secciones_; }
  void olvidarSecciones();
  void olvidarSeccion(int seccion);
  // Whether the section was changed other than by the articles of recordados().
  bool cambiada(int seccion) const;
  using Recordados = std::map<ClaveArticulo, std::optional<Articulo>>;
  const Recordados& recordados() const { return recordados_; }

  // What another room keeps by the number of a group: how it forgets a deleted group, in the
  // deleting transaction, the rows to restore with the group (selected by `donde`, before "GRUPO IN
  // ..."), and what a person must know before.
  struct TablaAjena {
    QString tabla, donde;
  };
  // How a stored group becomes other than it was.
  struct CambioDeGrupo {
    int antes = 0, ahora = 0;  // its codes
    bool otraClase = false;
    std::set<int> otrasMaquinas = {};     // numbers whose machine has left, or is another model
    std::map<int, int> direcciones = {};  // of registers that get another one: from, to
    std::set<int> cajasQueSeVan = {};     // by address
    bool hayOtrasCajas() const { return !direcciones.empty() || !cajasQueSeVan.empty(); }
  };
  struct DeOtraSala {
    std::function<Resultado<>(int grupo)> olvidar;
    std::vector<TablaAjena> tablas;
    // The amount of the group's sales that only this room holds, in minor units of the stored
    // money; nothing if there are none.
    std::function<Resultado<std::optional<qint64>>(int grupo)> ventas = {};
    // Whether it can do without the group now, asked before anything is deleted; may be empty.
    std::function<Resultado<>(int grupo)> puedeIrse = {};
    // Its queued tasks, which go with the group; may be empty.
    std::function<int(int grupo)> tareas = {};
    // Its tables follow the group's row by a foreign key.
    bool conClave = false;
    // In the transaction that stores a group, after its rows have its new code; may be empty.
    std::function<Resultado<>(const CambioDeGrupo&)> cambia = {};
    // Once it is stored; may be empty.
    std::function<void(const CambioDeGrupo&)> cambiado = {};
  };
  void guardaPorGrupo(DeOtraSala sala) { salas_.push_back(std::move(sala)); }
  const std::vector<DeOtraSala>& salas() const { return salas_; }

 private:
  dao::Database& db_;
  void anotarSeccion(int seccion);

  std::vector<int> secciones_;
  std::set<int> enteras_;                      // sections marked as such
  std::set<std::pair<int, qint64>> porLotes_;  // section and batch
  std::set<qint64> empezados_;
  Recordados recordados_;
  std::vector<DeOtraSala> salas_;
};

}  // namespace tarvo::articles
