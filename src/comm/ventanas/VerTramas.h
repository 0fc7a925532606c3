#pragma once

#include <map>

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaVerTramas.h"

namespace tarvo::comm {

// The frames of a line as they pass, as bytes and as fields.
class VerTramas final : public ventanas::Ventana, private motor::Observador {
 public:
  VerTramas(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  ~VerTramas() override;
  Resultado<> entrar(const PuertaVerTramas& puerta);

 private:
  void tareaCambiada(int id) override;
  void llenarLineas();
  int canal() const;  // -1 for all
  void empezar();
  void seguir();
  void anadir(const enlace::Paso& paso);
  void podar();
  void pausar(bool si);
  void mostrarHexa(int fila);
  void copiar();

  Ui::FormaVerTramas ui_;
  Servicios s_;
  std::shared_ptr<enlace::Escucha> escucha_;
  int tarea_ = 0;                       // the task whose line is followed; 0 for none
  int canalTarea_ = -2;                 // its last channel; -2 before the first
  int canalVisto_ = -2;                 // the same, not yet shown
  int canales_ = -1;                    // number of channels in the list of lines
  qint64 vista_ = 0;                    // the last step shown
  std::map<qint64, QByteArray> bytes_;  // of the rows, by step number
  std::unique_ptr<Temporizador> pulso_;
};

}  // namespace tarvo::comm
