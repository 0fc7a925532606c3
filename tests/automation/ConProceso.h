// A run of the runner on the test shop.
#pragma once

#include "automation/TiendaDeProcesos.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

class ConProceso : public testing::Test {
 protected:
  // Lines without the times, which the tests of the trace check.
  QStringList correr(const QString& proceso, Programa& p) {
    p.correr(proceso);
    EXPECT_TRUE(p.hastaElFin());
    return p.lineas;
  }
  QStringList correr(const QString& proceso) {
    const auto p = tienda_.programa();
    const auto lineas = correr(proceso, *p);
    fin_ = p->fin.value_or(ResultadoProceso::Abortado);
    return lineas;
  }
  TiendaDeProcesos tienda_;
  ResultadoProceso fin_ = ResultadoProceso::Abortado;
};

inline const QString kNoche =
    u"T:RXPLUS,ALL\r\nT:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,Ventas "
    u"#D,Sí,Sí\r\nT:TX_ZERO,ALL\r\nC:ESPERA,1,No\r\n"
    u"P:LIMPIAR\r\nP:SEL. ULTIMO\r\nP:ACUMULAR,2\r\nP:SEL. ULTIMO\r\nP:STOCK\r\nP:SEL. ULTIMO\r\nE:TOTALIZA,No,No,VENTAS\r\nS:ABRIR\r\n"_s;

}  // namespace tarvo::automation
