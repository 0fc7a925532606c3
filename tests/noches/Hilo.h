// The wires of a shop in memory: from the program's links to the machine models, with the line's
// own faults.
#pragma once

#include <map>

#include "comm/cables/LinkSocket.h"
#include "noches/Plan.h"
#include "simulador/Cable.h"

namespace tarvo::noches {

class Hilos final : public enlace::FabricaEnlaces {
 public:
  Hilos(Reloj& reloj, quint64 semilla) : reloj_(reloj), azar_(semilla) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso device) override;
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString& nombre, int& razon) override;

  std::map<QString, simulador::Cable> cables;  // by PlanGrupo::linea
  AveriasLinea averias;
  // The bytes of every frame, for a trace.
  std::function<void(char sentido, const QByteArray&)> alPasar;

 private:
  friend class Hilo;
  Reloj& reloj_;
  Azar azar_;
};

}  // namespace tarvo::noches
