#include "labels/ventanas/TxtFijos.h"

#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/RejaTextos.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

TxtFijos::TxtFijos(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo)
    : FichaDe(contexto, nombre), motor_(catalogo, contexto.ajustes) {
  auto f = formulario(kTxTxtFijos);
  textos_ = f.parrilla(kTxEligeTexto, u"Textos"_s);
  acabar({520, 560});
  deshacer_ = new Deshacer(*this);
  prepararTextos(*textos_, contexto, nombre, [this](int n, const QString& s) { escribir(n, s); });
  connect(textos_, &Parrilla::activada, this, [this] { confirmar(); });
}

Resultado<> TxtFijos::entrar(const PuertaTxtFijos& puerta) {
  juego_ = puerta.juego;
  TARVO_TOMAR(auto todos, motor_.leer());
  TARVO_INTENTAR(editar(std::move(todos)));
  pintar(puerta.numero);
  textos_->setFocus();
  return {};
}

void TxtFijos::pintar(int numero) {
  mostrarTextos(*textos_, motor_, r, juego_);
  textos_->vista()->setCurrentIndex(textos_->modelo()->index(textos_->filaDe(numero), 0));
}

void TxtFijos::escribir(int numero, const QString& texto) {
  const Juegos antes = r;
  JuegosTextos::poner(r, juego_, numero, texto);
  if (r == antes) return;
  deshacer_->apuntar(contexto().textos(kTxHizoTexto, {numero}),
                     [this, antes, numero]() -> Resultado<Deshacer::Vuelto> {
                       r = antes;
                       pintar(numero);
                       return Deshacer::Vuelto();
                     });
  mostrarTextos(*textos_, motor_, r, juego_);
}

Resultado<> TxtFijos::aplicar() {
  return motor_.guardar(antes(), r);
}

void TxtFijos::aplicada() {
  const int fila = textos_->filaActual();
  entregar(fila < 0 ? 1 : static_cast<int>(textos_->clave(fila)));
}

}  // namespace tarvo::labels
