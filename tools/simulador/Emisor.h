// Sends bytes to the other end in order, now or later. Bytes due now, with none waiting before
// them, go at once.
#pragma once

#include <QByteArray>
#include <deque>
#include <functional>
#include <memory>

#include "core/tiempo/Reloj.h"

namespace tarvo::simulador {

struct Conexion {
  std::function<void(const QByteArray&)> salida;
  std::function<void(bool limpio)> cortar;  // the machine ends the connection
};

class Emisor {
 public:
  explicit Emisor(Reloj& reloj);
  void conectar(Conexion conexion);
  void desconectar();  // drops the waiting bytes
  bool conectado() const { return conexion_.salida != nullptr; }
  // Sends after all waiting bytes, and not before `retrasoMs` have passed.
  void enviar(const QByteArray& bytes, int retrasoMs = 0);
  void cortar(bool limpio, int retrasoMs = 0);
  int retrasoPendiente() const;  // ms until the last waiting byte has gone; 0 for none

 private:
  enum class Accion { Bytes, CorteLimpio, Corte };
  struct Envio {
    qint64 cuando;
    Accion accion;
    QByteArray bytes;
  };
  void poner(Accion accion, QByteArray bytes, int retrasoMs);
  void vaciar();

  Reloj& reloj_;
  Conexion conexion_;
  std::deque<Envio> envios_;
  bool vaciando_ = false;
  std::unique_ptr<Temporizador> temporizador_;
};

}  // namespace tarvo::simulador
