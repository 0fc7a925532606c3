// The findings in words.
#pragma once

#include <span>

#include "comm/exploracion/Hallazgo.h"
#include "core/textos/Textos.h"

namespace tarvo::exploracion {

struct Cuentas {
  int canales = 0, red = 0;  // lines that exist, and addresses that can be opened
  int contestan = 0;         // of these addresses
  int modems = 0, grupos = 0;
  int yaEstan = 0;  // of these groups, those whose machines a group of the shop has
  // Something to configure.
  bool algo() const { return modems + grupos > 0; }
};
Cuentas contar(std::span<const Hallazgo> hallazgos);

// The paragraph that says what there is, and the one that says what will be done.
QString resumen(const Cuentas& cuentas, const Textos& textos);
QString consecuencia(const Cuentas& cuentas, const Textos& textos);

// One access: "/dev/ttyS0: ...", in one line.
QString frase(const Hallazgo& hallazgo, const Textos& textos);
// The same without its name.
QString queHay(const Hallazgo& hallazgo, const Textos& textos);
// Its scales: "0, 1 y 3", or nothing.
QString balanzas(const GrupoHallado& grupo, const Textos& textos);
// Its name, with its channel if it has one.
QString nombre(const Acceso& acceso, const Textos& textos);

}  // namespace tarvo::exploracion
