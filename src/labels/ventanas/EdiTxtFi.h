// EdiTxtFi: asks for a text set; sets and their texts are edited on a copy of all of them.
#pragma once

#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "labels/JuegosTextos.h"
#include "labels/ventanas/Puertas.h"

namespace tarvo::labels {

class EdiTxtFi final : public ventanas::FichaDe<Juegos> {
 public:
  EdiTxtFi(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaEdiTxtFi& puerta);

 private:
  std::optional<QString> elegido() const;
  void pintar(const std::optional<QString>& cual);
  void crear();
  void borrar();
  void escribir(int numero, const QString& texto);
  void apuntar(const QString& que, const Juegos& antes, const std::optional<QString>& cual);
  Resultado<> aplicar() override;
  void aplicada() override;

  JuegosTextos motor_;
  std::vector<std::optional<QString>> orden_;  // the rows of the list; the first one has no set
  QLineEdit* nuevo_;
  QPushButton* borrar_;
  ventanas::Parrilla *lista_, *textos_;
  ventanas::Deshacer* deshacer_;
  bool pintando_ = false;
};

}  // namespace tarvo::labels
