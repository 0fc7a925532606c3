// The running simulator: creates the machines of a plan, sells their day, opens their transports
// and keeps the state file. One thread, on Qt's event loop.
#pragma once

#include <QTimer>
#include <memory>

#include "simulador/programa/Plan.h"
#include "simulador/programa/PuertoPty.h"
#include "simulador/programa/ServidorTcp.h"

namespace tarvo::simulador {

class Programa {
 public:
  Programa(Plan plan, Reloj& reloj);
  ~Programa();
  // Restores the machines from the last state file, if any, and sells the first day of the others.
  Resultado<> preparar();
  // Opens all transports; those configured to open later don't count as failures.
  Resultado<> escuchar();
  // One more day for each machine, drawn from the seed and the number of the day, with the orders
  // and inventories of the plan, each line a gram heavier with each day.
  void venderOtroDia();
  // Writes the state file beside its target and renames it. Without a file name it does nothing.
  bool guardar();

 private:
  struct Puesta {
    std::unique_ptr<Maquina> maquina;
    PlanMaquina plan;
    int dias = 0;
  };
  struct Linea {
    Transporte transporte;
    std::unique_ptr<Cable> cable;
    std::unique_ptr<ServidorTcp> tcp;
    std::unique_ptr<PuertoPty> pty;
  };
  Resultado<> restaurar(const QByteArray& estado);
  void estrenar(Puesta& puesta);
  void vender(Puesta& puesta, const std::vector<Venta>& ventas);
  void tocar();  // after a change: the state file is written soon
  void venderUna();
  Cable& cableDe(const Transporte& transporte);
  Resultado<> abrir(Linea& linea);

  Plan plan_;
  Reloj& reloj_;
  std::vector<Puesta> maquinas_;
  std::vector<Linea> lineas_;
  std::vector<std::pair<std::size_t, Venta>> porVender_;  // machine and sale, in order of time
  QTimer guardado_, ritmo_;
};

}  // namespace tarvo::simulador
