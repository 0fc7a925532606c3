// The door of a program that has the database: others that find it taken ask here. The socket is
// beside the database (its name with .SCK), and who may write that may ask.
#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <functional>
#include <memory>

#include "app/Recado.h"

namespace tarvo::app {

// The socket of a database, by a path that is short enough however deep its folder is. Keeps the
// folder open as long as the path is in use.
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

// One who asked, until it goes or is answered.
class Visita {
 public:
  explicit Visita(QLocalSocket* enchufe) : enchufe_(enchufe) {}
  ~Visita();
  Visita(const Visita&) = delete;
  Visita& operator=(const Visita&) = delete;

  void decir(const Respuesta& respuesta);
  // The exit status, and goodbye.
  void acabar(int estado);
  // Without an answer: it looks for another way.
  void cortar();

  std::function<void()> alParar;  // it asks to stop what is done for it

 private:
  friend class Portero;
  QPointer<QLocalSocket> enchufe_;
  QByteArray recibido_;
  bool pedida_ = false;
};

class Portero {
 public:
  // Each request, whole. The visit is the receiver's from then on.
  using Atender = std::function<void(const Peticion& peticion, std::shared_ptr<Visita> visita)>;

  // REQUIRES that this program holds the database, and goes on holding it as long as this lives.
  // Errors: the system's reason, where no socket can be made.
  Resultado<> abrir(const QString& base, Atender atender);

 private:
  void recibir();
  void leer(const std::shared_ptr<Visita>& visita);

  std::unique_ptr<RutaPuerta> ruta_;
  QLocalServer servidor_;
  Atender atender_;
};

}  // namespace tarvo::app
