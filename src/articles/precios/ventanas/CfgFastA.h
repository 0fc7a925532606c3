// The choices of the fast entry: CfgFastA. Edits the shared ConfigAlta in "salida", which changes
// when the person accepts.
#pragma once

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_CfgFastA.h"

namespace tarvo::precios {

struct ConfigAlta {
  std::array<Politica, kCamposFijos> politicas{};
  FormaAlta forma;
};

class CfgFastA final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CfgFastA(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void editar(const ConfigAlta& config);
  void salvar();
  void mal(FormaAlta::Mal que);

  Ui::CfgFastA ui_;
  std::shared_ptr<ConfigAlta> salida_;
};

}  // namespace tarvo::precios
