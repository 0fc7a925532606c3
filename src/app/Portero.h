// The door of a program that has the database: others that find it taken ask here. The socket is
// beside the database (its name with .SCK), and those with write access to it may ask.
#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <functional>
#include <memory>

#include "app/Recado.h"

namespace tarvo::app {

// The socket of a database, by a path short enough for any depth of folder. Keeps the folder open
// as long as the path is in use.
class RutaPuerta {
 public:
  explicit RutaPuerta(const QString& base);
  ~RutaPuerta();
  RutaPuerta(const RutaPuerta&) = delete;
  RutaPuerta& operator=(const RutaPuerta&) = delete;
  const QString& operator*() const { return ruta_; }

 private:
  int carpeta_;
  QString ruta_;
};

// A requesting program, until it goes or is answered.
class Visita {
 public:
  explicit Visita(QLocalSocket* enchufe) : enchufe_(enchufe) {}
  ~Visita();
  Visita(const Visita&) = delete;
  Visita& operator=(const Visita&) = delete;

  void decir(const Respuesta& respuesta);
  // The exit status, and goodbye.
  void acabar(int estado);
  // Hangs up without an answer: it looks for another way.
  void cortar();

  std::function<void()> alParar;  // it asks to stop its own request

 private:
  friend class Portero;
  QPointer<QLocalSocket> enchufe_;
  QByteArray recibido_;
  bool pedida_ = false;
};

class Portero {
 public:
  // Called with each complete request. The visit belongs to the receiver from then on.
  using Atender = std::function<void(const Peticion& peticion, std::shared_ptr<Visita> visita)>;

  // REQUIRES that this program holds the database as long as this lives. Errors: the system's
  // reason, when no socket can be made.
  Resultado<> abrir(const QString& base, Atender atender);

 private:
  void recibir();
  void leer(const std::shared_ptr<Visita>& visita);

  std::unique_ptr<RutaPuerta> ruta_;
  QLocalServer servidor_;
  Atender atender_;
};

}  // namespace tarvo::app
