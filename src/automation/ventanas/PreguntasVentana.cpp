#include "automation/ventanas/PreguntasVentana.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

template <class T>
std::optional<T> comoEs(const Contestacion& c) {
  const T* valor = std::get_if<T>(&c);
  return valor ? std::optional(*valor) : std::nullopt;
}

}  // namespace

Contestacion PreguntasVentana::preguntar(const QString& nombre, const QString& pregunta) {
  if (!ventanas_) return {};
  return ventanas_
      ->preguntar(PuertaEnParMac{.nombre = nombre, .pregunta = pregunta},
                  ventanas_->cargada<PuertaAutomat>())
      .value_or(Contestacion());
}

void PreguntasVentana::retirar() {
  if (ventanas_) ventanas_->descargar<PuertaEnParMac>();
}

std::optional<qint64> PreguntasVentana::PromptNum(const QString& nombre, const QString& pregunta) {
  return comoEs<qint64>(preguntar(nombre, pregunta));
}
std::optional<QString> PreguntasVentana::PromptStr(const QString& nombre, const QString& pregunta) {
  return comoEs<QString>(preguntar(nombre, pregunta));
}
std::optional<std::pair<Fecha, Fecha>> PreguntasVentana::PromptFch(const QString& nombre,
                                                                   const QString& pregunta) {
  return comoEs<std::pair<Fecha, Fecha>>(preguntar(nombre, pregunta));
}

}  // namespace tarvo::automation
