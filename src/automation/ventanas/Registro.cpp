#include "automation/ventanas/Registro.h"

#include "automation/ventanas/AutomatVentana.h"
#include "automation/ventanas/CronosVentana.h"
#include "automation/ventanas/Debidos.h"
#include "automation/ventanas/EdiCron.h"
#include "automation/ventanas/EnParMac.h"
#include "automation/ventanas/TextosAutomationVentanas.h"
#include "automation/ventanas/VeoLog.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

void registrarVentanasAutomation(Ventanas& ventanas, Automat& automat, Cronos& cronos,
                                 const Lenguaje& lenguaje, const motor::gestcomm& motor) {
  ventanas.registrar(u"Automat"_s, [&](Contexto& c, const QString& n) {
    return new AutomatVentana(c, n, automat, lenguaje, motor);
  });
  ventanas.registrar<PuertaEnParMac, EnParMac>();
  ventanas.registrar(
      u"Cronos"_s, [&](Contexto& c, const QString& n) { return new CronosVentana(c, n, cronos); });
  ventanas.registrar<PuertaEdiCron, EdiCron>(lenguaje);
  ventanas.registrar(u"Debidos"_s, [](Contexto& c, const QString& n) { return new Debidos(c, n); });
  ventanas.registrar(
      u"VeoLog"_s, [](Contexto& c, const QString& n) { return new VeoLog(c, n); },
      Argumentos{{u"fichero"_s, u"NOCHE.TZA"_s}});
}

}  // namespace tarvo::automation
