// A serial port as the direct cable and the modem need it. On a port that lacks something (the
// control lines of a pseudo-terminal, a speed that an adapter doesn't know) the opening goes on
// without it.
#pragma once

#include <QSerialPort>
#include <functional>
#include <optional>

#include "comm/cables/LinkSocket.h"

namespace tarvo::enlace {

class PuertoSerie {
 public:
  // `alLlegar` gets what comes in; `alFallar` says once that the device is gone.
  PuertoSerie(std::function<void(const QByteArray&)> alLlegar, std::function<void()> alFallar);
  ~PuertoSerie() { cerrar(); }

  // Settings as "9600,O,7,1": speed, parity E, O or N, data bits, stop bits. Answers a Razon.
  int abrir(const QString& ruta, const QString& rs232);
  void cerrar();
  void escribir(const QByteArray& bytes);
  void vaciar() { puerto_.clear(); }
  void ponerDTR(bool alto);

  // The control lines, or nothing where the port has none.
  std::optional<QSerialPort::PinoutSignals> senales();
  // Is a watched line (bit 0 CTS, bit 1 DSR) down? Lines that don't exist count as up.
  bool falta(int controlLinea);

 private:
  void poner(const QString& rs232);
  QSerialPort puerto_;
  bool conLineas_ = false;
};

}  // namespace tarvo::enlace
