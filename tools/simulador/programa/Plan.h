// The configuration of the program: machines, their transports and their sales.
//
//   { "semilla": 7, "estado": "FILE", "baseDatos": "TARVO.MDB",
//     "dia": { "fecha": "18/05/2026", "ventas": 200, "devoluciones": 0.02, "descuentos": 0.08 },
//     "ritmoMs": 0,
//     "maquinas": [ { "nombre": "Caja 1", "tipo": 3, "grupo": 5, "direccion": 1, "balanzas": [1],
//     "tcp": 4105,
//                     "articulos": [], "operadores": [1, 2], "ventas": [], "pedidos": [],
//                     "inventarios": [], "fallos": {} } ],
//     "grupos": [ { "grupo": 1, "tcp": 4101, "fallos": {} } ] }
//
// "maquinas" are listed in full; "grupos" are read from the database: without the list, all those
// reached by TCP/IP; without a port, that of their access text. A transport is "tcp": port (with
// "abreTrasMs"), "pty": link name, or "modem": link name with "llamadas": [results in turn] and
// "numeros": { "number": result }. Machines with the same transport share a wire. "ritmoMs" sells
// the day a sale at a time instead of at once.
#pragma once

#include <QJsonObject>
#include <optional>
#include <vector>

#include "core/valores/Resultado.h"
#include "simulador/DiaDeVentas.h"
#include "simulador/Maquina.h"

namespace tarvo::simulador {

struct Transporte {
  enum class Clase { Tcp, Pty, Modem } clase = Clase::Tcp;
  int puerto = 0;
  QString ruta;  // of the symbolic link to the pseudo-terminal
  int abreTrasMs = 0;
  QJsonObject modem;  // "llamadas" and "numeros"
  bool mismo(const Transporte& otro) const {
    return clase == otro.clase && puerto == otro.puerto && ruta == otro.ruta;
  }
};

struct PlanMaquina {
  OpcionesMaquina opciones;
  Transporte transporte;
  Catalogo catalogo;
  std::vector<int> operadores;
  std::vector<Venta> ventas;  // listed; otherwise the day is drawn
  std::vector<LineaLista> pedidos, inventarios;
};

struct Plan {
  quint64 semilla = 1;
  QString estado;
  std::optional<Dia> dia;  // without it, only listed sales
  int ritmoMs = 0;
  std::vector<PlanMaquina> maquinas;
};

// Relative paths are taken from `carpeta`. A `baseDatos` that isn't empty replaces the one in the
// file.
Resultado<Plan> leerPlan(const QJsonObject& json, const QString& carpeta, const QString& baseDatos,
                         QDate hoy);

}  // namespace tarvo::simulador
