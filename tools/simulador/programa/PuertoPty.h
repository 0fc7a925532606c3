// A wire on a pseudo-terminal, found under a symbolic link, alone as a direct cable or with a modem
// before it.
#pragma once

#include <QJsonObject>
#include <QSocketNotifier>
#include <memory>

#include "core/valores/Resultado.h"
#include "simulador/Modem.h"

namespace tarvo::simulador {

OpcionesModem opcionesModem(const QJsonObject& json);

class PuertoPty {
 public:
  PuertoPty(Cable& cable, Reloj& reloj);
  ~PuertoPty();
  // An old link of that name is replaced; anything else there is an error.
  Resultado<> abrir(const QString& enlace);
  Resultado<> abrirConModem(const QString& enlace, OpcionesModem opciones);
  QString dispositivo() const { return dispositivo_; }

 private:
  Resultado<> crear(const QString& enlace);
  void leer();
  void escribir(const QByteArray& bytes);
  void tenderCable();

  Cable& cable_;
  Reloj& reloj_;
  int maestro_ = -1,
      esclavo_ = -1;  // our slave descriptor keeps the master alive between two visitors
  QString dispositivo_, enlace_;
  std::unique_ptr<QSocketNotifier> avisos_;
  std::unique_ptr<Modem> modem_;
  std::unique_ptr<Temporizador> retender_;
};

}  // namespace tarvo::simulador
