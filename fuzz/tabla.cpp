// The readers of tables: any bytes give a table or none, as a text, an .xlsx and an .ods; its rows
// have rising line numbers, and a value read as a number is one.
#include <cstdint>
#include <cstdlib>

#include "articles/importar/Campos.h"
#include "articles/importar/Csv.h"
#include "articles/importar/Hoja.h"
#include "articles/importar/Numeros.h"
#include "textos/TextosDePrueba.h"

using namespace tarvo::importar;

namespace {

void exigir(bool verdad) {
  if (!verdad) std::abort();
}

void mirarNumero(const QString& celda) {
  for (const Signo signo : {Signo::Coma, Signo::Punto}) {
    const auto n = leerDecimal(celda, signo);
    bool bien = true;
    if (n) n->toDouble(&bien);
    exigir(bien);
  }
  if (const auto signo = signoDe(celda); signo && celda.size() < 10 && !celda.contains(u'-'))
    exigir(celda.contains(*signo == Signo::Coma ? u',' : u'.') || celda.count(u',') > 1 ||
           celda.count(u'.') > 1);
}

void mirar(const Tabla& t) {
  for (int f = 0; f < t.filas(); ++f) {
    exigir(f == 0 || t.linea(f) > t.linea(f - 1));
    bool algo = false;
    for (int c = 0; c < t.columnas(); ++c) {
      algo = algo || !t.celda(f, c).trimmed().isEmpty();
      mirarNumero(t.celda(f, c));
    }
    exigir(algo);  // empty rows are gone
  }
  const Titulos titulos = emparejar(t, tarvo::textosDePrueba());
  exigir(titulos.columnas.size() == static_cast<size_t>(t.columnas()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  if (const auto hoja = leerXlsx(bytes)) mirar(hoja->tabla);
  if (const auto hoja = leerOds(bytes)) mirar(hoja->tabla);
  const QString texto = descodificarComo(bytes, averiguarCodificacion(bytes));
  mirar(partirCsv(texto, averiguarSeparador(texto)));
  return 0;
}
