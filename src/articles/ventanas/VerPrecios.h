// VerPrecios: the history of the prices of an article or of a section: the time, user and window of
// each change, and both prices.
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

// The columns of such a list over HistoriaPrecios; `conArticulo` adds those of the article.
std::vector<ventanas::Columna> columnasHistoria(const ventanas::Ventana& v, bool conArticulo);

}  // namespace tarvo::articles
