// One process without a screen, wherever it can run: here, when this program gets the database; in
// the program with windows that has it open; otherwise once its holder releases it.
#pragma once

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "app/Entrega.h"

namespace tarvo::app {

// Shared by all runs of this program.
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
    QString traza;   // of a timetable; empty for a direct run
    std::vector<automation::PasoProceso> pasos;
    QStringList omitidas;
  };

  // Starts at once. `fondo`: the database, if already open. `alAcabar` gets the exit status, from
  // the event loop, once nothing of the run is left; it may destroy this. REQUIRES that the
  // references in `puesto` outlive it.
  Noche(const Puesto& puesto, Encargo encargo, std::unique_ptr<Fondo> fondo,
        std::function<void(int estado)> alAcabar);
  ~Noche();
  Noche(const Noche&) = delete;
  Noche& operator=(const Noche&) = delete;

  // Stops in the ordinary way: the queue is emptied, links are closed, and the trace records it.
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

// Writes the settings; a failure is reported, and makes the status at least "problems".
int guardarAjustes(Fondo& fondo, int estado);

}  // namespace tarvo::app
