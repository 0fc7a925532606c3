#include "core/ventanas/edicion/Tecleado.h"

#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::ventanas {

namespace {

constexpr int kPorPeso = 0;  // the kind of quantity with decimals
constexpr int kDecimalesTanto = 2;

Resultado<> claro(const Contexto& c, const QString& texto, const std::optional<DosLecturas>& dos,
                  bool sobran, int caben) {
  const QString dicho = texto.trimmed();
  if (dos)
    return fallo(Fallo::Formato, c.textos(kTxDeDosModos, {dicho, dos->entera, dos->decimal}));
  if (sobran) return fallo(Fallo::Formato, c.textos(kTxSobranDecimales, {dicho, caben}));
  return {};
}

}  // namespace

Resultado<> importeClaro(const Contexto& c, const QString& texto, int moneda) {
  return claro(c, texto, LeidoDeDosModos(c.ajustes, texto, moneda),
               SobranDecimales(c.ajustes, texto, moneda), DecimalesMoneda(c.ajustes, moneda));
}

Resultado<> tantoClaro(const Contexto& c, const QString& texto) {
  return claro(c, texto, LeidoDeDosModos(Idioma::Espanol, texto, kPorPeso), false, 0);
}

Resultado<> centesimasClaras(const Contexto& c, const QString& texto) {
  return claro(c, texto, std::nullopt, SobranCentesimas(texto), kDecimalesTanto);
}

Resultado<> cantidadClara(const Contexto& c, const QString& texto, int cada) {
  return claro(c, texto, LeidoDeDosModos(c.ajustes.idioma, texto, cada),
               SobranDecimales(c.ajustes.idioma, texto, cada), DecimalesCantidad(cada));
}

}  // namespace tarvo::ventanas
