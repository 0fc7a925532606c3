// An article of the catalogue beside the record that a group of scales returned when asked for that
// article alone, field by field in readable form.
#pragma once

#include "comm/envios/Lector.h"
#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

struct CampoComparado {
  QString campo, aqui, alli;
  bool distinto = false;
};
struct FichaComparada {
  std::optional<Fecha> cuando;  // when it was asked; nothing if never
  bool laTiene = false;         // the group has the article
  std::vector<CampoComparado> campos;
};

// `aqui` is the article as it would be sent now, or as it is in the database if it has no valid
// record; empty if it is gone. Money has the decimals of the shop, a threshold those of the
// article's unit. REQUIRES a group of kind 1 or 4.
Resultado<FichaComparada> compararFicha(dao::Database& db, const Destino& destino, qint64 codigo,
                                        const Ajustes& ajustes, const Textos& textos, Fecha ahora);

}  // namespace tarvo::envios
