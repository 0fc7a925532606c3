// When a list can be trusted. A machine whose list broke off may continue it at the next
// acknowledgement, even one meant for another machine, and its late frames look like those of the
// next list; registers that share a wire even answer under the same number. So a list under way is
// recorded on disk, by its source. If the record of an earlier one is still there (it failed, or
// the program was cut off), after a failure, or when a frame's number doesn't follow the one before
// it, a list has to come twice running, identical.
#pragma once

#include <optional>

#include "comm/motor/Tarea.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

// Whether a doubtful list has come identical often enough. `Lista` is the compared type.
template <class Lista>
class Contraste {
 public:
  // `vueltas`: how many readings may be useless.
  explicit Contraste(int vueltas) : maximo_(vueltas) {}

  void dudar() { dudosa_ = true; }
  // A list broke off: the lists before and after it are not consecutive.
  void romper() {
    dudosa_ = true;
    leida_.reset();
    iguales_ = 0;
  }
  bool dudosa() const { return dudosa_; }
  // A list has ended: true if it is accepted, since it isn't in doubt or came `veces` times
  // running; false if it is to be requested again. An Error of class Formato if it never comes
  // twice alike.
  Resultado<bool> vale(const Lista& lista, const Textos& textos, int veces = 2) {
    iguales_ = leida_ == lista ? iguales_ + 1 : 1;
    if (!dudosa_ || iguales_ >= veces) {
      leida_.reset();
      usadas_ = 0;
      return true;
    }
    leida_ = lista;
    if (++usadas_ <= maximo_) return false;
    return fallo(Fallo::Formato, textos(kTxListaDistinta), 7);
  }

 private:
  const int maximo_;
  std::optional<Lista> leida_;  // the previous one
  bool dudosa_ = false;
  int usadas_ = 0, iguales_ = 0;
};

// The same with the record on disk.
template <class Lista>
class DudaDeLista {
 public:
  DudaDeLista(const motor::Entorno& e, const QString& donde)
      : e_(e), nota_(QStringLiteral("ListaEnLinea ") + donde) {}

  // Called before the first question; further calls do nothing.
  Resultado<> empezar() {
    if (empezada_) return {};
    TARVO_TOMAR(const auto notas,
                e_.db.uno(u"SELECT count(*) FROM EstadoTarvo WHERE CLAVE=?", nota_));
    if (notas.entero() > 0)
      dudar();
    else
      TARVO_INTENTAR(
          e_.db.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, 1)", nota_));
    empezada_ = true;
    return {};
  }
  void dudar() { contraste_.dudar(); }
  void romper() { contraste_.romper(); }
  Resultado<bool> vale(const Lista& lista) { return contraste_.vale(lista, e_.textos); }
  // The last list of the task is accepted.
  Resultado<> acabar() {
    TARVO_INTENTAR(e_.db.ejecutar(u"DELETE FROM EstadoTarvo WHERE CLAVE=?", nota_));
    return {};
  }

 private:
  const motor::Entorno e_;
  const QString nota_;
  Contraste<Lista> contraste_{4};
  bool empezada_ = false;
};

// The wire of a task's machines.
inline QString lineaDe(const motor::DatosTarea& t) {
  return QStringLiteral("%1 %2")
      .arg(numeroDe(t.Remoto))
      .arg(t.Remoto == TipoAcceso::Directo ? QString::number(t.CanalDirecto) : t.Telefono);
}

}  // namespace tarvo::tareas
