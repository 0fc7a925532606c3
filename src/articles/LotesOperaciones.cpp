// The operations of batches on many articles, and how long batches are kept.
#include "articles/Lotes.h"

namespace tarvo::articles {

using dao::Transaccion;

Resultado<> Lotes::borrar(qint64 lote, std::span<const ClaveArticulo> claves) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const ClaveArticulo& c : claves) TARVO_INTENTAR(guardar(lote, c));
  TARVO_INTENTAR(catalogo_.borrar(claves));
  for (const ClaveArticulo& c : claves) TARVO_INTENTAR(anotar(lote, c));
  return t.confirmar();
}

// Articles that stay where they are aren't kept.
Resultado<std::vector<ClaveArticulo>> Lotes::guardarTraslado(qint64 lote,
                                                             std::span<const ClaveArticulo> claves,
                                                             int destino, bool salen) {
  std::vector<ClaveArticulo> guardadas;
  for (const ClaveArticulo& c : claves) {
    TARVO_TOMAR(const auto hay, catalogo_.leer({destino, c.codigo}));
    if (hay) continue;
    if (salen) guardadas.push_back(c);
    guardadas.push_back({destino, c.codigo});
  }
  for (const ClaveArticulo& c : guardadas) TARVO_INTENTAR(guardar(lote, c));
  return guardadas;
}

Resultado<std::vector<ClaveArticulo>> Lotes::copiar(qint64 lote,
                                                    std::span<const ClaveArticulo> claves,
                                                    int destino, const QString& ventana) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto guardadas, guardarTraslado(lote, claves, destino, false));
  auto fuera = catalogo_.copiar(claves, destino, ventana);
  if (!fuera) return fuera;
  for (const ClaveArticulo& c : guardadas) TARVO_INTENTAR(anotar(lote, c));
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

Resultado<std::vector<ClaveArticulo>> Lotes::mover(qint64 lote,
                                                   std::span<const ClaveArticulo> claves,
                                                   int destino) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto guardadas, guardarTraslado(lote, claves, destino, true));
  auto fuera = catalogo_.mover(claves, destino);
  if (!fuera) return fuera;
  for (const ClaveArticulo& c : guardadas) TARVO_INTENTAR(anotar(lote, c));
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

LoteGuardado::~LoteGuardado() {
  static_cast<void>(lotes_.olvidarAcabado(lote_));  // batches that are too old are deleted anyway
}

}  // namespace tarvo::articles
