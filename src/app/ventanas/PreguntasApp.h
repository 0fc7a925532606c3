// The questions of a process: answered by --dato if the command line gives the answer, otherwise in
// a window. A process requested by another program asks nothing here.
#pragma once

#include "app/Datos.h"
#include "automation/ventanas/PreguntasVentana.h"

namespace tarvo::app {

class PreguntasApp final : public automation::Preguntas {
 public:
  PreguntasApp(const std::map<QString, QString>& dados, const Textos& textos)
      : t_(textos), dados_(dados), datos_(dados, textos) {}
  void poner(ventanas::Ventanas* ventanas) { ventana_.poner(ventanas); }
  void retirar() { ventana_.retirar(); }
  // From now on the answers are those of the other program, and `decir` receives the missing ones.
  void encargo(const std::map<QString, QString>& datos,
               const std::function<void(const QString&)>& decir) {
    encargo_.emplace(datos, t_, decir);
  }
  void sinEncargo() { encargo_.reset(); }

  std::optional<qint64> PromptNum(const QString& nombre, const QString& pregunta) override {
    return quien(nombre).PromptNum(nombre, pregunta);
  }
  std::optional<QString> PromptStr(const QString& nombre, const QString& pregunta) override {
    return quien(nombre).PromptStr(nombre, pregunta);
  }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString& nombre,
                                                   const QString& pregunta) override {
    return quien(nombre).PromptFch(nombre, pregunta);
  }

 private:
  automation::Preguntas& quien(const QString& nombre) {
    if (encargo_) return *encargo_;
    if (dados_.contains(nombre)) return datos_;
    return ventana_;
  }

  const Textos& t_;
  std::map<QString, QString> dados_;
  std::optional<Datos> encargo_;
  Datos datos_;
  automation::PreguntasVentana ventana_;
};

}  // namespace tarvo::app
