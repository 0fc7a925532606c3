// The only way to write articles. Each operation is one transaction with all that belongs to it:
// the row, the changes due to the machines (Cambios), the price history. The system articles
// survive any request.
#pragma once

#include "articles/Cambios.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::articles {

class Catalogo {
 public:
  // `quien`: the person at this computer, for the history. REQUIRES that all references outlive it.
  Catalogo(dao::Database& db, const Textos& textos, Reloj& reloj, QString quien);

  // The article; nothing when there is none with that key.
  Resultado<std::optional<Articulo>> leer(ClaveArticulo clave);

  // The existing articles of these keys, in their order. REQUIRES keys in ascending order.
  Resultado<std::vector<Articulo>> leerVarios(std::span<const ClaveArticulo> claves);

  // The next article of the section (1) or the previous one (-1), system articles left out; nothing
  // at the ends. The article of the key need not exist.
  Resultado<std::optional<ClaveArticulo>> vecino(ClaveArticulo clave, int pasos);

  // `ventana` names the calling window. Errors: Duplicado (3022) for a code or a bar code already
  // in the section; Restriccion for a system article; NoExiste for a missing one.
  Resultado<> crear(const Articulo& articulo, const QString& ventana);
  // The article of `clave` becomes `articulo`, perhaps under another code of its section: then the
  // old code is marked for deletion, and its offers and price history follow. REQUIRES the same
  // section; mover() goes to another.
  Resultado<> modificar(ClaveArticulo clave, const Articulo& articulo, const QString& ventana);
  Resultado<> ponerPrecios(ClaveArticulo clave, const Precios& precios, const QString& ventana);

  // Undoes a change by modificar(): the changed fields get their former values. NoExiste when the
  // article is gone; Restriccion, with nothing changed, when the same fields have changed since.
  Resultado<> volver(const Articulo& antes, const Articulo& ahora, const QString& ventana);
  // Whether volver() would undo a change that isn't the article's last: other fields of it have
  // been changed since.
  Resultado<bool> cambiadoDespues(const Articulo& antes, const Articulo& ahora);

  // Deletes the existing ones, except system articles; returns how many.
  Resultado<int> borrar(std::span<const ClaveArticulo> claves);
  // Into another section, where they count as unsent. Those whose code or bar code already exists
  // there are left out and returned. NoExiste, with nothing done, when one of them is missing.
  Resultado<std::vector<ClaveArticulo>> copiar(std::span<const ClaveArticulo> claves, int destino,
                                               const QString& ventana);
  Resultado<std::vector<ClaveArticulo>> mover(std::span<const ClaveArticulo> claves, int destino);

  // Of the modified sections those that aren't again as they were: what was undone is no change.
  Resultado<std::vector<int>> seccionesQueDifieren();

  // Several operations as one: all of them, or none when it fails.
  Resultado<> todoONada(const std::function<Resultado<>()>& hacer) {
    return dao::todoONada(db_, hacer);
  }

  Cambios& cambios() { return cambios_; }
  // For the engines built on the catalogue; windows leave it alone.
  dao::Database& base() { return db_; }

  // Records the history of a price written by another statement, inside its transaction.
  Resultado<> anotarPrecios(ClaveArticulo clave, const Precios& antes, const Precios& ahora,
                            const QString& ventana);
  Reloj& reloj() { return reloj_; }
  const QString& quien() const { return quien_; }
  const Textos& textos() const { return textos_; }

 private:
  using Trasladar = std::function<Resultado<>(const Articulo& articulo)>;
  Resultado<std::vector<ClaveArticulo>> trasladar(std::span<const ClaveArticulo> claves,
                                                  int destino, const Trasladar& como);
  Resultado<> copiarUno(Articulo articulo, int destino, const QString& ventana);
  Resultado<> moverUno(ClaveArticulo origen, int destino);
  Resultado<> cambiarDeCodigo(ClaveArticulo clave, qint64 nuevo);
  std::unexpected<Error> intocable() const;

  dao::Database& db_;
  const Textos& textos_;
  Reloj& reloj_;
  QString quien_;
  Cambios cambios_;
};

}  // namespace tarvo::articles
