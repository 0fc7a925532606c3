// Tries the connection of a group: opens its access, asks each machine something that changes
// nothing, and closes it. Scales are asked which of them are there, registers for their grand total
// one after the other; nothing else is ever sent.
//
// The engine goes first. A test doesn't begin while a task or a process is under way, and drops its
// line at once when one begins, so that the task finds the access free. A register's list that
// breaks off is recorded as one of the engine's own would be: its late lines could be taken for
// those of the next list.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <vector>

#include "comm/conexion/GrupoProbado.h"
#include "comm/enlace/comtvIP.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Duda.h"
#include "core/ajustes/Ajustes.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::conexion {

// What is known of the access or of a machine. The texts follow this order.
enum class Que : int {
  Pendiente,
  Preguntando,
  Abierto,         // the access
  Contesta,        // a machine
  Sobra,           // a scale that answers and isn't in the group
  NoEsta,          // its group answers, and hasn't found it
  NoContesta,      // not a byte came
  AMedias,         // it received the question, and didn't answer it in whole
  Ruido,           // bytes came that are no frame of its protocol
  Rechaza,         // it answers that it can't for now
  Cortado,         // the line was lost
  NoAbre,          // the access
  SinDireccion,    // a register without an address
  MismaDireccion,  // a register with the address of an earlier one
  SinProbar,
};

struct Contestacion {
  static constexpr int kAcceso = -1;
  int sitio = kAcceso;  // of a machine its place; a scale's is its number
  Que que = Que::Pendiente;
  int error = 0;  // docs/protocolos.md
  int ms = -1;    // from the question to the first answer; -1 without one
  int modelo = 0;
  std::optional<int> direccion = {};
  bool operator==(const Contestacion&) const = default;
};

// The engines beside which a test runs.
struct Servicios {
  motor::gestcomm& motor;
  enlace::Enlaces& enlaces;
  dao::Database& db;
};

class Prueba final : private enlace::ClienteEnlace, private motor::Observador {
 public:
  // REQUIRES that the references outlive it.
  Prueba(const Servicios& s, const Ajustes& ajustes, Reloj& reloj, const Textos& textos);
  ~Prueba() override;

  // Both from the event loop, and both may be empty. A handler may destroy nothing of this.
  std::function<void()> alCambiar;  // of contestaciones()
  std::function<void()> alAcabar;

  // Ocupado, with a sentence, while the engine works or another test runs; Restriccion if no
  // channel serves the access. Otherwise alAcabar follows, after a bounded time.
  Resultado<> empezar(GrupoProbado grupo);
  // The line is closed first. Without a test it does nothing.
  void parar();
  bool enMarcha() const { return estado_ != Estado::Reposo; }

  // How the last one ended: whole, stopped, or dropped for the engine; or with an error of the
  // store.
  enum class Fin { Entera, Parada, Cedida };
  Fin fin() const { return fin_; }
  const std::optional<Error>& error() const { return error_; }
  const GrupoProbado& grupo() const { return grupo_; }
  // The access, then the machines by their places, then those that aren't in the group.
  const std::vector<Contestacion>& contestaciones() const { return filas_; }

 private:
  enum class Estado { Reposo, Abriendo, Preguntando, Cerrando };

  // --- the engine (PruebaLinea.cpp)
  Resultado<> libre() const;
  Resultado<int> elegirCanal() const;
  bool canalLibre(int canal) const;
  void mirarMotor();
  void colaCambiada() override { mirarMotor(); }
  void tareaCambiada(int) override { mirarMotor(); }
  void canalCambiado(int) override { mirarMotor(); }
  Resultado<> abrir(int canal);
  void cerrar();
  void soltar();
  void acabar(Fin fin);

  // --- the dialogue (Prueba.cpp)
  void siguiente();
  void preguntarBalanzas();
  void preguntarCaja();
  bool anotarLista();
  void contestan(const QByteArray& datos);
  void registro(int codigo, const QByteArray& datos);
  void fallada(int error);
  void listo(Que que, int error = 0);
  void todas(Que que, int error = 0, int ms = -1);
  bool balanzas() const { return grupo_.tipo != TipoGrupo::Registradoras; }
  int msDesde() const { return static_cast<int>(e_.reloj.monotono() - desde_); }
  void cambiada();

  void Abrir_Evento(int canal, int error) override;
  void Cerrar_Evento(int canal, int error) override;
  void EnvioVEK_Evento(int canal, int error, int addr, int codigo,
                       const QByteArray& datos) override;
  void EnvioNDL_Evento(int canal, int error) override;
  void ReciboNDL_Evento(int canal, int error, int codigo, const QByteArray& datos) override;
  void ReciboVEK_Evento(int canal, int error, int addr, int codigo,
                        const QByteArray& datos) override;
  void CD_Evento(int, bool) override {}
  bool encaja(int canal, int addr, int codigo, const QByteArray& datos) override;

  struct Entorno {
    motor::gestcomm& motor;
    enlace::Enlaces& enlaces;
    dao::Database& db;
    const Ajustes& ajustes;
    Reloj& reloj;
    const Textos& textos;
  };
  const Entorno e_;
  GrupoProbado grupo_;
  Estado estado_ = Estado::Reposo;
  Fin fin_ = Fin::Entera;
  std::optional<Error> error_;
  std::vector<Contestacion> filas_;
  std::set<int> habia_;  // the tasks in the queue at the start
  int canal_ = -1;
  size_t actual_ = 0;                        // the row being asked; 0 for none
  qint64 desde_ = 0, oidos_ = 0;             // when it was asked, and what had come until then
  int registros_ = 0;                        // of its list
  int ms_ = -1;                              // of its first record
  std::optional<tareas::NotaDeLista> nota_;  // on disk because of this test
  std::unique_ptr<Temporizador> avisar_;
  bool acabada_ = false;  // alAcabar is due
};

}  // namespace tarvo::conexion
