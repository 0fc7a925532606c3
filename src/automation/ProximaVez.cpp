#include "automation/ProximaVez.h"

namespace tarvo::automation {

std::optional<Fecha> proximaVez(const LineaActivacion& linea, Fecha desde) {
  const QTime hora = linea.hora.qtime();
  for (int dia = 0; dia <= 7; ++dia) {
    const QDate fecha = desde.qdate().addDays(dia);
    const Fecha momento = Fecha::de(fecha, hora);
    if (linea.dias[static_cast<size_t>(fecha.dayOfWeek() - 1)] && momento > desde) return momento;
  }
  return std::nullopt;
}

}  // namespace tarvo::automation
