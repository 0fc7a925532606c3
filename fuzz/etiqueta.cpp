// A label format and a file of letters over arbitrary bytes: what is read can be written, placed
// and drawn, and reads the same again.
#include <cstdint>
#include <cstdlib>

#include "labels/Colocacion.h"
#include "labels/Muestra.h"

namespace {

using namespace tarvo::labels;

void exigir(bool cierto) {
  if (!cierto) std::abort();
}

void usar(Formato f, const FuenteImpresora& fuente) {
  f.recortar();
  const auto texto = f.texto();
  exigir(texto.has_value());
  const auto otra = leerFormato(*texto);
  exigir(otra && otra->formato.texto() == texto);
  const LectorTextos textos = [](int n) { return QString(n, u'€'); };
  Ejemplo ejemplo;
  ejemplo.textos.fill(QStringLiteral("Ñandú 1234567890123456789012345"));
  const Impresion salida = imprimir(f, ejemplo, textos, fuente);
  exigir(salida.campos.size() == f.campos.size());
  std::vector<size_t> todos;
  for (size_t i = 0; i < f.campos.size(); ++i) {
    mover(f.campos[i], {500, 500});
    estirar(f.campos[i], {-500, 500});
    todos.push_back(i);
  }
  alinear(f, todos, Lado::Medio, textos);
  for (CampoEtiqueta& c : f.campos) mover(c, {500, 500});
  exigir(!f.texto() || leerFormato(*f.texto()).has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t tamano) {
  const QByteArray d(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(tamano));
  const auto fuente = FuenteImpresora::deBytes(d);
  exigir(!fuente || d.size() == FuenteImpresora::kTamano);
  if (fuente)
    for (int f = 0; f < kFuentes; ++f)
      for (const int codigo : {-1, 0, 31, 32, 162, 163, 70000})
        fuente->negro(f, codigo, kMedidas[static_cast<size_t>(f)].ancho - 1,
                      kMedidas[static_cast<size_t>(f)].alto - 1);
  if (const auto leido = leerFormato(QString::fromUtf8(d)))
    usar(leido->formato, fuente.value_or(FuenteImpresora()));
  return 0;
}
