#include "comm/cables/FabricaReal.h"

#include <utility>

#include "comm/cables/AjustesCables.h"
#include "comm/cables/CableLocal.h"
#include "comm/cables/CableModem.h"
#include "comm/cables/CableSerie.h"
#include "comm/cables/CableTCP.h"
#include "comm/cables/Conectores.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::enlace {

FabricaReal::FabricaReal(Reloj& reloj, const Ajustes& ajustes)
    : reloj_(reloj),
      ajustes_(ajustes),
      suyos_(ajustes.de<AjustesCables>()),
      ocupados_(std::make_shared<Ocupados>()) {}

std::unique_ptr<LinkSocket> FabricaReal::crear(TipoAcceso device) {
  const auto rutaDe = [this](int puerto) { return rutaDePuerto(suyos_, puerto); };
  switch (device) {
    case TipoAcceso::Modem:
      return std::make_unique<CableModem>(reloj_, ocupados_, rutaDe);
    case TipoAcceso::TcpIp:
      return std::make_unique<CableTCP>(reloj_, ocupados_);
    case TipoAcceso::Ninguno:
    case TipoAcceso::Directo:
    case TipoAcceso::Conector:
      return std::make_unique<CableSerie>(reloj_, ocupados_, rutaDe);
  }
  std::unreachable();
}

std::unique_ptr<LinkSocket> FabricaReal::crearConector(const QString& nombre, int& razon) {
  const QString destino = conector(ajustes_, nombre).trimmed();
  const QString clase = destino.section(u':', 0, 0).trimmed().toLower();
  const QString resto = destino.section(u':', 1).trimmed();
  razon = kBien;
  if (clase == u"tcp") {
    const qsizetype corte = resto.lastIndexOf(u':');
    return std::make_unique<CableTCP>(reloj_, ocupados_, resto.left(corte).trimmed(),
                                      resto.mid(corte + 1).trimmed().toInt());
  }
  if (clase == u"serie")
    return std::make_unique<CableSerie>(reloj_, ocupados_, resto.section(u',', 0, 0).trimmed(),
                                        resto.section(u',', 1));
  if (clase == u"local") return std::make_unique<CableLocal>(reloj_, ocupados_, resto);
  razon = kSinNombre;
  return nullptr;
}

}  // namespace tarvo::enlace
