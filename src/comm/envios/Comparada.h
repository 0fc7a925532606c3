// An article of the catalogue beside the record that a group of scales gave when it was asked for
// it alone, field by field as a person reads them.
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
  std::optional<Fecha> cuando;  // it was asked; nothing when it never was
  bool laTiene = false;         // it has the article
  std::vector<CampoComparado> campos;
};

// `aqui` is the article as it would go now, or as it stands in the database where no record can be
// made of it; empty when it is gone. Money has the decimals of the shop, a threshold those of the
// article's unit. REQUIRES a group of kind 1 or 4.
Resultado<FichaComparada> compararFicha(dao::Database& db, const Destino& destino, qint64 codigo,
                                        const Ajustes& ajustes, const Textos& textos, Fecha ahora);

}  // namespace tarvo::envios
