// What the machines must hear of. A row of Cross says that a group holds an article as it stands
// here (`borra` 0), or that it must get it again or delete it (`borra` 1); no row, that it must get
// it. Which path of a change marks what: docs/decisiones.md.
#pragma once

#include <span>
#include <vector>

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles {

class Cambios {
 public:
  // REQUIRES that the database outlives it.
  explicit Cambios(dao::Database& db) : db_(db) {}

  // The article is another: all groups must get it.
  Resultado<> ArticuloCambiado(int seccion, qint64 codigo);
  // The article is gone, or bears another code: every group of kind 1 or 4 of the section must
  // delete it (`borra`), or needn't any more.
  Resultado<> MarcarArticuloBorrado(int seccion, qint64 codigo, bool borra);
  // The same for an article that leaves its section by a way that writes no row of its own: groups
  // that are known to hold it must delete it.
  Resultado<> ArticuloSale(int seccion, qint64 codigo);
  // A code gets an article that it didn't have: whatever hung from it (offers, the history of its
  // prices, what groups were noted to hold) was of another article, and goes. Every way by which an
  // article comes under a code calls it, before the new one's own is written.
  Resultado<> ArticuloLlega(ClaveArticulo clave);
  // The same for many: `claves` is a query that gives SECCION, CODPLU.
  Resultado<> ArticulosLlegan(QStringView claves, std::span<const dao::Valor> parametros = {});
  // As ArticuloSale, for all articles of a department; the section joins the modified ones.
  Resultado<> SaleDepartamento(int seccion, int departamento);

  // The sections changed since somebody last sent or let go of them, in that order, each once. They
  // live as long as the program.
  void MarcarSeccion(int seccion);
  const std::vector<int>& SeccionesModificadas() const { return secciones_; }
  void olvidarSecciones() { secciones_.clear(); }
  void olvidarSeccion(int seccion) { std::erase(secciones_, seccion); }

 private:
  dao::Database& db_;
  std::vector<int> secciones_;
};

}  // namespace tarvo::articles
