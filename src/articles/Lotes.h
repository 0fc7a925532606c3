// Operations on many articles that can be taken back in one step: how each article stood before is
// kept, by batch, until the batch is forgotten.
#pragma once

#include "articles/Catalogo.h"

namespace tarvo::articles {

class Lotes {
 public:
  Lotes(dao::Database& db, Catalogo& catalogo, Reloj& reloj)
      : db_(db), catalogo_(catalogo), reloj_(reloj) {}

  // The number of a new batch, above 0. Batches older than the last 20 are forgotten.
  Resultado<qint64> empezar(const QString& ventana);
  // Keeps how an article stands, or that there is none of that key. Before it changes; of an
  // article that the batch has already, the first stays.
  Resultado<> guardar(qint64 lote, ClaveArticulo clave);
  // The same for all articles of a condition on PLUSES, as one statement.
  Resultado<> guardarDonde(qint64 lote, QStringView condicion,
                           std::span<const dao::Valor> parametros = {});
  struct Deshecho {
    int repuestos = 0, quitados = 0;   // articles put back, articles that had not been there
    std::vector<ClaveArticulo> fuera;  // changed by somebody else since: left as they are
  };
  // One transaction; the machines hear of each article put back or taken away. `despues`: how the
  // batch left each article; one that stands otherwise now is left alone and given in `fuera`.
  Resultado<Deshecho> deshacer(qint64 lote, const QString& ventana);
  // Notes how the batch left its articles, when it is done.
  Resultado<> acabar(qint64 lote);
  Resultado<> olvidar(qint64 lote);

 private:
  dao::Database& db_;
  Catalogo& catalogo_;
  Reloj& reloj_;
};

}  // namespace tarvo::articles
