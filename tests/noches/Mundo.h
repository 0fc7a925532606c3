// One seed from its first day to its last night: the shop's machines, the program that reads them,
// and all that befalls both.
#pragma once

#include <QTemporaryDir>

#include "noches/Oraculo.h"
#include "noches/Programa.h"

namespace tarvo::noches {

struct Veredicto {
  QStringList diferencias;  // empty: the books are right
  QByteArray huella;        // of the trace and of the database at the end
  qint64 eventos = 0;
  int noches = 0, arranques = 0, conProblemas = 0;
};

// `alTrazar` gets each line of the programs' traces and of what the world did.
Veredicto correrSemilla(quint64 semilla, std::function<void(const QString&)> alTrazar = {},
                        bool conCostumbres = true);

class Mundo {
 public:
  Mundo(const Plan& plan, std::function<void(const QString&)> alTrazar);
  Veredicto correr();
  // What each machine heard, in its order, and what the database holds, without moments: alike for
  // two builds that only differ in when they do it.
  QByteArray oido() const;
  QByteArray filas();

 private:
  void montar();
  void montarMaquina(const PlanGrupo& g, int direccion);
  void dia(int n);
  void vender(MaquinaViva& m, const std::vector<int>& articulos, QDate cuando,
              double devoluciones = 0.05);
  void apuntar(MaquinaViva& m);
  void apuntar(MaquinaViva& m, simulador::Lista lista, int lineas, Azar& azar);
  void devolver(MaquinaViva& m, QDate cuando);
  void cambiarMaquinas();
  void hacerDia(QDate fecha);
  // Somebody answers what the program asks in the morning.
  void responder();
  void empezarNoche(const PlanNoche& n);
  void noche(int n);
  // One start of the program, to its end, its cut or its limit. The exit status; nothing when it
  // was cut.
  std::optional<int> arranque(const PlanNoche& n, const Corte* corte);
  bool paso(const PlanNoche& n);
  void vigilar();
  void caido(const Corte& corte);
  void traza(const QString& linea);
  void fallar(const QString& texto) { oraculo_->diferencias += texto; }

  const Plan& plan_;
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
  bool hayFallos_ = false;  // something went wrong in a night before
  bool sinCero_ = false;    // somebody said since the last night that a machine wasn't zeroed
  Veredicto v_;
  QByteArray huella_;
};

}  // namespace tarvo::noches
