// Parameter steps: "%x,prompt", "$x,prompt" and "#x,prompt" in a comment step ask for a value,
// which is put wherever the list names it. Pure functions on the list, and the text in which
// answers are kept for a run that goes on later.
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

// What a step asks for; nothing when it is no parameter step.
std::optional<Parametro> parametroDe(const PasoProceso& paso);
// Puts an answer into the whole list.
void rellenar(std::vector<PasoProceso>& pasos, const Respuesta& respuesta);

QString guardarRespuestas(const std::vector<Respuesta>& respuestas);
// Nothing when the text was not written by guardarRespuestas.
std::optional<std::vector<Respuesta>> recordarRespuestas(const QString& texto);

}  // namespace tarvo::automation
