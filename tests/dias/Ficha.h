// What a machine should hold of an article, worked out by plain questions to the database file. It
// shares no code with the program.
#pragma once

#include <array>
#include <map>
#include <optional>

#include "noches/Base.h"
#include "simulador/Maquina.h"

namespace tarvo::dias {

struct Grupo {
  int codigo = 0, seccion = 1, tarifa = 0;
  simulador::Tipo tipo = simulador::Tipo::Balanzas;
  bool vek() const { return tipo == simulador::Tipo::Balanzas || tipo == simulador::Tipo::Birch; }
};

// Field by field, as a machine of that kind shows it: name of the field to its text.
using Ficha = std::map<QByteArray, QByteArray>;

// By code; of registers, whose articles are bar codes, by the code of the catalogue all the same.
struct Esperado {
  std::map<qint64, Ficha> caben;
  std::map<qint64, QByteArray> fuera;  // the field that does not fit
  std::map<qint64, QByteArray> barras;
};

// `dia`: days since 30 December 1899, for the offers that are in force then.
Esperado esperado(noches::Lector& base, const Grupo& grupo, double dia);

// The fields of a record that a machine has got. Nothing when it is none.
std::optional<Ficha> leida(const Grupo& grupo, const QByteArray& ficha);

// The fields that differ, empty for none.
QString diferencias(const Ficha& esperada, const Ficha& leida);

}  // namespace tarvo::dias
