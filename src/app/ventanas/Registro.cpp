#include "app/ventanas/Registro.h"

#include "app/ventanas/ElemPerso.h"
#include "app/ventanas/MainTarvo.h"
#include "app/ventanas/PortalCnf.h"

namespace tarvo::app {

void registrarVentanasPrincipal(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  using ventanas::Contexto;
  ventanas.registrar(QStringLiteral("MainTarvo"), [&](Contexto& c, const QString& n) {
    return new MainTarvo(c, n, aplicacion);
  });
  ventanas.registrar(QStringLiteral("PortalCnf"),
                     [](Contexto& c, const QString& n) { return new PortalCnf(c, n); });
  ventanas.registrar(QStringLiteral("ElemPerso"),
                     [](Contexto& c, const QString& n) { return new ElemPerso(c, n); });
}

// One line a room. Those of communications, totals and processes stand here too, behind this one.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  registrarVentanasPrincipal(ventanas, aplicacion);
}

}  // namespace tarvo::app
