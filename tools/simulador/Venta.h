// A machine's knowledge of the shop: its articles, and the ledger of single sales from which all
// counters are computed.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>

#include "core/valores/Fecha.h"

namespace tarvo::simulador {

struct Articulo {
  int seccion = 1;
  int codigo = 0;
  QString nombre{};
  int unidad = 0;  // 0 kilogram, 1 hundred grams, 2 unit
  int departamento = 1;
  QByteArray barras{};  // the digits that a register reads; empty if the article has none
  qint64 precio = 0;    // minor units of money per selling unit
  bool ajeno = false;   // unknown to the back-office: its sales belong to article 2 there
  QByteArray ficha{};   // the record as received, returned on request
  bool operator==(const Articulo&) const = default;
};

using Catalogo = std::map<int, Articulo>;  // by code

// One sale, or one return (negative amount, weight and discount; the count counts operations and
// stays positive).
struct Venta {
  Fecha cuando{};
  int articulo = 0;
  int operador = 1;  // position in the machine, from 1
  int departamento = 1;
  int hora = 0;
  qint64 importe = 0;    // minor units
  qint64 peso = 0;       // grams
  qint64 cuenta = 1;     // sales or units
  qint64 descuento = 0;  // minor units
  bool operator==(const Venta&) const = default;
};

// A line of an order or of an inventory.
struct LineaLista {
  int articulo = 0;
  qint64 peso = 0;
  qint64 unidades = 0;
  bool operator==(const LineaLista&) const = default;
};

}  // namespace tarvo::simulador
