// A shop for the engine: a database, links, machine models at their ends, and a watcher that
// records its calls.
#pragma once

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Repertorio.h"
#include "motor/CableSimulado.h"
#include "tienda/Tienda.h"

namespace tarvo::prueba {

class TiendaDeMotor : public testing::Test, protected Tienda, protected motor::Vigilante {
 protected:
  // `salas`: whose settings are used besides those of the engine.
  explicit TiendaDeMotor(std::vector<SalaDeAjustes> salas = {});
  // Discards the state of the process and reopens the database.
  void arrancar(bool reanuda = false);

  // A group of that kind with an access: "cable 1" to "cable 4" a direct cable, "tel:..." a modem,
  // "tcp:host" TCP/IP, any other text a connector. Creates one machine, or one for each address of
  // a group of registers.
  using Tienda::articulo, Tienda::grupo;
  void grupo(int numero, int tipo, const QString& acceso, std::vector<int> direcciones = {1});
  void articulo(int codigo, const QString& barras = {});
  simulador::Maquina& maquina(int grupo, int addr = 1) { return *maquinas_.at({grupo, addr}); }
  void fallo(int grupo, simulador::Paso paso, int addr = 1);
  void vender(int grupo, int articulo, qint64 importe, qint64 gramos, int operador = 1,
              int addr = 1);

  int encolar(int grupo, int clase, bool todo = true, qint64 desde = 0, qint64 hasta = 9999999);
  // Runs until the queue is empty; false if it isn't within the time.
  bool correr(int minutos = 120);
  const motor::VistaTarea* tarea(int id);

  // Rows of a query as "a,b;c,d".
  QString filas(const QString& sql);
  // Inbox of a group: "CODI:CON/PES/IMP/SCO ..." (with "CODI.HORA" for the cross).
  QString bandeja(int grupo, int clase);
  // Code and data of the questions that the machine received: "830 0000017".
  QStringList oidas(int grupo, int addr = 1);

  void InformeProblema(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) override;
  void InformeRetry(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) override;
  void InformeAviso(const totals::Aviso& aviso) override;
  Resultado<> TareaHecha(const motor::DatosTarea& tarea) override;

  QTemporaryDir carpeta_;
  RelojVirtual reloj{Fecha::de(QDate(2026, 5, 18), QTime(21, 30, 5))};
  std::map<std::pair<int, int>, std::unique_ptr<simulador::Maquina>> maquinas_;
  FabricaSimulada fabrica{reloj};
  Azar azar{11};
  std::unique_ptr<Ajustes> ajustes;
  enlace::AjustesCables& cables() { return ajustes->de<enlace::AjustesCables>(); }
  enlace::AjustesEnlace& tiempos() { return ajustes->de<enlace::AjustesEnlace>(); }
  motor::AjustesMotor& delMotor() { return ajustes->de<motor::AjustesMotor>(); }
  std::unique_ptr<dao::Database> db;
  std::unique_ptr<totals::Sesion> sesion;
  std::unique_ptr<enlace::Enlaces> enlaces;
  motor::RepertorioTareas repertorio = tareas::repertorio();
  decltype(motor::Entorno::enEspera) enEspera;  // before montar()
  std::unique_ptr<motor::gestcomm> gestor;
  QStringList problemas, reintentos, avisos, hechas;
  Resultado<> hecha;  // the result of TareaHecha
  std::function<void()> alHacer;

 private:
  dao::Database& base() override { return *db; }
  std::vector<motor::VistaTarea> vista_;
  int ultima_ = 0;
};

}  // namespace tarvo::prueba
