// Parameter steps: "%x,prompt", "$x,prompt" and "#x,prompt" in a comment step ask for a value,
// which replaces its name throughout the list. Pure functions on the list, and the text form of
// answers kept for a resumed run.
#pragma once

#include <QJsonArray>
#include <optional>
#include <variant>
#include <vector>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

struct Parametro {
  QString nombre;  // two characters, the first of them "%", "$" or "#"
  QString pregunta;
};

struct Respuesta {
  QString nombre;
  std::variant<qint64, QString, std::pair<Fecha, Fecha>> valor;
};

// The parameter asked for by a step; nothing when it is not a parameter step.
std::optional<Parametro> parametroDe(const PasoProceso& paso);
// Puts an answer into the whole list.
void rellenar(std::vector<PasoProceso>& pasos, const Respuesta& respuesta);

QString guardarRespuestas(const std::vector<Respuesta>& respuestas);
// Nothing when the text was not written by guardarRespuestas.
std::optional<std::vector<Respuesta>> recordarRespuestas(const QString& texto);

}  // namespace tarvo::automation
