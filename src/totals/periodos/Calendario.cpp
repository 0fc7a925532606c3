#include "totals/periodos/Calendario.h"

#include "totals/periodos/AjustesPeriodos.h"

#include <cmath>

namespace tarvo::totals {

namespace {

// A moment is a sum of whole days and seconds / 86400, so the same instant computed in two ways may
// differ in the last bits. Instants less than a tenth of a millisecond apart are the same.
constexpr double kGrano = 1e-9;
bool antes(double a, double b) {
  return a < b - kGrano;
}
Fecha diaDe(Fecha f) {
  return Fecha::deDias(std::floor(f.dias() + kGrano));
}
double horaDe(Fecha f) {
  return std::max(0.0, f.dias() - diaDe(f).dias());
}

// 1 January 100 to 31 December 9999.
bool enCalendario(Fecha f) {
  return f.dias() >= -657434.0 && f.dias() < 2958466.0;
}

Periodo entreDias(int tipo, Fecha primero, Fecha ultimo) {
  return {tipo, primero, ultimo + Fecha::kUltimoSegundo};
}

Periodo semanaDe(Fecha dia) {
  const double desdeLunes = std::floor(dia.dias() - 2);
  const double lunes = dia.dias() - (desdeLunes - 7 * std::floor(desdeLunes / 7));
  return entreDias(kSemanal, Fecha::deDias(lunes), Fecha::deDias(lunes + 6));
}

Periodo mesesDe(int tipo, QDate primero, int meses) {
  return entreDias(tipo, Fecha::de(primero), Fecha::de(primero.addMonths(meses).addDays(-1)));
}

struct Limite {
  double masLargo, minimo;  // longest span, shortest gap between working days
};
Limite limiteDe(int tipo) {
  static constexpr std::array<Limite, 4> kLimites{{{4, 0}, {8, 2}, {32, 14}, {370, 300}}};
  if (tipo < kDiario || tipo > kAnual) return {HUGE_VAL, 0};
  return kLimites[static_cast<size_t>(tipo - 1)];
}

}  // namespace

Periodo LimitesPeriodo(int tipo, Fecha desde, Fecha hasta) {
  if (!enCalendario(desde)) return {tipo, desde, hasta};
  const Fecha dia = desde.dia();
  const QDate q = dia.qdate();
  switch (tipo) {
    case kDiario:
      return entreDias(tipo, dia, dia);
    case kSemanal:
      return semanaDe(dia);
    case kMensual:
      return mesesDe(tipo, QDate(q.year(), q.month(), 1), 1);
    case kAnual:
      return mesesDe(tipo, QDate(q.year(), 1, 1), 12);
    default:
      return {tipo, desde, hasta};
  }
}

Calendario::Calendario(const Ajustes& ajustes) : a_(ajustes.de<AjustesPeriodos>()) {}

Jornada Calendario::VentanaHorario(const std::optional<Jornada>& jornada) const {
  const double o = jornada ? jornada->abre : a_.InicioHorario.dias();
  const double c = jornada ? jornada->cierra : a_.FinalHorario.dias();
  const double t = (c > o ? c - o : 1 - o + c) * static_cast<double>(a_.ToleranciaHora);
  double x = o + t, y = c - t;
  if (x >= 1) x -= 1;
  if (y < 0) y += 1;
  return {x, y};
}

bool Calendario::EnHorario(Fecha instante, const std::optional<Horario>& horario) const {
  const auto dia = static_cast<size_t>(diaDe(instante).diaSemana() - 1);
  if (horario ? !(*horario)[dia].has_value() : a_.FestivoSemanal[dia]) return false;
  const Jornada v = VentanaHorario(horario ? (*horario)[dia] : std::nullopt);
  const double t = horaDe(instante);
  const bool traslaApertura = antes(v.abre, t), anteCierre = antes(t, v.cierra);
  return v.cierra > v.abre ? traslaApertura && anteCierre : traslaApertura || anteCierre;
}

std::optional<Fecha> Calendario::IntervaloDominante(int tipo, Fecha desde, Fecha hasta,
                                                    const std::optional<Horario>& horario) const {
  if (!(desde < hasta) || !enCalendario(desde) || !enCalendario(hasta)) return std::nullopt;
  const Limite limite = limiteDe(tipo);
  if (hasta - desde > limite.masLargo || EnHorario(desde, horario)) return std::nullopt;

  enum { Antes, Dentro, Fuera } estado = Antes;
  Fecha primero, ultimo;
  for (int k = 1;; ++k) {
    const Fecha cursor = desde + k / 48.0;
    if (!antes(cursor.dias(), hasta.dias())) break;
    const bool dentro = EnHorario(cursor, horario);
    if (estado == Antes && dentro) primero = diaDe(cursor);
    if (estado == Dentro && !dentro) ultimo = diaDe(cursor);
    if (dentro)
      estado = Dentro;
    else if (estado == Dentro)
      estado = Fuera;
  }
  if (estado != Fuera || ultimo - primero < limite.minimo) return std::nullopt;
  const Fecha inicio = LimitesPeriodo(tipo, primero, primero).desde;
  if (LimitesPeriodo(tipo, ultimo, ultimo).desde != inicio) return std::nullopt;
  return inicio;
}

int Calendario::Jornadas(Fecha desde, Fecha hasta, const std::optional<Horario>& horario) const {
  int n = 0;
  bool antesDentro = false;
  for (int k = 1; antes((desde + k / 48.0).dias(), hasta.dias()); ++k) {
    const bool dentro = EnHorario(desde + k / 48.0, horario);
    n += dentro && !antesDentro;
    antesDentro = dentro;
  }
  return n;
}

Periodo Calendario::DeterminarPeriodo(Fecha desde, Fecha hasta,
                                      const std::optional<Horario>& horario) const {
  for (int tipo = kDiario; tipo <= kAnual; ++tipo)
    if (const auto inicio = IntervaloDominante(tipo, desde, hasta, horario))
      return LimitesPeriodo(tipo, *inicio, *inicio);
  return {kOtros, desde, hasta};
}

}  // namespace tarvo::totals
