#pragma once

#include <array>
#include <set>

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "ui_FormaEstadoEnvio.h"

namespace tarvo::comm {

// The articles of the catalogue that a group holds, one by one. From here the user sends the
// missing ones, and asks the scales for their data of an article.
class EstadoEnvio final : public ventanas::Ventana, private motor::Observador {
 public:
  EstadoEnvio(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  ~EstadoEnvio() override;
  Resultado<> entrar(const PuertaEstadoEnvio& puerta);

 private:
  using Estados = std::vector<envios::EstadoArticulo>;
  void montar();
  Resultado<> llenarGrupos(int elegido);
  int grupo() const;
  void calcular();
  void llenar(Estados estados);
  void contar(const Estados& estados);
  void filtrar();
  void enviar();
  void decirEnvio(const QString& como);
  void pedir();
  void mostrarFicha();
  std::vector<qint64> elegidos();
  bool esSuya(const motor::VistaTarea& t) const;
  std::vector<motor::VistaTarea> suyas() const;
  void parar();
  void mirarTareas();
  void probarDeNuevo();
  void colaCambiada() override;
  void tareaCambiada(int id) override;

  Ui::FormaEstadoEnvio ui_;
  Servicios s_;
  std::optional<envios::Destino> destino_;
  bool enMarcha_ = false, huboTarea_ = false;  // a task of the group about its articles is queued
  bool llena_ = false;                         // the list has its table
  std::set<int> parando_;  // tasks to be removed as soon as their opening has ended
  Fecha otraVez_;          // time of the next try of a failed task
  std::unique_ptr<Temporizador> despues_, mirada_, reintento_;
  ventanas::Aparte pregunta_;
  QString fuera_;    // what the last sending leaves out
  QString enviado_;  // the notice shown while a sending is under way
};

}  // namespace tarvo::comm
