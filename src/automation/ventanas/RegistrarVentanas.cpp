#include "automation/ventanas/RegistrarVentanas.h"

#include "automation/ventanas/AutomatVentana.h"
#include "automation/ventanas/CronosVentana.h"
#include "automation/ventanas/Debidos.h"
#include "automation/ventanas/EdiCron.h"
#include "automation/ventanas/EnParMac.h"
#include "automation/ventanas/VeoLog.h"

namespace tarvo::automation {

using namespace ventanas;

void registrarVentanasAutomation(Ventanas& v, const Motores& m) {
  v.registrar<PuertaAutomat, AutomatVentana>(m.automat, m.lenguaje, m.motor);
  v.registrar<PuertaEnParMac, EnParMac>();
  v.registrar<PuertaCronos, CronosVentana>(m.cronos, ConsienteOlvidos(m.consiente));
  v.registrar<PuertaEdiCron, EdiCron>(m.lenguaje);
  v.registrar<PuertaDebidos, Debidos>(m.debidos);
  v.registrar<PuertaVeoLog, VeoLog>();
}

}  // namespace tarvo::automation
