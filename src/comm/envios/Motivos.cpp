#include "comm/envios/Motivos.h"

#include "comm/envios/TextosEnvios.h"

namespace tarvo::envios {

namespace {

using maquinas::NoCabe;

// The number of digits of a limit of nines; 0 for any other limit.
qsizetype cifrasDe(qint64 limite) {
  const QString t = QString::number(limite);
  return t.count(u'9') == t.size() ? t.size() : 0;
}

}  // namespace

QString nombreDeCampo(maquinas::CampoPLU campo, const Textos& textos) {
  return textos(kTxTituloPLU + static_cast<int>(campo));
}

QString motivoDe(const NoCabe& n, const Textos& textos) {
  const QString campo = textos(kTxCampoPLU + static_cast<int>(n.campo));
  switch (n.motivo) {
    case NoCabe::Grande:
      if (const qsizetype cifras = cifrasDe(n.limite); cifras > 0)
        return textos(kTxDemasiadasCifras, {campo, cifras});
      return textos(kTxDemasiadoGrande, {campo, n.valor, n.limite});
    case NoCabe::Pequeno:
      return n.limite == 0 ? textos(kTxNegativo, {campo})
                           : textos(kTxDemasiadoPequeno, {campo, n.valor, n.limite});
    case NoCabe::Cifras:
      return textos(kTxSoloCifras, {campo, n.valor});
    case NoCabe::Largo:
      return textos(kTxDemasiadoLargo, {campo, n.limite});
    case NoCabe::Vacio:
      return textos(kTxVacio, {campo});
    case NoCabe::Ilegible:
      return textos(kTxIlegible, {campo, n.valor});
    case NoCabe::DeOtro:
      return textos(kTxDeOtro, {campo, n.valor, Ceros(n.limite, 7)});
  }
  return {};
}

}  // namespace tarvo::envios
