// The 40 texts of labels: 1 to 20 are fixed, 21 to 40 are a text set's lines, or the shop's own in
// the settings. Layout of a set: docs/formatos.md.
#pragma once

#include <QString>
#include <optional>

#include "core/ajustes/Ajustes.h"

namespace tarvo::labels {

inline constexpr int kPrimerTextoLibre = 21, kUltimoTexto = 40;
inline constexpr int kTextosLibres = kUltimoTexto - kPrimerTextoLibre + 1;

// Text n, empty outside 1 to 40. `juego`: the lines of a text set, nothing where there is none.
QString LeerTexto(int n, const std::optional<QString>& juego, const Ajustes& ajustes);
// Stores a free text in the set, or without one in the settings; nothing for another number. A set
// then has 20 lines, without an end after the last.
void PonerTexto(int n, const QString& texto, std::optional<QString>& juego, Ajustes& ajustes);

}  // namespace tarvo::labels
