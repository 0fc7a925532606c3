#include "articles/importar/FilaArticulo.h"
#include "articles/importar/TextosImportar.h"
#include "core/dinero/Dinero.h"

namespace tarvo::importar {

namespace {

QString primera(int numero, const Textos& t) {
  return t(numero).section(u'|', 0, 0);
}

}  // namespace

QString verCampo(Campo campo, const articles::Articulo& a, const Ajustes& ajustes,
                 const Textos& t) {
  const auto importe = [&](qint64 n) {
    return VerImporte(ajustes, n, ajustes.MonedaNativa != 0 ? 1 : 0);
  };
  switch (campo) {
    case Campo::Seccion:
      return Ceros(a.clave.seccion, 3);
    case Campo::Codigo:
      return Ceros(a.clave.codigo, 7);
    case Campo::Nombre:
      return a.nombre;
    case Campo::Cada:
      return primera(kTxUnidades + a.cada, t);
    case Campo::Modificable:
      return primera(kTxSiNo + (a.modificable ? 0 : 1), t);
    case Campo::Minimo:
      return importe(a.minimo);
    case Campo::Hasta1:
      return VerCantidad(ajustes.idioma, a.hasta1, a.cada);
    case Campo::Hasta2:
      return VerCantidad(ajustes.idioma, a.hasta2, a.cada);
    case Campo::Depto:
      return QString::number(a.depto);
    case Campo::Barras:
      return primera(kTxClasesBarras + a.barras, t);
    case Campo::PfxBar:
      return a.pfxBar;
    case Campo::CodBarExt:
      return a.codBarExt.value_or(QString());
    case Campo::Descto:
      return VerCantidad(ajustes.idioma, qint64{a.descto} * 10, articles::kPorKilo).chopped(1);
    case Campo::Formato:
      return QString::number(a.formato);
    case Campo::TextoEtq:
      return a.textoEtq.simplified();
    case Campo::Numdias1:
      return QString::number(a.numdias1);
    case Campo::Numdias2:
      return QString::number(a.numdias2);
    case Campo::StkMax:
      return VerCantidad(ajustes.idioma, a.stkMax, a.cada);
    case Campo::StkMin:
      return VerCantidad(ajustes.idioma, a.stkMin, a.cada);
    case Campo::Coste:
      return importe(a.coste);
    default:
      break;
  }
  const auto i = static_cast<size_t>(campo) - static_cast<size_t>(Campo::Precio);
  return importe(a.precios[i / articles::kTarifas][i % articles::kTarifas]);
}

}  // namespace tarvo::importar
