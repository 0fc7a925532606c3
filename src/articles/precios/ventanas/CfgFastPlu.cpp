#include "articles/precios/ventanas/CfgFastPlu.h"

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/ventanas/TablaOpciones.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

ConfigCambio ConfigCambio::de(const AjustesPrecios& ajustes) {
  const ParrillaRapida todas = ParrillaRapida::leer(ajustes.ParrillaRapida);
  ConfigCambio config;
  for (std::size_t i = 0; i < kColumnasRapidas; ++i)
    config.vistas[i] = todas.vista(static_cast<ColumnaRapida>(i));
  config.modo = leerModoIntro(ajustes.ModoIntroRapido);
  return config;
}

CfgFastPlu::CfgFastPlu(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  auto f = formulario(kTxConfigurarCambio);
  columnas_ = f.ancho(new TablaOpciones, u"columnas"_s);
  columnas_->preparar(contexto.textos, kTxColumnas, kColumnasRapidas, kTxVistas);
  anadir(columnas_->campo(r.vistas));
  f.fila(kTxAccionIntro, u"lstModo"_s, r.modo,
         {{0, t(kTxModo)}, {1, t(kTxModo + 1)}, {2, t(kTxModo + 2)}});
  f.muelle();
  acabar({500, 430}, {.textoAcepto = kTxAceptarCfg, .textoCancelo = kTxCancelarCfg});
}

Resultado<> CfgFastPlu::entrar(const PuertaCfgFastPlu& puerta) {
  TARVO_INTENTAR(editar(puerta.config));
  columnas_->enfocar(0);
  return {};
}

}  // namespace tarvo::precios
