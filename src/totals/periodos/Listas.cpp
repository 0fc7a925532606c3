#include "totals/periodos/Listas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

dao::Origen listaPeriodos(int tipo) {
  dao::Origen o{.desde = u"COLUMNA"_s, .clave = u"COLUMNA.LINK"_s, .orden = u"FECHA1 DESC"_s};
  if (tipo > 0) {
    o.filtro = u"TIPO=?"_s;
    o.parametros = {tipo};
  }
  return o;
}

dao::Origen listaFilas(const FiltroFilas& filtro) {
  Condicion c = filtro.condicion();
  const bool horas = filtro.clase == TipoTotal::OperHora;
  return {.desde = fuenteFilas(filtro.clase, false),
          .filtro = std::move(c.sql),
          .parametros = std::move(c.valores),
          .clave = u"t.rowid"_s,
          .orden = horas ? u"t.GRUPO, t.CODI, t.HORA"_s : u"t.GRUPO, t.CODI"_s};
}

dao::Origen listaDeCodigo(const FiltroCodigo& filtro) {
  Condicion c = filtro.condicion();
  dao::Origen o{.desde = fuenteFilas(filtro.clase, true),
                .filtro = std::move(c.sql),
                .parametros = std::move(c.valores),
                .orden = u"COLUMNA.FECHA1 DESC"_s};
  if (filtro.grupo)
    o.clave = u"t.rowid"_s;
  else
    o.agrupado = u"COLUMNA.FECHA1, COLUMNA.FECHAF, "_s + nombreFilas(filtro.clase);
  return o;
}

QString columnaFila(CampoFila campo) {
  switch (campo) {
    case CampoFila::Seccion:
      return u"GRUPOS.SECCION"_s;
    case CampoFila::Grupo:
      return u"t.GRUPO"_s;
    case CampoFila::Codigo:
      return u"t.CODI"_s;
    case CampoFila::Hora:
      return u"t.HORA"_s;
    case CampoFila::Operaciones:
      return u"t.CON"_s;
    case CampoFila::Peso:
      return u"t.PES"_s;
    case CampoFila::Importe:
      return u"t.IMP"_s;
    case CampoFila::Descuento:
      return u"t.SCO"_s;
    case CampoFila::Desde:
      return u"COLUMNA.FECHA1"_s;
    case CampoFila::Hasta:
      return u"COLUMNA.FECHAF"_s;
  }
  std::unreachable();
}

QString columnaSumada(CampoFila campo) {
  return u"sum("_s + columnaFila(campo) + u')';
}

QString columnaCuantas() {
  return u"count("_s + columnaFila(CampoFila::Operaciones) + u')';
}

}  // namespace tarvo::totals
