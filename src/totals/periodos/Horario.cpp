// The commercial hours as text.
#include "totals/periodos/Calendario.h"

namespace tarvo::totals {

namespace {

std::optional<Jornada> jornadaDe(QStringView item) {
  const auto horas = item.split(u'|');
  if (horas.size() != 2) return std::nullopt;
  const auto abre = Fecha::leerHora(horas[0]), cierra = Fecha::leerHora(horas[1]);
  if (!abre || !cierra) return std::nullopt;
  return Jornada{abre->dias(), cierra->dias()};
}

QString textoHora(double fraccion) {
  return Fecha::deDias(fraccion).qtime().toString(u"HH:mm");
}

}  // namespace

std::optional<Horario> LeerHorario(const QString& texto) {
  if (texto.isEmpty()) return std::nullopt;
  const auto items = QStringView(texto).split(u"||");
  Horario h;
  for (size_t i = 0; i < h.size() && i < static_cast<size_t>(items.size()); ++i)
    h[i] = jornadaDe(items[static_cast<qsizetype>(i)]);
  return h;
}

QString EscribirHorario(const std::optional<Horario>& horario) {
  if (!horario) return {};
  QStringList items;
  for (const auto& j : *horario)
    items << (j ? textoHora(j->abre) + u'|' + textoHora(j->cierra) : QString());
  return items.join(u"||") + QStringLiteral("||");
}

}  // namespace tarvo::totals
