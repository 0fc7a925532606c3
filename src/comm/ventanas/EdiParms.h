#pragma once

#include "comm/ventanas/Servicios.h"
#include "core/ajustes/Ajustes.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaEdiParms.h"

namespace tarvo::comm {

// The port and line settings of one channel.
class EdiParms final : public ventanas::Ventana {
 public:
  EdiParms(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void llenar(const ParamCanal& canal);
  void confirmar();

  Ui::FormaEdiParms ui_;
  ParamCanal* destino_ = nullptr;  // written once, on accepting
};

// "9600,O,7,1" in parts; what can't be read is as in the default.
struct LineaSerie {
  int baudios = 9600;
  QChar paridad = u'O';
  int bits = 7, parada = 1;
  static LineaSerie leer(const QString& rs232);
  QString escribir() const;
};

}  // namespace tarvo::comm
