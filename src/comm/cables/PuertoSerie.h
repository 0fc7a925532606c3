// A serial port as the direct cable and the modem need it. A missing capability (the control lines
// of a pseudo-terminal, a speed unknown to an adapter) doesn't stop the opening.
#pragma once

#include <QSerialPort>
#include <functional>
#include <optional>

#include "comm/cables/LinkSocket.h"

namespace tarvo::enlace {

class PuertoSerie {
 public:
  // `alLlegar` gets the bytes received; `alFallar` is called once if the device is gone.
  PuertoSerie(std::function<void(const QByteArray&)> alLlegar, std::function<void()> alFallar);
  ~PuertoSerie() { cerrar(); }

  // Settings as "9600,O,7,1": speed, parity E, O or N, data bits, stop bits. Returns a Razon.
  int abrir(const QString& ruta, const QString& rs232);
  void cerrar();
  void escribir(const QByteArray& bytes);
  void vaciar() { puerto_.clear(); }
  void ponerDTR(bool alto);

  // The control lines, or nothing if the port has none.
  std::optional<QSerialPort::PinoutSignals> senales();
  // Is a watched line (bit 0 CTS, bit 1 DSR) down? Lines that don't exist count as up.
  bool falta(int controlLinea);

 private:
  void poner(const QString& rs232);
  QSerialPort puerto_;
  bool conLineas_ = false;
};

}  // namespace tarvo::enlace
