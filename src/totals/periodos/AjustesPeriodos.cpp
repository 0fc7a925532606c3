#include "totals/periodos/AjustesPeriodos.h"

#include <algorithm>

#include "core/ajustes/Sala.h"

namespace tarvo::totals {

namespace {

constexpr qsizetype kPeriodosMax = 10000;  // of ÚltimosPeriodos

bool leerPeriodos(const QString& v, std::vector<int>& periodos) {
  const auto partes = QStringView(v).split(u'|', Qt::SkipEmptyParts);
  if (partes.size() > kPeriodosMax) return false;
  std::vector<int> leidos;
  leidos.reserve(static_cast<size_t>(partes.size()));
  for (const QStringView p : partes) {
    const auto periodo = ini::numeroEntre(p, ini::kPositivo);
    if (!periodo) return false;
    leidos.push_back(*periodo);
  }
  periodos = std::move(leidos);
  return true;
}

QString verPeriodos(const std::vector<int>& periodos) {
  QStringList partes;
  for (const int p : periodos) partes << QString::number(p);
  return partes.join(u'|');
}

bool leerFestivos(const QString& v, std::array<bool, 7>& festivos) {
  const auto dias = ini::partes(v, u',');
  if (dias.size() != festivos.size() || !std::ranges::all_of(dias, ini::esReal)) return false;
  std::ranges::transform(dias, festivos.begin(),
                         [](QStringView dia) { return ini::real(dia) != 0; });
  return true;
}

QString verFestivos(const std::array<bool, 7>& festivos) {
  QStringList partes;
  for (const bool festivo : festivos) partes << QString::number(festivo ? 1 : 0);
  return partes.join(u',');
}

// Half of the working day at each end would leave nothing of it.
bool leerTolerancia(QStringView v, float& parte) {
  return ini::leerRealSi(v, [](double x) { return x >= 0 && x < 0.5; }, parte);
}

QString verTolerancia(float parte) {
  return QString::number(parte, 'f', 2);
}

}  // namespace

SalaDeAjustes ajustesPeriodos() {
  using A = AjustesPeriodos;
  return salaDeAjustes(
      A(), {clave<&A::UltimosPeriodos, leerPeriodos, verPeriodos>(803, u"ÚltimosPeriodos"),
            clave<&A::InicioHorario, ini::leerHora, ini::verHora>(804, u"InicioHorario"),
            clave<&A::FinalHorario, ini::leerHora, ini::verHora>(805, u"FinalHorario"),
            clave<&A::ToleranciaHora, leerTolerancia, verTolerancia>(806, u"ToleranciaHora"),
            clave<&A::FestivoSemanal, leerFestivos, verFestivos>(904, u"FestivoSemanal")});
}

}  // namespace tarvo::totals
