#include "automation/ventanas/ColumnasHorario.h"

#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

void anadirColumnasMomento(std::vector<ventanas::Columna>& columnas) {
  columnas.push_back({.titulo = ventanas::kTxHora,
                      .campo = u"hora"_s,
                      .clase = ventanas::Clase::Hora,
                      .ordenable = false});
  const auto marca = [](const dao::Valor& v) { return v.logico() ? u"X"_s : QString(); };
  for (int d = 0; d < 7; ++d)
    columnas.push_back({.titulo = kTxColDia + d,
                        .campo = u"dia%1"_s.arg(d),
                        .clase = ventanas::Clase::SiNo,
                        .ancho = 44,
                        .ordenable = false,
                        .ver = marca});
}

void anadirMomento(std::vector<dao::Valor>& valores, const LineaActivacion& linea) {
  valores.emplace_back(linea.hora);
  for (const bool dia : linea.dias) valores.emplace_back(dia);
}

}  // namespace tarvo::automation
