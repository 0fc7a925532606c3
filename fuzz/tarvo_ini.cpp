// Any bytes as TARVO.INI: settings read and written once come back the same.
#include <cstdint>
#include <cstdlib>

#include "app/AjustesSalas.h"
#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  using namespace tarvo;
  const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  Ajustes primero(QStringLiteral("/no/hay"), Idioma::Espanol, app::ajustesDeLasSalas());
  primero.leer(ficheros::descodificar(bytes));
  const QString escrito = primero.escribir();
  Ajustes segundo(QStringLiteral("/no/hay"), Idioma::Espanol, app::ajustesDeLasSalas());
  segundo.leer(ficheros::descodificar(ficheros::codificar(escrito)));
  Ajustes tercero(QStringLiteral("/no/hay"), Idioma::Espanol, app::ajustesDeLasSalas());
  tercero.leer(segundo.escribir());
  if (tercero.escribir() != segundo.escribir()) std::abort();
  return 0;
}
