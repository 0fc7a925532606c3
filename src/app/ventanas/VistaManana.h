// The morning in words: what the board shows of a summary, and where each line leads.
#pragma once

#include <vector>

#include "app/ventanas/Lleva.h"
#include "articles/LotesAMedias.h"
#include "automation/Resumen.h"
#include "comm/envios/Debe.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Columna.h"

namespace tarvo::app {

// A line or a card of the board.
struct Renglon {
  ventanas::Estado estado = ventanas::Estado::Ninguno;
  QString palabra;  // that says the state
  QString titulo, texto, valor;
  Lleva lleva = {};                 // where one acts
  QString detalle = {};             // what there is no room for
  std::vector<double> barras = {};  // 0 to 1, the last one is today's; negative for none
  bool operator==(const Renglon&) const = default;
};

struct VistaManana {
  Renglon noche, ventas, bandeja, proxima;
  std::vector<Renglon> avisos, grupos;
  QString cuenta;  // how many groups in each state
  bool operator==(const VistaManana&) const = default;
};

VistaManana vistaDe(const automation::Resumen& resumen, const Textos& textos,
                    const Ajustes& ajustes);

// Changes of articles that were cut off come before all else: what the night sends depends on them.
void anteponerLotes(VistaManana& vista, std::span<const articles::LoteAMedias> lotes,
                    const Textos& textos);

// What the groups have yet to get, below the other notices.
void anadirDebe(VistaManana& vista, std::span<const envios::Debe> debe, const Textos& textos);

// "hoy a las 22:00", "ayer a las...", or the day of the week and the date.
QString cuandoFue(Fecha momento, Fecha ahora, const Textos& textos);

}  // namespace tarvo::app
