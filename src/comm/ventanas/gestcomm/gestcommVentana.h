// The window of communications: the queue, the channels, the menus that queue tasks, the session.
// It decides nothing: every command goes to the engine, and everything displayed comes from it.
#pragma once

#include <map>
#include <set>

#include "comm/ventanas/Servicios.h"
#include "comm/ventanas/gestcomm/MenusComm.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaGestcomm.h"

namespace tarvo::comm {

class PanelesCanales;

class gestcommVentana final : public ventanas::Ventana, private motor::Observador {
 public:
  gestcommVentana(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  ~gestcommVentana() override;
  Resultado<> entrar(const PuertaGestcomm& puerta);
  bool QueryUnload() override;

 private:
  // gestcommVentana.cpp: display. Changes are collected, and displayed at most ten times a second.
  void colaCambiada() override;
  void tareaCambiada(int id) override;
  void canalCambiado(int canal) override;
  void acabado() override;
  void ensuciar();
  void refrescar();
  void ponerCola();
  void ponerFila(const motor::VistaTarea& tarea);
  std::vector<motor::VistaTarea> visibles() const;
  std::optional<motor::VistaTarea> tareaVista(int id) const;
  void ponerCanales();
  void ponerModo();
  void ponerProblema();
  void ponerOrdenes();
  void ponerMenus();
  int canalElegido() const;
  void irAGrupo(int grupo);

  // gestcommOrdenes.cpp: the operator's commands
  void conectarOrdenes();
  void ordenar(const std::set<int>& estados, void (motor::gestcomm::*orden)(int));
  int tareaElegida();
  std::vector<int> tareasElegidas();
  struct Balance;
  void contarSeguida(int id, Balance& balance) const;
  QString porQueNo(const Balance& balance) const;
  void decirOrden(const Balance& balance);
  void cambiarModo(bool automatico);
  void reintentarTodo();
  void reponer();
  void elegirNuevas(const std::set<int>& antes);
  void diagnosticar();
  void verTramas();
  void verEstado();
  void pedirGrupos(const EntradaMenu& entrada);
  bool canalesOcupados() const;
  void terminar();

  // gestcommSesion.cpp: the session
  void conectarSesion();
  void ponerSesion();
  void LaSesion(int nuevo);
  void cancelarSesion();
  void cerrarSesion();
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  void changeEvent(QEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void showEvent(QShowEvent* evento) override;
  void ponerPalabras();
  void luegoPalabras();
  void keyPressEvent(QKeyEvent* evento) override;

  Ui::FormaGestcomm ui_;
  Servicios s_;
  std::shared_ptr<enlace::Escucha> escucha_;  // held so that the steps before a failure are stored
  PanelesCanales* paneles_ = nullptr;
  std::map<int, motor::VistaTarea> acabadas_;  // successful ones with their results, by number
  std::set<int> sucias_;
  std::vector<size_t> tandas_;  // how many tasks each removal took, the latest last
  bool colaSucia_ = true, canalesSucios_ = true;
  int ultimaVista_ = 0;  // the last task displayed
  bool terminarAlAcabar_ = false;
  std::unique_ptr<Temporizador> refresco_, parpadeo_;
  std::unique_ptr<Temporizador> mirarSesion_;  // another window in front may close the session
};

}  // namespace tarvo::comm
