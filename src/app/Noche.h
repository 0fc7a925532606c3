// One process without a screen, wherever it can run: here, when this program gets the database; in
// the program that has it open in windows; else when whoever has it lets go.
#pragma once

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "app/Entrega.h"

namespace tarvo::app {

// What every run of this program has in common.
struct Puesto {
  QString carpeta;
  Idioma idioma;
  const Textos& textos;
  Reloj& reloj;
  std::map<QString, QString> datos;  // answers of --dato
  int paciencia = 0;                 // ms to wait for another program without a screen
};

class Noche {
 public:
  struct Encargo {
    QString nombre;  // base name of the process
    QString traza;   // of a timetable; empty for a run of its own
    std::vector<automation::PasoProceso> pasos;
    QStringList omitidas;
  };

  // Starts at once. `fondo`: the database, when it is open already. `alAcabar` gets the exit
  // status, from the event loop, once nothing of the run is left; it may destroy this. REQUIRES
  // that what `puesto` refers to outlives it.
  Noche(const Puesto& puesto, Encargo encargo, std::unique_ptr<Fondo> fondo,
        std::function<void(int estado)> alAcabar);
  ~Noche();
  Noche(const Noche&) = delete;
  Noche& operator=(const Noche&) = delete;

  // The ordinary way of stopping: the queue is emptied, links are closed, the trace says so.
  void parar();

 private:
  enum class Luego { Probar, Acabar };
  void probar();
  void correrAqui();
  void entregar(const QString& motivo);
  void esperar(const QString& motivo);
  void despues(Luego que, int ms = 0);
  void acabar();

  const Puesto puesto_;
  const Encargo encargo_;
  const std::function<void(int)> alAcabar_;
  Datos datos_;
  std::unique_ptr<Fondo> fondo_;
  std::unique_ptr<enlace::FabricaEnlaces> fabrica_;
  std::unique_ptr<Aplicacion> aplicacion_;
  std::unique_ptr<Entrega> entrega_;
  std::unique_ptr<Temporizador> turno_;
  Luego luego_ = Luego::Probar;
  qint64 esperaDesde_ = -1;
  bool parada_ = false;
  int estado_ = 0;
};

// Writes the settings; a failure is said, and makes the status "problems" at least.
int guardarAjustes(const Fondo& fondo, int estado);

}  // namespace tarvo::app
