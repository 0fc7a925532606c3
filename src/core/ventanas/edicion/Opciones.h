// Combo boxes filled from values: each item has a value and a text.
#pragma once

#include <QComboBox>
#include <vector>

#include "core/nombres/Nombres.h"
#include "core/textos/Textos.h"

namespace tarvo::ventanas {

struct Opcion {
  qint64 valor = 0;
  QString texto;
};
using Opciones = std::vector<Opcion>;

// Codes of `cifras` digits with leading zeros, and names: "001  FRUTA".
Opciones conCodigo(const std::vector<CodigoNombre>& lista, int cifras);
// Numbers as their own texts.
Opciones numeros(std::initializer_list<qint64> valores);

// Consecutive texts, from number `primero` on; their values count from 0.
Opciones deTextos(const Textos& textos, int primero, int cuantos);

// Replaces the items without emitting a signal. The selected value stays selected if it is still
// there, else the first one is.
void llenar(QComboBox& lista, const Opciones& opciones);
// The same for a list that had to be queried; a failure changes nothing.
Resultado<> llenar(QComboBox& lista, const Nombres::Lista& nombres, int cifras);
// Selects a value; false, with nothing selected, if there is no such item.
bool elegir(QComboBox& lista, qint64 valor);
// The value of the selected item, or `siNinguno`.
qint64 elegido(const QComboBox& lista, qint64 siNinguno = 0);

}  // namespace tarvo::ventanas
