// The assistant that finds out what hangs on the serial ports and at the addresses that a person
// names, and creates its groups and channels. Nothing is changed before its last page, which says
// what will be; what exists is deleted only if a person has seen it and says so.
#pragma once

#include "comm/exploracion/Aplicar.h"
#include "comm/exploracion/Exploracion.h"
#include "comm/exploracion/ventanas/Puertas.h"
#include "comm/exploracion/ventanas/RegistrarVentanas.h"
#include "core/ventanas/marco/Ventana.h"
#include "groups/Grupos.h"

class QGroupBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace tarvo::ventanas {
class Parrilla;
struct FilaViva;
}  // namespace tarvo::ventanas

namespace tarvo::exploracion {

class WizInicio final : public ventanas::Ventana {
 public:
  // Of a line of the list: waiting, under way, nothing found, something found.
  enum EstadoLinea : int { kEspera, kEnMarcha, kNada, kAlgo };
  WizInicio(ventanas::Contexto& contexto, const QString& nombre, const Servicios& servicios);
  Resultado<> entrar(const PuertaWizInicio&);

 private:
  enum class Paso { Introduccion, Explorando, Explorado, Resultados, Aplicado };

  // --- building (WizInicioPaginas.cpp)
  QWidget* montarPre();
  QWidget* montarPoll();
  QWidget* montarRes();
  QWidget* montarBotones();

  void ir(Paso paso);
  void StartPoll();
  void Cancelar();
  void atras();
  void configurar();

  void llenarPuertos();
  void explorar();
  std::vector<Acceso> elegidos() const;
  void parar();
  void acabada();
  void hallado(const Hallazgo& hallazgo);
  void pintarLinea(size_t cual);
  void latir();  // the timer `dispatch`
  void pintarAvance();
  void decirOcupadas();

  void verDetalle();  // of the current line
  QString loExplorado(int texto) const;
  bool cortada() const { return hallazgos_.size() < accesos_.size(); }

  // --- applying (WizInicioAplicar.cpp)
  bool mirarGrupos();
  void resumir();
  std::vector<ventanas::FilaViva> filasHalladas() const;
  void mostrarResultados();
  bool listarLoQueSeVa();
  QString destino(size_t hallazgo, size_t cual) const;
  QString loQueHara() const;
  QString callan(const Silencio& silencio) const;
  QString pregunta() const;
  bool sustituye() const;
  struct Creados {
    bool alguno = false, sinModelo = false;
  };
  Creados creados() const;
  QString enLista(QStringList cosas) const;
  void AplicarExploracion();
  void mostrarHecho(const Aplicado& hecho, bool sinModelo);
  QString cuentaDe(const Aplicado& hecho) const;

  bool QueryUnload() override;
  void keyPressEvent(QKeyEvent* evento) override;

  Servicios s_;
  groups::Grupos grupos_;
  Aplicador aplicador_;
  Azar azar_;
  std::unique_ptr<Exploracion> exploracion_;
  std::vector<Acceso> accesos_;
  std::vector<Hallazgo> hallazgos_;
  YaEstan yaEstan_;  // of these
  Aplicador::Sustitucion sustitucion_;
  std::optional<Aplicador::Seccion> seccion_;  // of new groups
  Paso PasoWiz_ = Paso::Introduccion;
  bool volviendo_ = false;  // stopped, to begin again
  bool parada_ = false;     // stopped, to see what was found so far
  bool porEstrenar_ = false;
  int latidos_ = 0;
  std::vector<Acceso> puertos_;
  std::unique_ptr<Temporizador> dispatch_;

  QStackedWidget* paginas_ = nullptr;
  QLabel *ocupadas_ = nullptr, *faltaOtros_ = nullptr;
  QListWidget* listaPuertos_ = nullptr;
  QPlainTextEdit *otros_ = nullptr, *hecho_ = nullptr;
  QLabel *fase_ = nullptr, *imgModem_ = nullptr, *imgVek_ = nullptr, *imgNodal_ = nullptr;
  QProgressBar* avance_ = nullptr;
  ventanas::Parrilla *lineas_ = nullptr, *hallados_ = nullptr, *seVan_ = nullptr;
  QLabel *detalle_ = nullptr, *Resumen_ = nullptr, *Consecuencia_ = nullptr, *queHara_ = nullptr,
         *rotuloSeVan_ = nullptr;
  QRadioButton *anadir_ = nullptr, *sustituir_ = nullptr;
  QPushButton *StartPoll_ = nullptr, *Cancelar_ = nullptr, *Configurar_ = nullptr,
              *Parar_ = nullptr, *Atras_ = nullptr;
};

}  // namespace tarvo::exploracion
