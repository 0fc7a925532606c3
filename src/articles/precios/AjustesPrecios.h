// The settings of prices and fast entry in TARVO.INI.
#pragma once

#include <QString>

namespace tarvo {
class Ajustes;
struct SalaDeAjustes;
}  // namespace tarvo

namespace tarvo::precios {

struct AjustesPrecios {
  // Of the calculator: two or four values.
  struct CalculoPrecios {
    bool a = false;
    int b = 0;
    bool conSegundo = false;
    bool c = false;
    int d = 0;
  } calculoPrecios;
  int ModoIntroRapido = 2;
  QString ParrillaRapida =
      QStringLiteral("1,1,2,1,1,0,0,0,0,0,0,0,0,0,0,0,-1,,,,,");  // as it is in the file
  QString PrefijoCodigos;
  int NumPreciosAlta = 3, NumTarifasAlta = 8;
};

SalaDeAjustes ajustesPrecios();

// A person has saved them as they are (Ajustes::confirmar).
void confirmarCalculo(Ajustes& ajustes);
void confirmarModo(Ajustes& ajustes);      // ModoIntroRapido
void confirmarParrilla(Ajustes& ajustes);  // ParrillaRapida
void confirmarAlta(Ajustes& ajustes);      // those of the form of new articles

}  // namespace tarvo::precios
