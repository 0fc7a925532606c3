// The morning in words: the texts of the board for a summary, and the destination of each line.
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
  QString palabra;  // names the state
  QString titulo, texto, valor;
  Lleva lleva = {};                 // where to act
  QString detalle = {};             // the text that doesn't fit
  std::vector<double> barras = {};  // 0 to 1, the last one is today's; negative if there is none
  bool operator==(const Renglon&) const = default;
};

struct VistaManana {
  Renglon noche, ventas, bandeja, proxima;
  std::vector<Renglon> avisos, grupos;
  QString cuenta;  // number of groups in each state
  bool operator==(const VistaManana&) const = default;
};

VistaManana vistaDe(const automation::Resumen& resumen, const Textos& textos,
                    const Ajustes& ajustes);

// Interrupted changes of articles come before everything else, since the next transmission depends
// on them.
void anteponerLotes(VistaManana& vista, std::span<const articles::LoteAMedias> lotes,
                    const Textos& textos);

// A shop without machines is offered to look for them, before everything else.
void ofrecerAsistente(VistaManana& vista, const Textos& textos);

// Articles still to be sent to the groups, below the other notices.
void anadirDebe(VistaManana& vista, std::span<const envios::Debe> debe, const Textos& textos);

// "hoy a las 22:00", "ayer a las...", or the day of the week and the date.
QString cuandoFue(Fecha momento, Fecha ahora, const Textos& textos);

}  // namespace tarvo::app
