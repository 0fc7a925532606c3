// Sends a request to the program that has the database, and waits for the answer.
#pragma once

#include <QLocalSocket>

#include "app/Portero.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::app {

class Entrega {
 public:
  struct Oyente {
    std::function<void(const QString&)> decir, avisar;  // lines as they come
    std::function<void(int estado)> alAcabar;
    // There is no such program, or it has gone or is silent: nothing more comes.
    std::function<void()> alCortarse;
  };
  // `base`: the database. The listener is called from the event loop, once for the end; it may not
  // destroy this from within. REQUIRES that the clock outlives it.
  Entrega(const QString& base, const Peticion& peticion, Oyente oyente, Reloj& reloj);
  ~Entrega();
  void parar();  // asks it to stop, in order; the end comes as usual

 private:
  void leer();
  void atender(const Respuesta& respuesta);
  void cortarse();

  RutaPuerta ruta_;
  Oyente oyente_;
  std::unique_ptr<Temporizador> silencio_;
  QLocalSocket enchufe_;
  QByteArray recibido_;
  bool acabada_ = false;
};

}  // namespace tarvo::app
