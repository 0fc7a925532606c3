// Batches that were cut off: some of their articles are changed and others aren't, and whoever
// works next takes the mixture for the truth. They are named, and hold back what depends on them.
#pragma once

#include "articles/Lotes.h"

namespace tarvo::articles {

struct LoteAMedias {
  Lotes::Lote lote;
  QString ventana;             // that began it
  std::vector<int> secciones;  // of its articles
  qint64 porHacer = 0;         // articles that it had yet to change; 0: it can't be finished
};

// Those that aren't done and have changed an article, the oldest first. One that is under way is
// among them.
Resultado<std::vector<LoteAMedias>> lotesAMedias(dao::Database& db);
// Why nothing of the section's articles may be sent, in words; nothing when it may.
Resultado<std::optional<QString>> motivoDeEspera(dao::Database& db, const Textos& textos,
                                                 int seccion);
// One of them in a sentence for the person.
QString decirAMedias(const LoteAMedias& lote, const Textos& textos);

}  // namespace tarvo::articles
