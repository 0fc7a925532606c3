// The frame machine of a link: sends a frame, repeats it, waits for its answer, and reports the
// outcome. The effect of data and time in each state is in one table, in MaquinaDeEstados.cpp, and
// in prose in docs/protocolos.md.
//
// Every wait has an end. A wait may be prolonged by input (a transaction, a piece of a frame), but
// never beyond kProrrogas times its own length; a frame that answers something else doesn't prolong
// it.
#pragma once

#include <QByteArray>
#include <functional>
#include <memory>
#include <optional>

#include "comm/enlace/Deudas.h"
#include "comm/enlace/ModoEnvio.h"
#include "comm/enlace/Para.h"
#include "comm/tramas/Trama.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::enlace {

enum EstadoEnlace : int {
  kReposo = 1,
  kEsperaACK = 3,         // VEK: sent, no acknowledgement yet
  kEsperaRespuesta = 4,   // VEK: acknowledged, waiting for the answer to Enviar
  kEsperaTrama = 5,       // VEK: waiting for a frame for Pedir or RxVEK
  kRepetida = 6,          // VEK: the machine sent a frame again
  kEsperaAckNodal = 7,    // NODAL: sent, no acknowledgement yet
  kEsperaTramaNodal = 9,  // NODAL: waiting for a frame for RxNODAL
  kDescargando = 12,
  kCallando = 13,  // a frame waits until nothing is owed
};

struct TiemposEnlace {
  int ack = 2000;     // ms until an unacknowledged frame goes out again
  int espera = 2000;  // ms for each unit of a wait frame
  int nodo = 0;       // our own node
};

class MaquinaDeEstados {
 public:
  // The link around the machine. Any event may call back into the machine, or stop it.
  class Exterior {
   public:
    virtual void escribir(const QByteArray& bytes) = 0;
    virtual void vaciarCable() = 0;
    virtual Para para() const = 0;
    virtual Deudas& deudas() = 0;  // of the wire
    virtual bool encaja(int addr, int codigo, const QByteArray& datos) = 0;
    virtual void envioVEK(int error, int addr, int codigo, const QByteArray& datos) = 0;
    virtual void reciboVEK(int error, int addr, int codigo, const QByteArray& datos) = 0;
    virtual void envioNDL(int error) = 0;
    virtual void reciboNDL(int error, int codigo, const QByteArray& datos) = 0;
    virtual void transaccion(int addr, const QByteArray& datos) = 0;

   protected:
    ~Exterior() = default;
  };

  MaquinaDeEstados(Exterior& exterior, Reloj& reloj, TiemposEnlace tiempos, int tiempoRespuesta);

  void empezar(int secuencia);  // the link is open: at rest, nothing received yet
  void abandonar();             // gives up the present wait
  void parar();                 // for good: no event follows
  void recibir(QByteArray& nuevos);

  void enviarVEK(int addr, int codigo, const QByteArray& datos, bool pedir);
  void enviarNODAL(int addr, int codigo, const QByteArray& datos);
  void esperarVEK(int codigo);
  void esperarNODAL();
  void tiempoRespuesta(int ms) { tiempoRespuesta_ = ms; }
  // For the frames sent from now on.
  void modo(ModoEnvio modo) { modo_ = modo; }
  int estado() const { return estado_; }
  // For the frame delivered last: its number follows that of the frame before it.
  bool seguida() const { return seguida_; }
  // The present question went out more than once; its copies may be answered too.
  bool repetida() const { return repetida_; }

 private:
  struct Fila;
  static const Fila kTabla[];
  const Fila* fila() const;

  // The steps of each state for data and for the end of its time. A data step returns whether
  // another may follow.
  bool datosReposo();
  bool datosACK();
  bool datosTrama();
  bool datosRepetida();
  bool datosAckNodal();
  bool datosTramaNodal();
  bool datosCallando();
  void venceACK();
  void venceTrama();
  void venceRepetida();
  void venceAckNodal();
  void venceTramaNodal();
  void venceCallando();

  enum class Leido { Nada, Transaccion, Pasada, Repetida, Aceptada };
  Leido leerTramas(bool aceptar);
  Leido atender(const tramas::TramaVEK& trama, bool aceptar);
  void entregarTransaccion(const tramas::TramaVEK& trama);
  bool enVuelo() const { return estado_ >= kEsperaACK && estado_ <= kRepetida; }
  bool enVueloNodal() const { return estado_ == kEsperaAckNodal || estado_ == kEsperaTramaNodal; }
  void reposar();
  void lanzarVEK(int addr, int codigo, const QByteArray& datos, bool pedir);
  void acabarVEK(int error, int addr = -1, int codigo = 0, const QByteArray& datos = {});
  void emitirVEK();
  void preguntarOtraVez();
  bool puedeSerDeOtra() const;
  void quitarACKs();

  void lanzarNODAL(int addr, int codigo, const QByteArray& datos);
  std::optional<tramas::TramaNODAL> leerLinea();  // a new frame from the node we talk to
  void acabarNodal(int error);
  void acabarReciboNodal(int error, const tramas::TramaNODAL& trama);
  void emitirNODAL();
  void esperarMas(const QByteArray& datos);
  void confirmar();

  // What is sent when nothing is owed any more, and the outcome if the line is never quiet.
  struct Pendiente {
    std::function<void()> lanzar, rendirse;
  };
  void callar(Pendiente pendiente);

  void leer();
  void leerLuego();
  void vencer();
  void iniciarEspera(qint64 ms);
  void prorrogar(qint64 ms);
  void pararEspera();
  void vaciar();

  Exterior& exterior_;
  Reloj& reloj_;
  const TiemposEnlace tiempos_;
  int tiempoRespuesta_;
  std::unique_ptr<Temporizador> timer_, relectura_;

  int estado_ = kReposo;
  bool pedir_ = false;    // the last frame was sent by Pedir
  int secuencia_ = 0;     // of the last frame sent
  int ultima_ = -1;       // of the last frame accepted
  int preguntada_ = -1;   // VEK: address of the present question
  int contestada_ = -1;   // VEK: address of the question that the last frame accepted answered
  bool separar_ = false;  // the present question is repeated although answered
  bool dudada_ = false;   // already repeated for a number that may be another machine's
  bool primera_ = false;  // nothing has answered the present question yet
  bool seguida_ = true;
  int envios_ = 0;         // how often the present frame went out
  bool repetida_ = false;  // more often than it had to
  ModoEnvio modo_;
  int repetidas_ = 0;  // how often a repeated frame made us send again
  int estacion_ = 0;
  int codigo_ = 0;
  QByteArray cuerpo_;
  tramas::TramaVEK ultimaTransaccion_;
  tramas::TramaNODAL ultimaNodal_;  // the last one that was acknowledged
  qint64 intervalo_ = 0;            // ms: length of the present wait
  qint64 inicio_ = 0, plazo_ = 0;   // when it began and when it ends
  qint64 tope_ = 0;                 // the last end that it may get
  QByteArray entrada_;
  bool leyendo_ = false;
  Pendiente pendiente_;
  qint64 ruido_ = 0;  // when something was last heard while the line should be quiet
};

}  // namespace tarvo::enlace
