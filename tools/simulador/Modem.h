// A Hayes modem in front of a wire: commands until it is connected, then the wire's bytes. Results
// are numbers (V0) or words, the echo may be on or off, and "+++" between two silences returns to
// commands.
#pragma once

#include <deque>
#include <map>

#include "simulador/Cable.h"

namespace tarvo::simulador {

enum class Llamada { Connect, NoCarrier, NoDialtone, Busy, NoAnswer };

struct OpcionesModem {
  std::deque<Llamada> guion;              // results of the next calls; then by number
  std::map<QByteArray, Llamada> numeros;  // digits only; other numbers are connected
  int marcarMs = 1500;                    // duration of a call
  int guardaMs = 1000;                    // silence before and after "+++"
  int velocidad = 9600;
};

class Modem {
 public:
  // `salida` gets the modem's bytes for its computer.
  Modem(Cable& cable, Reloj& reloj, OpcionesModem opciones,
        std::function<void(const QByteArray&)> salida);
  ~Modem();
  void recibir(const QByteArray& bytes);
  bool enLinea() const { return estado_ == Estado::Datos; }
  // The dialled numbers, in order.
  const std::vector<QByteArray>& marcados() const { return marcados_; }

 private:
  enum class Estado { Ordenes, Marcando, Datos };
  enum class Resultado { Ok = 0, NoCarrier = 3, Error = 4, NoDialtone = 6, Busy = 7, NoAnswer = 8 };
  void recibirOrden(char c);
  void recibirDatos(const QByteArray& bytes);
  void ejecutar(QByteArray orden);
  bool aplicar(const QByteArray& orden);
  void marcar(const QByteArray& numero);
  void alVencer();
  void finDeMarcar();
  void volverALinea();
  void perderPortadora();
  void colgar();
  void decir(Resultado resultado);
  void decirConnect();
  void linea(const QByteArray& palabra, int numero);
  void restablecer();

  Cable& cable_;
  Reloj& reloj_;
  OpcionesModem opciones_;
  Emisor emisor_;
  Estado estado_ = Estado::Ordenes;
  QByteArray orden_;
  bool eco_ = true, palabras_ = true, mudo_ = false;
  int extension_ = 4;
  std::vector<QByteArray> marcados_;
  Llamada llamada_ = Llamada::Connect;
  qint64 ultimoByte_ = 0;
  QByteArray mases_;
  std::unique_ptr<Temporizador> temporizador_;
};

}  // namespace tarvo::simulador
