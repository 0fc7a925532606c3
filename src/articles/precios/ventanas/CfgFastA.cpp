#include "articles/precios/ventanas/CfgFastA.h"

#include "articles/precios/ventanas/TablaOpciones.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

CfgFastA::CfgFastA(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  auto f = formulario(kTxConfigurarAlta);
  auto* politicas = f.ancho(new TablaOpciones, u"politicas"_s);
  politicas->preparar(contexto.textos, kTxCamposFijos, kCamposFijos, kTxPoliticas);
  prefijo_ = &f.fila(kTxPrefijoCodigos, u"txPrefijo"_s, texto(r.prefijo));
  precios_ = &f.fila(ventanas::kTxPreciosPorTarifa, u"txPrecios"_s,
                     numero(r.precios, 1, articles::kNiveles).con(t(kTxPreciosIncorrectos)));
  tarifas_ = &f.fila(ventanas::kTxTarifas, u"txTarifas"_s,
                     numero(r.tarifas, 1, articles::kTarifas).con(t(kTxTarifasIncorrectas)));
  anadir(politicas->campo(r.politicas));
  f.muelle();
  ponerFrase(0, false);
  acabar({560, 400}, {.textoAcepto = ventanas::kTxAceptar, .textoCancelo = ventanas::kTxCancelar});
}

std::vector<CfgFastA::FaltaCampo> CfgFastA::comprobar() {
  using enum FormaAlta::Mal;
  const auto forma = FormaAlta::de(r.prefijo, r.precios, r.tarifas);
  if (forma) return {};
  switch (forma.error()) {
    case PrefijoNoNumerico:
      return {{prefijo_, t(kTxPrefijoNoNumerico)}};
    case PrefijoLargo:
      return {{prefijo_, t(kTxPrefijoLargo)}};
    case Precios:
      return {{precios_, t(kTxPreciosIncorrectos)}};
    case Tarifas:
      break;
  }
  return {{tarifas_, t(kTxTarifasIncorrectas)}};
}

}  // namespace tarvo::precios
