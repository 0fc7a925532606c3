// A link: one connection to the machines of one access, with one timer and the frame machine of
// both protocols. One object exists for each open channel; it is created by an opening and dies
// after every closing. The states of the frame machine and the effect of data and time in each:
// docs/protocolos.md.
//
// Threading: the event loop's thread. Every operation returns at once; outcomes come as events to
// the client. An event is delivered after the state has changed, so that a client may send the next
// frame from its handler.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "comm/cables/LinkSocket.h"
#include "comm/enlace/ModoEnvio.h"
#include "comm/enlace/Para.h"
#include "core/tiempo/Reloj.h"

namespace tarvo {
class Ajustes;
}

namespace tarvo::enlace {

// The direction of bytes on a wire.
enum class Sentido : char { Sale, Llega };
// Gets the bytes of every link as they pass. REQUIRES that it touches no link.
using AlPasar =
    std::function<void(int canal, Sentido sentido, bool nodal, const QByteArray& bytes)>;

// Receives the events of a link. `canal` counts from 0; `error` is a code of the table in
// docs/protocolos.md, 0 good.
class ClienteEnlace {
 public:
  virtual void Abrir_Evento(int canal, int error) = 0;
  virtual void Cerrar_Evento(int canal, int error) = 0;
  virtual void EnvioVEK_Evento(int canal, int error, int addr, int codigo,
                               const QByteArray& datos) = 0;
  virtual void EnvioNDL_Evento(int canal, int error) = 0;
  virtual void ReciboNDL_Evento(int canal, int error, int codigo, const QByteArray& datos) = 0;
  virtual void ReciboVEK_Evento(int canal, int error, int addr, int codigo,
                                const QByteArray& datos) = 0;
  virtual void CD_Evento(int canal, bool portadora) = 0;
  // Does this frame answer what was asked? One that doesn't is acknowledged and passed over, and
  // the end of the wait doesn't change.
  virtual bool encaja(int canal, int addr, int codigo, const QByteArray& datos) = 0;

 protected:
  ~ClienteEnlace() = default;
};

// Receives the unsolicited transactions (code 995) of a link opened for capture.
class ClienteLinea {
 public:
  virtual void Abrir_Evento(int canal, int error) = 0;
  virtual void Cerrar_Evento(int canal, int error) = 0;
  virtual void ReciboVEK_Evento(int canal, int addr, const QByteArray& datos) = 0;

 protected:
  ~ClienteLinea() = default;
};

class Enlaces;

class comtvIP final : private LinkSocket::Oyente {
 public:
  comtvIP(Enlaces& enlaces, int canal);
  ~comtvIP();
  comtvIP(const comtvIP&) = delete;
  comtvIP& operator=(const comtvIP&) = delete;

  // Each returns an error code at once, 0 for accepted. See Enlaces::abrir for opening. A link open
  // for one client is closed by that client's `para`, or by Para::Nada; any other returns 15 and
  // leaves it open.
  int CerrarEnlace(Para para = Para::Nada);
  bool EnlaceCerrado() const;
  int Enviar(int addr, int codigo, const QByteArray& datos, ModoEnvio modo = {});
  int Pedir(int addr, int codigo, const QByteArray& datos);
  int RxNODAL(int addr);
  int RxVEK(int addr, int codigo);
  void TimeOut(int ms);
  bool Portadora() const;
  // Does the frame of the present event follow the machine's previous frame by its number? Only the
  // frames of a list are checked.
  bool Seguida() const;
  // Did the question of the present event go out more than once? Its copies may be answered too.
  bool Repetida() const;
  // How many bytes have come since the opening, understood or not: what tells a silent line from
  // one that speaks in another way.
  qint64 Oidos() const;
  QString Acceso() const;
  Para AbiertoPara() const;

 private:
  friend class Enlaces;
  struct Estado;
  std::unique_ptr<Estado> d;
  void finApertura(int razon) override;
  void cierre(int razon) override;
  void linea(int numero) override;
  void recepcion(QByteArray& buffer) override;
};

// The links by channel: 4 slots at the start, more on demand. A slot is empty while its channel is
// closed.
class Enlaces {
 public:
  Enlaces(Reloj& reloj, const Ajustes& ajustes, FabricaEnlaces& fabrica, Azar& azar);
  ~Enlaces();

  // AbrirEnlace: opens a link on a channel, or joins the link open there for the other client. An
  // error code other than 0 means that no event will follow. `linea` for VekCaptura, `cliente` for
  // the two of the engine; there are no other openings.
  int AbrirEnlace(Para para, int canal, int baudios, const QString& acceso, ClienteEnlace* cliente,
                  ClienteLinea* linea = nullptr);
  comtvIP* operator[](int canal) const;  // null while closed
  int tamano() const;
  // Drops a link whatever it is doing; for a link that no longer responds. Clients on it that
  // aren't named here get Cerrar_Evento with 20 before this returns.
  void abandonar(int canal, const ClienteEnlace* motor = nullptr,
                 const ClienteLinea* linea = nullptr);
  // Null for nobody.
  void escuchar(AlPasar alPasar);

 private:
  friend class comtvIP;
  struct Datos;
  std::unique_ptr<Datos> d;
};

}  // namespace tarvo::enlace
