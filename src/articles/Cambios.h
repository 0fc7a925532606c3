// Changes due to the machines. A row of Cross means that a group holds an article as it is here
// (`borra` 0), or that it must get it again or delete it (`borra` 1); no row, that it must get it.
// Which kind of change marks what: docs/decisiones.md.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles {

class Cambios {
 public:
  // REQUIRES that the database outlives it.
  explicit Cambios(dao::Database& db) : db_(db) {}

  // The article has changed: all groups must get it.
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
  // As ArticuloSale, for all articles of a department; the section joins the modified ones.
  Resultado<> SaleDepartamento(int seccion, int departamento);

  // The sections changed since they were last sent or dismissed, in that order, each once. Kept for
  // the program's lifetime.
  void MarcarSeccion(int seccion);
  const std::vector<int>& SeccionesModificadas() const { return secciones_; }
  void olvidarSecciones() { secciones_.clear(); }
  void olvidarSeccion(int seccion) { std::erase(secciones_, seccion); }

  // What another room keeps by the number of a group: how it forgets a deleted group, in the
  // deleting transaction, and the rows to restore with the group (selected by `donde`, before
  // "GRUPO IN ...").
  struct TablaAjena {
    QString tabla, donde;
  };
  struct DeOtraSala {
    std::function<Resultado<>(int grupo)> olvidar;
    std::vector<TablaAjena> tablas;
  };
  void guardaPorGrupo(DeOtraSala sala) { salas_.push_back(std::move(sala)); }
  const std::vector<DeOtraSala>& salas() const { return salas_; }

 private:
  dao::Database& db_;
  std::vector<int> secciones_;
  std::vector<DeOtraSala> salas_;
};

}  // namespace tarvo::articles
