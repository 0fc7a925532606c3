// Shared by the tests of the engine's rules.
#pragma once

#include "motor/TiendaDeMotor.h"

namespace tarvo::prueba {

using simulador::Averia;

struct Reglas : TiendaDeMotor {
  int estado(int id) {
    const auto* t = tarea(id);
    return t ? t->Estado : -1;
  }
  void tienda(int g = 1, const QString& acceso = QStringLiteral("cable 1")) {
    grupo(g, 1, acceso);
    if (filas(QStringLiteral("SELECT COUNT(*) FROM PLUSES")) == u"0")
      for (const int a : {10, 20, 30}) articulo(a);
    for (const int a : {10, 20, 30}) vender(g, a, a * 10, 100, a / 10);
  }
  // Reads and memorises the machines' totals, so that they may be zeroed.
  void leida(int g) {
    encolar(g, 17);
    ASSERT_TRUE(correr());
  }
};

}  // namespace tarvo::prueba
