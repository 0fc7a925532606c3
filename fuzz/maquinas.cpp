// All readers of records over arbitrary bytes: they give values within their limits, or refuse.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "comm/maquinas/Articulo.h"
#include "comm/maquinas/Balanzas.h"
#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Letras.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"

namespace {

using namespace tarvo;
using namespace tarvo::maquinas;

void exigir(bool cierto) {
  if (!cierto) std::abort();
}

template <class T>
void usar(const Leido<T>& r) {
  exigir(r.has_value() || r.error().donde >= 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t tamano) {
  const QByteArrayView d(bytes, static_cast<qsizetype>(tamano));
  for (const Rigor rigor : {Rigor::Estricto, Rigor::Tolerante}) {
    usar(vek::leerArticulo(d, rigor));
    usar(vek::leerGranTotal(d, TipoGrupo::Balanzas, rigor));
    usar(vek::leerGranTotal(d, TipoGrupo::Birch, rigor));
    usar(vek::leerOperador(d, rigor));
    usar(vek::leerDepartamento(d, rigor));
    usar(vek::leerOperadorHora(d, rigor));
    usar(nodal::leerArticulos(d, rigor));
    usar(nodal::leerGranTotal(d, rigor));
    usar(nodal::leerOperadores(d, rigor));
    usar(nodal::leerDepartamentos(d, rigor));
    usar(nodal::leerOperadoresHoras(d, rigor));
    usar(nodal::leerPedido(d, rigor));
    usar(caja::leerArticulo(d, rigor));
    usar(caja::leerGranTotal(d, rigor));
    usar(caja::leerDepartamento(d, rigor));
  }
  const auto estan = leerBalanzas(d);
  exigir(!estan || (static_cast<qsizetype>(estan->size()) == d.size() && !estan->empty()));
  caja::finDeLista(caja::kArticulos, d);
  caja::finDeLista(caja::kTotales, d);
  const auto ficha = leerFicha(d);
  usar(ficha);
  exigir(!ficha || (codigoDeFicha(d) == ficha->codigo && diferencias(*ficha, *ficha).empty()));
  exigir(mismaFicha(d, d) == ficha.has_value());
  mismosPrecios(d, d.first(std::min<qsizetype>(d.size(), 25)));
  // Any result can be shown.
  for (const TipoGrupo tipo : todosLos<TipoGrupo>())
    exigir(textoDeBalanza(tipo, d).size() == d.size());
  const QString texto = QString::fromUtf8(d);
  for (const TipoGrupo tipo : todosLos<TipoGrupo>())
    exigir(escribirLetras(tipo, texto, 20).bytes.size() <= 20);
  for (const Rigor rigor : {Rigor::Estricto, Rigor::Tolerante}) {
    const auto lineas = vek::leerLineas(d, rigor);
    usar(lineas);
    // A further question requires progress.
    if (lineas) exigir(lineas->fin || !lineas->lineas.empty());
  }
  for (int inicio = -1; inicio < 4; ++inicio)
    CampoNumerico(d, inicio, static_cast<int>(tamano) - inicio);
  return 0;
}
