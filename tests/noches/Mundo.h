// One seed from its first day to its last night: the shop's machines, the program that reads them,
// and everything that happens to both.
#pragma once

#include <QTemporaryDir>

#include "noches/Oraculo.h"
#include "noches/Programa.h"

namespace tarvo::noches {

struct Veredicto {
  QStringList diferencias;  // empty: the books are right
  QByteArray huella;        // of the trace and the final database
  qint64 eventos = 0;
  int noches = 0, arranques = 0, conProblemas = 0;
};

// `alTrazar` gets each line of the programs' traces and of the world's events.
Veredicto correrSemilla(quint64 semilla, std::function<void(const QString&)> alTrazar = {},
                        bool conCostumbres = true);

class Mundo {
 public:
  Mundo(const Plan& plan, std::function<void(const QString&)> alTrazar);
  Veredicto correr();
  // The frames received by each machine, in order, and the contents of the database, without
  // moments: equal for two builds that differ only in timing.
  QByteArray oido() const;
  QByteArray filas();

 private:
  void montar();
  void montarMaquina(PlanGrupo& g, int direccion);
  void dia(int n);
  void vender(MaquinaViva& m, const std::vector<int>& articulos, QDate cuando,
              double devoluciones = 0.05);
  void apuntar(MaquinaViva& m);
  void apuntar(MaquinaViva& m, simulador::Lista lista, int lineas, Azar& azar);
  void devolver(MaquinaViva& m, QDate cuando);
  void cambiarMaquinas();
  void canjearAccesos();
  void hacerDia(QDate fecha);
  // A person answers the program's questions in the morning.
  void responder();
  void responder(int grupo, int addr, bool si);
  void empezarNoche(const PlanNoche& n);
  void noche(int n);
  // A person edits the groups, see Ediciones.cpp.
  class Mano;
  void editar(Edicion::Cuando cuando, int noche);
  // One start of the program, to its end, its cut or its limit. Returns the exit status; nothing if
  // it was cut.
  std::optional<int> arranque(const PlanNoche& n, const Corte* corte);
  bool paso(const PlanNoche& n);
  void vigilar();
  void caido(const Corte& corte);
  void traza(const QString& linea);
  void fallar(const QString& texto) { oraculo_->diferencias += texto; }

  Plan plan_;  // with its groups and the process as they are now
  std::vector<PlanGrupo*> vivos_;
  std::function<void(const QString&)> alTrazar_;
  QTemporaryDir carpeta_;
  RelojVirtual reloj_;
  Hilos hilos_;
  Azar azar_, notas_, gente_;
  std::vector<MaquinaViva> maquinas_;
  std::unique_ptr<Oraculo> oraculo_;
  std::unique_ptr<Programa> programa_;
  std::vector<int> codigos_;  // of the articles
  qint64 peso_ = 0, enNoche_ = 0, inicioNoche_ = 0;
  int hoy_ = 0;
  bool todoBien_ = false;   // the night before ended without a problem
  bool acabada_ = false;    // it came to its end
  bool hayFallos_ = false;  // something went wrong in an earlier night
  bool sinCero_ = false;    // a person declared since last night that a machine wasn't zeroed
  Veredicto v_;
  QByteArray huella_;
};

}  // namespace tarvo::noches
