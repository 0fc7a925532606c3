// Interrupted batches: some of their articles are changed and others aren't, and the next task
// would take the mixture for the truth. They are reported, and hold back what depends on them.
#pragma once

#include "articles/Lotes.h"

namespace tarvo::articles {

struct LoteAMedias {
  Lotes::Lote lote;
  QString ventana;             // that began it
  std::vector<int> secciones;  // of its articles
  QString donde;               // their codes and names
  qint64 porHacer = 0;         // articles it had yet to change; 0: it can't be finished
};

// Unfinished batches that have changed an article, the oldest first. One under way is included.
Resultado<std::vector<LoteAMedias>> lotesAMedias(Catalogo& catalogo);
// Why none of the section's articles may be sent, in words; nothing when they may.
Resultado<std::optional<QString>> motivoDeEspera(Catalogo& catalogo, int seccion);
// One of them in a sentence for the person.
QString decirAMedias(const LoteAMedias& lote, const Textos& textos);

}  // namespace tarvo::articles
