// Four ports with nothing on them, explored on a clock that moves only by the waits: the sum of
// the waits, compared with the time taken.
#include "comm/exploracion/Exploracion.h"
#include "Razones.h"
#include "enlace/CableMemoria.h"

namespace tarvo::banco {
namespace {

constexpr int kPuertos = 4;
constexpr int kMsModem = 1000 + 500, kMsSonda = 500, kEstaciones = 21, kNodos = 20;
constexpr double kSuma = kPuertos * (kMsModem + kMsSonda * (kEstaciones + kNodos));
constexpr double kDeMas = 0.05;

double cuatroPuertos() {
  RelojVirtual reloj{Fecha::deDias(46000.5)};
  Azar azar{7};
  pruebas::FabricaMemoria fabrica{reloj};
  exploracion::Exploracion e{reloj, azar, fabrica, 33};
  bool acabada = false;
  e.alAcabar = [&] { acabada = true; };
  const qint64 antes = reloj.monotono();
  e.empezar(std::vector<exploracion::Acceso>(kPuertos));
  while (!acabada && reloj.siguiente()) {
  }
  const auto tardo = static_cast<double>(reloj.monotono() - antes);
  return acabada && e.hallazgos().size() == kPuertos ? (1 + kDeMas) * kSuma / tardo : 0;
}

const AltaMedida kMedida("exploracion.cuatro_puertos", 1.0, cuatroPuertos);

}  // namespace
}  // namespace tarvo::banco
