// Faults on request. A fault happens by a script ("at the n-th question do X") or by chance from a
// seed; without either, a machine is perfect. Questions are counted from 1 for each machine.
#pragma once

#include <QString>
#include <array>
#include <map>
#include <optional>
#include <vector>

#include "core/tiempo/Reloj.h"

namespace tarvo::simulador {

enum class Averia {
  // of a question
  AckPerdido,        // executed, but its acknowledgement is not sent
  Sorda,             // the question is not received at all
  Nak,               // refused with a negative acknowledgement, not executed
  Err,               // VEK: answered with "ERR" and the number in `valor` (1 to 5), not executed
  Rechazo,           // NODAL: rejection (code 7), not executed
  Espera,            // NODAL: a wait frame of `valor` units before what follows
  VentaEnMedio,      // a sale is made just before the answer
  VentaDetras,       // a sale (of article `valor`) right after the answer, even a lost one
  Oscura,            // from here on nothing is received for `valor` ms (default oscuraMs)
  OtroNumero,        // answers the question about the next number
  CeroSinRespuesta,  // zeroed, but without an answer
  CeroRechazado,     // not zeroed, and reported so
  ListaSinFin,       // the list begins again and again, up to `limiteLista` answers
  CierreLimpio,      // the line is closed by the machine, in good order
  Corte,  // the line drops: `valor` 0 before anything, 1 executed but not answered, 2 half an
          // answer
  // of an answer, or of one frame of a list
  RespuestaPerdida,
  RespuestaTardia,   // held until the next question has been acknowledged
  RespuestaDoble,    // sent twice, with two sequence numbers
  MismoNumero,       // sent twice with the same sequence number
  RespuestaPartida,  // in three pieces with pauses between
  RespuestaPegada,   // in one piece with the acknowledgement before it
  BitsCambiados,     // one to three bits of it are flipped
  ControlMalo,       // its check is wrong
  RegistroCorto,     // its data are cut to `valor` characters (default half); the frame is good
  Basura,            // `valor` bytes of noise (default 70000) in its place
  OtroCodigo,        // carries the code of another question
  RespuestaLenta,    // comes `valor` ms later (default 1 to 9 s beyond TimeOut), others in between
  // of a question
  AckLento,  // no byte for `valor` ms (default 0.3 to 5.5 s beyond TimeACK): it is busy; questions
             // in the meantime are executed and answered afterwards, each up to 1 s later
  CeroIncumplido,  // not zeroed, but confirmed; only by script
  Total
};
inline constexpr std::size_t kAverias = static_cast<std::size_t>(Averia::Total);

QString nombreAveria(Averia averia);  // "ackPerdido", as configuration files write it
std::optional<Averia> averiaDeNombre(const QString& nombre);

struct Paso {
  Averia averia = Averia::Total;
  int trama = 0;    // the n-th question, or the n-th of that `codigo`; 0 each one
  int codigo = -1;  // only questions of this code
  int mensaje = 0;  // for faults of an answer: which frame of a list, from 0
  int valor = -1;   // argument of the fault; -1 for its default
};

struct Fallos {
  std::array<double, kAverias> probabilidad{};
  std::vector<Paso> guion;
  int conexionesRechazadas = 0;  // how many openings are refused first
  int oscuraMs = 20000;
  int esperaMs = 500;  // how long a machine takes after announcing a wait
  int limiteLista = 2000;
};

// The faults of one question or one answer.
class Sucesos {
 public:
  bool tiene(Averia averia) const { return valor_.contains(averia); }
  int valor(Averia averia, int omision) const;
  void poner(Averia averia, int valor = -1) { valor_[averia] = valor; }
  void quitar(Averia averia) { valor_.erase(averia); }
  // Refused if the other was, and only then.
  void negarComo(const Sucesos& otros) {
    for (const Averia a : {Averia::Err, Averia::Rechazo, Averia::Nak})
      otros.tiene(a) ? poner(a, otros.valor(a, -1)) : quitar(a);
  }

 private:
  std::map<Averia, int> valor_;
};

// Decides, question by question. The same seed and the same questions give the same faults.
class Percances {
 public:
  Percances(Fallos fallos, quint64 semilla);
  Sucesos peticion(int codigo);
  // For the index-th frame of the answer to the last counted question.
  Sucesos mensaje(int indice);
  bool rechazaConexion();

  const Fallos& fallos() const { return fallos_; }
  void cambiar(Fallos fallos) { fallos_ = std::move(fallos); }
  Azar& azar() { return azar_; }
  int tramas() const { return tramas_; }

 private:
  bool toca(const Paso& paso) const;
  void sortear(Sucesos& sucesos, Averia primera, Averia ultima);

  Fallos fallos_;
  Azar azar_;
  int tramas_ = 0;
  int codigo_ = -1;
  std::map<int, int> porCodigo_;
};

}  // namespace tarvo::simulador
