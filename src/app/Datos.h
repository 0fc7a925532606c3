// Answers parameter steps from the --dato options. A question without an answer is reported and
// aborts the run.
#pragma once

#include <map>

#include "automation/Automat.h"
#include "core/textos/Textos.h"

namespace tarvo::app {

class Datos final : public automation::Preguntas {
 public:
  // `decir`: where it is reported; standard error by default.
  Datos(std::map<QString, QString> valores, const Textos& textos,
        std::function<void(const QString&)> decir = {});
  std::optional<qint64> PromptNum(const QString& nombre, const QString& pregunta) override;
  std::optional<QString> PromptStr(const QString& nombre, const QString& pregunta) override;
  // "dd/mm/yyyy", "dd/mm/yyyy-dd/mm/yyyy", or "mm/yyyy" for a whole month. A day also as in a
  // process, "dd-mm-yyyy" or "yyyy-mm-dd".
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString& nombre,
                                                   const QString& pregunta) override;

 private:
  std::map<QString, QString> valores_;
  const Textos& t_;
  std::function<void(const QString&)> decir_;
};

// The range of days in a text; nothing when there is none, or it ends before it begins.
std::optional<std::pair<Fecha, Fecha>> leerRango(QStringView texto);

}  // namespace tarvo::app
