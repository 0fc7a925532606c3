// One machine on a wire: bytes in by recibir(), bytes out by the connection's `salida`. It takes
// time only from the given clock, so it runs in memory on a virtual clock as well as behind a
// socket. Everything happens on one thread. `salida` may be called from within recibir().
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "core/tiempo/Reloj.h"
#include "simulador/Emisor.h"
#include "simulador/Fallos.h"
#include "simulador/Memoria.h"
#include "simulador/Tramas.h"

namespace tarvo::simulador {

enum class Tipo { Balanzas = 1, Ebony = 2, Registradora = 3, Birch = 4 };

struct OpcionesMaquina {
  Tipo tipo = Tipo::Balanzas;
  QString nombre;
  int grupo = 0;      // its group, for readers of its state
  int direccion = 0;  // node of an Ebony, address of a register; others answer to all addresses
  int estacion = 0;   // VEK station, 0 to 15
  std::vector<int> balanzas;  // numbers of the scales of the group; empty: any
  // For a register: the counters that each of its three orders to forget clears.
  std::array<int, 3> borra{kArticulos, kTotales, kPersonal};
  int registrosPorTrama = 8;  // in list frames
  int pausaMs = 20;           // NODAL: between the acknowledgement and what follows
  int repeticiones = -1;      // of an unacknowledged answer; -1: 3 on NODAL, none on VEK
  int esperaAckMs = 2000;     // before each of them
  Fallos fallos;
  quint64 semilla = 1;
};

// A frame that answers.
struct Mensaje {
  int codigo = 0;
  QByteArray datos{};
  int retrasoMs = 0;
};
struct Respuesta {
  std::vector<Mensaje> mensajes;
  bool rechazo = false;  // NODAL: a rejection in place of the acknowledgement
};

class Maquina {
 public:
  Maquina(OpcionesMaquina opciones, Reloj& reloj);
  virtual ~Maquina();
  Maquina(const Maquina&) = delete;
  Maquina& operator=(const Maquina&) = delete;

  void conectar(Conexion conexion);
  void desconectar();  // the other end disconnected
  void recibir(const QByteArray& bytes);
  bool rechazaConexion();

  Memoria& memoria() { return memoria_; }
  const Memoria& memoria() const { return memoria_; }
  const OpcionesMaquina& opciones() const { return opciones_; }
  void ponerDireccion(int direccion) { opciones_.direccion = direccion; }
  Percances& percances() { return percances_; }
  // Other faults from now on; effects of earlier ones end.
  void cambiarPercances(Percances percances) {
    percances_ = std::move(percances);
    vueltas_ = 0;
    oscuraHasta_ = -1;
    lentaHasta_ = -1;
  }
  // Good questions received, executed or not, latest last; the oldest are dropped after some
  // thousands.
  const std::deque<Peticion>& oidas() const { return oidas_; }

  Fecha ahora() const;  // by the machine's own clock
  double desfase() const { return desfase_; }
  void ponerDesfase(double dias) { desfase_ = dias; }

  // Sells now: the moment, the hour and, if 0, the department are filled in.
  void sell(Venta venta);
  void venderAlAzar(int articulo = 0);  // of that one, if the catalogue has it
  void abrirTicket() { ticketAbierto_ = true; }

 protected:
  virtual std::vector<Entrada> leer(const QByteArray& bytes) = 0;
  virtual void vaciarLector() = 0;
  virtual bool esParaMi(const Peticion& peticion) const = 0;
  // Executes the question.
  virtual Respuesta atender(const Peticion& peticion) = 0;
  virtual Respuesta negar(int error) = 0;
  virtual Peticion otroNumero(Peticion peticion) const = 0;
  virtual bool esCero(int codigo) const = 0;
  virtual QByteArray ack(const Peticion& peticion) = 0;
  virtual QByteArray nak(const Peticion& peticion) = 0;
  virtual QByteArray rechazar(const Peticion& peticion) = 0;
  virtual QByteArray construir(const Mensaje& mensaje) = 0;
  // The same frame with a wrong check.
  virtual QByteArray conControlMalo(QByteArray trama) const = 0;

  Respuesta cero(int codigo, int conjuntos);
  bool ponerHora(const QByteArray& ddmmaaaahhnnss);
  // True while a faulty list must go on; counts down.
  bool sinFin();

  Memoria memoria_;
  bool ticketAbierto_ = false;
  Peticion actual_;

 private:
  void procesar(const Peticion& peticion);
  Respuesta decidir(const Peticion& peticion, Sucesos& sucesos);
  void contestar(const Peticion& peticion, Respuesta respuesta, const Sucesos& sucesos);
  void anunciarEspera(int unidades);
  int retrasoDelAck(const Sucesos& sucesos);
  void emitirSiguiente(const QByteArray& delante);
  void emitir(const QByteArray& delante, Mensaje mensaje, const Sucesos& sucesos);
  void mandar(const QByteArray& delante, const QByteArray& trama, const Sucesos& sucesos,
              int retrasoMs);
  QByteArray estropear(QByteArray trama, const Sucesos& sucesos);
  void esperarAck(const QByteArray& trama);
  void alConfirmar();
  void alVencerAck();
  void olvidarDialogo();

  OpcionesMaquina opciones_;
  Reloj& reloj_;
  Percances percances_;
  Emisor emisor_;
  Emisor lento_;  // late answers, independent of the rest
  double desfase_ = 0;
  std::deque<Peticion> oidas_;

  std::deque<Mensaje> cola_;  // frames of the present list still to be sent
  int indice_ = 0;
  QByteArray enVuelo_;  // the frame awaiting its acknowledgement
  int repetidas_ = 0;
  std::vector<QByteArray> tardias_;
  int vueltas_ = 0;  // answers left for a list without end
  qint64 oscuraHasta_ = -1;
  bool incumple_ = false;   // the present order is confirmed, not obeyed
  Sucesos negada_;          // of the last question
  qint64 lentaHasta_ = -1;  // busy with its questions
  std::unique_ptr<Temporizador> relojAck_;
};

std::unique_ptr<Maquina> crearMaquina(OpcionesMaquina opciones, Reloj& reloj);

}  // namespace tarvo::simulador
