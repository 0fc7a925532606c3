#include "labels/ventanas/RejaTextos.h"

#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kLetrasTexto = 40;  // characters of a text

}  // namespace

void prepararTextos(Parrilla& reja, Contexto& contexto, const QString& nombre,
                    std::function<void(int, const QString&)> escribir) {
  reja.preparar(contexto, nombre,
                {{.titulo = kTxColumnaNumero, .campo = u"numero"_s, .clase = Clase::Entero},
                 {.titulo = kTxColumnaTexto,
                  .campo = u"texto"_s,
                  .ancho = 300,
                  .editar = [&contexto, escribir = std::move(escribir)](
                                qint64 n, const QString& s) -> Resultado<> {
                    const int numero = static_cast<int>(n);
                    if (numero < kPrimerTextoLibre)
                      return fallo(Fallo::Restriccion, contexto.textos(kTxTextoFijo));
                    escribir(numero, s);
                    return {};
                  },
                  .largo = kLetrasTexto}});
  reja.ponerBusca(false);
  reja.ponerPie(false);
  reja.ponerUnaSola(true);
  reja.vivas();
}

void mostrarTextos(Parrilla& reja, const JuegosTextos& motor, const Juegos& en,
                   const std::optional<QString>& juego) {
  std::vector<FilaViva> filas;
  for (int n = 1; n <= kUltimoTexto; ++n) filas.push_back({n, {n, motor.texto(en, juego, n)}});
  reja.vivas().poner(std::move(filas));
}

}  // namespace tarvo::labels
