#include "articles/precios/ventanas/CfgFastPlu.h"

#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"

namespace tarvo::precios {

ConfigCambio ConfigCambio::de(const Ajustes& ajustes) {
  const ParrillaRapida todas = ParrillaRapida::leer(ajustes.ParrillaRapida);
  ConfigCambio config;
  for (std::size_t i = 0; i < kColumnasRapidas; ++i)
    config.vistas[i] = todas.vista(static_cast<ColumnaRapida>(i));
  config.modo = leerModoIntro(ajustes.ModoIntroRapido);
  return config;
}

CfgFastPlu::CfgFastPlu(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  ui_.columnas->preparar(contexto.textos, kTxColumnas, kColumnasRapidas, kTxVistas);
  enlazar();
  for (int i = 0; i < 3; ++i) ui_.lstModo->addItem(t(kTxModo + i));
  connect(ui_.Acepto, &QPushButton::clicked, this, &CfgFastPlu::salvar);
  connect(ui_.Cancelo, &QPushButton::clicked, this, &CfgFastPlu::rechazar);
}

Resultado<> CfgFastPlu::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<ConfigCambio>(argumentos);
  editar(salida_ ? *salida_ : ConfigCambio::de(contexto().ajustes));
  return {};
}

void CfgFastPlu::editar(const ConfigCambio& config) {
  for (int i = 0; i < kColumnasRapidas; ++i)
    ui_.columnas->poner(i, static_cast<int>(config.vistas[static_cast<std::size_t>(i)]));
  ui_.lstModo->setCurrentIndex(static_cast<int>(config.modo));
  ui_.columnas->enfocar(0);
}

void CfgFastPlu::salvar() {
  if (salida_) {
    for (int i = 0; i < kColumnasRapidas; ++i)
      salida_->vistas[static_cast<std::size_t>(i)] = static_cast<Vista>(ui_.columnas->valor(i));
    salida_->modo = leerModoIntro(ui_.lstModo->currentIndex());
  }
  aceptar();
}

}  // namespace tarvo::precios
