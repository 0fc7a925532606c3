// The choices of the fast change: CfgFastPlu. Edits the shared ConfigCambio in "salida", which
// changes when the person accepts.
#pragma once

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_CfgFastPlu.h"

namespace tarvo::precios {

struct ConfigCambio {
  std::array<Vista, kColumnasRapidas> vistas{};
  ModoIntro modo = ModoIntro::PLU;
  static ConfigCambio de(const Ajustes& ajustes);
};

class CfgFastPlu final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CfgFastPlu(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void editar(const ConfigCambio& config);
  void salvar();

  Ui::CfgFastPlu ui_;
  std::shared_ptr<ConfigCambio> salida_;
};

}  // namespace tarvo::precios
