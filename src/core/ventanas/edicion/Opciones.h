// Combo boxes filled from values: each entry has a value and words.
#pragma once

#include <QComboBox>
#include <vector>

#include "core/nombres/Nombres.h"

namespace tarvo::ventanas {

struct Opcion {
  qint64 valor = 0;
  QString texto;
};
using Opciones = std::vector<Opcion>;

// Codes of `cifras` digits with zeros in front, and names: "001  FRUTA".
Opciones conCodigo(const std::vector<CodigoNombre>& lista, int cifras);
// Numbers as they are.
Opciones numeros(std::initializer_list<qint64> valores);

// Other entries; no signal is given. What was chosen stays chosen where it is still there, else the
// first one is.
void llenar(QComboBox& lista, const Opciones& opciones);
// The same of a list that had to be asked for; on a failure nothing changes.
Resultado<> llenar(QComboBox& lista, const Nombres::Lista& nombres, int cifras);
// False, and nothing is chosen, when there is no such entry.
bool elegir(QComboBox& lista, qint64 valor);
// Of the chosen entry; `siNinguno` when there is none.
qint64 elegido(const QComboBox& lista, qint64 siNinguno = 0);

}  // namespace tarvo::ventanas
