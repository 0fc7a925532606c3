// What a line may answer to the exploration. The first byte says whether a modem is tried; then
// each piece has its length before it, and a length of 0 lets the time pass to the next wait's end.
// It must end in the time of all waits, send nothing but its short frames, and make no group of
// what can't be one.
#include <cstdint>
#include <cstdlib>

#include "comm/exploracion/Sondeo.h"

using namespace tarvo;
using namespace tarvo::exploracion;

namespace {

void exigir(bool condicion) {
  if (!condicion) std::abort();
}

void exigirCabal(const Hallazgo& h) {
  const bool balanzas = h.resultado == ResultadoCanal::Vek || h.resultado == ResultadoCanal::Nodal;
  exigir(balanzas == !h.grupos.empty() && h.grupos.size() <= kUltimaSonda + 1);
  for (size_t i = 0; i < h.grupos.size(); ++i) {
    exigir(h.grupos[i].balanzas.size() < 100);
    exigir(i == 0 || h.grupos[i].estacion > h.grupos[i - 1].estacion);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  if (tamano == 0) return 0;
  constexpr int kMsTodas = 60000;
  RelojVirtual reloj(Fecha::deDias(46000));
  Azar azar(1);
  int acabado = 0;
  Sondeo sondeo({.reloj = reloj,
                 .azar = azar,
                 .nodoPropio = 0,
                 .enviar = [](const QByteArray& bytes) { exigir(bytes.size() <= 16); },
                 .alAcabar = [&] { ++acabado; }});
  const qint64 antes = reloj.monotono();
  sondeo.empezar((datos[0] & 1) != 0);
  for (size_t i = 1; sondeo.fase() != Sondeo::Fase::Fin;) {
    const size_t n = i < tamano ? std::min<size_t>(datos[i], tamano - i - 1) : 0;
    if (n > 0)
      sondeo.recibir(
          QByteArray(reinterpret_cast<const char*>(datos + i + 1), static_cast<qsizetype>(n)));
    else
      exigir(reloj.siguiente());
    i += n + 1;
  }
  exigir(acabado == 1 && reloj.monotono() - antes <= kMsTodas);
  exigirCabal(sondeo.hallazgo());
  return 0;
}
