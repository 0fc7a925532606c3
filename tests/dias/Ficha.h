// What a machine should hold of an article, worked out by simple queries on the database file. It
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

// Field by field, as shown by a machine of that kind: name of the field to its text.
using Ficha = std::map<QByteArray, QByteArray>;

// By code; for registers, whose articles are bar codes, also by the code of the catalogue.
struct Esperado {
  std::map<qint64, Ficha> caben;
  std::map<qint64, QByteArray> fuera;  // the field that does not fit
  std::map<qint64, QByteArray> barras;
};

// `dia`: days since 30 December 1899, for the offers in force.
Esperado esperado(noches::Lector& base, const Grupo& grupo, double dia);

// The fields of a record received by a machine. Nothing for an invalid one.
std::optional<Ficha> leida(const Grupo& grupo, const QByteArray& ficha);

// The differing fields, empty for none.
QString diferencias(const Ficha& esperada, const Ficha& leida);

}  // namespace tarvo::dias
