// A wire with one or more machines: each receives all bytes and answers to its own address. One
// connection at a time.
#pragma once

#include <vector>

#include "simulador/Maquina.h"

namespace tarvo::simulador {

class Cable {
 public:
  // The machines must outlive the use of the wire.
  void poner(Maquina& maquina) { maquinas_.push_back(&maquina); }
  // False if the wire is in use or a machine refuses connections for now.
  bool abrir(Conexion conexion);
  void cerrar();
  bool abierto() const { return abierto_; }
  void recibir(const QByteArray& bytes);
  const std::vector<Maquina*>& maquinas() const { return maquinas_; }

 private:
  std::vector<Maquina*> maquinas_;
  bool abierto_ = false;
};

// The other end in memory: bytes take `latenciaMs` each way, so neither side is re-entered from its
// own call.
class Tubo {
 public:
  Tubo(Cable& cable, Reloj& reloj, int latenciaMs = 1);
  ~Tubo();
  // False: refused. `alRecibir` gets the machines' bytes; `alCerrar` is called when the line is
  // gone.
  bool abrir(std::function<void(const QByteArray&)> alRecibir, std::function<void(bool)> alCerrar);
  void enviar(const QByteArray& bytes);
  void cerrar();

 private:
  Cable& cable_;
  int latenciaMs_;
  Emisor ida_, vuelta_;
};

}  // namespace tarvo::simulador
