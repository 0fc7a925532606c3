// Operations on many articles that can be taken back in one step: how each article stood before is
// kept, by batch, until the batch is forgotten.
//
//   lote = empezar(window); guardar(lote, key) before each change; ...; acabar(lote)
//
// Work in slices, between which others write, says anotar(lote, key) after each change too.
// System articles are left out of all of it.
#pragma once

#include "articles/Catalogo.h"

namespace tarvo::articles {

class Lotes {
 public:
  // REQUIRES that all three outlive it.
  Lotes(dao::Database& db, Catalogo& catalogo, Reloj& reloj)
      : db_(db), catalogo_(catalogo), reloj_(reloj) {}

  // The number of a new batch, above 0. Batches older than the last 20 are forgotten.
  Resultado<qint64> empezar(const QString& ventana);
  // Keeps how an article stands, with its stock counters, or that there is none of that key. Before
  // it changes; of an article that the batch has already, the first stays.
  Resultado<> guardar(qint64 lote, ClaveArticulo clave);
  // The same for an article that the caller knows not to have been there, and may have made just
  // now, in this transaction.
  Resultado<> guardarNuevo(qint64 lote, ClaveArticulo clave);
  // The same for all articles of a condition on PLUSES, as one statement.
  Resultado<> guardarDonde(qint64 lote, QStringView condicion,
                           std::span<const dao::Valor> parametros = {});
  // The same for all articles of a table of the moment, which has the columns of PLUSES and HABIA,
  // 0 for those that there are none of.
  Resultado<> guardarTodos(qint64 lote, const QString& tabla);
  // Notes how the batch left them: as the table has them. Again, the last word holds.
  Resultado<> anotarTodos(qint64 lote, const QString& tabla);
  // Notes how the batch left an article, in the transaction that changed it, for the last time.
  Resultado<> anotar(qint64 lote, ClaveArticulo clave);
  // Notes it of all others, when the batch is done. Of an article of which nothing was noted,
  // deshacer() can't tell what others changed, and puts it back.
  Resultado<> acabar(qint64 lote);

  // What a batch does with articles of the catalogue, each call one transaction: deletion, and copy
  // or move to another section. Those whose code or bar code stands there already are left out, and
  // given.
  Resultado<> borrar(qint64 lote, std::span<const ClaveArticulo> claves);
  Resultado<std::vector<ClaveArticulo>> copiar(qint64 lote, std::span<const ClaveArticulo> claves,
                                               int destino, const QString& ventana);
  Resultado<std::vector<ClaveArticulo>> mover(qint64 lote, std::span<const ClaveArticulo> claves,
                                              int destino);

  struct Deshecho {
    int repuestos = 0, quitados = 0;   // articles put back, articles that had not been there
    std::vector<ClaveArticulo> fuera;  // left as they are, see deshacer()
    qint64 vistos = 0;                 // articles of the batch that were looked at
  };
  // One transaction; the machines hear of each article put back or taken away, and the history of
  // prices too. An article that stands otherwise than the batch left it is left alone and given in
  // `fuera`; so is a new one whose stock moved since, one whose bar code another article has now,
  // and one whose section is gone. The batch is forgotten. NoExiste when it was already.
  Resultado<Deshecho> deshacer(qint64 lote, const QString& ventana);
  // The same in slices, each a transaction of its own, added up in `hecho`: true while there is
  // more. What isn't yet put back is still a batch.
  Resultado<bool> deshacerTramo(qint64 lote, const QString& ventana, Deshecho& hecho);
  // What deshacer() would leave alone now; it changes nothing.
  Resultado<std::vector<ClaveArticulo>> noVolverian(qint64 lote);
  // The same as a question to the person, with the first of them; nothing when all would come back.
  Resultado<std::optional<QString>> avisoDeVuelta(qint64 lote);
  Resultado<> olvidar(qint64 lote);
  // Drops some of what is left of batches that are too old to be taken back.
  Resultado<> barrer();

  struct Lote {
    qint64 numero = 0;
    Fecha cuando;
    qint64 articulos = 0;
    bool acabado = false;  // else it was cut off, or its undoing was
  };
  // The last batch of a window that can still be taken back.
  Resultado<std::optional<Lote>> ultimo(const QString& ventana);

  // Work that can be gone on with when it is cut off: what it does, in words of its own, and the
  // articles, as they come. REQUIRES a batch that isn't done.
  Resultado<> apuntar(qint64 lote, const QString& orden, std::span<const ClaveArticulo> claves);
  // Up to `clave` it is done.
  Resultado<> tachar(qint64 lote, ClaveArticulo clave);
  struct PorHacer {
    QString orden;
    std::vector<ClaveArticulo> claves;
  };
  // Nothing when the batch can't be gone on with: it wasn't noted, or its undoing has begun.
  Resultado<std::optional<PorHacer>> porHacer(qint64 lote);
  // Takes the batch as it stands.
  Resultado<> darPorHecho(qint64 lote);

 private:
  Resultado<> guardarTraslado(qint64 lote, std::span<const ClaveArticulo> claves, int destino,
                              bool salen);
  Resultado<> hayLote(qint64 lote);
  Resultado<> dejarDeHacer(qint64 lote);
  Resultado<Deshecho> reponer(qint64 lote, const QString& ventana);

  dao::Database& db_;
  Catalogo& catalogo_;
  Reloj& reloj_;
};

// A batch for as long as it can be taken back: with this object it is forgotten.
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
