#pragma once

#include "comm/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::comm {

// The parts of "9600,O,7,1"; an unreadable part has its default value.
struct LineaSerie {
  int baudios = 9600;
  char16_t paridad = u'O';
  int bits = 7, parada = 1;
  bool operator==(const LineaSerie&) const = default;
  static LineaSerie leer(const QString& rs232);
  QString escribir() const;
};

struct PuertoYLinea {
  int puerto = 1;
  LineaSerie linea;
  bool cts = false, dsr = false;
  bool operator==(const PuertoYLinea&) const = default;
};

// The port and line settings of one channel.
class EdiParms final : public ventanas::FichaDe<PuertoYLinea> {
 public:
  EdiParms(ventanas::Contexto& c, const QString& nombre);
  Resultado<> entrar(const PuertaEdiParms& puerta);

 private:
  void aplicada() override;
  enlace::ParamCanal canal_;
};

}  // namespace tarvo::comm
