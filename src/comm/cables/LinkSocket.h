// A wire as a link needs it, whatever its kind: a serial port, a modem on one, a TCP connection, a
// named connector, or a machine model in memory. One object serves one link, from one opening to
// one closing.
//
// All calls return at once. Outcomes come to the Oyente, never from inside the call that caused
// them.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "core/valores/Tipos.h"

namespace tarvo::enlace {

// The values of one opening, as the configuration and the group give them.
struct ParametrosLinea {
  TipoAcceso device = TipoAcceso::Ninguno;
  int puerto = 0;        // serial port 1 to 16; for TCP/IP the second number of the access text
  QString ruta = {};     // serial device; empty for that of the port
  int controlLinea = 0;  // bit 0 watch CTS, bit 1 watch DSR
  QString rs232;         // "9600,O,7,1"
  QString host;          // TCP/IP only
  int puertoTcp = 0;     // TCP/IP only
  QString telefono;      // modem only
  QString guion;         // initialisation script of the modem
  QString prefijo;       // dial prefix
  int intentos = 0;      // dialling attempts
  int espera = 0;        // wait after dialling: seconds up to 600, above that milliseconds
  int esperaColgar = 0;  // ms to wait for the answer to the hang-up
};

// The reasons with which an opening or a closing ends; docs/protocolos.md maps them to error codes.
enum Razon : int {
  kBien = 0,
  kPuertoOcupado = 1,  // port busy, missing or without rights
  kSinCtsDsr = 2,
  kModemMudo = 3,     // the modem answers nothing sensible
  kSinRespuesta = 4,  // no answer after all attempts
  kInterrumpido = 5,
  kAbandonado = 8,
  kSinHost = 12,           // connector: host not found
  kPuertoTcpCerrado = 13,  // connector: TCP port closed
  kCaidaTcp = 14,
  kSinNombre = 16,  // connector: no such name
  kEnUso = 17,
  kSinModem = 18,
};

class LinkSocket {
 public:
  class Oyente {
   public:
    virtual void finApertura(int razon) = 0;         // Razon
    virtual void cierre(int razon) = 0;              // 0 a requested closing that went well
    virtual void linea(int numero) = 0;              // 5 carrier up, 6 carrier down
    virtual void recepcion(QByteArray& buffer) = 0;  // bytes left in it are kept for the next event
   protected:
    ~Oyente() = default;
  };

  virtual ~LinkSocket() = default;
  // False if the port cannot be configured at all (no event follows).
  virtual bool configurar(const ParametrosLinea& parametros) = 0;
  virtual void abrir(Oyente& oyente) = 0;  // ends in finApertura
  virtual void cerrar() = 0;  // ends in cierre (finApertura with kAbandonado while opening)
  virtual void enviar(const QByteArray& bytes) = 0;
  virtual void vaciarRecepcion() = 0;
  virtual int estado() const = 0;  // 1 closed, 5 connected with carrier, others in between
};

// Creates the wires. The real factory creates ports and sockets; that of a test, machine models.
class FabricaEnlaces {
 public:
  virtual ~FabricaEnlaces() = default;
  // For the four configured channels.
  virtual std::unique_ptr<LinkSocket> crear(TipoAcceso device) = 0;
  // For a named connector. The name is looked up at once: null and `razon` if there is none.
  virtual std::unique_ptr<LinkSocket> crearConector(const QString& nombre, int& razon) = 0;
};

}  // namespace tarvo::enlace
