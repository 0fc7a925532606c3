#include "articles/precios/Listas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

dao::Origen listaOfertas(const FiltroOfertas& filtro) {
  Condicion c = filtro.condicion();
  return {.desde =
              u"OFERTAS LEFT JOIN PLUSES ON (OFERTAS.SECCION=PLUSES.SECCION) and "
              u"(OFERTAS.CODIGO=PLUSES.CODPLU)"_s,
          .filtro = std::move(c.sql),
          .parametros = std::move(c.parametros),
          .clave = u"OFERTAS.rowid"_s,
          .orden = columnaOferta(CampoOferta::Codigo)};
}

QString columnaOferta(CampoOferta campo) {
  switch (campo) {
    case CampoOferta::Grupo:
      return u"OFERTAS.GRUPO"_s;
    case CampoOferta::Seccion:
      return u"OFERTAS.SECCION"_s;
    case CampoOferta::Codigo:
      return u"OFERTAS.CODIGO"_s;
  }
  std::unreachable();
}

dao::Origen listaRapida(int seccion) {
  return {.desde = u"PLUSES"_s,
          .filtro = u"SECCION=? AND CODPLU>=?"_s,
          .parametros = {seccion, articles::kPrimerCodigo},
          .clave = u"PLUSES.rowid"_s,
          .orden = u"CODPLU"_s};
}

}  // namespace tarvo::precios
