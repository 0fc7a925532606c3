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

// The record on disk that a list is under way, by its source.
class NotaDeLista {
 public:
  NotaDeLista(dao::Database& db, const QString& donde)
      : db_(db), nota_(QStringLiteral("ListaEnLinea ") + donde) {}
  // Whether it was there: an earlier list broke off.
  Resultado<bool> poner() {
    TARVO_TOMAR(const auto notas,
                db_.uno(u"SELECT count(*) FROM EstadoTarvo WHERE CLAVE=?", nota_));
    if (notas.entero() > 0) return true;
    TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, 1)", nota_));
    return false;
  }
  Resultado<> quitar() {
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM EstadoTarvo WHERE CLAVE=?", nota_));
    return {};
  }

 private:
  dao::Database& db_;
  const QString nota_;
};

// The same with the record on disk.
template <class Lista>
class DudaDeLista {
 public:
  DudaDeLista(const motor::Entorno& e, const QString& donde)
      : textos_(e.textos), nota_(e.db, donde) {}

  // Called before the first question; further calls do nothing.
  Resultado<> empezar() {
    if (empezada_) return {};
    TARVO_TOMAR(const bool rota, nota_.poner());
    if (rota) dudar();
    empezada_ = true;
    return {};
  }
  void dudar() { contraste_.dudar(); }
  void romper() { contraste_.romper(); }
  Resultado<bool> vale(const Lista& lista) { return contraste_.vale(lista, textos_); }
  // The last list of the task is accepted.
  Resultado<> acabar() { return nota_.quitar(); }

 private:
  const Textos& textos_;
  NotaDeLista nota_;
  Contraste<Lista> contraste_{4};
  bool empezada_ = false;
};

// The wire of a group's machines.
inline QString lineaDe(TipoAcceso remoto, int canalDirecto, const QString& acceso) {
  return QStringLiteral("%1 %2")
      .arg(numeroDe(remoto))
      .arg(remoto == TipoAcceso::Directo ? QString::number(canalDirecto) : acceso);
}
inline QString lineaDe(const motor::DatosTarea& t) {
  return lineaDe(t.Remoto, t.CanalDirecto, t.Telefono);
}

}  // namespace tarvo::tareas
