#pragma once

#include <map>

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaVerTramas.h"

namespace tarvo::comm {

// The frames of a line as they pass, in bytes and in fields.
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
  int tarea_ = 0;                       // whose line is followed; 0 for none
  int canalTarea_ = -2;                 // the channel that it had last; -2 before the first
  int canalVisto_ = -2;                 // the same, of what isn't shown yet
  int canales_ = -1;                    // how many the list of lines shows
  qint64 vista_ = 0;                    // the last step shown
  std::map<qint64, QByteArray> bytes_;  // of the rows, by their number
  std::unique_ptr<Temporizador> pulso_;
};

}  // namespace tarvo::comm
