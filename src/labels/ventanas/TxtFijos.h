// TxtFijos: asks for the number of a text; the free ones can be edited.
#pragma once

#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "labels/JuegosTextos.h"
#include "labels/ventanas/Puertas.h"

namespace tarvo::labels {

class TxtFijos final : public ventanas::FichaDe<Juegos> {
 public:
  TxtFijos(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaTxtFijos& puerta);

 private:
  void escribir(int numero, const QString& texto);
  void pintar(int numero);
  Resultado<> aplicar() override;
  void aplicada() override;

  JuegosTextos motor_;
  std::optional<QString> juego_;
  ventanas::Parrilla* textos_;
  ventanas::Deshacer* deshacer_;
};

}  // namespace tarvo::labels
