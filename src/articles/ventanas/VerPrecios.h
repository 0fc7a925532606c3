// The history of prices: who set what when, from which window. Of one article or of a section.
#pragma once

#include "articles/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Columna.h"
#include "ui_VerPrecios.h"

namespace tarvo::articles {

class VerPrecios final : public ventanas::Ventana {
  Q_OBJECT
 public:
  VerPrecios(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaVerPrecios& puerta);

 private:
  void filtrar();

  Ui::VerPrecios ui_;
};

// The columns of such a list over HistoriaPrecios; `conArticulo` names the article too.
std::vector<ventanas::Columna> columnasHistoria(const ventanas::Ventana& v, bool conArticulo);

}  // namespace tarvo::articles
