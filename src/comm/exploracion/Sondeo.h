// The dialogue that finds out what is at the far end of one open line: a modem, stations of VEK or
// nodes of NODAL. It sends the two strings of the modem, the questions 570 and 72, and
// acknowledgements, and nothing else. States, waits and answers: docs/protocolos.md.
//
// It ends whatever comes: only a good frame prolongs a wait, and each probe answers a limited
// number of bad ones.
#pragma once

#include <functional>
#include <memory>

#include "comm/exploracion/Hallazgo.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::tramas {
struct TramaNODAL;
}

namespace tarvo::exploracion {

class Sondeo {
 public:
  enum class Fase {
    Inicio,
    Modem1,          // the string is sent, in whatever state the modem was
    Modem2,          // and again
    ModemAT,         // "AT" is sent
    Vek,             // a station is asked
    Nodal,           // a node is asked
    NodalEspera,     // it has acknowledged, and its wait frame is due
    NodalRespuesta,  // and its answer
    Fin,
  };
  // `enviar` may lead to recibir() before it returns; `alAcabar` may not destroy this.
  struct Entorno {
    Reloj& reloj;
    Azar& azar;
    int nodoPropio;
    std::function<void(const QByteArray& bytes)> enviar;
    std::function<void()> alAcabar;
  };

  explicit Sondeo(Entorno entorno);

  // A line without a modem begins with the stations.
  void empezar(bool conModem);
  void recibir(const QByteArray& bytes);
  // The line is lost: what was found so far stays.
  void cortado();
  // No event follows.
  void parar();

  Fase fase() const { return fase_; }
  int sonda() const { return sonda_; }  // the station or node being asked
  // resultado, motivo, sonda and grupos, once it has ended.
  const Hallazgo& hallazgo() const { return h_; }

 private:
  void vencer();
  void leer();
  bool leerModem();
  bool leerVek();
  bool leerNodal();
  void deEstacion(const QByteArray& pieza);
  void deNodo(const QByteArray& linea);
  bool vale(const tramas::TramaNODAL& trama) const;
  void mandarModem(const QByteArray& orden, Fase fase, int ms);
  void preguntarVek(int estacion);
  void siguienteVek();
  void preguntarNodal(int nodo);
  void siguienteNodal();
  void mandarNodal(int codigo);
  void mandar(const QByteArray& bytes);
  void malo(const QByteArray& pieza);
  void confirmar(char confirmacion);
  void anadir(ResultadoCanal resultado, const QByteArray& datos);
  void acabar(ResultadoCanal resultado, Motivo motivo);
  void acabarSinMas();
  Motivo loOido() const;

  const Entorno e_;
  std::unique_ptr<Temporizador> tim_;
  Fase fase_ = Fase::Inicio;
  int sonda_ = 0;
  int secuencia_ = 0;
  int malos_ = 0;       // in the present probe
  bool pausa_ = false;  // the present node has answered, and the next one isn't asked yet
  bool oido_ = false, eco_ = false;
  bool leyendo_ = false;
  QByteArray entrada_, ultimo_;
  Hallazgo h_;
};

}  // namespace tarvo::exploracion
