// The readers of article files: any bytes give lines, and each line a record whose values fit their
// fields, or a fault that points into it.
#include <cstdint>
#include <cstdlib>

#include "articles/importar/LineaPLU.h"
#include "articles/importar/LineaTvc.h"
#include "articles/importar/Lineas.h"

using namespace tarvo::importar;

namespace {

void exigir(bool verdad) {
  if (!verdad) std::abort();
}

bool cabe(qint64 n, qint64 mayor) {
  return n >= 0 && n <= mayor;
}

void mirarPLU(const QString& linea) {
  const auto r = leerLineaPLU(linea);
  const bool buena = linea.size() == kLineaLarga || linea.size() == kLineaCorta;
  if (!r) {
    exigir((r.error().motivo == FaltaPLU::Longitud) == !buena);
    exigir(r.error().columna >= 0 && r.error().columna + r.error().ancho <= linea.size() + 1);
    return;
  }
  exigir(buena && cabe(r->clave.seccion, 999) && cabe(r->clave.codigo, 9'999'999));
  exigir(r->nombre.size() == 20 && cabe(r->cada, 2) && cabe(r->coste, 999'999));
  exigir(cabe(r->depto, 99) && cabe(r->formato, 99));
  for (const auto& nivel : r->precios)
    for (const qint64 precio : nivel) exigir(cabe(precio, 999'999));
}

void mirarTvc(const QString& linea) {
  const RegistroTvc r = leerLineaTvc(linea);
  exigir(cabe(r.seccion, 99) && cabe(r.codigo, 9999) && cabe(r.codigoLargo, 999'999));
  exigir(r.nombre.size() <= 30 && cabe(r.coste, 999'999) && cabe(r.precio, 999'999));
  exigir(cabe(r.depto, 99) && cabe(r.inicial, 99'999'999));
  DestinoTvc destino;
  destino.unaSeccion = 1;
  destino.seccionPorTarifa = true;
  destino.secciones[7] = linea.left(2);
  const auto sitio = sitioDe(r, destino);
  exigir(!sitio || sitio->tarifa == 7);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  Lineas lineas(QByteArray(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano)));
  int leidas = 0;
  while (lineas.siguiente()) {
    exigir(lineas.numero() == ++leidas && !lineas.linea().contains(u'\n'));
    mirarPLU(lineas.linea());
    mirarTvc(lineas.linea());
  }
  exigir(lineas.leidos() >= static_cast<qint64>(tamano) || tamano == 0);
  return 0;
}
