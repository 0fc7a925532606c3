// When a list can be trusted. A machine whose list broke off may go on with it at the next
// acknowledgement, whoever that is meant for, and its late frames look like those of the next list;
// registers that share a wire even answer under one number. So a list under way is noted on disk,
// by where it comes from. Where the note of an earlier one still stands (it failed, or the program
// was cut off), after a failure, or when a frame's number doesn't follow the one before it, a list
// has to come alike twice running.
#pragma once

#include <optional>
#include <utility>

#include "comm/motor/Tarea.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

// `Lista`: what is compared.
template <class Lista>
class DudaDeLista {
 public:
  DudaDeLista(const motor::Entorno& e, const QString& donde)
      : e_(e), nota_(QStringLiteral("ListaEnLinea ") + donde) {}

  // Before the first question; again it does nothing.
  Resultado<> empezar() {
    if (empezada_) return {};
    const auto notas = e_.db.uno(u"SELECT count(*) FROM EstadoTarvo WHERE CLAVE=?", nota_);
    if (!notas) return std::unexpected(notas.error());
    dudosa_ = notas->entero() > 0;
    if (!dudosa_)
      TARVO_INTENTAR(
          e_.db.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, 1)", nota_));
    empezada_ = true;
    return {};
  }
  void dudar() { dudosa_ = true; }
  // A list has ended: true when it stands, false when it is to be asked again. An Error of class
  // Formato when it never comes twice alike.
  Resultado<bool> vale(const Lista& lista) {
    if (!dudosa_ || leida_ == lista) {
      leida_.reset();
      vueltas_ = 0;
      return true;
    }
    leida_ = lista;
    if (++vueltas_ <= kVueltas) return false;
    return fallo(Fallo::Formato, e_.textos(kTxListaDistinta), 7);
  }
  // The last list of the task stands.
  Resultado<> acabar() {
    TARVO_INTENTAR(e_.db.ejecutar(u"DELETE FROM EstadoTarvo WHERE CLAVE=?", nota_));
    return {};
  }

 private:
  static constexpr int kVueltas = 4;
  const motor::Entorno e_;
  const QString nota_;
  std::optional<Lista> leida_;  // the one before
  bool empezada_ = false, dudosa_ = false;
  int vueltas_ = 0;
};

// The wire that a task's machines are on.
inline QString lineaDe(const motor::DatosTarea& t) {
  return QStringLiteral("%1 %2").arg(t.Remoto).arg(t.Remoto == 2 ? QString::number(t.CanalDirecto)
                                                                 : t.Telefono);
}

}  // namespace tarvo::tareas
