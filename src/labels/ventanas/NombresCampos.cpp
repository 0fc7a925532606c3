#include "labels/ventanas/NombresCampos.h"

#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

QString nombreDeCampo(const Textos& t, const CampoEtiqueta& c, const LectorTextos& textos) {
  const QString nombre = t(kTxTipoCampo + static_cast<int>(c.tipo) - 1);
  if (c.tipo == TipoCampo::LineaTexto) return nombre + u": "_s + textos(c.Ntxt).simplified();
  if (c.tipo == TipoCampo::RazonSocial) return nombre + u' ' + QString::number(c.NmL);
  return nombre;
}

QString decirTropiezo(const Textos& t, const Formato& formato, const Tropiezo& tropiezo,
                      const LectorTextos& textos) {
  const QString suyo = nombreDeCampo(t, formato.campos[tropiezo.campo], textos);
  const QString otro = nombreDeCampo(t, formato.campos[tropiezo.otro], textos);
  switch (tropiezo.que) {
    case Tropiezo::Que::Cortado:
      return t(kTxSeCorta, {suyo, tropiezo.letras});
    case Tropiezo::Que::Encima:
      return t(kTxSePisa, {suyo, otro});
    case Tropiezo::Que::SinBarras:
      return t(kTxSinBarras, {suyo});
    default:
      return t(kTxSeSale, {suyo});
  }
}

}  // namespace tarvo::labels
