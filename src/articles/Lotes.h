// Operations on many articles that can be undone in one step: each article's earlier state is kept,
// by batch, until the batch is forgotten.
//
//   lote = empezar(window); guardar(lote, key) before each change; ...; acabar(lote)
//
// Work in slices, between which others write, calls anotar(lote, key) after each change as well.
// System articles are always left out.
#pragma once

#include "articles/Catalogo.h"

namespace tarvo::articles {

class Lotes {
 public:
  // REQUIRES that the catalogue outlives it.
  explicit Lotes(Catalogo& catalogo) : db_(catalogo.base()), catalogo_(catalogo) {}

  // The number of a new batch, above 0. Batches older than the last 20 are forgotten, except those
  // that were cut off: they hold their sections until a person undoes or accepts them.
  Resultado<qint64> empezar(const QString& ventana);
  // Keeps an article's state, with its stock counters, or that there is none with that key. To be
  // called before it changes; for an article already in the batch, the first state stays.
  Resultado<> guardar(qint64 lote, ClaveArticulo clave);
  // The same for an article that did not exist before, as the caller knows, and may have been
  // created in this transaction.
  Resultado<> guardarNuevo(qint64 lote, ClaveArticulo clave);
  // The same for all articles matching a condition on PLUSES, as one statement.
  Resultado<> guardarDonde(qint64 lote, QStringView condicion,
                           std::span<const dao::Valor> parametros = {});
  // The same for all articles of a temporary table with the columns of PLUSES and HABIA, 0 for
  // those that do not exist.
  Resultado<> guardarTodos(qint64 lote, const QString& tabla);
  // Notes how the batch left them: as in the table. When repeated, the last call holds.
  Resultado<> anotarTodos(qint64 lote, const QString& tabla);
  // Notes how the batch left an article, in the transaction that changed it, for the last time.
  Resultado<> anotar(qint64 lote, ClaveArticulo clave);
  // Notes it for all others, when the batch is done. For an article with no note, deshacer() can't
  // tell what others changed, and restores it.
  Resultado<> acabar(qint64 lote);

  // Operations of a batch on articles of the catalogue, each call one transaction: deletion, and
  // copy or move to another section. Those whose code or bar code already exists there are left out
  // and returned.
  Resultado<> borrar(qint64 lote, std::span<const ClaveArticulo> claves);
  Resultado<std::vector<ClaveArticulo>> copiar(qint64 lote, std::span<const ClaveArticulo> claves,
                                               int destino, const QString& ventana);
  Resultado<std::vector<ClaveArticulo>> mover(qint64 lote, std::span<const ClaveArticulo> claves,
                                              int destino);

  struct Deshecho {
    int repuestos = 0, quitados = 0;   // articles restored, articles removed again
    std::vector<ClaveArticulo> fuera;  // left as they are, see deshacer()
    qint64 vistos = 0;                 // articles of the batch looked at
  };
  // One transaction; each restored or removed article is due to the machines and enters the price
  // history. An article that differs from how the batch left it is left alone and returned in
  // `fuera`; so is a new one whose stock has moved since, one whose bar code now belongs to another
  // article, and one whose section is gone. The batch is forgotten. NoExiste when it already was.
  Resultado<Deshecho> deshacer(qint64 lote, const QString& ventana);
  // The same in slices, each its own transaction, added up in `hecho`: true while there is more.
  // What is not yet restored is still a batch.
  Resultado<bool> deshacerTramo(qint64 lote, const QString& ventana, Deshecho& hecho);
  // What deshacer() would leave alone now; changes nothing.
  Resultado<std::vector<ClaveArticulo>> noVolverian(qint64 lote);
  // The same as a question to the person, with the first of them; nothing when all would be
  // restored.
  Resultado<std::optional<QString>> avisoDeVuelta(qint64 lote);
  Resultado<> olvidar(qint64 lote);
  // The same, unless it was cut off, or its undoing.
  Resultado<> olvidarAcabado(qint64 lote);
  Resultado<qint64> cuantos(qint64 lote);  // articles of a batch
  // Deletes some of the remains of batches too old to be undone.
  Resultado<> barrer();

  struct Lote {
    qint64 numero = 0;
    Fecha cuando;
    qint64 articulos = 0;
    bool acabado = false;  // otherwise it or its undoing was cut off
  };
  // The last batch of a window that can still be undone.
  Resultado<std::optional<Lote>> ultimo(const QString& ventana);

  // Work that can be resumed after an interruption: what it does, in its own notation, and its
  // articles, as they come. REQUIRES an unfinished batch.
  Resultado<> apuntar(qint64 lote, const QString& orden, std::span<const ClaveArticulo> claves);
  // It is done up to `clave`.
  Resultado<> tachar(qint64 lote, ClaveArticulo clave);
  struct PorHacer {
    QString orden;
    std::vector<ClaveArticulo> claves;
  };
  // Nothing when the batch can't be resumed: it wasn't noted, or its undoing has begun.
  Resultado<std::optional<PorHacer>> porHacer(qint64 lote);
  // Accepts the batch as it is.
  Resultado<> darPorHecho(qint64 lote);

 private:
  Resultado<std::vector<ClaveArticulo>> guardarTraslado(qint64 lote,
                                                        std::span<const ClaveArticulo> claves,
                                                        int destino, bool salen);
  Resultado<> hayLote(qint64 lote);
  Resultado<> dejarDeHacer(qint64 lote);
  // `de`: the batch that those articles belong to.
  Resultado<Deshecho> reponer(qint64 lote, qint64 de, const QString& ventana);

  dao::Database& db_;
  Catalogo& catalogo_;
};

// A batch as long as it can be undone: it is forgotten when this object is destroyed, but for one
// of which only a part was undone.
class LoteGuardado {
 public:
  LoteGuardado(const Lotes& lotes, qint64 lote) : lotes_(lotes), lote_(lote) {}
  ~LoteGuardado();
  LoteGuardado(const LoteGuardado&) = delete;
  Lotes& lotes() { return lotes_; }
  qint64 lote() const { return lote_; }

 private:
  Lotes lotes_;
  qint64 lote_;
};

}  // namespace tarvo::articles
