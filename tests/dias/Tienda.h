// The shop of a seed: groups, sections, a first catalogue in its database, empty machines; and the
// program started on it.
#pragma once

#include <QTemporaryDir>

#include "app/Aplicacion.h"
#include "dias/Ficha.h"
#include "noches/Hilo.h"

namespace tarvo::dias {

struct MaquinaViva {
  const Grupo* grupo = nullptr;
  std::unique_ptr<simulador::Maquina> maquina;
  simulador::Catalogo vieja;  // an earlier state of its memory
};

// The program in memory. Destroying it is a power cut: nothing is announced.
class Programa {
 public:
  static Resultado<std::unique_ptr<Programa>> arrancar(const QString& carpeta, Reloj& reloj,
                                                       noches::Hilos& hilos, quint64 semilla);
  app::Aplicacion& aplicacion() { return *aplicacion_; }
  dao::Database& db() { return *fondo_->db; }
  const Ajustes& ajustes() const { return fondo_->ajustes; }

 private:
  std::unique_ptr<app::Fondo> fondo_;
  std::unique_ptr<automation::Preguntas> preguntas_;
  std::unique_ptr<app::Aplicacion> aplicacion_;
};

struct Tienda {
  Tienda(quint64 semilla, QDate primerDia);

  QString carpeta() const { return carpeta_.path(); }

  Azar azar;
  RelojVirtual reloj;
  noches::Hilos hilos;
  std::vector<Grupo> grupos;
  std::vector<MaquinaViva> maquinas;
  std::unique_ptr<noches::Lector> base;
  int secciones = 1;

 private:
  void insertar();
  void insertarGrupo(const Grupo& grupo, int remoto, int canal, const QString& acceso, int addr,
                     const std::vector<int>& direcciones);
  QTemporaryDir carpeta_;
};

}  // namespace tarvo::dias
